// The elevation model of the country and its neighbours, and its drainage.
#pragma once

#include <vector>

#include "numbers/grid.h"
#include "terrain/coast.h"
#include "terrain/plan.h"

namespace atelier {

/// Where water goes on a field of heights.
struct Drainage {
  /// For each cell the cell that its water flows to, itself at the sea's edge.
  std::vector<std::size_t> receiver;
  /// All cells of the land from the mouths upward: every cell stands behind its receiver.
  std::vector<std::size_t> order;
  /// Land drained through the cell, in square map pixels.
  Field area;
};

/// On the fine grid.
struct Terrain {
  /// Metres above the sea; below 0 at sea.
  Field height;
  /// The same with twice the cells a side, as relief is drawn; worn a little further, with the furrows that
  /// the fine grid has no room for.
  Field relief;
  /// Distance to the coast in map pixels, above 0 on land (the signed distance itself, not the noisy one).
  Field inland;
  /// 0 bare to 1 wooded.
  Field wood;
  Drainage drainage;
};

Terrain raise_terrain(const Plan &plan, const Shores &shores);

}  // namespace atelier
