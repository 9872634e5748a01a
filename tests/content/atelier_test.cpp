// The atelier's own tools: arithmetic, distances, territories, shapes and picture files.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <filesystem>

#include "country/growth.h"
#include "drawing/raster.h"
#include "files/gif_file.h"
#include "numbers/grid.h"
#include "numbers/math.h"
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

TEST(Growth, LeavesEachLabelInOnePiece) {
  Grid<int> labels(10, 4, 1);
  for (int y = 0; y < 4; ++y)
    for (int x = 5; x < 10; ++x) labels.at(x, y) = 2;
  labels.at(8, 2) = 1;
  join_pieces(labels);
  EXPECT_EQ(labels.at(8, 2), 2);
  EXPECT_EQ(labels.at(0, 0), 1);
}

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

class Gif_files : public testing::Test {
 protected:
  Gif_files() {
    // One file for each test, since they may run at the same time.
    const auto *info = testing::UnitTest::GetInstance()->current_test_info();
    file_ = std::filesystem::temp_directory_path() / (std::string("atelier_test_") + info->name() + ".gif");
  }
  ~Gif_files() override {
    std::error_code ignored;
    std::filesystem::remove(file_, ignored);
  }
  Gif_files(const Gif_files &) = delete;
  Gif_files &operator=(const Gif_files &) = delete;

  std::filesystem::path file_;
};

TEST_F(Gif_files, KeepFewColoursAndTransparencyExactly) {
  Image image(20, 12);
  for (int y = 0; y < 12; ++y)
    for (int x = 0; x < 20; ++x)
      if (x != y)
        image.at(x, y) = {static_cast<std::uint8_t>(x * 12), static_cast<std::uint8_t>(y * 20), 7, 255};
  écrire_gif(file_, image);
  EXPECT_EQ(lire_gif(file_), image);
}

TEST_F(Gif_files, ReduceManyColoursToANearPicture) {
  Image image(128, 128);
  for (int y = 0; y < 128; ++y)
    for (int x = 0; x < 128; ++x)
      image.at(x, y) = {static_cast<std::uint8_t>(2 * x), static_cast<std::uint8_t>(2 * y), 90, 255};
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 128; ++x) image.at(x, y) = {201, 33, 17, 255};
  écrire_gif(file_, image, Dithering::diffused);
  const Image read = lire_gif(file_);
  EXPECT_EQ(read.at(64, 20), (Pixel{201, 33, 17, 255})) << "a large plain area keeps its very colour";
  double error = 0;
  for (std::size_t i = 0; i < read.pixels().size(); ++i) {
    error += std::abs(read.pixels()[i].r - image.pixels()[i].r);
    error += std::abs(read.pixels()[i].g - image.pixels()[i].g);
  }
  EXPECT_LT(error / static_cast<double>(read.pixels().size()), 24);
}

TEST_F(Gif_files, FailuresAreTold) {
  EXPECT_THROW(écrire_gif("/nowhere/at/all.gif", Image(2, 2)), std::runtime_error);
  EXPECT_THROW(lire_gif("/nowhere/at/all.gif"), std::runtime_error);
}

}  // namespace
}  // namespace atelier
