// Shapes cover what they should; paths are read or refused.
#include <gtest/gtest.h>

#include <stdexcept>

#include "drawing/raster.h"
#include "numbers/math.h"

namespace atelier {
namespace {

double area_of(const Path &path) {
  double sum = 0;
  for (const float value : coverage(path, 40, 40).values) sum += static_cast<double>(value);
  return sum;
}

TEST(Shapes, CoverTheirArea) {
  Path square;
  square.add_rectangle(3.25, 4.5, 10, 6);
  EXPECT_NEAR(area_of(square), 60, 1e-3);
  Path circle;
  circle.add_circle({20, 20}, 12);
  EXPECT_NEAR(area_of(circle), pi * 144, 1);
  Path line;
  line.move_to({5, 20}).line_to({30, 20});
  EXPECT_NEAR(area_of(stroked(line, 2, Cap::butt)), 50, 1e-3);
  EXPECT_NEAR(area_of(stroked(line, 2, Cap::square)), 54, 1e-3);
  EXPECT_NEAR(area_of(stroked(line, 2, Cap::round)), 50 + pi, 0.1);
  EXPECT_NEAR(area_of(path_from_svg("M2 2 h10 v10 h-10 z m20 0 L32 2 L32 12 z")), 150, 1e-3);
}

TEST(Shapes, SvgPathsAreReadOrRefused) {
  const Path relative = path_from_svg("m1 1l2 0 0 2z");
  const Path absolute = path_from_svg("M 1,1 L 3,1 L 3,3 Z");
  EXPECT_EQ(relative.contours(), absolute.contours());
  EXPECT_THROW(path_from_svg("M1 1 A 5 5 0 0 1 3 3"), std::invalid_argument);
  EXPECT_THROW(path_from_svg("M1"), std::invalid_argument);
  EXPECT_THROW(path_from_svg("4 5"), std::invalid_argument);
}

}  // namespace
}  // namespace atelier
