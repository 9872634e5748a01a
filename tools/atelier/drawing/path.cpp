#include "drawing/path.h"

#include <algorithm>
#include <cmath>

#include "numbers/math.h"

namespace atelier {
namespace {

/// Chords needed for a Bézier curve whose control points bend by `bend`.
int chords(double bend, double flatness) {
  return std::clamp(static_cast<int>(std::ceil(std::sqrt(bend / flatness))), 1, 200);
}

}  // namespace

double length(Point a) {
  return std::sqrt(a.x * a.x + a.y * a.y);
}

Affine Affine::then(const Affine &other) const {
  const Point x{other.xx * xx + other.xy * yx, other.yx * xx + other.yy * yx};
  const Point y{other.xx * xy + other.xy * yy, other.yx * xy + other.yy * yy};
  const Point d = other.apply({dx, dy});
  return {x.x, y.x, d.x, x.y, y.y, d.y};
}

Affine Affine::rotation(double radians) {
  const double c = cosine(radians);
  const double s = sine(radians);
  return {c, -s, 0, s, c, 0};
}

Point Path::pen() const {
  if (contours_.empty()) return {};
  const Contour &contour = contours_.back();
  return contour.closed ? contour.points.front() : contour.points.back();
}

Path &Path::move_to(Point p) {
  contours_.push_back({{p}, false});
  return *this;
}

Path &Path::line_to(Point p) {
  if (contours_.empty() || contours_.back().closed) move_to(pen());
  contours_.back().points.push_back(p);
  return *this;
}

Path &Path::curve_to(Point c1, Point c2, Point p) {
  const Point from = pen();
  const double bend = std::max(length(from - c1 * 2 + c2), length(c1 - c2 * 2 + p));
  const int n = chords(bend, flatness_);
  for (int i = 1; i <= n; ++i) {
    const double t = static_cast<double>(i) / n;
    const double u = 1 - t;
    line_to(from * (u * u * u) + c1 * (3 * u * u * t) + c2 * (3 * u * t * t) + p * (t * t * t));
  }
  return *this;
}

Path &Path::quad_to(Point c, Point p) {
  const Point from = pen();
  return curve_to(from + (c - from) * (2.0 / 3), p + (c - p) * (2.0 / 3), p);
}

Path &Path::close() {
  if (!contours_.empty()) contours_.back().closed = true;
  return *this;
}

Path &Path::add_polygon(std::span<const Point> corners) {
  if (!corners.empty()) contours_.push_back({{corners.begin(), corners.end()}, true});
  return *this;
}

Path &Path::add_rectangle(double x, double y, double width, double height) {
  const Point corners[] = {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}};
  return add_polygon(corners);
}

Path &Path::add_ellipse(Point c, double rx, double ry) {
  constexpr double k = 0.55228474983079339840;  // Four cubics that keep within 3e-4 of a unit circle.
  move_to({c.x + rx, c.y});
  curve_to({c.x + rx, c.y + k * ry}, {c.x + k * rx, c.y + ry}, {c.x, c.y + ry});
  curve_to({c.x - k * rx, c.y + ry}, {c.x - rx, c.y + k * ry}, {c.x - rx, c.y});
  curve_to({c.x - rx, c.y - k * ry}, {c.x - k * rx, c.y - ry}, {c.x, c.y - ry});
  curve_to({c.x + k * rx, c.y - ry}, {c.x + rx, c.y - k * ry}, {c.x + rx, c.y});
  return close();
}

Path &Path::add(const Path &other) {
  contours_.insert(contours_.end(), other.contours_.begin(), other.contours_.end());
  return *this;
}

Path Path::transformed(const Affine &affine) const {
  Path result = *this;
  for (Contour &contour : result.contours_)
    for (Point &p : contour.points) p = affine.apply(p);
  return result;
}

std::pair<Point, Point> Path::bounds() const {
  if (contours_.empty()) return {};
  Point low = contours_.front().points.front();
  Point high = low;
  for (const Contour &contour : contours_)
    for (const Point p : contour.points) {
      low = {std::min(low.x, p.x), std::min(low.y, p.y)};
      high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
  return {low, high};
}

Path polygon(const std::vector<Point> &corners) {
  return Path().add_polygon(corners);
}

}  // namespace atelier
