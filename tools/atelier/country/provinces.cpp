#include "country/provinces.h"

#include <cmath>

#include "country/growth.h"
#include "drawing/raster.h"
#include "numbers/math.h"

namespace atelier {
namespace {

constexpr int regions_round = 60;
constexpr int provinces_round = 70;

/// Land of the country that is no lake and no bank, on the fine grid.
Mask fine_country(const Shores &shores) {
  Mask mask(shores.land.width(), shores.land.height(), 0);
  for (std::size_t i = 0; i < mask.size(); ++i)
    mask[i] = shores.land[i] > 0 && shores.ours[i] > 0 && shores.lake[i] <= 0 && shores.bank[i] <= 0;
  return mask;
}

/// The same on the map's grid.
Mask country_mask(const Shores &shores) {
  const Field land = halved(shores.land);
  const Field ours = halved(shores.ours);
  const Field lake = halved(shores.lake);
  const Field bank = halved(shores.bank);
  Mask mask(land.width(), land.height(), 0);
  for (std::size_t i = 0; i < mask.size(); ++i)
    mask[i] = land[i] > 0 && ours[i] > 0 && lake[i] <= 0 && bank[i] <= 0;
  return mask;
}

/// Crests, the beds of greater rivers and the surroundings of lakes are dear to cross, so that borders come
/// to lie on them.
Field travelling_cost(const Shores &shores, const Terrain &terrain, const std::vector<River> &rivers) {
  const Field height = halved(terrain.height);
  const Field around = blurred(height, 7);
  Field cost(height.width(), height.height(), 1);
  for (std::size_t i = 0; i < cost.size(); ++i) {
    const double above = (height[i] - around[i]) / (40 + 0.15 * std::abs(around[i]));
    cost[i] = 1 + 4 * smooth_step(0, 1.3, above);
  }
  // A ring around each group of lakes keeps the borders of regions off the shores.
  const Field lake = halved(shores.lake);
  Mask lakes(lake.width(), lake.height(), 0);
  for (std::size_t i = 0; i < lakes.size(); ++i) lakes[i] = lake[i] > 0;
  const Field from_lake = distance_to(lakes);
  for (std::size_t i = 0; i < cost.size(); ++i) {
    const double off_ring = (from_lake[i] - 12) / 4;
    cost[i] += 6 * exponential(-off_ring * off_ring);
  }
  std::vector<River> greater;
  for (const River &river : rivers) {
    River part;
    for (std::size_t i = 0; i < river.line.size() && river.widths[i] > 0.55; ++i) {
      part.line.push_back(river.line[i]);
      part.widths.push_back(river.widths[i]);
    }
    if (part.line.size() > 1) greater.push_back(part);
  }
  const Coverage water = coverage(river_shape(greater, 1.6), cost.width(), cost.height());
  for (std::size_t i = 0; i < cost.size(); ++i) cost[i] += 11 * static_cast<double>(water.values[i]);
  return cost;
}

Grid<int> island_numbers(const Shores &shores) {
  Grid<int> result(largeur_carte, hauteur_carte, 0);
  for (int y = 0; y < result.height(); ++y)
    for (int x = 0; x < result.width(); ++x)
      for (int k = 0; k < fine * fine; ++k)
        result.at(x, y) =
            std::max<int>(result.at(x, y), shores.island.at(x * fine + k % fine, y * fine + k / fine));
  return result;
}

Grid<int> mainland(const Mask &country, const Grid<int> &islands) {
  Mask mask = country;
  for (std::size_t i = 0; i < mask.size(); ++i) mask[i] = country[i] && islands[i] == 0;
  std::vector<int> sizes;
  const Grid<int> numbers = pieces(mask, sizes);
  const auto largest = static_cast<int>(std::max_element(sizes.begin(), sizes.end()) - sizes.begin());
  Grid<int> zone(mask.width(), mask.height(), 0);
  for (std::size_t i = 0; i < mask.size(); ++i) zone[i] = numbers[i] == largest ? 1 : 0;
  return zone;
}

Cell nearest_in(const Grid<int> &zone, int number, Point p) {
  Cell best;
  double best_distance = 1e18;
  for (std::size_t i = 0; i < zone.size(); ++i) {
    if (zone[i] != number) continue;
    const Cell c = zone.cell(i);
    const double d = (c.x - p.x) * (c.x - p.x) + (c.y - p.y) * (c.y - p.y);
    if (d >= best_distance) continue;
    best_distance = d;
    best = c;
  }
  return best;
}

bool is_islands(const Plan &plan, std::size_t region) {
  return plan.anchors[region] == Point{};
}

Grid<int> grow_regions(const Plan &plan, const Données &données, const Field &cost, const Grid<int> &zone) {
  std::vector<Seed> seeds;
  std::vector<double> targets;
  double parts = 0;
  double area = 0;
  for (std::size_t i = 0; i < zone.size(); ++i) area += zone[i] != 0 ? 1 : 0;
  for (std::size_t r = 1; r < données.régions.size(); ++r) {
    if (is_islands(plan, r)) continue;
    const double share = static_cast<double>(données.régions[r].provinces.size()) * plan.spaciousness[r];
    seeds.push_back({nearest_in(zone, 1, plan.anchors[r]), 0});
    targets.push_back(share);
    parts += share;
  }
  for (double &t : targets) t *= area / parts;
  Grid<int> labels = grow_balanced(seeds, targets, cost, zone, regions_round, 0);
  // Labels count the regions of the mainland; the islands come in as themselves.
  std::vector<int> number(1, 0);
  for (std::size_t r = 1; r < données.régions.size(); ++r)
    if (!is_islands(plan, r)) number.push_back(static_cast<int>(r));
  for (std::size_t i = 0; i < labels.size(); ++i) labels[i] = number[static_cast<std::size_t>(labels[i])];
  hand_over_strips(labels, 6, 90);
  smooth_labels(labels, 2.5);
  join_pieces(labels);
  return labels;
}

/// Seeds of a region's provinces, each as far as can be from those before it.
std::vector<Seed> spread_seeds(const Grid<int> &regions, int region, std::size_t count, Random &random) {
  std::vector<Cell> cells;
  for (std::size_t i = 0; i < regions.size(); ++i)
    if (regions[i] == region) cells.push_back(regions.cell(i));
  std::vector<Seed> seeds;
  std::vector<double> nearest(cells.size(), 1e18);
  Cell next = cells[static_cast<std::size_t>(random.below(static_cast<int>(cells.size())))];
  while (seeds.size() < count) {
    seeds.push_back({next, 0});
    double farthest = -1;
    const Cell last = next;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const double dx = cells[i].x - last.x;
      const double dy = steepness * (cells[i].y - last.y);
      nearest[i] = std::min(nearest[i], dx * dx + dy * dy);
      if (nearest[i] > farthest) {
        farthest = nearest[i];
        next = cells[i];
      }
    }
  }
  return seeds;
}

}  // namespace

