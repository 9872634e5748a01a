// Arithmetic and noise.
#include "numbers/math.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numbers/noise.h"

namespace atelier {
namespace {

TEST(Arithmetic, AgreesWithTheLibraryWithinItsPromise) {
  for (int i = -400; i <= 400; ++i) {
    const double x = i * 0.037;
    EXPECT_NEAR(sine(x), std::sin(x), 1e-12) << x;
    EXPECT_NEAR(cosine(x), std::cos(x), 1e-12) << x;
    EXPECT_NEAR(exponential(x) / std::exp(x), 1, 1e-12) << x;
    EXPECT_NEAR(arc_tangent(x, 1.3), std::atan2(x, 1.3), 1e-12) << x;
    EXPECT_NEAR(arc_tangent(x, -0.4), std::atan2(x, -0.4), 1e-12) << x;
    if (i <= 0) continue;
    EXPECT_NEAR(logarithm(x), std::log(x), 1e-12) << x;
    EXPECT_NEAR(power(x, 0.45) / std::pow(x, 0.45), 1, 1e-12) << x;
  }
  EXPECT_EQ(power(0, 2), 0);
  EXPECT_EQ(exponential(-1000), 0);
}

TEST(Arithmetic, RandomNumbersAreTheSameEverywhere) {
  Random random(1);
  EXPECT_EQ(random.next(), 0x910A2DEC89025CC1U);
  EXPECT_EQ(random.next(), 0xBEEB8DA1658EEC67U);
  for (int i = 0; i < 1000; ++i) {
    const double u = random.uniform();
    EXPECT_GE(u, 0);
    EXPECT_LT(u, 1);
    const int k = random.below(7);
    EXPECT_GE(k, 0);
    EXPECT_LT(k, 7);
  }
}

TEST(Noise, IsZeroOnItsLatticeAndStaysWithinBounds) {
  double greatest = 0;
  for (int i = 0; i < 2000; ++i) {
    EXPECT_EQ(noise(5, i, 3 * i), 0);
    greatest = std::max(greatest, std::abs(fractal_noise(5, i * 0.37, i * 0.11, 9, 4)));
  }
  EXPECT_GT(greatest, 0.2);
  EXPECT_LE(greatest, 1.1);
}

}  // namespace
}  // namespace atelier
