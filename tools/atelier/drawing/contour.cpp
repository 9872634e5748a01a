#include "drawing/contour.h"

#include <utility>

namespace atelier {
namespace {

/// The sides of the square between four cells' centres, each named by the end of its way around: the lines
/// turn with what is above the level on their right, as seen on the screen.
enum class Side { top, right, bottom, left };

class Marcher {
 public:
  Marcher(const Field &field, double level)
      : field_(field), level_(level), next_(2 * static_cast<std::size_t>(columns()) * rows(), none) {}

  Path trace() {
    for (int y = -1; y < field_.height(); ++y)
      for (int x = -1; x < field_.width(); ++x) link_square(x, y);
    Path path;
    for (std::size_t first = 0; first < next_.size(); ++first) {
      if (next_[first] == none) continue;
      std::vector<Point> line;
      for (std::size_t at = first; next_[at] != none; at = std::exchange(next_[at], none))
        line.push_back(crossing(at));
      path.add_polygon(line);
    }
    return path;
  }

 private:
  static constexpr auto none = static_cast<std::size_t>(-1);

  int columns() const { return field_.width() + 2; }
  std::size_t rows() const { return static_cast<std::size_t>(field_.height()) + 2; }

  double above(int x, int y) const { return field_.contains(x, y) ? field_.at(x, y) - level_ : -1; }

  /// Number of the side that leads from cell (x, y) to its right-hand or its lower neighbour.
  std::size_t side(int x, int y, bool down) const {
    return 2 * (static_cast<std::size_t>(y + 1) * static_cast<std::size_t>(columns()) +
                static_cast<std::size_t>(x + 1)) +
           (down ? 1 : 0);
  }
  std::size_t side_of(int x, int y, Side which) const {
    switch (which) {
      case Side::top: return side(x, y, false);
      case Side::right: return side(x + 1, y, true);
      case Side::bottom: return side(x, y + 1, false);
      case Side::left: return side(x, y, true);
    }
    return none;
  }

  Point crossing(std::size_t number) const {
    const std::size_t cell = number / 2;
    const int x = static_cast<int>(cell % static_cast<std::size_t>(columns())) - 1;
    const int y = static_cast<int>(cell / static_cast<std::size_t>(columns())) - 1;
    const bool down = number % 2 == 1;
    const double a = above(x, y);
    const double b = down ? above(x, y + 1) : above(x + 1, y);
    const double t = a / (a - b);
    return {x + 0.5 + (down ? 0 : t), y + 0.5 + (down ? t : 0)};
  }

  void link_square(int x, int y) {
    const double nw = above(x, y), ne = above(x + 1, y), se = above(x + 1, y + 1), sw = above(x, y + 1);
    const bool in[4] = {nw > 0, ne > 0, se > 0, sw > 0};
    // A side where one enters what is above the level on the way around the square, and the next one where
    // one leaves it, are the ends of a line; in a saddle the middle decides which belong together.
    const bool saddle = in[0] == in[2] && in[1] == in[3] && in[0] != in[1];
    const bool joined = saddle && nw + ne + se + sw > 0;
    for (int k = 0; k < 4; ++k) {
      if (in[k] || !in[(k + 1) % 4]) continue;
      int leave = k;
      do leave = (leave + (joined ? 3 : 1)) % 4;
      while (!in[leave] || in[(leave + 1) % 4]);
      next_[side_of(x, y, static_cast<Side>(k))] = side_of(x, y, static_cast<Side>(leave));
    }
  }

  const Field &field_;
  double level_;
  std::vector<std::size_t> next_;
};

}  // namespace

Path contour(const Field &field, double level) {
  return Marcher(field, level).trace();
}

}  // namespace atelier
