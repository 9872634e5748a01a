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

/// How free a river is in its way at each point of its line: 1 in the plain, 0 in hills and at a lake, from
/// point to point little changed.
std::vector<double> freedom_along(const std::vector<Point> &line, const Field &height, const Field &lake) {
  std::vector<double> free;
  free.reserve(line.size());
  for (const Point &p : line)
    free.push_back((1 - smooth_step(20, 170, sampled(height, p.x * fine, p.y * fine))) *
                   smooth_step(8, 18, -sampled(lake, p.x * fine, p.y * fine)));
  for (int round = 0; round < 20; ++round)
    for (std::size_t i = 1; i + 1 < free.size(); ++i) free[i] = (free[i - 1] + 2 * free[i] + free[i + 1]) / 4;
  return free;
}

/// In flat land the way over the cells is any: what is kept of it is its drift alone.
void straighten(std::vector<Point> &line, const std::vector<double> &free) {
  constexpr int rounds = 110;
  for (int round = 0; round < rounds; ++round) {
    const std::vector<Point> before = line;
    smooth(line, 1);
    for (std::size_t i = 0; i < line.size(); ++i) line[i] = before[i] + (line[i] - before[i]) * free[i];
  }
}

/// Sideways swing of rivers: narrow in the hills, where the grid's eight directions would show, wide in the
/// plain. It hangs on the place alone.
Point swung(Point p, double flat, std::uint64_t seed) {
  const Point narrow{fractal_noise(seed + 61, p.x, p.y, 10, 2), fractal_noise(seed + 62, p.x, p.y, 10, 2)};
  const Point wide{noise(seed + 66, p.x / 32, p.y / 32), noise(seed + 67, p.x / 32, p.y / 32)};
  return p + narrow * mix(1.2, 0.8, flat) + wide * (5 * flat);
}

/// Points over which a river grows from nothing.
constexpr double youth = 16;

