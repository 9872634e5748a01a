// The layers of provinces and regions fit the points file to the pixel, meet each other, and have 2x drawings
// of the same shape.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <set>
#include <utility>

#include "content.h"

namespace content {
namespace {

constexpr atelier::Pixel yellow{255, 255, 127, 255};
constexpr atelier::Pixel black{0, 0, 0, 255};

int code_at(const atelier::Grid<int> &grid, int x, int y) {
  return grid.contains(x, y) ? grid.at(x, y) : 0;
}

class Scales : public testing::TestWithParam<int> {
 protected:
  static int scale() { return GetParam(); }
  static const atelier::Grid<int> &grid() { return scale() == 1 ? codes() : fine_codes(); }
};

INSTANTIATE_TEST_SUITE_P(Layers, Scales, testing::Values(1, 2));

/// Where a layer lies on the map, with every pixel asked for by its place there.
class Laid {
 public:
  explicit Laid(Layer layer) : layer_(std::move(layer)) {}
  atelier::Pixel at(int x, int y) const {
    x -= layer_.corner.x;
    y -= layer_.corner.y;
    return layer_.image.contains(x, y) ? layer_.image.at(x, y) : atelier::transparent;
  }
  template <typename Visit>
  void each_pixel(const Visit &visit) const {
    for (int y = 0; y < layer_.image.height(); ++y)
      for (int x = 0; x < layer_.image.width(); ++x) visit(layer_.corner.x + x, layer_.corner.y + y);
  }

