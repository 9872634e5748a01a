// "ardane.pts": its records, its bounds, and the provinces that it draws.
#include <gtest/gtest.h>

#include "content.h"

namespace content {
namespace {

TEST(Points, BeginsWithTheFormatRecord) {
  EXPECT_EQ(records().front().map, 0);
  EXPECT_EQ(records().front().x, 0);
  EXPECT_EQ(records().front().code, 4);
}

TEST(Points, HasAMarkForEveryRowAndAClosingOne) {
  int marks = 0;
  for (std::size_t i = 1; i < records().size(); ++i) {
    EXPECT_EQ(records()[i].map, 0);
    marks += records()[i].x == 0 && records()[i].code == 0 ? 1 : 0;
  }
  EXPECT_EQ(marks, map_height + 1);
  EXPECT_EQ(records()[1].x, 0) << "the first row opens at once";
  EXPECT_EQ(records()[1].code, 0);
  EXPECT_EQ(records().back().x, 0);
  EXPECT_EQ(records().back().code, 0);
}

TEST(Points, FitsTheGamesTableWithThreePercentOfRoom) {
  const std::size_t runs = records().size() - 1 - (map_height + 1);
  EXPECT_GT(runs, 0U);
  EXPECT_LE(runs, 5658U);
}

TEST(Points, RunsRiseAlongARowAndChangeTheProvince) {
  int x = -1;
  int code = 0;
  for (std::size_t i = 1; i < records().size(); ++i) {
    const Record &record = records()[i];
    if (record.x == 0 && record.code == 0) {
      EXPECT_EQ(code, 0) << "land must not reach the right edge";
      x = -1;
      code = 0;
      continue;
    }
    EXPECT_GT(record.x, x);
    EXPECT_LT(record.x, map_width - 1);
    EXPECT_LE(record.code, provinces);
    EXPECT_NE(record.code, code);
    x = record.x;
    code = record.code;
  }
}

TEST(Points, ProvincesAreOnePieceEachAndOfPlayableSize) {
  int land = 0;
  for (int p = 1; p <= provinces; ++p) {
    atelier::Mask mask(map_width, map_height, 0);
    int area = 0;
    int left = map_width, right = -1, top = map_height, bottom = -1;
    for (int y = 0; y < map_height; ++y)
      for (int x = 0; x < map_width; ++x) {
        if (codes().at(x, y) != p) continue;
        mask.at(x, y) = 1;
        ++area;
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
      }
    std::vector<int> sizes;
    atelier::pieces(mask, sizes);
    EXPECT_EQ(sizes.size(), 2U) << "pieces of province " << p;
    EXPECT_GE(area, 400) << "province " << p;
    EXPECT_LE(right - left + 1, 200) << "province " << p;
    EXPECT_LE(bottom - top + 1, 200) << "province " << p;
    land += area;
  }
  EXPECT_GE(land, 125000);
  EXPECT_LE(land, 138000);
}

TEST(Points, TheProvincesOfARegionLieTogether) {
  // All but the islands, which sea parts.
  for (int r = 1; r < regions; ++r) {
    atelier::Mask mask(map_width, map_height, 0);
    for (std::size_t i = 0; i < mask.size(); ++i) mask[i] = codes()[i] != 0 && region_of(codes()[i]) == r;
    std::vector<int> sizes;
    atelier::pieces(mask, sizes);
    EXPECT_EQ(sizes.size(), 2U) << "pieces of region " << r;
  }
}

}  // namespace
}  // namespace content
