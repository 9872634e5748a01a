// Vector shapes: lines of points, whose curves are flattened as they are drawn.
#pragma once

#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace atelier {

struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point &) const = default;
};

constexpr Point operator+(Point a, Point b) {
  return {a.x + b.x, a.y + b.y};
}
constexpr Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}
constexpr Point operator*(Point a, double k) {
  return {a.x * k, a.y * k};
}
double length(Point a);

/// x' = xx x + xy y + dx, y' = yx x + yy y + dy.
struct Affine {
  double xx = 1, xy = 0, dx = 0;
  double yx = 0, yy = 1, dy = 0;

  Point apply(Point p) const { return {xx * p.x + xy * p.y + dx, yx * p.x + yy * p.y + dy}; }
  /// This one first, then the other.
  Affine then(const Affine &other) const;
  static Affine translation(double dx, double dy) { return {1, 0, dx, 0, 1, dy}; }
  static Affine scaling(double sx, double sy) { return {sx, 0, 0, 0, sy, 0}; }
  /// Clockwise on the screen, around the origin.
  static Affine rotation(double radians);
};

/// One line of points; curves are already flattened.
struct Contour {
  std::vector<Point> points;
  bool closed = false;
  bool operator==(const Contour &) const = default;
};

/// A shape made of contours, built like with a pen. Curves are cut into chords that stay within `flatness` of
/// them.
class Path {
 public:
  explicit Path(double flatness = 0.02) : flatness_(flatness) {}
  Path &move_to(Point p);
  Path &line_to(Point p);
  /// Bézier's cubic from the pen's place to p.
  Path &curve_to(Point control1, Point control2, Point p);
  /// Bézier's quadratic from the pen's place to p.
  Path &quad_to(Point control, Point p);
  Path &close();

  Path &add_polygon(std::span<const Point> corners);
  Path &add_rectangle(double x, double y, double width, double height);
  Path &add_ellipse(Point centre, double radius_x, double radius_y);
  Path &add_circle(Point centre, double radius) { return add_ellipse(centre, radius, radius); }
  Path &add(const Path &other);

  Path transformed(const Affine &affine) const;
  const std::vector<Contour> &contours() const { return contours_; }
  bool empty() const { return contours_.empty(); }
  /// Smallest and largest coordinates; both (0, 0) for an empty path.
  std::pair<Point, Point> bounds() const;

 private:
  Point pen() const;
  std::vector<Contour> contours_;
  double flatness_;
};

Path polygon(const std::vector<Point> &corners);

/// The path of an SVG "d" attribute with the commands M L H V C S Q T Z in both cases.
/// Throws std::invalid_argument on anything else, elliptic arcs included (add_ellipse serves for circles).
Path path_from_svg(std::string_view d, double flatness = 0.02);

enum class Cap { butt, round, square };
enum class Join { mitre, round, bevel };

/// The outline of the pen's trace along the path, to be filled with the non-zero rule. Mitres end at 4
/// half-widths.
Path stroked(const Path &path, double width, Cap cap = Cap::round, Join join = Join::round);

}  // namespace atelier