 private:
  Layer layer_;
};

const std::vector<Laid> &outlines(int scale) {
  static const auto all = [] {
    std::array<std::vector<Laid>, 2> result;
    for (const int s : {1, 2})
      for (int p = 0; p <= provinces; ++p)
        result[static_cast<std::size_t>(s - 1)].emplace_back(p == 0 ? Layer{} : province_layer(p, s, false));
    return result;
  }();
  return all[static_cast<std::size_t>(scale - 1)];
}

const Laid &outline(int province, int scale) {
  return outlines(scale)[static_cast<std::size_t>(province)];
}

TEST(Layers, ATerritoryIsOpaqueAndOnlyItsLineLiesBeyondIt) {
  for (int p = 1; p <= provinces; ++p) {
    const Laid layer(province_layer(p, 1, true));
    int missing = 0;
    for (const int code : codes()) missing += code == p ? 1 : 0;
    layer.each_pixel([&](int x, int y) {
      const atelier::Pixel pixel = layer.at(x, y);
      const int code = code_at(codes(), x, y);
      if (code == p) {
        ASSERT_EQ(pixel.a, 255) << "province " << p;
        --missing;
      } else if (pixel.a != 0) {
        ASSERT_EQ(pixel, black) << "province " << p;
        ASSERT_GT(code, p) << "the line between two provinces lies on the higher number";
      }
    });
    EXPECT_EQ(missing, 0) << "pixels of province " << p << " outside its layer";
  }
}

TEST(Layers, ALayerHasAPixelOfRoomAroundItsProvince) {
  for (int p = 1; p <= provinces; ++p) {
    const Layer layer = province_layer(p, 1, true);
    std::array<int, 4> room{1 << 30, 1 << 30, 1 << 30, 1 << 30};
    for (int y = 0; y < layer.image.height(); ++y)
      for (int x = 0; x < layer.image.width(); ++x) {
        if (code_at(codes(), layer.corner.x + x, layer.corner.y + y) != p) continue;
        room[0] = std::min(room[0], x);
        room[1] = std::min(room[1], y);
        room[2] = std::min(room[2], layer.image.width() - 1 - x);
        room[3] = std::min(room[3], layer.image.height() - 1 - y);
      }
    for (const int r : room) EXPECT_EQ(r, 1) << "province " << p;
  }
}

TEST_P(Scales, FillIsPaleYellowAndOutlineBlack) {
  for (int p = 1; p <= provinces; ++p) {
    const Laid filled(province_layer(p, scale(), true));
    filled.each_pixel([&](int x, int y) {
      const atelier::Pixel f = filled.at(x, y);
      const atelier::Pixel o = outline(p, scale()).at(x, y);
      ASSERT_TRUE(o.a == 0 || (o.r == 0 && o.g == 0 && o.b == 0)) << "province " << p;
      // The line is laid over the yellow in proportion to its opacity; half transparent pixels are line
      // alone.
      ASSERT_EQ(f.r, f.g) << "province " << p;
      ASSERT_NEAR(f.b, f.r * 127 / 255, 1) << "province " << p;
      if (f.a == 255)
        ASSERT_NEAR(f.r, 255 - o.a, 2) << "province " << p;
      else
        ASSERT_NEAR(f.a, o.a, 2) << "province " << p;
      if (scale() == 1) ASSERT_TRUE(f.a == 0 || f == yellow || f == black) << "province " << p;
    });
  }
}

TEST_P(Scales, EveryOutlineIsClosed) {
  for (int p = 1; p <= provinces; ++p) {
    const Laid filled(province_layer(p, scale(), true));
    const auto is_line = [&](int x, int y) { return outline(p, scale()).at(x, y).a >= 128; };
    const auto is_inside = [&](int x, int y) { return filled.at(x, y).a == 255 && !is_line(x, y); };
    int bare = 0;
    int inside = 0;
    filled.each_pixel([&](int x, int y) {
      if (!is_inside(x, y)) return;
      ++inside;
      for (std::size_t k = 0; k < atelier::side_neighbours; ++k) {
        const int nx = x + atelier::neighbours[k].x;
        const int ny = y + atelier::neighbours[k].y;
        bare += is_inside(nx, ny) || is_line(nx, ny) ? 0 : 1;
      }
    });
    EXPECT_GT(inside, 200 * scale() * scale()) << "province " << p;
    EXPECT_EQ(bare, 0) << "bare border of province " << p;
  }
}

TEST_P(Scales, NoOutlineIsThickerThanItsWeight) {
  for (int p = 1; p <= provinces; ++p) {
    const Laid &line = outline(p, scale());
    int thick = 0;
    line.each_pixel([&](int x, int y) {
      // A square of so many pixels a side finds room in no line, but for where two meet in a sharp corner.
      const int side = scale() + 1;
      bool filled = true;
      for (int j = 0; j < side && filled; ++j)
        for (int i = 0; i < side && filled; ++i) filled = line.at(x + i, y + j).a >= 200;
      thick += filled ? 1 : 0;
    });
    EXPECT_LE(thick, 1) << "province " << p;
  }
}

TEST(Layers, NeighboursDrawTheSameLine) {
  long borders = 0;
  for (int y = 0; y < map_height; ++y)
    for (int x = 0; x < map_width; ++x)
      for (const auto &[dx, dy] : {std::pair{1, 0}, {0, 1}}) {
        const int here = codes().at(x, y);
        const int other = code_at(codes(), x + dx, y + dy);
        if (here == other || here == 0 || other == 0) continue;
        ++borders;
        const atelier::Cell high = here > other ? atelier::Cell{x, y} : atelier::Cell{x + dx, y + dy};
        for (const int p : {here, other})
          ASSERT_EQ(outline(p, 1).at(high.x, high.y), black) << x << ", " << y << ", province " << p;
      }
  EXPECT_GT(borders, 5000);
}

/// How wide lines are that run along the borders of labels, by direction. The lines' opacity is summed across
/// the border at every place where it runs straight between two labels with nothing else near.
class Widths {
 public:
  /// Borders "|", "-", "\\" and "/"; each direction a quarter turn wide.
  static constexpr std::array<const char *, 4> directions{"|", "-", "\\", "/"};

