// Distances and pieces on grids.
#include "numbers/grid.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numbers/math.h"

namespace atelier {
namespace {

TEST(Distances, AreTheShortest) {
  Mask mask(37, 23, 0);
  Random random(3);
  for (int i = 0; i < 12; ++i) mask.at(random.below(37), random.below(23)) = 1;
  const Field distance = distance_to(mask);
  for (int y = 0; y < 23; ++y)
    for (int x = 0; x < 37; ++x) {
      double best = 1e9;
      for (int j = 0; j < 23; ++j)
        for (int i = 0; i < 37; ++i)
          if (mask.at(i, j)) best = std::min(best, std::sqrt((x - i) * (x - i) + (y - j) * (y - j)));
      EXPECT_NEAR(distance.at(x, y), best, 1e-9);
    }
}

TEST(Pieces, HangTogetherBySidesOnly) {
  Mask mask(4, 3, 0);
  mask.at(0, 0) = mask.at(1, 0) = 1;
  mask.at(2, 1) = mask.at(3, 1) = mask.at(3, 2) = 1;
  std::vector<int> sizes;
  const Grid<int> numbers = pieces(mask, sizes);
  EXPECT_EQ(sizes, (std::vector<int>{0, 2, 3}));
  EXPECT_EQ(numbers.at(0, 0), 1);
  EXPECT_EQ(numbers.at(3, 2), 2);
  EXPECT_EQ(numbers.at(2, 0), 0);
}

}  // namespace
}  // namespace atelier
