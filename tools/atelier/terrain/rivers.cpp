#include "terrain/rivers.h"

#include <algorithm>
#include <cmath>

#include "numbers/math.h"
#include "numbers/noise.h"

namespace atelier {
namespace {

Point centre(const Field &field, std::size_t i) {
  const Cell c = field.cell(i);
  return {(c.x + 0.5) / fine, (c.y + 0.5) / fine};
}

/// Takes the steps of the grid out of a line; both ends stay.
void smooth(std::vector<Point> &line, int rounds) {
  for (int round = 0; round < rounds; ++round) {
    const std::vector<Point> before = line;
    for (std::size_t i = 1; i + 1 < line.size(); ++i)
      line[i] = {(before[i - 1].x + 2 * before[i].x + before[i + 1].x) / 4,
                 (before[i - 1].y + 2 * before[i].y + before[i + 1].y) / 4};
  }
}

/// Sideways swing of rivers, in map pixels: in wide and in narrow bends through flat land, and a little in
/// the hills, where the grid's eight directions would show. It hangs on the place alone, so that rivers that
/// meet swing alike.
Point swung(Point p, const Field &height, std::uint64_t seed) {
  const double flat = 1 - smooth_step(20, 150, sampled(height, p.x * fine, p.y * fine));
  const double narrow = mix(1.2, 2.6, flat);
  const double wide = 3.6 * flat;
  return {
      p.x + narrow * fractal_noise(seed + 61, p.x, p.y, 10, 2) + wide * noise(seed + 63, p.x / 27, p.y / 27),
      p.y + narrow * fractal_noise(seed + 62, p.x, p.y, 10, 2) + wide * noise(seed + 64, p.x / 27, p.y / 27)};
}

/// How many points below the place where its water comes in a tributary meets the line of the river: it joins
/// at an acute angle, downstream.
constexpr std::size_t downstream = 5;
/// Points of a tributary that make way for the bend to its mouth.
constexpr std::size_t bend = 10;
/// Points over which a river grows from nothing.
constexpr double youth = 16;

class Tracer {
 public:
  Tracer(const Plan &plan, const Terrain &terrain, double smallest_area)
      : plan_(plan), terrain_(terrain), smallest_(smallest_area), donors_(terrain.height.size()) {
    const Drainage &d = terrain.drainage;
    for (const std::size_t i : d.order)
      if (d.receiver[i] != i && d.area[i] >= smallest_) donors_[d.receiver[i]].push_back(i);
  }

  std::vector<River> all() {
    const Drainage &d = terrain_.drainage;
    for (const std::size_t i : d.order)
      if (d.area[i] >= smallest_ && terrain_.height[d.receiver[i]] < 0) follow(d.receiver[i], i, nullptr);
    return rivers_;
  }