  Widths(const atelier::Grid<int> &labels, const atelier::Field &opacity, int reach)
      : labels_(labels), opacity_(opacity), reach_(reach) {
    for (int y = reach; y + reach < labels.height(); ++y)
      for (int x = reach + 1; x + reach < labels.width(); ++x) {
        look(x, y, false);
        look(x, y, true);
      }
  }

  /// Mean width square to the line.
  double width(std::size_t direction) const {
    return sums_[direction] / static_cast<double>(counts_[direction]);
  }
  long count(std::size_t direction) const { return counts_[direction]; }

 private:
  int label(int x, int y, bool turned) const { return turned ? labels_.at(y, x) : labels_.at(x, y); }
  double opacity(int x, int y, bool turned) const { return turned ? opacity_.at(y, x) : opacity_.at(x, y); }

  /// The border whose one side begins at (x, y), followed up and down; `turned` looks at it with the axes
  /// changed.
  void look(int x, int y, bool turned) {
    if (turned) std::swap(x, y);
    const int width = turned ? labels_.height() : labels_.width();
    const int b = label(x, y, turned);
    const int a = label(x - 1, y, turned);
    if (a == b || a == 0 || b == 0) return;
    double sum = 0;
    std::vector<int> edges;
    for (int j = -reach_; j <= reach_; ++j) {
      int edge = 0;
      for (int i = -2 * reach_; i <= 2 * reach_; ++i) {
        if (x + i < 1 || x + i >= width) return;
        const int here = label(x + i, y + j, turned);
        const int before = label(x + i - 1, y + j, turned);
        if ((here != a && here != b) || (here != before && (edge != 0 || before != a))) return;
        if (here != before) edge = x + i;
        sum += opacity(x + i, y + j, turned);
      }
      if (edge == 0 || (!edges.empty() && std::abs(edge - edges.back()) > 1)) return;
      edges.push_back(edge);
    }
    const int rows = 2 * reach_ + 1;
    const double slope = static_cast<double>(edges.back() - edges.front()) / (rows - 1);
    // Steeper than 3 in 8 counts as slanting; more than a diagonal is seen with the axes changed.
    const std::size_t straight = turned ? 1 : 0;
    const std::size_t direction = std::abs(slope) < 0.375 ? straight : slope > 0 ? 2 : 3;
    sums_[direction] += sum / rows / std::sqrt(1 + slope * slope);
    ++counts_[direction];
  }

