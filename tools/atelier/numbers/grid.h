// A rectangle of values, one a cell, and what is done with it everywhere.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace atelier {

struct Cell {
  int x = 0;
  int y = 0;
  bool operator==(const Cell &) const = default;
};

template <typename T>
class Grid {
 public:
  Grid() = default;
  Grid(int width, int height, T value = T())
      : width_(width),
        height_(height),
        values_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), value) {}
  int width() const { return width_; }
  int height() const { return height_; }
  std::size_t size() const { return values_.size(); }
  bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }
  std::size_t index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
  }
  Cell cell(std::size_t i) const {
    const auto w = static_cast<std::size_t>(width_);
    return {static_cast<int>(i % w), static_cast<int>(i / w)};
  }
  typename std::vector<T>::reference at(int x, int y) { return values_[index(x, y)]; }
  typename std::vector<T>::const_reference at(int x, int y) const { return values_[index(x, y)]; }
  typename std::vector<T>::reference operator[](std::size_t i) { return values_[i]; }
  typename std::vector<T>::const_reference operator[](std::size_t i) const { return values_[i]; }
  /// The value at the cell, or at the nearest cell of the edge.
  typename std::vector<T>::const_reference near(int x, int y) const {
    return at(std::clamp(x, 0, width_ - 1), std::clamp(y, 0, height_ - 1));
  }
  auto begin() const { return values_.begin(); }
  auto end() const { return values_.end(); }

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<T> values_;
};

using Field = Grid<double>;
/// char, not bool: a bit a cell would be slow and not addressable.
using Mask = Grid<char>;

/// The four neighbours that share a side, then the four at the corners.
inline constexpr std::array<Cell, 8> neighbours = {
    {{1, 0}, {0, 1}, {-1, 0}, {0, -1}, {1, 1}, {-1, 1}, {-1, -1}, {1, -1}}};
inline constexpr std::size_t side_neighbours = 4;

/// Bilinear value at (x, y), where cell (i, j) has its centre at (i + 0.5, j + 0.5).
double sampled(const Field &field, double x, double y);

/// The field on a grid of twice the cells a side.
Field doubled(const Field &field);
/// Means of 2 x 2 cells.
Field halved(const Field &field);

/// Three box filters one after the other, near enough to Gauss's bell of that standard deviation (in cells).
Field blurred(const Field &field, double deviation);

/// For each cell the distance in cells to the nearest cell where the mask is set, 0 on the mask itself.
/// P. Felzenszwalb and D. Huttenlocher, "Distance transforms of sampled functions", 2012. Where no cell is
/// set the distance is very large.
Field distance_to(const Mask &mask);

/// Numbers the pieces of the mask that hang together by sides, from 1; 0 elsewhere. `sizes` gets the cells of
/// each, with sizes[0] = 0.
Grid<int> pieces(const Mask &mask, std::vector<int> &sizes);

}  // namespace atelier
