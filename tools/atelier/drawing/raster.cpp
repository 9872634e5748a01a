#include "drawing/raster.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "numbers/math.h"

namespace atelier {
namespace {

constexpr int lines_per_pixel = 16;

Point operator+(Point a, Point b) {
  return {a.x + b.x, a.y + b.y};
}
Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}
Point operator*(Point a, double k) {
  return {a.x * k, a.y * k};
}
double length(Point a) {
  return std::sqrt(a.x * a.x + a.y * a.y);
}

std::uint8_t to_byte(double value) {
  return static_cast<std::uint8_t>(std::clamp(value + 0.5, 0.0, 255.0));
}

/// Chords needed for a Bézier curve whose control points bend by `bend`.
int chords(double bend, double flatness) {
  return std::clamp(static_cast<int>(std::ceil(std::sqrt(bend / flatness))), 1, 200);
}

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

/// Trace of the pen over one segment, turned the same way whatever the segment's direction.
void add_segment(Path &out, Point a, Point b, double half, bool square_start, bool square_end) {
  const double l = length(b - a);
  if (l == 0) return;
  const Point along = (b - a) * (half / l);
  const Point across{-along.y, along.x};
  const Point from = square_start ? a - along : a;
  const Point to = square_end ? b + along : b;
  const Point corners[] = {from + across, from - across, to - across, to + across};
  out.add_polygon(corners);
}

void add_join(Path &out, Point before, Point at, Point after, double half, Join join) {
  if (join == Join::round) {
    out.add_circle(at, half);
    return;
  }
  const double l1 = length(at - before);
  const double l2 = length(after - at);
  if (l1 == 0 || l2 == 0) return;
  const Point d1 = (at - before) * (1 / l1);
  const Point d2 = (after - at) * (1 / l2);
  const double turn = d1.x * d2.y - d1.y * d2.x;
  if (turn == 0) return;
  const double side = turn > 0 ? -half : half;
  const Point p1 = at + Point{-d1.y, d1.x} * side;
  const Point p2 = at + Point{-d2.y, d2.x} * side;
  std::vector<Point> corners{at, p1};
  const Point middle = (p1 + p2) * 0.5 - at;
  const double m = length(middle);
  if (join == Join::mitre && m * 4 > half) corners.push_back(at + middle * (half * half / (m * m)));
  corners.push_back(p2);
  // All pieces of a stroke turn clockwise, so that none cancels another where they overlap.
  if (turn < 0) std::reverse(corners.begin(), corners.end());
  out.add_polygon(corners);
}

class Svg_reader {
 public:
  Svg_reader(std::string_view d, double flatness) : d_(d), path_(flatness) {}

  Path read() {
    for (skip(); i_ < d_.size(); skip()) {
      if (std::isalpha(static_cast<unsigned char>(d_[i_]))) command_ = d_[i_++];
      step();
    }
    return path_;
  }

 private:
  void skip() {
    while (i_ < d_.size() && (d_[i_] == ' ' || d_[i_] == ',' || d_[i_] == '\n' || d_[i_] == '\t')) ++i_;
  }

  double number() {
    skip();
    const std::size_t start = i_;
    if (i_ < d_.size() && (d_[i_] == '-' || d_[i_] == '+')) ++i_;
    double value = 0;
    bool digits = false;
    for (; i_ < d_.size() && d_[i_] >= '0' && d_[i_] <= '9'; ++i_, digits = true)
      value = value * 10 + (d_[i_] - '0');
    if (i_ < d_.size() && d_[i_] == '.') {
      double divisor = 1;
      double digits_behind = 0;
      for (++i_; i_ < d_.size() && d_[i_] >= '0' && d_[i_] <= '9'; ++i_, digits = true) {
        digits_behind = digits_behind * 10 + (d_[i_] - '0');
        divisor *= 10;
      }
      value += digits_behind / divisor;
    }
    if (!digits) fail();
    return d_[start] == '-' ? -value : value;
  }

  [[noreturn]] void fail() const { throw std::invalid_argument("bad path: " + std::string(d_)); }

  Point point(bool relative) {
    const double x = number();
    const double y = number();
    return relative ? pen_ + Point{x, y} : Point{x, y};
  }