  const atelier::Grid<int> &labels_;
  const atelier::Field &opacity_;
  int reach_;
  std::array<double, 4> sums_{};
  std::array<long, 4> counts_{};
};

/// Every outline laid on the map together, as opacity.
atelier::Field all_outlines(int scale) {
  atelier::Field drawn(map_width * scale, map_height * scale, 0);
  for (int p = 1; p <= provinces; ++p) {
    const Laid &layer = outline(p, scale);
    layer.each_pixel([&](int x, int y) {
      double &seen = drawn.at(x, y);
      seen = 1 - (1 - seen) * (1 - layer.at(x, y).a / 255.0);
    });
  }
  return drawn;
}

TEST_P(Scales, ALineWeighsTheSameInEveryDirection) {
  const Widths widths(grid(), all_outlines(scale()), 3 * scale());
  for (std::size_t d = 0; d < 4; ++d) {
    EXPECT_GT(widths.count(d), 60) << Widths::directions[d];
    if (scale() == 2) {
      // A little more than a single line's two pixels: where both draw it, its soft edges lie on each other.
      EXPECT_NEAR(widths.width(d), 2.25, 0.15) << Widths::directions[d];
    } else {
      // Whole pixels: one for each row or column that the line crosses, which is a thinner line when it
      // slants.
      const bool slants = d >= 2;
      EXPECT_NEAR(widths.width(d), slants ? 0.84 : 1, 0.1) << Widths::directions[d];
    }
  }
  EXPECT_NEAR(widths.width(2), widths.width(3), 0.05);
  EXPECT_NEAR(widths.width(0), widths.width(1), 0.1);
}

/// Square map pixels that a fine drawing bounds: its yellow and the inner half of its line.
double fine_area(int province) {
  double area = 0;
  const Layer layer = province_layer(province, 2, true);
  for (const atelier::Pixel &pixel : layer.image.pixels())
    area += pixel.a / 255.0 * (1 + pixel.r / 255.0) / 2;
  return area / 4;
}

TEST(Layers, TwiceAsLargeDrawingsHaveTheSameShape) {
  std::vector<double> single(provinces + 1, 0);
  for (const int code : codes()) single[static_cast<std::size_t>(code)] += 1;
  for (int p = 1; p <= provinces; ++p)
    EXPECT_NEAR(fine_area(p) / single[static_cast<std::size_t>(p)], 1, 0.02) << "province " << p;
  for (int p = 1; p <= provinces; ++p) {
    const Layer small = province_layer(p, 1, true);
    const Layer large = province_layer(p, 2, true);
    EXPECT_EQ(large.image.width(), 2 * small.image.width());
    EXPECT_EQ(large.image.height(), 2 * small.image.height());
  }
}

TEST(Layers, TwiceAsLargeDrawingsAreNotEnlargements) {
  int finer = 0;
  for (int p = 1; p <= provinces; ++p) {
    const Layer small = province_layer(p, 1, true);
    const Layer large = province_layer(p, 2, true);
    bool same = true;
    for (int y = 0; y < large.image.height() && same; ++y)
      for (int x = 0; x < large.image.width() && same; ++x)
        same = (large.image.at(x, y).a != 0) == (small.image.at(x / 2, y / 2).a != 0);
    finer += same ? 0 : 1;
  }
  EXPECT_EQ(finer, provinces);
}

/// Pixels of the open sea and of foreign land: all that hangs together with the map's corner. Lakes are not
/// among them.
atelier::Mask open_world(const atelier::Grid<int> &grid) {
  atelier::Mask free(grid.width(), grid.height(), 0);
  for (std::size_t i = 0; i < free.size(); ++i) free[i] = grid[i] == 0;
  std::vector<int> sizes;
  const atelier::Grid<int> numbers = atelier::pieces(free, sizes);
  for (std::size_t i = 0; i < free.size(); ++i) free[i] = numbers[i] == numbers[0];
  return free;
}

TEST_P(Scales, RegionsDrawNoBorderAroundTheLakesInside) {
  atelier::Mask free(grid().width(), grid().height(), 0);
  for (std::size_t i = 0; i < free.size(); ++i) free[i] = grid()[i] == 0;
  std::vector<int> sizes;
  const atelier::Grid<int> waters = atelier::pieces(free, sizes);
  std::vector<std::set<int>> shores(sizes.size());
  const auto each_shore = [&](const auto &visit) {
    for (int y = 0; y < free.height(); ++y)
      for (int x = 0; x < free.width(); ++x)
        for (std::size_t k = 0; k < atelier::side_neighbours && free.at(x, y); ++k) {
          const int nx = x + atelier::neighbours[k].x;
          const int ny = y + atelier::neighbours[k].y;
          const int code = code_at(grid(), nx, ny);
          if (code != 0) visit(static_cast<std::size_t>(waters.at(x, y)), region_of(code), nx, ny);
        }
  };
  each_shore([&](std::size_t water, int region, int, int) { shores[water].insert(region); });

  std::vector<Layer> layers(1);
  for (int r = 1; r <= regions; ++r) layers.push_back(region_layer(r, scale()));
  atelier::Mask near_other(grid().width(), grid().height(), 0);
  for (std::size_t i = 0; i < near_other.size(); ++i) near_other[i] = waters[i] == waters[0];
  const atelier::Field from_outside = atelier::distance_to(near_other);
  int looked_at = 0;
  each_shore([&](std::size_t water, int region, int x, int y) {
    const bool inner_lake = shores[water].size() == 1 && from_outside.at(x, y) > 12 * scale();
    if (!inner_lake) return;
    // Another region may still be near: its border is drawn where it is.
    for (int dy = -4 * scale(); dy <= 4 * scale(); ++dy)
      for (int dx = -4 * scale(); dx <= 4 * scale(); ++dx)
        if (const int code = code_at(grid(), x + dx, y + dy); code != 0 && region_of(code) != region) return;
    const Layer &layer = layers[static_cast<std::size_t>(region)];
    ++looked_at;
    EXPECT_EQ(layer.image.at(x - layer.corner.x, y - layer.corner.y).a, 0) << "region " << region;
  });
  EXPECT_GT(looked_at, 10);
}

/// How much of a highlight's pixel is red line and not casing, 0 to 1.
double redness(const atelier::Pixel &pixel) {
  return pixel.a == 0 ? 0 : std::clamp((228.0 - pixel.g) / (228 - 48), 0.0, 1.0);
}

TEST_P(Scales, ARegionsHighlightIsOneSolidRedLineWithAPaleCasing) {
  const atelier::Mask outer = open_world(grid());
  for (int r = 1; r <= regions; ++r) {
    const Laid layer(region_layer(r, scale()));
    long opaque = 0;
    long inside = 0;
    double red_within = 0;
    double red_beyond = 0;
    layer.each_pixel([&](int x, int y) {
      const atelier::Pixel pixel = layer.at(x, y);
      if (pixel.a != 0) ASSERT_GE(pixel.r, pixel.b) << "region " << r;
      if (code_at(grid(), x, y) == 0 || region_of(grid().at(x, y)) != r) return;
      ++inside;
      opaque += pixel.a >= 128 ? 1 : 0;
      for (std::size_t k = 0; k < atelier::side_neighbours; ++k) {
        const int nx = x + atelier::neighbours[k].x;
        const int ny = y + atelier::neighbours[k].y;
        const int other = code_at(grid(), nx, ny);
        if (!outer.at(nx, ny) && (other == 0 || region_of(other) == r)) continue;
        // The line runs without a gap on one side of the border or the other, with casing or line on both.
        const double within = redness(pixel);
        const double beyond = redness(layer.at(nx, ny));
        ASSERT_GT(std::max(within, beyond), 0.5) << "region " << r << ": gap at " << x << ", " << y;
        ASSERT_GT(pixel.a, 250) << "region " << r;
        if (other == 0) continue;
        red_within += within;
        red_beyond += beyond;
      }
    });
    EXPECT_NEAR(red_within, red_beyond, 0.1 * red_within) << "region " << r << " is not centred";
    EXPECT_LT(opaque, inside / 4) << "region " << r << " is not open inside";
  }
}

TEST_P(Scales, TheHighlightsOfTwoRegionsShareTheirLine) {
  atelier::Field red(grid().width(), grid().height(), 0);
  for (int r = 1; r <= regions; ++r) {
    const Laid layer(region_layer(r, scale()));
    layer.each_pixel([&](int x, int y) {
      const atelier::Pixel pixel = layer.at(x, y);
      red.at(x, y) += (redness(pixel) - red.at(x, y)) * pixel.a / 255;
    });
  }
  atelier::Grid<int> labels = grid();
  for (std::size_t i = 0; i < labels.size(); ++i) labels[i] = labels[i] == 0 ? 0 : region_of(labels[i]);
  const Widths widths(labels, red, 3 * scale());
  for (std::size_t d = 0; d < 4; ++d) {
    EXPECT_GT(widths.count(d), 20) << Widths::directions[d];
    if (scale() == 2)
      EXPECT_NEAR(widths.width(d), 2.8, 0.15) << Widths::directions[d];
    else
      EXPECT_NEAR(widths.width(d), 1.85, 0.2) << Widths::directions[d];
  }
}

}  // namespace
}  // namespace content
