// Territories keep to their zone, their size and together.
#include "country/growth.h"

#include <gtest/gtest.h>

#include <array>

namespace atelier {
namespace {

TEST(Growth, KeepsToItsZoneAndReachesItsTargets) {
  Grid<int> zone(60, 40, 1);
  for (int y = 0; y < 40; ++y) zone.at(30, y) = 0;
  for (int y = 0; y < 40; ++y)
    for (int x = 31; x < 60; ++x) zone.at(x, y) = 2;
  const Field cost(60, 40, 1);
  const std::vector<Seed> seeds = {{{5, 5}, 0}, {{20, 30}, 0}, {{45, 20}, 0}};
  const Grid<int> labels = grow_balanced(seeds, {400, 800, 1160}, cost, zone, 40, 0);
  std::array<int, 4> areas{};
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 60; ++x) {
      const int label = labels.at(x, y);
      ++areas.at(static_cast<std::size_t>(label));
      EXPECT_EQ(label == 0, zone.at(x, y) == 0);
      EXPECT_EQ(label == 3, zone.at(x, y) == 2);
    }
  EXPECT_NEAR(areas[1], 400, 40);
  EXPECT_NEAR(areas[2], 800, 40);
}

TEST(Growth, HandsAStripOverToTheLabelAlongIt) {
  // A square with a tail along the right edge, beside another label; its headland at the left stays.
  Grid<int> labels(60, 60, 2);
  for (int y = 0; y < 60; ++y)
    for (int x = 0; x < 60; ++x)
      if (y < 30 ? x >= 20 : x >= 54)
        labels.at(x, y) = 1;
      else if (x < 20)
        labels.at(x, y) = y >= 10 && y < 16 ? 1 : 0;
  hand_over_strips(labels, 5, 60);
  EXPECT_EQ(labels.at(56, 50), 2);
  EXPECT_EQ(labels.at(40, 15), 1);
  EXPECT_EQ(labels.at(20, 29), 1) << "a corner is no strip";
  EXPECT_EQ(labels.at(5, 12), 1);
}

TEST(Growth, LeavesEachLabelInOnePiece) {
  Grid<int> labels(10, 4, 1);
  for (int y = 0; y < 4; ++y)
    for (int x = 5; x < 10; ++x) labels.at(x, y) = 2;
  labels.at(8, 2) = 1;
  join_pieces(labels);
  EXPECT_EQ(labels.at(8, 2), 2);
  EXPECT_EQ(labels.at(0, 0), 1);
}

}  // namespace
}  // namespace atelier