  void step() {
    const bool relative = command_ >= 'a';
    const char kind = relative ? static_cast<char>(command_ - 'a' + 'A') : command_;
    Point control = pen_;
    bool cubic = false;
    bool quadratic = false;
    switch (kind) {
      case 'M':
        pen_ = start_ = point(relative);
        path_.move_to(pen_);
        command_ = relative ? 'l' : 'L';
        break;
      case 'L': path_.line_to(pen_ = point(relative)); break;
      case 'H': path_.line_to(pen_ = {relative ? pen_.x + number() : number(), pen_.y}); break;
      case 'V': path_.line_to(pen_ = {pen_.x, relative ? pen_.y + number() : number()}); break;
      case 'C':
      case 'S': {
        const Point first = kind == 'C' ? point(relative) : last_cubic_ ? pen_ + (pen_ - control_) : pen_;
        control = point(relative);
        const Point end = point(relative);
        path_.curve_to(first, control, end);
        pen_ = end;
        cubic = true;
        break;
      }
      case 'Q':
      case 'T': {
        control = kind == 'Q' ? point(relative) : last_quadratic_ ? pen_ + (pen_ - control_) : pen_;
        const Point end = point(relative);
        path_.quad_to(control, end);
        pen_ = end;
        quadratic = true;
        break;
      }
      case 'Z':
        path_.close();
        pen_ = start_;
        command_ = '\0';
        break;
      default: fail();
    }
    control_ = control;
    last_cubic_ = cubic;
    last_quadratic_ = quadratic;
  }

  std::string_view d_;
  Path path_;
  std::size_t i_ = 0;
  char command_ = '\0';
  Point pen_, start_, control_;
  bool last_cubic_ = false;
  bool last_quadratic_ = false;
};

}  // namespace

Image::Image(int width, int height, Pixel colour)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour) {}

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

Path path_from_svg(std::string_view d, double flatness) {
  return Svg_reader(d, flatness).read();
}

Path stroked(const Path &path, double width, Cap cap, Join join) {
  const double half = width / 2;
  Path out;
  for (const Contour &contour : path.contours()) {
    std::vector<Point> points = contour.points;
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (contour.closed && points.size() > 1 && points.front() == points.back()) points.pop_back();
    const std::size_t n = points.size();
    if (n == 1) {
      if (cap == Cap::round) out.add_circle(points[0], half);
      continue;
    }
    const std::size_t segments = contour.closed ? n : n - 1;
    const bool square = cap == Cap::square && !contour.closed;
    for (std::size_t i = 0; i < segments; ++i)
      add_segment(out, points[i], points[(i + 1) % n], half, square && i == 0, square && i + 1 == segments);
    for (std::size_t i = contour.closed ? 0 : 1; i < (contour.closed ? n : n - 1); ++i)
      add_join(out, points[(i + n - 1) % n], points[i], points[(i + 1) % n], half, join);
    if (cap == Cap::round && !contour.closed) {
      out.add_circle(points.front(), half);
      out.add_circle(points.back(), half);
    }
  }
  return out;
}

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

Pixel laid_over(Pixel under, Pixel over, double strength) {
  const double a = over.a / 255.0 * strength;
  if (a <= 0) return under;
  const double rest = under.a / 255.0 * (1 - a);
  const double sum = a + rest;
  const auto blend = [&](std::uint8_t o, std::uint8_t u) { return to_byte((o * a + u * rest) / sum); };
  return {blend(over.r, under.r), blend(over.g, under.g), blend(over.b, under.b), to_byte(sum * 255)};
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

void draw(Image &image, const Image &picture, int left, int top) {
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (image.contains(left + x, top + y))
        image.at(left + x, top + y) = laid_over(image.at(left + x, top + y), picture.at(x, y));
}

Image reduced(const Image &image, int factor) {
  Image result(image.width() / factor, image.height() / factor);
  for (int y = 0; y < result.height(); ++y)
    for (int x = 0; x < result.width(); ++x) {
      double r = 0, g = 0, b = 0, a = 0;
      for (int dy = 0; dy < factor; ++dy)
        for (int dx = 0; dx < factor; ++dx) {
          const Pixel p = image.at(x * factor + dx, y * factor + dy);
          r += p.r * p.a;
          g += p.g * p.a;
          b += p.b * p.a;
          a += p.a;
        }
      if (a > 0)
        result.at(x, y) = {to_byte(r / a), to_byte(g / a), to_byte(b / a), to_byte(a / (factor * factor))};
    }
  return result;
}

Image with_hard_edges(const Image &image, int threshold) {
  Image result = image;
  for (Pixel &p : result.pixels()) p.a = p.a >= threshold ? 255 : 0;
  return result;
}

}  // namespace atelier
