#include "platform/random_source.h"

#include <gtest/gtest.h>

namespace ardane {
namespace {

TEST(RandomSource, DrawsLieInTheHalfOpenInterval) {
  HasardSemé source;
  double somme = 0;
  for (int i = 0; i < 100'000; ++i) {
    const float tirage = source.tirer();
    ASSERT_GE(tirage, 0.0F);
    ASSERT_LT(tirage, 1.0F);
    somme += static_cast<double>(tirage);
  }
  EXPECT_NEAR(somme / 100'000, 0.5, 0.01);
}

TEST(RandomSource, TheGreatestDrawsDoNotRoundUpToOne) {
  // Under this seed the generator's first number is 0xFFFFFFEF, which no float tells from 0x100000000.
  HasardSemé source(14784396U);
  EXPECT_EQ(source.tirer(), 1 - 0x1p-24F);
}

TEST(RandomSource, ASeedGivesTheSameDrawsOnEveryMachine) {
  // The C++ standard tells the 10,000th number of this generator under this seed.
  HasardSemé source(5489U);
  for (int i = 1; i < 10'000; ++i) source.tirer();
  EXPECT_EQ(source.tirer(), static_cast<float>(4123659995U >> 8) / (1 << 24));
}

TEST(RandomSource, SeedingGoesBackToTheGivenSeed) {
  HasardSemé source(7U);
  const float premier = source.tirer(), second = source.tirer();
  EXPECT_NE(premier, second);
  source.semer();
  EXPECT_EQ(source.tirer(), premier);
  EXPECT_EQ(source.tirer(), second);
}

TEST(RandomSource, WithoutASeedTheClockGivesOne) {
  HasardSemé une, autre;
  bool différents = false;
  for (int i = 0; i < 100; ++i) différents = une.tirer() != autre.tirer() || différents;
  EXPECT_TRUE(différents);
}

}  // namespace
}  // namespace ardane