Provinces grow_provinces(const Plan &plan, const Données &données, const Shores &shores,
                         const Terrain &terrain, const std::vector<River> &rivers) {
  const Mask country = country_mask(shores);
  const Grid<int> islands = island_numbers(shores);
  const Grid<int> zone = mainland(country, islands);
  const Field cost = travelling_cost(shores, terrain, rivers);
  const Grid<int> regions = grow_regions(plan, données, cost, zone);

  std::vector<double> areas(données.régions.size(), 0);
  for (const int r : regions) areas[static_cast<std::size_t>(r)] += 1;
  Random random(plan.seed + 90);
  std::vector<Seed> seeds;
  std::vector<double> targets;
  std::vector<int> number(1, 0);
  for (std::size_t r = 1; r < données.régions.size(); ++r) {
    const auto &provinces = données.régions[r].provinces;
    if (is_islands(plan, r)) continue;
    std::vector<double> sizes;
    double sum = 0;
    for (std::size_t k = 0; k < provinces.size(); ++k) {
      sizes.push_back(random.uniform(0.68, 1.4));
      sum += sizes.back();
    }
    const auto spread = spread_seeds(regions, static_cast<int>(r), provinces.size(), random);
    for (std::size_t k = 0; k < provinces.size(); ++k) {
      seeds.push_back(spread[k]);
      targets.push_back(sizes[k] / sum * areas[r]);
      number.push_back(provinces[k]);
    }
  }
  Provinces result = grow_balanced(seeds, targets, cost, regions, provinces_round, provinces_round / 2);
  for (std::size_t i = 0; i < result.size(); ++i) result[i] = number[static_cast<std::size_t>(result[i])];
  for (int round = 0; round < 2; ++round) smooth_labels(result, 2.0);
  for (std::size_t r = 1; r < données.régions.size(); ++r) {
    if (!is_islands(plan, r)) continue;
    const auto &provinces = données.régions[r].provinces;
    for (std::size_t i = 0; i < result.size(); ++i)
      if (country[i] && islands[i] != 0) result[i] = provinces.at(static_cast<std::size_t>(islands[i]) - 1);
  }
  join_pieces(result);
  return result;
}

Provinces fine_provinces(const Provinces &provinces, const Shores &shores) {
  return doubled_labels(provinces, fine_country(shores));
}

}  // namespace atelier