/// Bends where the river is free, the longer the wider it is, and rounder than a wave: the line runs ahead in
/// the bow of a bend and lags between two. They grow from nothing over `ends` points from the mouth.
void meander(River &river, const std::vector<double> &free, double ends, std::uint64_t seed) {
  const std::vector<Point> course = river.line;
  const std::size_t last = course.size() - 1;
  double phase = 40 * noise(seed + 63, course[last].x / 7, course[last].y / 7);
  for (std::size_t k = 1; k < last; ++k) {
    const Point p = course[k];
    const Point way = course[std::min(k + 4, last)] - course[k - std::min<std::size_t>(k, 4)];
    if (length(way) == 0) continue;
    const double usual = 6.5 + 6.5 * river.widths[k];
    const double reach = 1.6 * usual;
    const double wavelength = usual * (1 + 0.4 * noise(seed + 64, p.x / reach, p.y / reach));
    phase += 2 * pi * length(course[k] - course[k - 1]) / wavelength;
    const double lively = std::max(0.0, 0.75 + 0.9 * noise(seed + 65, p.x / reach / 1.5, p.y / reach / 1.5));
    const double height =
        0.165 * wavelength * free[k] * lively * mix(0.6, 1, smooth_step(0.4, 1.5, river.widths[k])) *
        std::min({1.0, static_cast<double>(k) / ends, static_cast<double>(last - k) / youth});
    const Point along = way * (1 / length(way));
    const Point across{-along.y, along.x};
    river.line[k] = p + across * (height * sine(phase)) - along * (0.25 * height * sine(2 * phase));
  }
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

void drop_mouth(River &river, std::size_t points) {
  const auto count = static_cast<std::ptrdiff_t>(points);
  river.line.erase(river.line.begin(), river.line.begin() + count);
  river.widths.erase(river.widths.begin(), river.widths.begin() + count);
}

/// Leads a tributary into a river, where it first meets it or else near `wish`: in a bend that ends
/// downstream at an acute angle.
void join(River &tributary, const River &river, Point wish) {
  constexpr std::size_t downstream = 5;
  auto &line = tributary.line;
  std::size_t met = 0;
  for (std::size_t k = 0; k < line.size(); ++k)
    if (const Nearest n = nearest_on(river.line, line[k]); n.distance < 0.6 + river.widths[n.index] / 2) {
      met = k;
      wish = line[k];
    }
  drop_mouth(tributary, std::min(met, line.size() - 2));
  const std::size_t meeting = nearest_on(river.line, wish).index;
  const std::size_t mouth = meeting - std::min(meeting, downstream);
  const Point end = river.line[mouth];
  const double gap = length(line[std::min<std::size_t>(12, line.size() - 1)] - end);
  const std::size_t bend = std::min(static_cast<std::size_t>(12 + 2 * gap), line.size() - 1);
  const Point upstream = river.line[std::min(mouth + 6, river.line.size() - 1)] - end;
  const Point control =
      end + (line[bend] - end) * 0.3 + upstream * (0.5 * gap / std::max(0.1, length(upstream)));
  for (std::size_t k = 0; k < bend; ++k) {
    const double t = static_cast<double>(k) / static_cast<double>(bend);
    line[k] = end * ((1 - t) * (1 - t)) + control * (2 * t * (1 - t)) + line[bend] * (t * t);
  }
  smooth(line, 6);
}

class Tracer {
 public:
  Tracer(const Plan &plan, const Terrain &terrain, const Shores &shores, double smallest_area)
      : plan_(plan),
        terrain_(terrain),
        shores_(shores),
        smallest_(smallest_area),
        donors_(terrain.height.size()) {
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
  /// Follows the greatest water upward from `first`, which flows into the cell `joined`; then the
  /// tributaries. `parent` is the river that it ends in, or null where that is the sea.
  void follow(std::size_t joined, std::size_t first, const River *parent) {
    const Drainage &d = terrain_.drainage;
    River river;
    river.line.push_back(centre(terrain_.height, joined));
    river.widths.push_back(width(first));
    struct Tributary {
      std::size_t at;
      std::size_t from;
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
        if (other != main) tributaries.push_back({i, other});
      i = main;
    }
    constexpr std::size_t shortest = 24;
    if (river.line.size() >= shortest) {
      draw(river, parent);
      rivers_.push_back(river);
    }
    for (const Tributary &t : tributaries) follow(t.at, t.from, &river);
  }

  /// Makes a river of the way over the cells.
  void draw(River &river, const River *parent) const {
    const Point wish = river.line.front();
    smooth(river.line, 10);
    const std::vector<double> free = freedom_along(river.line, terrain_.height, shores_.lake);
    straighten(river.line, free);
    // Straight out to sea at the mouth, lest a bend run along the coast.
    for (std::size_t k = 0; k < river.line.size(); ++k) {
      const double off_shore = parent != nullptr ? 1 : std::min(1.0, static_cast<double>(k) / youth);
      const Point swing = swung(river.line[k], free[k], plan_.seed) - river.line[k];
      river.line[k] = river.line[k] + swing * off_shore;
    }
    meander(river, free, parent != nullptr ? 6 : 2 * youth, plan_.seed);
    if (parent == nullptr)
      run_out(river.line);
    else if (parent->line.size() > 1)
      join(river, *parent, wish);
    for (std::size_t k = 0; k < river.widths.size(); ++k)
      river.widths[k] *= mix(0.3, 1, std::min(1.0, static_cast<double>(river.widths.size() - 1 - k) / youth));
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
  const Shores &shores_;
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
      drop_mouth(river, last);
      river.line.front() = at;
    }
  std::erase_if(rivers, [](const River &river) { return river.line.size() < 12; });
}

}  // namespace

std::vector<River> trace_rivers(const Plan &plan, const Terrain &terrain, const Shores &shores,
                                double smallest_area) {
  std::vector<River> rivers = Tracer(plan, terrain, shores, smallest_area).all();
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
    drop_mouth(river, std::min(nearest + easing, river.line.size() - 2));
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
    smooth(river.line, 24);
    meander(river, std::vector<double>(river.line.size(), 0.7), youth, plan.seed);
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
