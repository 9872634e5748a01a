// The map picture itself: relief, waters and coasts.
#pragma once

#include "drawing/image.h"
#include "terrain/plan.h"
#include "terrain/rivers.h"
#include "terrain/terrain.h"

namespace atelier {

/// Everything that the picture shows.
struct Scene {
  const Plan &plan;
  const Shores &shores;
  const Terrain &terrain;
  const std::vector<River> &rivers;
};

/// The tint of level ground at a height in metres, as the legend shows it.
Pixel height_tint(double height);

/// The map on the fine grid, that is, in its 2x drawing.
Image draw_map(const Scene &scene);

}  // namespace atelier
