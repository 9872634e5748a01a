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

/// Sideways swing of rivers, in map pixels: wide in flat land, and a little in the hills, where the grid's
/// eight directions would show.
constexpr double flat_swing = 2.4;
constexpr double steep_swing = 1.3;

void meander(std::vector<Point> &line, const Field &height, std::uint64_t seed) {
  for (std::size_t i = 1; i + 1 < line.size(); ++i) {
    const Point p = line[i];
    const double flat = 1 - smooth_step(20, 160, sampled(height, p.x * fine, p.y * fine));
    const double ends =
        std::min({1.0, static_cast<double>(i) / 14, static_cast<double>(line.size() - 1 - i) / 14});
    const double swing = ends * mix(steep_swing, flat_swing, flat);
    line[i].x += swing * fractal_noise(seed + 61, p.x, p.y, 11, 2);
    line[i].y += swing * fractal_noise(seed + 62, p.x, p.y, 11, 2);
  }
}

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
      if (d.area[i] >= smallest_ && terrain_.height[d.receiver[i]] < 0) follow(d.receiver[i], i);
    return rivers_;
  }

 private:
  /// Follows the greatest water upward from `first`, with `joined` as the point where the river ends; then
  /// the tributaries.
  void follow(std::size_t joined, std::size_t first) {
    const Drainage &d = terrain_.drainage;
    River river;
    river.line.push_back(centre(terrain_.height, joined));
    river.widths.push_back(width(first));
    std::vector<std::pair<std::size_t, std::size_t>> tributaries;
    for (std::size_t i = first;;) {
      river.line.push_back(centre(terrain_.height, i));
      river.widths.push_back(width(i));
      const auto &above = donors_[i];
      if (above.empty()) break;
      const std::size_t main = *std::max_element(
          above.begin(), above.end(), [&d](std::size_t a, std::size_t b) { return d.area[a] < d.area[b]; });
      for (const std::size_t other : above)
        if (other != main) tributaries.emplace_back(i, other);
      i = main;
    }
    constexpr std::size_t shortest = 12;
    if (river.line.size() >= shortest) {
      smooth(river.line, 10);
      meander(river.line, terrain_.height, plan_.seed);
      rivers_.push_back(river);
    }
    for (const auto &[at, from] : tributaries) follow(at, from);
  }

  double width(std::size_t i) const { return 0.42 + 0.0058 * std::sqrt(terrain_.drainage.area[i]); }

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
    const Point q{p.x + 3 * ends * fractal_noise(seed + 71, p.x, p.y, 16, 3),
                  p.y + 3 * ends * fractal_noise(seed + 72, p.x, p.y, 16, 3)};
    river.line.push_back(q);
    const double t = clamp01(static_cast<double>(i) / static_cast<double>(line.size() - longest_way_on));
    river.widths.push_back(mix(arm.first_width, arm.last_width, t));
    if (sampled(land, q.x * fine, q.y * fine) < -0.7) break;
  }
  return river;
}

}  // namespace

std::vector<River> trace_rivers(const Plan &plan, const Terrain &terrain, const Shores &shores,
                                double smallest_area) {
  std::vector<River> rivers = Tracer(plan, terrain, smallest_area).all();
  for (const Delta_arm &arm : plan.arms) {
    River river = arm_of(arm, shores.land, plan.seed);
    // The first point of an arm lies on the river as traced, not as wished for.
    Point nearest = river.line.front();
    double best = 1e30;
    for (const River &other : rivers)
      for (const Point p : other.line) {
        const double dx = p.x - river.line.front().x;
        const double dy = p.y - river.line.front().y;
        if (dx * dx + dy * dy < best) {
          best = dx * dx + dy * dy;
          nearest = p;
        }
      }
    river.line.insert(river.line.begin(), nearest);
    river.widths.insert(river.widths.begin(), arm.first_width);
    smooth(river.line, 6);
    rivers.push_back(river);
  }
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
