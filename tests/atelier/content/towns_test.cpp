// The dots of the towns lie inside their provinces and clear of each other.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "content.h"

namespace content {
namespace {

constexpr int dot_width = 7;
constexpr int dot_height = 8;

TEST(Towns, DotsLieWhollyInsideTheirProvinces) {
  for (std::size_t i = 1; i <= towns; ++i) {
    const Town &town = all_towns()[i];
    for (int y = town.y - 4; y < town.y - 4 + dot_height; ++y)
      for (int x = town.x - 4; x < town.x - 4 + dot_width; ++x) {
        ASSERT_TRUE(codes().contains(x, y)) << town.name;
        ASSERT_EQ(codes().at(x, y), town.province) << town.name;
      }
  }
}

TEST(Towns, DotsKeepOffTheLinesOfTheirProvince) {
  constexpr int reach = 8;
  int near = 0;
  for (std::size_t i = 1; i <= towns; ++i) {
    const Town &town = all_towns()[i];
    int nearest = reach * reach;
    for (int y = -reach; y <= reach; ++y)
      for (int x = -reach; x <= reach; ++x)
        if (codes().at(town.x + x, town.y + y) != town.province) nearest = std::min(nearest, x * x + y * y);
    EXPECT_GE(nearest, 5 * 5) << town.name;
    near += nearest < 6 * 6 ? 1 : 0;
  }
  // A narrow province, or one that must show its town at the water, leaves no more.
  EXPECT_LE(near, 8);
}

TEST(Towns, DotsAreThreePixelsClearOfEachOther) {
  for (std::size_t i = 1; i <= towns; ++i)
    for (std::size_t k = i + 1; k <= towns; ++k) {
      const Town &a = all_towns()[i];
      const Town &b = all_towns()[k];
      const int across = std::abs(a.x - b.x) - dot_width;
      const int down = std::abs(a.y - b.y) - dot_height;
      EXPECT_GE(std::max(across, down), 3) << a.name << " and " << b.name;
    }
}

}  // namespace
}  // namespace content
