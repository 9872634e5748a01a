// Lines of equal height.
#include "drawing/contour.h"

#include <gtest/gtest.h>

#include <cmath>

namespace atelier {
namespace {

double area(const Contour &line) {
  double sum = 0;
  for (std::size_t i = 0; i < line.points.size(); ++i) {
    const Point a = line.points[i];
    const Point b = line.points[(i + 1) % line.points.size()];
    sum += a.x * b.y - b.x * a.y;
  }
  return sum / 2;
}

TEST(Contours, AConeHasACircleAtEveryLevel) {
  Field cone(40, 30);
  for (std::size_t i = 0; i < cone.size(); ++i) {
    const Cell c = cone.cell(i);
    cone[i] = -length({c.x + 0.5 - 21, c.y + 0.5 - 14.3});
  }
  const Path path = contour(cone, -9);
  ASSERT_EQ(path.contours().size(), 1U);
  EXPECT_TRUE(path.contours()[0].closed);
  for (const Point p : path.contours()[0].points) EXPECT_NEAR(length(p - Point{21, 14.3}), 9, 0.05);
  EXPECT_NEAR(std::abs(area(path.contours()[0])), 254.5, 3);
}

TEST(Contours, AHoleTurnsTheOtherWayAndTheEdgeOfTheFieldClosesALine) {
  Field ring(9, 9, 1);
  for (int y = 3; y < 6; ++y)
    for (int x = 3; x < 6; ++x) ring.at(x, y) = 0;
  const Path path = contour(ring, 0.5);
  ASSERT_EQ(path.contours().size(), 2U);
  const double first = area(path.contours()[0]);
  const double second = area(path.contours()[1]);
  EXPECT_LT(first * second, 0);
  EXPECT_NEAR(std::abs(first) + std::abs(second), 81 + 9, 8);
}

TEST(Contours, ASaddleJoinsWhatItsMiddleJoins) {
  for (const double middle : {-0.2, 0.2}) {
    Field saddle(2, 2);
    saddle.at(0, 0) = saddle.at(1, 1) = 1 + middle;
    saddle.at(1, 0) = saddle.at(0, 1) = -1 + middle;
    EXPECT_EQ(contour(saddle, 0).contours().size(), middle > 0 ? 1U : 2U);
  }
}

TEST(Contours, NothingAboveTheLevelHasNoLine) {
  EXPECT_TRUE(contour(Field(5, 5, 0), 0.5).empty());
}

}  // namespace
}  // namespace atelier
