// The rivers as lines, for drawing, for borders that follow them and for towns on their banks.
#pragma once

#include <vector>

#include "terrain/coast.h"
#include "terrain/plan.h"
#include "terrain/terrain.h"

namespace atelier {

/// From the mouth or confluence upward, in map pixels.
struct River {
  std::vector<Point> line;
  /// Width at each point of the line.
  std::vector<double> widths;
};

/// Rivers that drain at least `smallest_area` square map pixels, smoothed, and the arms of the delta.
std::vector<River> trace_rivers(const Plan &plan, const Terrain &terrain, const Shores &shores,
                                double smallest_area);

/// The rivers' water as one shape in map pixels, at least `thinnest` wide.
Path river_shape(const std::vector<River> &rivers, double thinnest);

}  // namespace atelier
