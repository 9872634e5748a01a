// Where land, country, lakes and islands are, on the fine grid of the model.
#pragma once

#include "numbers/grid.h"
#include "terrain/plan.h"

namespace atelier {

/// Cells of the fine grid a map pixel, along one side.
inline constexpr int fine = 2;

/// On the fine grid, `fine` cells a map pixel.
struct Shores {
  /// Signed distance to the coast in map pixels, about: above 0 on land. Smooth, so that lines can be drawn
  /// along 0.
  Field land;
  /// Signed distance to the lakes' shores, above 0 in a lake.
  Field lake;
  /// Above 0 on rocks and on banks of sand, which belong to no province, whether they touch the coast or not.
  Field bank;
  /// Above 0 on our side of the border, on land or sea; the islands are ours.
  Field ours;
  /// 0 on the mainland and at sea, 1.. on the islands of the country.
  Grid<int> island;
};

Shores draw_shores(const Plan &plan);

}  // namespace atelier
