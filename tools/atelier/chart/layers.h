// The pictures that are laid on the map: a province filled, its outline, a region's highlight.
#pragma once

#include <vector>

#include "drawing/image.h"
#include "numbers/grid.h"

namespace atelier {

/// Smallest rectangle, in map pixels, that holds a territory. Its 2x drawing is exactly twice as large and
/// lies at twice the corner.
struct Frame {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

/// Frames of the labels 1..count.
std::vector<Frame> frames_of(const Grid<int> &labels, int count);

/// The province's territory in pale yellow with its outline in black; only the outline when not `filled`.
/// `scale` is 1 or 2, with the labels of that resolution. Between two provinces the line lies on the right or
/// the lower one alone, so that neighbours share one line; along sea, lakes and foreign land the line lies
/// inside the territory on every side.
Image draw_province(const Grid<int> &provinces, int province, const Frame &frame, int scale, bool filled);

/// The regions with each lake given to the one that has most of its shore, so that no border runs around it.
Grid<int> with_lakes(const Grid<int> &regions);

/// The region's border as a strong warm band that fades inward; its inside is transparent.
Image draw_region(const Grid<int> &regions, int region, const Frame &frame, int scale);

}  // namespace atelier
