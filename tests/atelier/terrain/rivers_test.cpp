// The lines of rivers over a made-up land: one that flows to the west along a row of cells, and a tributary
// from the north.
#include "terrain/rivers.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace atelier {
namespace {

constexpr int wide = 800;
constexpr int high = 240;
constexpr int bed = 120;
constexpr int confluence = 300;

double distance_from(const std::vector<Point> &line, Point p) {
  double nearest = 1e9;
  for (const Point &q : line) nearest = std::min(nearest, length(p - q));
  return nearest;
}

double length_of(const std::vector<Point> &line) {
  double sum = 0;
  for (std::size_t i = 1; i < line.size(); ++i) sum += length(line[i] - line[i - 1]);
  return sum;
}

class Rivers : public testing::Test {
 protected:
  /// The river first, then its tributary.
  static std::vector<River> over_land_of(double height) {
    Plan plan;
    plan.seed = 7;
    Shores shores;
    shores.lake = Field(wide, high, -100);
    Terrain terrain;
    terrain.height = Field(wide, high, height);
    for (int y = 0; y < high; ++y) terrain.height.at(0, y) = -1;
    Drainage &d = terrain.drainage;
    d.area = Field(wide, high, 0);
    for (std::size_t i = 0; i < terrain.height.size(); ++i) d.receiver.push_back(i);
    const auto flow = [&](int x, int y, int to_x, int to_y, double area) {
      const std::size_t i = terrain.height.index(x, y);
      d.receiver[i] = terrain.height.index(to_x, to_y);
      d.area[i] = area;
      d.order.push_back(i);
    };
    for (int x = 1; x < wide; ++x) flow(x, bed, x - 1, bed, 40000);
    for (int y = bed - 1; y > 0; --y) flow(confluence, y, confluence, y + 1, 2000);
    return trace_rivers(plan, terrain, shores, 100);
  }
};

TEST_F(Rivers, MeanderInThePlainAndKeepToTheirValleysInTheHills) {
  const std::vector<Point> plain = over_land_of(5).front().line;
  const std::vector<Point> hills = over_land_of(600).front().line;
  EXPECT_GT(length_of(plain) / length(plain.back() - plain.front()), 1.15);
  EXPECT_LT(length_of(hills) / length(hills.back() - hills.front()), 1.1);
  for (const Point &p : hills) EXPECT_NEAR(p.y, bed / 2.0, 3);
}

TEST_F(Rivers, HaveBendsAndNoCorners) {
  const std::vector<Point> line = over_land_of(5).front().line;
  for (std::size_t i = 2; i + 2 < line.size(); ++i) {
    const Point before = line[i] - line[i - 2];
    const Point behind = line[i + 2] - line[i];
    const double along = before.x * behind.x + before.y * behind.y;
    EXPECT_GT(along / length(before) / length(behind), 0.5) << line[i].x << ", " << line[i].y;
  }
}

TEST_F(Rivers, TakeInATributaryWhichEndsOnTheirLineAndMeetsItNowhereElse) {
  for (const double height : {5.0, 600.0}) {
    const std::vector<River> rivers = over_land_of(height);
    ASSERT_EQ(rivers.size(), 2U);
    const std::vector<Point> &tributary = rivers[1].line;
    EXPECT_LT(distance_from(rivers[0].line, tributary.front()), 0.01);
    for (std::size_t i = tributary.size() / 4; i < tributary.size(); ++i)
      EXPECT_GT(distance_from(rivers[0].line, tributary[i]), 1) << height;
    // It meets it on its way down, from where it came.
    EXPECT_LT(tributary.front().x, tributary[12].x);
  }
}

}  // namespace
}  // namespace atelier
