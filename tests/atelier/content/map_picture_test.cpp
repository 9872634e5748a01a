// The map picture as a drawing: no stray pixels, a calm plain beside a towering range, slopes that keep to no
// grid.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "content.h"
#include "files/image_file.h"
#include "numbers/math.h"

namespace content {
namespace {

const atelier::Image &map_picture(int scale) {
  static const std::array<atelier::Image, 2> pictures{
      atelier::lire_image(resources() / "images" / "carte.gif"),
      atelier::lire_image(resources() / "images" / "carte@2x.ppm")};
  return pictures[static_cast<std::size_t>(scale - 1)];
}

double lightness(const atelier::Pixel &p) {
  return 0.3 * p.r + 0.59 * p.g + 0.11 * p.b;
}

/// High mountains, plateau, great range and the border march of the south.
bool is_mountains(int region) {
  return region == 4 || region == 11 || region == 12 || region == 16;
}

class Map_picture : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Scales, Map_picture, testing::Values(1, 2));

/// How far apart two pixels are in hue, whatever their lightness.
double hue_difference(const atelier::Pixel &a, const atelier::Pixel &b) {
  const double red = (a.r - lightness(a)) - (b.r - lightness(b));
  const double blue = (a.b - lightness(a)) - (b.b - lightness(b));
  return std::sqrt(red * red + blue * blue);
}

TEST_P(Map_picture, NoPixelOfTheLandHasAHueOfItsOwn) {
  const int scale = GetParam();
  const atelier::Image &map = map_picture(scale);
  int stray = 0;
  for (int y = 1; y < map.height() - 1; ++y)
    for (int x = 1; x < map.width() - 1; ++x) {
      if (codes().at(x / scale, y / scale) == 0) continue;
      double nearest = 1e9;
      for (const auto &n : atelier::neighbours)
        nearest = std::min(nearest, hue_difference(map.at(x, y), map.at(x + n.x, y + n.y)));
      // Single pixels of a thin river or of the frontier come to 44.
      stray += nearest > 46 ? 1 : 0;
    }
  EXPECT_EQ(stray, 0);
}

/// Mean difference in lightness of pixels three map pixels apart, over a region's land.
double roughness(int region, int scale) {
  const atelier::Image &map = map_picture(scale);
  double sum = 0;
  long count = 0;
  for (int y = 4; y < map_height - 4; ++y)
    for (int x = 4; x < map_width - 4; ++x) {
      if (codes().at(x, y) == 0 || region_of(codes().at(x, y)) != region) continue;
      const double here = lightness(map.at(x * scale, y * scale));
      for (const auto &[dx, dy] : {std::pair{3, 0}, {0, 3}})
        sum += std::abs(here - lightness(map.at((x + dx) * scale, (y + dy) * scale)));
      count += 2;
    }
  return sum / static_cast<double>(count);
}

TEST_P(Map_picture, ThePlainIsCalmAndTheRangeTowers) {
  constexpr int hedged_hills = 8;
  constexpr int central_plain = 10;
  constexpr int great_range = 12;
  for (const int calm : {hedged_hills, central_plain})
    EXPECT_LT(roughness(calm, GetParam()), 0.4 * roughness(great_range, GetParam())) << "region " << calm;
}

TEST_P(Map_picture, SlopesKeepToNoGrid) {
  const int scale = GetParam();
  const atelier::Image &map = map_picture(scale);
  // Directions in which the light changes, by ninths of an eighth of a turn: the first and the last lie along
  // a row, a column or a diagonal.
  std::array<double, 9> weights{};
  for (int y = 5 * scale; y < (map_height - 5) * scale; ++y)
    for (int x = 5 * scale; x < (map_width - 5) * scale; ++x) {
      const int code = codes().at(x / scale, y / scale);
      if (code == 0 || !is_mountains(region_of(code))) continue;
      const auto v = [&](int i, int j) { return lightness(map.at(x + 2 * scale * i, y + 2 * scale * j)); };
      const double dx = 2 * (v(1, 0) - v(-1, 0)) + v(1, 1) - v(-1, 1) + v(1, -1) - v(-1, -1);
      const double dy = 2 * (v(0, 1) - v(0, -1)) + v(1, 1) - v(1, -1) + v(-1, 1) - v(-1, -1);
      const double strength = std::sqrt(dx * dx + dy * dy);
      if (strength < 20) continue;
      const double turn = atelier::arc_tangent(dy, dx) / (atelier::pi / 4);
      weights[std::min<std::size_t>(8, static_cast<std::size_t>((turn - std::floor(turn)) * 9))] += strength;
    }
  double sum = 0;
  for (const double w : weights) sum += w;
  EXPECT_LT((weights[0] + weights[8]) / sum, 1.06 * 2 / 9);
}

}  // namespace
}  // namespace content
