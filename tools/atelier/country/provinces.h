// Regions and provinces grown over the terrain.
#pragma once

#include <vector>

#include "files/data.h"
#include "numbers/grid.h"
#include "terrain/coast.h"
#include "terrain/plan.h"
#include "terrain/rivers.h"
#include "terrain/terrain.h"

namespace atelier {

/// Province numbers (1..110, 0 outside) for every pixel of the map.
using Provinces = Grid<int>;

/// Grows the regions from their anchors and in each region as many provinces as the gazetteer says, numbered
/// in any order within the region. Borders keep to crests, watersheds and rivers; each province is one piece.
Provinces grow_provinces(const Plan &plan, const Données &données, const Shores &shores,
                         const Terrain &terrain, const std::vector<River> &rivers);

/// The same provinces on the fine grid.
Provinces fine_provinces(const Provinces &provinces, const Shores &shores);

}  // namespace atelier
