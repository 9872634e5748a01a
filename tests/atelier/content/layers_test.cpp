// The layers of provinces and regions fit the points file to the pixel, meet each other, and have 2x drawings
// of the same shape.
#include <gtest/gtest.h>

#include <array>
#include <set>

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

TEST(Layers, OpaquePixelsAreThoseOfThePointsFile) {
  for (int p = 1; p <= provinces; ++p) {
    const Layer layer = province_layer(p, 1, true);
    int outside = 0;
    for (const int code : codes()) outside += code == p ? 1 : 0;
    for (int y = 0; y < layer.image.height(); ++y)
      for (int x = 0; x < layer.image.width(); ++x) {
        const bool opaque = layer.image.at(x, y).a != 0;
        ASSERT_EQ(opaque, code_at(codes(), layer.corner.x + x, layer.corner.y + y) == p) << "province " << p;
        outside -= opaque ? 1 : 0;
      }
    EXPECT_EQ(outside, 0) << "pixels of province " << p << " outside its layer";
  }
}

TEST(Layers, ALayerIsNoLargerThanItsProvince) {
  for (int p = 1; p <= provinces; ++p) {
    const Layer layer = province_layer(p, 1, true);
    std::array<bool, 4> touched{};
    for (int y = 0; y < layer.image.height(); ++y)
      for (int x = 0; x < layer.image.width(); ++x) {
        if (layer.image.at(x, y).a == 0) continue;
        touched[0] = touched[0] || x == 0;
        touched[1] = touched[1] || y == 0;
        touched[2] = touched[2] || x == layer.image.width() - 1;
        touched[3] = touched[3] || y == layer.image.height() - 1;
      }
    for (const bool t : touched) EXPECT_TRUE(t) << "province " << p;
  }
}

TEST_P(Scales, FillIsPaleYellowAndOutlineBlack) {
  for (int p = 1; p <= provinces; ++p) {
    const Layer filled = province_layer(p, scale(), true);
    const Layer outline = province_layer(p, scale(), false);
    ASSERT_EQ(filled.image.width(), outline.image.width());
    ASSERT_EQ(filled.image.height(), outline.image.height());
    for (int y = 0; y < filled.image.height(); ++y)
      for (int x = 0; x < filled.image.width(); ++x) {
        const atelier::Pixel f = filled.image.at(x, y);
        const atelier::Pixel o = outline.image.at(x, y);
        ASSERT_TRUE(f.a == 0 || f == yellow || f == black) << "province " << p;
        ASSERT_EQ(o.a != 0, f.a != 0 && f == black) << "province " << p;
        ASSERT_TRUE(o.a == 0 || o == black) << "province " << p;
      }
  }
}

/// Every outline laid on the map together.
atelier::Mask all_outlines(int scale) {
  atelier::Mask drawn(map_width * scale, map_height * scale, 0);
  for (int p = 1; p <= provinces; ++p) {
    const Layer layer = province_layer(p, scale, false);
    for (int y = 0; y < layer.image.height(); ++y)
      for (int x = 0; x < layer.image.width(); ++x)
        if (layer.image.at(x, y).a != 0) drawn.at(layer.corner.x + x, layer.corner.y + y) = 1;
  }
  return drawn;
}

TEST_P(Scales, OutlinesOfNeighboursMeetInOneLine) {
  const atelier::Mask drawn = all_outlines(scale());
  for (int y = 0; y < drawn.height(); ++y)
    for (int x = 1; x < drawn.width(); ++x) {
      const int here = grid().at(x, y);
      const int left = grid().at(x - 1, y);
      if (here == left) continue;
      // No gap: whoever stands on the border's right side, or the only land there is, draws it.
      ASSERT_TRUE(here != 0 ? drawn.at(x, y) : drawn.at(x - 1, y)) << x << ", " << y;
    }
  for (int y = 1; y < drawn.height(); ++y)
    for (int x = 0; x < drawn.width(); ++x) {
      const int here = grid().at(x, y);
      const int above = grid().at(x, y - 1);
      if (here == above) continue;
      ASSERT_TRUE(here != 0 ? drawn.at(x, y) : drawn.at(x, y - 1)) << x << ", " << y;
    }
}

TEST_P(Scales, ALineBetweenNeighboursIsNotDoubled) {
  const atelier::Mask drawn = all_outlines(scale());
  // Where a straight border runs between two provinces with nothing else near, only the right one is black.
  long straight = 0;
  long doubled = 0;
  const int reach = 3 * scale();
  for (int y = reach; y + reach < drawn.height(); ++y)
    for (int x = reach; x + reach < drawn.width(); ++x) {
      const int right = grid().at(x, y);
      const int left = grid().at(x - 1, y);
      if (right == left || right == 0 || left == 0) continue;
      bool plain = true;
      for (int dy = -reach; dy <= reach && plain; ++dy)
        for (int dx = 0; dx < reach && plain; ++dx)
          plain = grid().at(x + dx, y + dy) == right && grid().at(x - 1 - dx, y + dy) == left;
      if (!plain) continue;
      ++straight;
      doubled += drawn.at(x - 1, y) ? 1 : 0;
    }
  EXPECT_GT(straight, 20);
  EXPECT_EQ(doubled, 0);
}

TEST(Layers, TwiceAsLargeDrawingsHaveTheSameShape) {
  std::vector<double> single(provinces + 1, 0);
  std::vector<double> twice(provinces + 1, 0);
  for (const int code : codes()) single[static_cast<std::size_t>(code)] += 1;
  for (const int code : fine_codes()) twice[static_cast<std::size_t>(code)] += 0.25;
  for (std::size_t p = 1; p <= provinces; ++p) EXPECT_NEAR(twice[p] / single[p], 1, 0.02) << "province " << p;
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

TEST_P(Scales, RegionsHaveAStrongBorderAndAnOpenInside) {
  const atelier::Mask outer = open_world(grid());
  for (int r = 1; r <= regions; ++r) {
    const Layer layer = region_layer(r, scale());
    long opaque = 0;
    long inside = 0;
    for (int y = 0; y < layer.image.height(); ++y)
      for (int x = 0; x < layer.image.width(); ++x) {
        const int mx = layer.corner.x + x;
        const int my = layer.corner.y + y;
        const int code = grid().at(mx, my);
        const bool drawn = layer.image.at(x, y).a != 0;
        ASSERT_FALSE(drawn && outer.at(mx, my)) << "region " << r << " draws outside the country";
        ASSERT_FALSE(drawn && code != 0 && region_of(code) != r) << "region " << r << " draws on another";
        if (code == 0 || region_of(code) != r) continue;
        ++inside;
        opaque += drawn ? 1 : 0;
        bool edge = false;
        for (std::size_t k = 0; k < atelier::side_neighbours; ++k) {
          const int nx = mx + atelier::neighbours[k].x;
          const int ny = my + atelier::neighbours[k].y;
          const int other = code_at(grid(), nx, ny);
          edge = edge || outer.at(nx, ny) || (other != 0 && region_of(other) != r);
        }
        ASSERT_TRUE(drawn || !edge) << "region " << r << " has a gap in its border";
      }
    EXPECT_LT(opaque, inside * 6 / 10) << "region " << r << " is not open inside";
  }
}

}  // namespace
}  // namespace content
