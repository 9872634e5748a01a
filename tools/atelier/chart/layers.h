// The pictures that are laid on the map: a province filled, its outline, a region's highlight.
//
// Every line lies on the border itself, so that two neighbours draw the same one and it is as heavy with both
// shown as with one. At map size a line is cut out of whole pixels; at twice the size it is a stroke with
// soft edges along the smoothed border, equally wide in every direction.
#pragma once

#include <vector>

#include "drawing/image.h"
#include "drawing/raster.h"
#include "numbers/grid.h"

namespace atelier {

/// Rectangle, in map pixels, that a layer covers. Its 2x drawing is exactly twice as large and lies at twice
/// the corner.
struct Frame {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

/// What a layer draws beyond its territory, in map pixels.
inline constexpr int province_margin = 1;
inline constexpr int region_margin = 2;

/// Smallest rectangles around the labels 1..count with a margin on every side. Throws std::runtime_error when
/// one would leave the grid.
std::vector<Frame> frames_of(const Grid<int> &labels, int count, int margin);

/// The province's territory in pale yellow with its outline in black, only the outline when not `filled`, at
/// map size. The line between two provinces lies on the pixels of the higher number, the line along sea,
/// lakes and foreign land on the province's own.
Image draw_province(const Grid<int> &provinces, int province, const Frame &frame, bool filled);

/// The same at twice the size, with the labels of that resolution and the outline centred on every border.
Image draw_fine_province(const Grid<int> &provinces, int province, const Frame &frame, bool filled);

/// The regions with each lake given to the one that has most of its shore, so that no border runs around it.
Grid<int> with_lakes(const Grid<int> &regions);

/// The highlights of all regions: each its border as one dark red line, centred, with a pale casing on both
/// sides; where lines of other regions join it the casing leaves them free.
class Highlights {
 public:
  /// `regions` at the map's size, `fine_regions` at twice.
  Highlights(Grid<int> regions, const Grid<int> &fine_regions, std::vector<Frame> frames);
  /// `scale` 1 with whole pixels, or 2 with soft edges.
  Image draw(int region, int scale) const;

 private:
  const Frame &frame(int region) const { return frames_[static_cast<std::size_t>(region)]; }
  Coverage stroke(int region, double width, int scale) const;
  void close_gaps(Coverage &line, int region) const;

  Grid<int> regions_;
  std::vector<Frame> frames_;
  /// The borders, in pixels of twice the map's size, by region.
  std::vector<Path> borders_;
  /// How much of each pixel the red lines of all regions cover, at map size and at twice.
  std::vector<Grid<float>> red_;
};

}  // namespace atelier
