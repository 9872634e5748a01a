#include "chart/layers.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <stdexcept>
#include <utility>

#include "drawing/contour.h"

namespace atelier {
namespace {

constexpr Pixel yellow{255, 255, 127, 255};
constexpr Pixel black{0, 0, 0, 255};
constexpr Pixel dark_red{144, 48, 50, 255};
constexpr Pixel casing{243, 228, 200, 255};

/// Widths of lines in map pixels.
constexpr double outline_width = 1;
struct Highlight_width {
  double red = 0;
  double cased = 0;
};
/// Whole pixels need the wider line to lie on either side of the border.
constexpr Highlight_width highlight_width(int scale) {
  return scale == 1 ? Highlight_width{1.7, 3.3} : Highlight_width{1.4, 2.8};
}

/// By how many fine pixels a border is rounded off before it is drawn along: as much as takes the steps out.
constexpr double rounding = 1.2;

int label_at(const Grid<int> &labels, int x, int y) {
  return labels.contains(x, y) ? labels.at(x, y) : 0;
}

/// True when (x, y) lies on the side of a border that bears its line, and the border is one of this
/// province's.
bool on_outline(const Grid<int> &provinces, int province, int x, int y) {
  const int here = label_at(provinces, x, y);
  for (std::size_t k = 0; k < side_neighbours; ++k) {
    const int other = label_at(provinces, x + neighbours[k].x, y + neighbours[k].y);
    if (here == other) continue;
    if (here == province ? other < province : other == province && here > province) return true;
  }
  return false;
}

/// The smoothed border of a label, in pixels of the grid.
Path border_of(const Grid<int> &labels, int label, const Frame &frame, int scale) {
  const int pad = 6;
  const int left = frame.left * scale - pad;
  const int top = frame.top * scale - pad;
  Field inside(frame.width * scale + 2 * pad, frame.height * scale + 2 * pad, 0);
  for (int j = 0; j < inside.height(); ++j)
    for (int i = 0; i < inside.width(); ++i)
      inside.at(i, j) = label_at(labels, left + i, top + j) == label ? 1 : 0;
  return contour(blurred(inside, rounding), 0.5).transformed(Affine::translation(left, top));
}

Path in_frame(const Path &path, const Frame &frame) {
  return path.transformed(Affine::translation(-2 * frame.left, -2 * frame.top));
}

Pixel with_opacity(Pixel colour, double opacity) {
  colour.a = static_cast<std::uint8_t>(std::lround(255 * opacity));
  return opacity > 0 ? colour : transparent;
}

}  // namespace

std::vector<Frame> frames_of(const Grid<int> &labels, int count, int margin) {
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
  std::vector<Frame> frames(1);
  for (auto e = extents.begin() + 1; e != extents.end(); ++e) {
    frames.push_back({e->left - margin, e->top - margin, e->right - e->left + 1 + 2 * margin,
                      e->bottom - e->top + 1 + 2 * margin});
    if (!labels.contains(e->left - margin, e->top - margin) ||
        !labels.contains(e->right + margin, e->bottom + margin))
      throw std::runtime_error("a territory leaves no room on the map for its outline");
  }
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

Image draw_province(const Grid<int> &provinces, int province, const Frame &frame, bool filled) {
  Image image(frame.width, frame.height);
  for (int j = 0; j < image.height(); ++j)
    for (int i = 0; i < image.width(); ++i) {
      const int x = frame.left + i;
      const int y = frame.top + j;
      if (on_outline(provinces, province, x, y))
        image.at(i, j) = black;
      else if (filled && label_at(provinces, x, y) == province)
        image.at(i, j) = yellow;
    }
  return image;
}

Image draw_fine_province(const Grid<int> &provinces, int province, const Frame &frame, bool filled) {
  const Path border = in_frame(border_of(provinces, province, frame, 2), frame);
  Image image(2 * frame.width, 2 * frame.height);
  if (filled) fill(image, border, yellow);
  fill(image, stroked(border, 2 * outline_width, Cap::butt, Join::mitre), black);
  return image;
}

Highlights::Highlights(Grid<int> regions, const Grid<int> &fine_regions, std::vector<Frame> frames)
    : regions_(std::move(regions)), frames_(std::move(frames)), borders_(frames_.size()) {
  for (std::size_t r = 1; r < frames_.size(); ++r)
    borders_[r] = border_of(fine_regions, static_cast<int>(r), frames_[r], 2);
  for (const int scale : {1, 2}) {
    Grid<float> red(regions_.width() * scale, regions_.height() * scale, 0);
    for (int r = 1; r < static_cast<int>(frames_.size()); ++r) {
      const Coverage line = stroke(r, highlight_width(scale).red, scale);
      for (int y = 0; y < line.height; ++y)
        for (int x = 0; x < line.width; ++x) {
          float &most = red.at(frame(r).left * scale + x, frame(r).top * scale + y);
          most = std::max(most, line.at(x, y));
        }
    }
    red_.push_back(std::move(red));
  }
}

Coverage Highlights::stroke(int region, double width, int scale) const {
  const Path border = in_frame(borders_[static_cast<std::size_t>(region)], frame(region));
  const Path line = stroked(border, 2 * width, Cap::butt, Join::mitre);
  Coverage covered = coverage(line.transformed(Affine::scaling(scale / 2.0, scale / 2.0)),
                              frame(region).width * scale, frame(region).height * scale);
  if (scale == 1) {
    for (float &v : covered.values) v = v >= 0.5F ? 1.0F : 0.0F;
    close_gaps(covered, region);
  }
  return covered;
}

/// A tip of land so thin that the smoothed border passes by it still has its line.
void Highlights::close_gaps(Coverage &line, int region) const {
  const Coverage before = line;
  const auto drawn = [&](int i, int j) {
    return i >= 0 && j >= 0 && i < line.width && j < line.height && before.at(i, j) > 0;
  };
  for (int j = 0; j < line.height; ++j)
    for (int i = 0; i < line.width; ++i) {
      const Cell at{frame(region).left + i, frame(region).top + j};
      if (drawn(i, j) || label_at(regions_, at.x, at.y) != region) continue;
      for (std::size_t k = 0; k < side_neighbours; ++k)
        if (label_at(regions_, at.x + neighbours[k].x, at.y + neighbours[k].y) != region &&
            !drawn(i + neighbours[k].x, j + neighbours[k].y))
          line.values[static_cast<std::size_t>(j) * static_cast<std::size_t>(line.width) +
                      static_cast<std::size_t>(i)] = 1;
    }
}

Image Highlights::draw(int region, int scale) const {
  const Coverage line = stroke(region, highlight_width(scale).red, scale);
  const Coverage cased = stroke(region, highlight_width(scale).cased, scale);
  const Grid<float> &red = red_[static_cast<std::size_t>(scale - 1)];
  Image image(line.width, line.height);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const double others = red.at(frame(region).left * scale + x, frame(region).top * scale + y);
      const double own = line.at(x, y);
      const double pale =
          std::max(0.0, static_cast<double>(cased.at(x, y)) - own) * (own > 0 ? 1 : 1 - others);
      if (own + pale <= 0) continue;
      const Pixel mixed = laid_over(with_opacity(casing, 1), dark_red, own / (own + pale));
      image.at(x, y) = with_opacity(mixed, std::min(1.0, own + pale));
    }
  return image;
}

}  // namespace atelier
