#include "terrain/terrain.h"

#include <array>
#include <cmath>
#include <functional>
#include <queue>
#include <utility>

#include "numbers/math.h"
#include "numbers/noise.h"

namespace atelier {
namespace {

constexpr double diagonal = 1.41421356237309504880;

/// One resolution of the model while it erodes.
struct Level {
  Field height;
  Field uplift;
  /// How easily the rock is worn, 1 on average.
  Field softness;
  Mask land;
  /// Map pixels a cell.
  double cell = 1;
};

/// The heights with every hollow filled to its lowest sill, and the way of the water over them.
struct Flood {
  std::vector<double> level;
  Drainage drainage;
};

/// Priority flooding (R. Barnes, C. Lehman and D. Mulla, "Priority-flood", 2014). In a hollow the water takes
/// the way by which the flood came in, which leads over its lowest sill.
Flood flooded(const Field &height, const Mask &land) {
  Flood flood;
  Drainage &d = flood.drainage;
  d.receiver.resize(height.size());
  d.order.reserve(height.size());
  using Entry = std::pair<double, std::size_t>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
  std::vector<char> seen(height.size(), 0);
  flood.level.assign(height.size(), 0);
  for (std::size_t i = 0; i < height.size(); ++i) {
    d.receiver[i] = i;
    const Cell c = height.cell(i);
    const bool edge = c.x == 0 || c.y == 0 || c.x == height.width() - 1 || c.y == height.height() - 1;
    if (!land[i] || edge) {
      seen[i] = 1;
      flood.level[i] = land[i] ? height[i] : 0;
    }
  }
  for (std::size_t i = 0; i < height.size(); ++i) {
    if (!seen[i]) continue;
    const Cell c = height.cell(i);
    for (const Cell &n : neighbours)
      if (height.contains(c.x + n.x, c.y + n.y) && !seen[height.index(c.x + n.x, c.y + n.y)]) {
        open.emplace(flood.level[i], i);
        break;
      }
  }
  while (!open.empty()) {
    const auto [level, i] = open.top();
    open.pop();
    if (land[i]) d.order.push_back(i);
    const Cell c = height.cell(i);
    for (const Cell &n : neighbours) {
      if (!height.contains(c.x + n.x, c.y + n.y)) continue;
      const std::size_t k = height.index(c.x + n.x, c.y + n.y);
      if (seen[k]) continue;
      seen[k] = 1;
      d.receiver[k] = i;
      flood.level[k] = std::max<double>(height[k], level);
      open.emplace(flood.level[k], k);
    }
  }
  return flood;
}

/// Drainage by the steepest descent to one of eight neighbours, D8 (J. F. O'Callaghan and D. M. Mark, 1984):
/// one way for all the water of a cell, as rivers are drawn.
Drainage drain(const Field &height, const Mask &land, double cell) {
  Flood flood = flooded(height, land);
  Drainage &d = flood.drainage;
  for (const std::size_t i : d.order) {
    if (flood.level[i] > height[i] || d.receiver[i] == i) continue;
    const Cell c = height.cell(i);
    double steepest = 0;
    for (std::size_t k = 0; k < neighbours.size(); ++k) {
      const int x = c.x + neighbours[k].x;
      const int y = c.y + neighbours[k].y;
      if (!height.contains(x, y)) continue;
      const std::size_t j = height.index(x, y);
      const double drop = (height[i] - flood.level[j]) / (k < side_neighbours ? 1 : diagonal);
      if (drop > steepest) {
        steepest = drop;
        d.receiver[i] = j;
      }
    }
  }
  d.area = Field(height.width(), height.height(), 0);
  for (auto it = d.order.rbegin(); it != d.order.rend(); ++it) {
    d.area[*it] += cell * cell;
    if (d.receiver[*it] != *it) d.area[d.receiver[*it]] += d.area[*it];
  }
  return std::move(d);
}

/// The water of a cell shared out among all lower neighbours by their steepness (T. G. Freeman, "Calculating
/// catchment area with divergent flow", 1991): slopes that face between two of the eight directions do not
/// fall into the parallel furrows that a single way would cut.
class Shares {
 public:
  Shares(const Field &height, const Flood &flood) : height_(height), flood_(flood) {}

