#include "drawing/raster.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace atelier {
namespace {

constexpr int lines_per_pixel = 16;

struct Crossing {
  double x;
  int winding;
};

/// Adds a span [from, to] of one sample line to the row's coverage.
void add_span(std::span<float> row, double from, double to) {
  from = std::max(from, 0.0);
  to = std::min(to, static_cast<double>(row.size()));
  if (to <= from) return;
  constexpr double weight = 1.0 / lines_per_pixel;
  const auto first = static_cast<std::size_t>(from);
  const auto last = std::min(static_cast<std::size_t>(to), row.size() - 1);
  if (first == last) {
    row[first] += static_cast<float>((to - from) * weight);
    return;
  }
  row[first] += static_cast<float>((static_cast<double>(first + 1) - from) * weight);
  for (std::size_t x = first + 1; x < last; ++x) row[x] += static_cast<float>(weight);
  row[last] += static_cast<float>((to - static_cast<double>(last)) * weight);
}

struct Edge {
  Point top;
  Point bottom;
  int winding;
};

std::vector<Edge> edges_of(const Path &path) {
  std::vector<Edge> edges;
  for (const Contour &contour : path.contours()) {
    const auto &points = contour.points;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const Point a = points[i];
      const Point b = points[(i + 1) % points.size()];
      if (a.y < b.y) edges.push_back({a, b, 1});
      if (a.y > b.y) edges.push_back({b, a, -1});
    }
  }
  return edges;
}

}  // namespace

Coverage coverage(const Path &path, int width, int height, Fill_rule rule) {
  Coverage result{
      width, height,
      std::vector<float>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0.0F)};
  const int lines = height * lines_per_pixel;
  std::vector<std::vector<Crossing>> crossings(static_cast<std::size_t>(lines));
  for (const Edge &edge : edges_of(path)) {
    // Sample line i lies at (i + 0.5) / lines_per_pixel.
    const double from = std::ceil(edge.top.y * lines_per_pixel - 0.5);
    const double to = std::ceil(edge.bottom.y * lines_per_pixel - 0.5);
    const int first = static_cast<int>(std::clamp(from, 0.0, static_cast<double>(lines)));
    const int end = static_cast<int>(std::clamp(to, 0.0, static_cast<double>(lines)));
    const double slope = (edge.bottom.x - edge.top.x) / (edge.bottom.y - edge.top.y);
    for (int line = first; line < end; ++line) {
      const double y = (line + 0.5) / lines_per_pixel;
      crossings[static_cast<std::size_t>(line)].push_back(
          {edge.top.x + (y - edge.top.y) * slope, edge.winding});
    }
  }
  for (int line = 0; line < lines; ++line) {
    auto &row = crossings[static_cast<std::size_t>(line)];
    std::sort(row.begin(), row.end(), [](const Crossing &a, const Crossing &b) {
      return a.x < b.x || (a.x == b.x && a.winding < b.winding);
    });
    const auto offset = static_cast<std::size_t>(line / lines_per_pixel) * static_cast<std::size_t>(width);
    const std::span<float> pixels(result.values.data() + offset, static_cast<std::size_t>(width));
    int winding = 0;
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
      winding += rule == Fill_rule::non_zero ? row[i].winding : 1;
      const bool inside = rule == Fill_rule::non_zero ? winding != 0 : winding % 2 != 0;
      if (inside) add_span(pixels, row[i].x, row[i + 1].x);
    }
  }
  for (float &value : result.values) value = std::min(value, 1.0F);
  return result;
}

void fill(Image &image, const Path &path, Pixel colour, Fill_rule rule) {
  fill(
      image, path, [colour](int, int) { return colour; }, rule);
}

void fill(Image &image, const Path &path, const std::function<Pixel(int, int)> &paint, Fill_rule rule) {
  const Coverage shape = coverage(path, image.width(), image.height(), rule);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (const float c = shape.at(x, y); c > 0) image.at(x, y) = laid_over(image.at(x, y), paint(x, y), c);
}

void fill_within(Image &image, const Path &path, const Coverage &stencil,
                 const std::function<Pixel(int, int)> &paint, Fill_rule rule) {
  const Coverage shape = coverage(path, image.width(), image.height(), rule);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (const float c = shape.at(x, y) * stencil.at(x, y); c > 0)
        image.at(x, y) = laid_over(image.at(x, y), paint(x, y), c);
}

}  // namespace atelier
