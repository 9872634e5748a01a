// The path data of SVG.
#include <cctype>
#include <stdexcept>
#include <string>

#include "drawing/path.h"

namespace atelier {
namespace {

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

Path path_from_svg(std::string_view d, double flatness) {
  return Svg_reader(d, flatness).read();
}

}  // namespace atelier