  /// Calls visit(neighbour, share, distance in cells) for each cell that gets water from cell i.
  template <typename Visit>
  void each(std::size_t i, const Visit &visit) const {
    const std::size_t only = flood_.drainage.receiver[i];
    const Cell c = height_.cell(i);
    std::array<double, 8> slopes{};
    double sum = 0;
    const bool inner = c.x > 0 && c.y > 0 && c.x + 1 < height_.width() && c.y + 1 < height_.height();
    if (inner && flood_.level[i] <= height_[i])
      for (std::size_t k = 0; k < neighbours.size(); ++k) {
        const double drop =
            flood_.level[i] - flood_.level[height_.index(c.x + neighbours[k].x, c.y + neighbours[k].y)];
        if (drop <= 0) continue;
        // The side of a cell is wider than its corner; the square gathers the water again where the land is
        // hollow.
        const double slope = k < side_neighbours ? drop : drop / diagonal;
        slopes[k] = slope * slope * (k < side_neighbours ? 1 : 0.7);
        sum += slopes[k];
      }
    if (sum == 0) {
      if (only == i) return;
      const Cell o = height_.cell(only);
      visit(only, 1.0, o.x != c.x && o.y != c.y ? diagonal : 1.0);
      return;
    }
    for (std::size_t k = 0; k < neighbours.size(); ++k)
      if (slopes[k] > 0)
        visit(height_.index(c.x + neighbours[k].x, c.y + neighbours[k].y), slopes[k] / sum,
              k < side_neighbours ? 1.0 : diagonal);
  }

