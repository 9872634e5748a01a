// Pictures in memory, and the filling of vector shapes into them.
//
// The rasteriser is our own because a drawing must come out the same to the bit on every machine, which a
// toolkit's painter does not promise. Coverage is sampled on 16 lines a pixel, and is exact along each line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace atelier {

/// A colour with its opacity, not premultiplied.
struct Pixel {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;
  std::uint8_t a = 255;
  bool operator==(const Pixel &) const = default;
  bool operator<(const Pixel &other) const {
    return std::tie(r, g, b, a) < std::tie(other.r, other.g, other.b, other.a);
  }
};

inline constexpr Pixel transparent{0, 0, 0, 0};

/// A picture of width x height pixels, row by row from the top.
class Image {
 public:
  Image() = default;
  Image(int width, int height, Pixel colour = transparent);
  int width() const { return width_; }
  int height() const { return height_; }
  bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }
  Pixel &at(int x, int y) { return pixels_[index(x, y)]; }
  const Pixel &at(int x, int y) const { return pixels_[index(x, y)]; }
  std::span<const Pixel> pixels() const { return pixels_; }
  std::span<Pixel> pixels() { return pixels_; }
  bool operator==(const Image &) const = default;

 private:
  std::size_t index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
  }
  int width_ = 0;
  int height_ = 0;
  std::vector<Pixel> pixels_;
};

struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point &) const = default;
};

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

/// The path of an SVG "d" attribute with the commands M L H V C S Q T Z in both cases.
/// Throws std::invalid_argument on anything else, elliptic arcs included (add_ellipse serves for circles).
Path path_from_svg(std::string_view d, double flatness = 0.02);

enum class Fill_rule { non_zero, even_odd };
enum class Cap { butt, round, square };
enum class Join { mitre, round, bevel };

/// The outline of the pen's trace along the path, to be filled with the non-zero rule. Mitres end at 4
/// half-widths.
Path stroked(const Path &path, double width, Cap cap = Cap::round, Join join = Join::round);

/// How much of each pixel a shape covers, 0 to 1, for a picture of the given size.
struct Coverage {
  int width = 0;
  int height = 0;
  std::vector<float> values;
  float at(int x, int y) const {
    return values[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};
Coverage coverage(const Path &path, int width, int height, Fill_rule rule = Fill_rule::non_zero);

/// `over` laid on `under`, its opacity multiplied by `strength`.
Pixel laid_over(Pixel under, Pixel over, double strength = 1);

/// Fills the path with one colour, or with the colour that `paint` gives for the pixel at (x, y).
void fill(Image &image, const Path &path, Pixel colour, Fill_rule rule = Fill_rule::non_zero);
void fill(Image &image, const Path &path, const std::function<Pixel(int, int)> &paint,
          Fill_rule rule = Fill_rule::non_zero);
/// Fills the path where `stencil` lets it, in proportion: the shape is clipped.
void fill_within(Image &image, const Path &path, const Coverage &stencil,
                 const std::function<Pixel(int, int)> &paint, Fill_rule rule = Fill_rule::non_zero);

/// `picture` laid on `image` with its top-left corner at (x, y); what stands out is cut.
void draw(Image &image, const Image &picture, int x, int y);

/// Every block of factor x factor pixels averaged into one, opacity weighing the colours.
Image reduced(const Image &image, int factor);

/// Opacity made 0 or 255, split at `threshold`; the colours of half transparent pixels stay.
Image with_hard_edges(const Image &image, int threshold = 128);

}  // namespace atelier
