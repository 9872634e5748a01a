// "etendues.txt": what is told of the map picture is what the picture shows, and what answers clicks.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "content.h"
#include "files/image_file.h"

namespace content {
namespace {

/// A letter for every pixel of the map, row by row; a row of another length is told.
const std::vector<std::string> &expanses() {
  static const std::vector<std::string> all = [] {
    std::vector<std::string> rows;
    std::ifstream in(resources() / "etendues.txt");
    char letter = 0;
    std::size_t length = 0;
    for (std::string line; std::getline(in, line);) {
      std::istringstream runs(line);
      std::string &row = rows.emplace_back();
      while (runs >> letter >> length) row.append(length, letter);
    }
    return rows;
  }();
  return all;
}

char expanse_at(int x, int y) {
  return expanses().at(static_cast<std::size_t>(y)).at(static_cast<std::size_t>(x));
}

TEST(Expanses, CoverTheMap) {
  ASSERT_EQ(expanses().size(), map_height);
  for (const std::string &row : expanses()) {
    ASSERT_EQ(row.size(), map_width);
    EXPECT_EQ(row.find_first_not_of("mlvip"), row.npos);
  }
}

TEST(Expanses, TheSeaIsLessThanNineTwentiethsOfTheMap) {
  long sea = 0;
  for (const std::string &row : expanses()) sea += std::count(row.begin(), row.end(), 'm');
  EXPECT_LT(sea, map_width * map_height * 9 / 20);
}

TEST(Expanses, AreProvincesWhereClicksAreAnswered) {
  for (int y = 0; y < map_height; ++y)
    for (int x = 0; x < map_width; ++x)
      ASSERT_EQ(expanse_at(x, y) == 'p', codes().at(x, y) != 0) << x << ", " << y;
}

/// Of the pixels that are told to be of a kind, how many the picture shows blue.
double share_of_blue(char kind, int scale) {
  const atelier::Image map =
      atelier::lire_image(resources() / "images" / (scale == 1 ? "carte.gif" : "carte@2x.ppm"));
  int blue = 0, all = 0;
  for (int y = 0; y < map_height; ++y)
    for (int x = 0; x < map_width; ++x) {
      if (expanse_at(x, y) != kind) continue;
      const atelier::Pixel pixel = map.at(x * scale, y * scale);
      blue += pixel.b > pixel.r + 5 ? 1 : 0;
      ++all;
    }
  return static_cast<double>(blue) / all;
}

/// Snow and shadows are bluish, and the title stands in the sea.
TEST(Expanses, AreWhatThePictureShows) {
  for (const int scale : {1, 2}) {
    EXPECT_GT(share_of_blue('m', scale), 0.85) << "the sea at " << scale;
    EXPECT_GT(share_of_blue('l', scale), 0.95) << "the lakes at " << scale;
    EXPECT_LT(share_of_blue('v', scale), 0.2) << "the neighbours at " << scale;
    EXPECT_LT(share_of_blue('p', scale), 0.2) << "the provinces at " << scale;
  }
}

TEST(Expanses, IslandsWithoutAProvinceLieInTheSea) {
  int islets = 0;
  for (int y = 0; y < map_height; ++y)
    for (int x = 0; x < map_width; ++x) {
      if (expanse_at(x, y) != 'i') continue;
      ++islets;
      for (std::size_t k = 0; k < atelier::side_neighbours; ++k) {
        const char beside = expanse_at(x + atelier::neighbours[k].x, y + atelier::neighbours[k].y);
        // A skerry may hang on to the coast by a pixel.
        EXPECT_TRUE(beside == 'i' || beside == 'm' || beside == 'p') << x << ", " << y;
      }
    }
  EXPECT_GT(islets, 0);
}

}  // namespace
}  // namespace content