 private:
  const Field &height_;
  const Flood &flood_;
};

constexpr double erodibility = 0.018;

/// How a level is worn.
struct Wear {
  double time = 1;
  double erodibility = 0;
  /// Square map pixels that must be drained before water cuts; above them slopes only creep.
  double channel = 0;
  /// Share of the difference to its surroundings that a cell gives up to creep.
  double creep = 0;
};

/// One step of uplift and stream-power erosion, dz/dt = U - K A^0.5 S, solved implicitly from the mouths
/// upward (J. Braun and S. D. Willett, "A very efficient O(n), implicit and parallel method to solve the
/// stream power equation", 2013), here over all ways of the water; then creep of the slopes.
void erode(Level &level, const Wear &wear) {
  const Flood flood = flooded(level.height, level.land);
  const Shares shares(level.height, flood);
  const auto &order = flood.drainage.order;
  Field area(level.height.width(), level.height.height(), 0);
  for (auto it = order.rbegin(); it != order.rend(); ++it) {
    area[*it] += level.cell * level.cell;
    const double from = area[*it];
    shares.each(*it, [&](std::size_t to, double share, double) { area[to] += share * from; });
  }
  Field &z = level.height;
  const Field before = z;
  const Shares ways(before, flood);
  for (const std::size_t i : order) {
    const double power = wear.erodibility * level.softness[i] *
                         std::sqrt(std::max(0.0, static_cast<double>(area[i]) - wear.channel)) * wear.time /
                         level.cell;
    double sum = z[i] + level.uplift[i] * wear.time;
    double weight = 1;
    bool outlet = true;
    ways.each(i, [&](std::size_t to, double share, double distance) {
      const double f = power * share / distance;
      sum += f * (level.land[to] ? static_cast<double>(z[to]) : 0.0);
      weight += f;
      outlet = false;
    });
    if (!outlet) z[i] = sum / weight;
  }
  const Field worn = z;
  for (int y = 1; y + 1 < z.height(); ++y)
    for (int x = 1; x + 1 < z.width(); ++x) {
      if (!level.land.at(x, y)) continue;
      const double sides = worn.at(x - 1, y) + worn.at(x + 1, y) + worn.at(x, y - 1) + worn.at(x, y + 1);
      const double corners =
          worn.at(x - 1, y - 1) + worn.at(x + 1, y - 1) + worn.at(x - 1, y + 1) + worn.at(x + 1, y + 1);
      z.at(x, y) += wear.creep * ((4 * sides + corners) / 20 - worn.at(x, y));
    }
}

/// Height wished for by the hand-drawn crests, metres.
double ridge_height(const Plan &plan, const std::vector<std::vector<Point>> &crests, Point p) {
  double height = 0;
  for (std::size_t i = 0; i < crests.size(); ++i) {
    const Ridge &ridge = plan.ridges[i];
    const double d = distance_to_line(crests[i], p) / ridge.half_width;
    if (d > 4) continue;
    const double h = ridge.height * exponential(-0.72 * d * d);
    height = std::sqrt(height * height + h * h);
  }
  return height;
}

/// A river wished for, as a line with the height of its bed at each point.
struct Bed {
  std::vector<Point> line;
  std::vector<double> heights;
};

struct Valley {
  double distance = 1e9;
  double height = 0;
};

/// The nearest bed and its height there.
Valley valley_at(const std::vector<Bed> &beds, Point p) {
  Valley best;
  for (const Bed &bed : beds)
    for (std::size_t i = 0; i < bed.line.size(); ++i) {
      const double dx = bed.line[i].x - p.x;
      const double dy = bed.line[i].y - p.y;
      const double d = dx * dx + dy * dy;
      if (d < best.distance) best = {d, bed.heights[i]};
    }
  best.distance = std::sqrt(best.distance);
  return best;
}

/// Beds that fall steeply at first and gently at last; a river that ends at one named before it joins it
/// there, at its height, and the others end at the sea.
std::vector<Bed> beds_of(const Plan &plan) {
  constexpr double joining = 14;
  std::vector<Bed> beds;
  for (const River_wish &river : plan.rivers) {
    Bed bed{smooth_line(river.course, 3, false), {}};
    const Valley joined = valley_at(beds, bed.line.back());
    const double mouth = joined.distance < joining ? joined.height : 0;
    for (std::size_t i = 0; i < bed.line.size(); ++i) {
      const double t = 1 - static_cast<double>(i) / static_cast<double>(bed.line.size() - 1);
      bed.heights.push_back(mouth + 30 * t +
                            std::max(0.0, river.source_height - mouth - 30) * t * t * t * t * t);
    }
    beds.push_back(bed);
  }
  return beds;
}

/// 0 on a lake, 1 where the land no longer falls towards it.
double rim_of_basin(const Plan &plan, Point p) {
  double rim = 1;
  for (const Lake &lake : plan.lakes) {
    const double c = cosine(lake.tilt);
    const double s = sine(lake.tilt);
    const Point d = p - lake.centre;
    const double u = (d.x * c + d.y * s) / (lake.half_length + 2);
    const double v = (d.y * c - d.x * s) / (lake.half_width + 2);
    rim = std::min(rim, smooth_step(0, 15, (std::sqrt(u * u + v * v) - 1) * lake.half_width));
  }
  return rim;
}

Mask land_mask(const Field &land) {
  Mask mask(land.width(), land.height(), 0);
  for (std::size_t i = 0; i < land.size(); ++i) mask[i] = land[i] > 0;
  return mask;
}

Field coast_distance(const Mask &land, double cell) {
  Mask sea(land.width(), land.height(), 0);
  for (std::size_t i = 0; i < land.size(); ++i) sea[i] = !land[i];
  Field to_sea = distance_to(sea);
  const Field to_land = distance_to(land);
  for (std::size_t i = 0; i < to_sea.size(); ++i)
    to_sea[i] = cell * (to_sea[i] > 0 ? to_sea[i] - 0.5 : 0.5 - to_land[i]);
  return to_sea;
}

/// The first, coarse relief and the uplift that keeps it up, at two map pixels a cell.
Level first_relief(const Plan &plan, const Shores &shores) {
  Level level;
  level.cell = 2;
  const Field land = halved(halved(shores.land));
  level.land = land_mask(land);
  const Field inland = coast_distance(level.land, level.cell);
  level.height = Field(land.width(), land.height(), 0);
  level.uplift = Field(land.width(), land.height(), 0);
  level.softness = Field(land.width(), land.height(), 1);
  std::vector<std::vector<Point>> crests;
  for (const Ridge &ridge : plan.ridges) crests.push_back(smooth_line(ridge.crest, 4, false));
  const std::vector<Bed> beds = beds_of(plan);
  for (int j = 0; j < land.height(); ++j)
    for (int i = 0; i < land.width(); ++i) {
      if (!level.land.at(i, j)) continue;
      const Point p{(i + 0.5) * level.cell, (j + 0.5) * level.cell};
      const double wx = 16 * fractal_noise(plan.seed + 11, p.x, p.y, 44, 4);
      const double wy = 16 * fractal_noise(plan.seed + 12, p.x, p.y, 44, 4);
      const double ridge = ridge_height(plan, crests, {p.x + wx, p.y + wy});
      const double plain = 12 + 75 * smooth_step(0, 160, inland.at(i, j));
      const double hills = 30 * (0.6 + fractal_noise(plan.seed + 13, p.x, p.y, 60, 5));
      const double basin = mix(0.66, 1, rim_of_basin(plan, p));
      const double cliff = smooth_step(0, 0.3, within(plan.cliffs, p));
      const double wanted = basin *
                            (plain + std::max(0.0, hills) + 70 * cliff +
                             ridge * (0.35 + 1.0 * power(ridged_noise(plan.seed + 14, p.x, p.y, 40, 4), 2))) *
                            smooth_step(-2, mix(14, 3, cliff), inland.at(i, j));
      const Valley valley = valley_at(beds, {p.x + 0.35 * wx, p.y + 0.35 * wy});
      const double open = smooth_step(1, 20, valley.distance);
      level.height.at(i, j) = mix(std::min(wanted, valley.height + 2), wanted, open) +
                              3 * static_cast<double>(hash(plan.seed, i, j) >> 32) / 4294967296.0;
      level.softness.at(i, j) = exponential(1.3 * fractal_noise(plan.seed + 15, p.x, p.y, 24, 3));
      level.uplift.at(i, j) = wanted * (0.25 + 0.75 * open);
    }
  return level;
}

/// The level on a grid of twice the cells a side, with a roughness that is this share of the height.
Level refined(const Level &coarse, const Field &land, double roughness, std::uint64_t seed) {
  Level level;
  level.cell = coarse.cell / 2;
  level.land = land_mask(land);
  level.height = doubled(coarse.height);
  level.uplift = doubled(coarse.uplift);
  level.softness = doubled(coarse.softness);
  for (int j = 0; j < land.height(); ++j)
    for (int i = 0; i < land.width(); ++i) {
      double &h = level.height.at(i, j);
      if (!level.land.at(i, j)) {
        h = 0;
        continue;
      }
      const double rough = roughness * h + 0.6;
      const double x = i * level.cell;
      const double y = j * level.cell;
      h = std::max(0.5, h + rough * fractal_noise(seed, x, y, 7 * level.cell, 3, 0.6));
    }
  return level;
}

void flatten_lakes(Level &level, const Field &lake) {
  Mask mask(lake.width(), lake.height(), 0);
  for (std::size_t i = 0; i < lake.size(); ++i) mask[i] = lake[i] > 0;
  std::vector<int> sizes;
  const Grid<int> numbers = pieces(mask, sizes);
  std::vector<double> surface(sizes.size(), 1e9);
  for (std::size_t i = 0; i < lake.size(); ++i)
    if (numbers[i] != 0) {
      double &s = surface[static_cast<std::size_t>(numbers[i])];
      s = std::min<double>(s, level.height[i]);
    }
  for (std::size_t i = 0; i < lake.size(); ++i)
    if (numbers[i] != 0) level.height[i] = surface[static_cast<std::size_t>(numbers[i])];
}

/// Young cones on the worn land: slopes that steepen towards the rim of a crater, furrowed by the rain.
void raise_volcanoes(Level &level, const Plan &plan, const Field &inland) {
  constexpr double crater = 0.2;
  constexpr double steepening = 1.5;
  for (const Volcano &volcano : plan.volcanoes)
    for (int j = 0; j < level.height.height(); ++j)
      for (int i = 0; i < level.height.width(); ++i) {
        const Point from = Point{(i + 0.5) * level.cell, (j + 0.5) * level.cell} - volcano.foot.centre;
        const double t = length(from) / volcano.foot.radius;
        if (t >= 1 || !level.land.at(i, j)) continue;
        const Point way = from * (2.6 / std::max(0.01, length(from)));
        const double furrow = fractal_noise(plan.seed + 45, way.x, way.y, 1, 2) * smooth_step(crater, 0.5, t);
        const double slope =
            power(1 - std::max(t, 2 * crater - t), steepening) * (1 - 0.3 * furrow * (1 - t));
        double &h = level.height.at(i, j);
        h = std::max(h, volcano.height * slope * smooth_step(0, 4, inland.at(i, j)));
      }
}

/// Worn anew on a finer grid, for the eye alone: rivers and borders keep to the level's own.
Field relief_of(const Level &level, const Shores &shores, std::uint64_t seed) {
  Level finest = refined(level, doubled(shores.land), 0.045, seed);
  for (int step = 0; step < 4; ++step) erode(finest, {2, erodibility, 0.05, 0.012});
  flatten_lakes(finest, doubled(shores.lake));
  return finest.height;
}

Field woods(const Plan &plan, const Field &height, const Field &inland) {
  Field wood(height.width(), height.height(), 0);
  for (int j = 0; j < height.height(); ++j)
    for (int i = 0; i < height.width(); ++i) {
      if (inland.at(i, j) <= 0) continue;
      const double x = (i + 0.5) / fine;
      const double y = (j + 0.5) / fine;
      double dense = -1;
      for (const Stretch &f : plan.forests) {
        const double dx = x - f.centre.x;
        const double dy = y - f.centre.y;
        dense = std::max(dense, 1 - std::sqrt(dx * dx + dy * dy) / f.radius);
      }
      const double patches = fractal_noise(plan.seed + 21, x, y, 20, 5, 0.7);
      // Slopes too high for the plough bear wood, most of it halfway up.
      const double h = height.at(i, j);
      const double slopes = 0.5 * smooth_step(350, 700, h) * (1 - smooth_step(1150, 1600, h)) - 0.42;
      const double tree_line = 1 - smooth_step(1350, 1750, h);
      wood.at(i, j) = tree_line * smooth_step(-0.12, 0.42, std::max(dense, slopes) + 1.25 * patches) *
                      smooth_step(0.5, 3, inland.at(i, j));
    }
  return wood;
}

/// No water runs over a bank: it is sea to the model, and flat.
Shores without_banks(Shores shores) {
  for (std::size_t i = 0; i < shores.land.size(); ++i)
    shores.land[i] = std::min<double>(shores.land[i], -shores.bank[i]);
  return shores;
}

}  // namespace

Terrain raise_terrain(const Plan &plan, const Shores &whole) {
  const Shores shores = without_banks(whole);
  Level level = first_relief(plan, shores);
  // The uplift is scaled so that the highest crests come to rest near the height that was drawn for them.
  for (std::size_t i = 0; i < level.uplift.size(); ++i) level.uplift[i] *= 0.0017;
  for (int step = 0; step < 120; ++step) erode(level, {2, erodibility, 0, 0.05});
  const Field half = halved(shores.land);
  level = refined(level, half, 0.08, plan.seed + 41);
  for (int step = 0; step < 60; ++step) erode(level, {1, erodibility, 0.3, 0.04});
  level = refined(level, shores.land, 0.08, plan.seed + 42);
  for (int step = 0; step < 18; ++step) erode(level, {2, erodibility, 0.1, 0.02});
  Terrain terrain;
  terrain.inland = coast_distance(level.land, level.cell);
  raise_volcanoes(level, plan, terrain.inland);
  flatten_lakes(level, shores.lake);
  terrain.relief = relief_of(level, shores, plan.seed + 43);
  terrain.drainage = drain(level.height, level.land, level.cell);
  terrain.height = level.height;
  for (std::size_t i = 0; i < terrain.height.size(); ++i)
    if (!level.land[i]) terrain.height[i] = -1;
  terrain.wood = woods(plan, terrain.height, terrain.inland);
  return terrain;
}

}  // namespace atelier