 private:
  /// Follows the greatest water upward from `first`, which flows into `joined`; then the tributaries. `mouth`
  /// is the point where the river ends, or null where that is the sea.
  void follow(std::size_t joined, std::size_t first, const Point *mouth) {
    const Drainage &d = terrain_.drainage;
    River river;
    river.line.push_back(centre(terrain_.height, joined));
    river.widths.push_back(width(first));
    struct Tributary {
      std::size_t at;
      std::size_t from;
      std::size_t position;
    };
    std::vector<Tributary> tributaries;
    for (std::size_t i = first;;) {
      river.line.push_back(centre(terrain_.height, i));
      river.widths.push_back(width(i));
      const auto &above = donors_[i];
      if (above.empty()) break;
      const std::size_t main = *std::max_element(
          above.begin(), above.end(), [&d](std::size_t a, std::size_t b) { return d.area[a] < d.area[b]; });
      for (const std::size_t other : above)
        if (other != main) tributaries.push_back({i, other, river.line.size() - 1});
      i = main;
    }
    constexpr std::size_t shortest = 24;
    if (river.line.size() >= shortest) {
      smooth(river.line, 10);
      // Straight out to sea at the mouth, lest a bend run along the coast.
      for (std::size_t k = 0; k < river.line.size(); ++k) {
        const double free = mouth != nullptr ? 1 : std::min(1.0, static_cast<double>(k) / youth);
        river.line[k] =
            river.line[k] + (swung(river.line[k], terrain_.height, plan_.seed) - river.line[k]) * free;
      }
      if (mouth == nullptr) run_out(river.line);
      if (mouth != nullptr) {
        for (std::size_t k = 0; k < bend; ++k)
          river.line[k] = *mouth + (river.line[bend] - *mouth) * (static_cast<double>(k) / bend);
        smooth(river.line, 6);
      }
      for (std::size_t k = 0; k < river.widths.size(); ++k)
        river.widths[k] *=
            mix(0.3, 1, std::min(1.0, static_cast<double>(river.widths.size() - 1 - k) / youth));
      rivers_.push_back(river);
    }
    const std::vector<Point> line = river.line;
    for (const Tributary &t : tributaries) {
      const Point &meeting = line[t.position > downstream ? t.position - downstream : 0];
      follow(t.at, t.from, &meeting);
    }
  }

  /// Leads the last of a river straight on into the sea; the way of the water over the grid's last cells
  /// often runs along the shore.
  void run_out(std::vector<Point> &line) const {
    constexpr std::size_t last = 12;
    constexpr std::size_t before = 26;
    if (line.size() <= before) return;
    const Point step = (line[last] - line[before]) * (1.0 / (before - last));
    if (length(step) == 0) return;
    constexpr int farthest = 2 * last;
    for (int k = 1; k <= farthest; ++k) {
      const Point out = line[last] + step * k;
      if (sampled(terrain_.height, out.x * fine, out.y * fine) >= 0) continue;
      for (std::size_t i = 0; i < last; ++i)
        line[i] = out + (line[last] - out) * (static_cast<double>(i) / last);
      return;
    }
  }

  double width(std::size_t i) const { return 0.12 + 0.0088 * std::sqrt(terrain_.drainage.area[i]); }

  const Plan &plan_;
  const Terrain &terrain_;
  double smallest_;
  std::vector<std::vector<std::size_t>> donors_;
  std::vector<River> rivers_;
};

/// The arms are drawn by hand from where they leave the river, swung like it; they go on in their last
/// direction until the sea.
River arm_of(const Delta_arm &arm, const Field &land, std::uint64_t seed) {
  constexpr std::size_t longest_way_on = 60;
  std::vector<Point> line = smooth_line(arm.course, 1, false);
  const Point last = line.back();
  const Point before = line[line.size() - 2];
  for (std::size_t k = 1; k <= longest_way_on; ++k) {
    const auto t = static_cast<double>(k);
    line.push_back({last.x + t * (last.x - before.x), last.y + t * (last.y - before.y)});
  }
  River river;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const Point p = line[i];
    const double ends = std::min(1.0, static_cast<double>(i) / 12);
    const Point q{p.x + 5 * ends * fractal_noise(seed + 71, p.x, p.y, 17, 2),
                  p.y + 5 * ends * fractal_noise(seed + 72, p.x, p.y, 17, 2)};
    river.line.push_back(q);
    const double t = clamp01(static_cast<double>(i) / static_cast<double>(line.size() - longest_way_on));
    river.widths.push_back(mix(arm.first_width, arm.last_width, t));
    if (sampled(land, q.x * fine, q.y * fine) < -0.7) break;
  }
  return river;
}

/// Nearest point of a line to p, and how far it is.
struct Nearest {
  std::size_t index = 0;
  double distance = 1e30;
};

Nearest nearest_on(const std::vector<Point> &line, Point p) {
  Nearest best;
  for (std::size_t i = 0; i < line.size(); ++i)
    if (const double d = length(line[i] - p); d < best.distance) best = {i, d};
  return best;
}

/// A stream that would cross an arm of the delta ends in it.
void end_in_arms(std::vector<River> &rivers, const std::vector<River> &arms) {
  constexpr double crossing = 2.2;
  for (River &river : rivers)
    for (const River &arm : arms) {
      std::size_t last = 0;
      Point at;
      for (std::size_t k = 0; k + 1 < river.line.size(); ++k)
        if (const Nearest n = nearest_on(arm.line, river.line[k]); n.distance < crossing) {
          last = k;
          at = arm.line[std::min(n.index + 3, arm.line.size() - 1)];
        }
      if (last == 0) continue;
      river.line.erase(river.line.begin(), river.line.begin() + static_cast<std::ptrdiff_t>(last));
      river.widths.erase(river.widths.begin(), river.widths.begin() + static_cast<std::ptrdiff_t>(last));
      river.line.front() = at;
    }
  std::erase_if(rivers, [](const River &river) { return river.line.size() < 12; });
}

}  // namespace

