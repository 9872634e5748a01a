#include "chart/layers.h"

#include <algorithm>
#include <array>
#include <map>

namespace atelier {
namespace {

constexpr Pixel yellow{255, 255, 127, 255};
constexpr Pixel black{0, 0, 0, 255};

struct Band {
  /// Distance from the border up to which the band reaches, in map pixels.
  double reach = 0;
  Pixel colour;
  /// Only every second pixel, like the squares of a chess board.
  bool sparse = false;
};

/// From the border inward.
constexpr std::array<Band, 3> region_bands = {{
    {1.0, {150, 24, 30, 255}, false},
    {2.0, {226, 92, 36, 255}, false},
    {3.2, {240, 140, 60, 255}, true},
}};

int label_at(const Grid<int> &labels, int x, int y) {
  return labels.contains(x, y) ? labels.at(x, y) : 0;
}

/// True when the border passes within `scale` pixels of (x, y) on a side where this province draws it.
bool on_outline(const Grid<int> &provinces, int province, int x, int y, int scale) {
  for (int d = 1; d <= scale; ++d) {
    if (label_at(provinces, x - d, y) != province || label_at(provinces, x, y - d) != province) return true;
    if (label_at(provinces, x + d, y) == 0 || label_at(provinces, x, y + d) == 0) return true;
  }
  return scale > 1 && label_at(provinces, x - 1, y - 1) != province;
}

/// Distance of every pixel of the frame from the nearest pixel outside the region, in pixels.
Field depth_of(const Grid<int> &regions, int region, const Frame &frame, int scale) {
  Mask outside(frame.width * scale + 2, frame.height * scale + 2, 1);
  for (int y = 0; y < frame.height * scale; ++y)
    for (int x = 0; x < frame.width * scale; ++x)
      outside.at(x + 1, y + 1) = label_at(regions, frame.left * scale + x, frame.top * scale + y) != region;
  return distance_to(outside);
}

}  // namespace

std::vector<Frame> frames_of(const Grid<int> &labels, int count) {
  struct Extent {
    int left = 1 << 30, top = 1 << 30, right = -1, bottom = -1;
  };
  std::vector<Extent> extents(static_cast<std::size_t>(count) + 1);
  for (int y = 0; y < labels.height(); ++y)
    for (int x = 0; x < labels.width(); ++x) {
      Extent &e = extents[static_cast<std::size_t>(labels.at(x, y))];
      e.left = std::min(e.left, x);
      e.right = std::max(e.right, x);
      e.top = std::min(e.top, y);
      e.bottom = std::max(e.bottom, y);
    }
  std::vector<Frame> frames;
  frames.reserve(extents.size());
  for (const Extent &e : extents)
    frames.push_back({e.left, e.top, e.right - e.left + 1, e.bottom - e.top + 1});
  return frames;
}

Grid<int> with_lakes(const Grid<int> &regions) {
  Mask water(regions.width(), regions.height(), 0);
  for (std::size_t i = 0; i < water.size(); ++i) water[i] = regions[i] == 0;
  std::vector<int> sizes;
  const Grid<int> numbers = pieces(water, sizes);
  std::vector<std::map<int, int>> shores(sizes.size());
  for (int y = 0; y < regions.height(); ++y)
    for (int x = 0; x < regions.width(); ++x) {
      if (numbers.at(x, y) == 0) continue;
      for (std::size_t k = 0; k < side_neighbours; ++k)
        if (const int r = label_at(regions, x + neighbours[k].x, y + neighbours[k].y); r != 0)
          ++shores[static_cast<std::size_t>(numbers.at(x, y))][r];
    }
  const int open_water = numbers.at(0, 0);
  std::vector<int> owner(sizes.size(), 0);
  for (std::size_t n = 1; n < owner.size(); ++n) {
    if (static_cast<int>(n) == open_water || shores[n].empty()) continue;
    owner[n] = std::max_element(shores[n].begin(), shores[n].end(), [](const auto &a, const auto &b) {
                 return a.second < b.second;
               })->first;
  }
  Grid<int> result = regions;
  for (std::size_t i = 0; i < result.size(); ++i)
    if (numbers[i] != 0) result[i] = owner[static_cast<std::size_t>(numbers[i])];
  return result;
}

Image draw_province(const Grid<int> &provinces, int province, const Frame &frame, int scale, bool filled) {
  Image image(frame.width * scale, frame.height * scale);
  for (int j = 0; j < image.height(); ++j)
    for (int i = 0; i < image.width(); ++i) {
      const int x = frame.left * scale + i;
      const int y = frame.top * scale + j;
      if (provinces.at(x, y) != province) continue;
      if (on_outline(provinces, province, x, y, scale))
        image.at(i, j) = black;
      else if (filled)
        image.at(i, j) = yellow;
    }
  return image;
}

Image draw_region(const Grid<int> &regions, int region, const Frame &frame, int scale) {
  const Field depth = depth_of(regions, region, frame, scale);
  Image image(frame.width * scale, frame.height * scale);
  for (int j = 0; j < image.height(); ++j)
    for (int i = 0; i < image.width(); ++i) {
      const double d = depth.at(i + 1, j + 1) / scale;
      if (d <= 0) continue;
      const auto band =
          std::find_if(region_bands.begin(), region_bands.end(), [d](const Band &b) { return d <= b.reach; });
      if (band == region_bands.end()) continue;
      const int x = frame.left * scale + i;
      const int y = frame.top * scale + j;
      if (!band->sparse || (x + y) % 2 == 0) image.at(i, j) = band->colour;
    }
  return image;
}

}  // namespace atelier