std::vector<River> trace_rivers(const Plan &plan, const Terrain &terrain, const Shores &shores,
                                double smallest_area) {
  std::vector<River> rivers = Tracer(plan, terrain, smallest_area).all();
  std::vector<River> arms;
  // The greatest river of the country is the one whose arms were drawn.
  const auto size = [](const River &river) {
    return *std::max_element(river.widths.begin(), river.widths.end());
  };
  const auto trunk = [&](Point p) {
    std::size_t best = 0;
    for (std::size_t i = 0; i < rivers.size(); ++i)
      if (nearest_on(rivers[i].line, p).distance < 14 && size(rivers[i]) > size(rivers[best])) best = i;
    return best;
  };
  const std::size_t main = plan.arms.empty() ? rivers.size() : trunk(plan.arms.front().course.front());
  // Where the first arm begins the river as traced ends: in the flat land below, its way over the grid is
  // any.
  if (main < rivers.size()) {
    River &river = rivers[main];
    constexpr std::size_t easing = 10;
    const std::size_t nearest = nearest_on(river.line, plan.arms.front().course.front()).index;
    const auto fork = static_cast<std::ptrdiff_t>(std::min(nearest + easing, river.line.size() - 2));
    river.line.erase(river.line.begin(), river.line.begin() + fork);
    river.widths.erase(river.widths.begin(), river.widths.begin() + fork);
  }
  for (const Delta_arm &arm : plan.arms) {
    River river = arm_of(arm, shores.land, plan.seed);
    // The first point of an arm lies on the river as traced, or on the arm that it leaves, not as wished for.
    const Point wish = river.line.front();
    Nearest best = nearest_on(rivers[main].line, wish);
    Point start = rivers[main].line[best.index];
    for (const River &other : arms)
      if (const Nearest n = nearest_on(other.line, wish); n.distance < best.distance) {
        best = n;
        start = other.line[n.index];
      }
    river.line.insert(river.line.begin(), start);
    river.widths.insert(river.widths.begin(), arm.first_width);
    smooth(river.line, 6);
    arms.push_back(river);
  }
  if (main < rivers.size()) {
    const River trunk_river = rivers[main];
    rivers.erase(rivers.begin() + static_cast<std::ptrdiff_t>(main));
    end_in_arms(rivers, arms);
    rivers.push_back(trunk_river);
  }
  rivers.insert(rivers.end(), arms.begin(), arms.end());
  return rivers;
}

Path river_shape(const std::vector<River> &rivers, double thinnest) {
  Path shape;
  for (const River &river : rivers) {
    for (std::size_t i = 0; i + 1 < river.line.size(); ++i) {
      Path piece;
      piece.move_to(river.line[i]).line_to(river.line[i + 1]);
      const double width = std::max(thinnest, (river.widths[i] + river.widths[i + 1]) / 2);
      shape.add(stroked(piece, width));
    }
  }
  return shape;
}

}  // namespace atelier
