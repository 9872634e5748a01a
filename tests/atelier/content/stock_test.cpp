// The stock of pictures as a whole: the list, the files, their sizes and their sum.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

#include "content.h"
#include "files/catalogue.h"
#include "files/image_file.h"

namespace content {
namespace {

struct Entry {
  std::string name;
  std::string file;
  int width = 0;
  int height = 0;
};

std::vector<Entry> entries() {
  std::ifstream in(resources() / "images.txt", std::ios::binary);
  std::vector<Entry> result;
  for (std::string line; std::getline(in, line);) {
    std::istringstream parts(line);
    Entry entry;
    std::string width;
    std::string height;
    std::getline(parts, entry.name, '|');
    std::getline(parts, entry.file, '|');
    std::getline(parts, width, '|');
    std::getline(parts, height, '|');
    entry.width = leading_number(width);
    entry.height = leading_number(height);
    result.push_back(entry);
  }
  return result;
}

TEST(Stock, EveryPictureOfTheListIsThereInItsSizeAndInTwice) {
  std::set<std::string> names;
  for (const Entry &entry : entries()) {
    EXPECT_TRUE(names.insert(entry.name).second) << entry.name << " is listed twice";
    const atelier::Image image = atelier::lire_image(resources() / "images" / entry.file);
    EXPECT_EQ(image.width(), entry.width) << entry.name;
    EXPECT_EQ(image.height(), entry.height) << entry.name;
    const auto plain = resources() / "images" / atelier::fichier_double(entry.file);
    const auto coloured = resources() / "images" / atelier::fichier_double_en_png(entry.file);
    EXPECT_FALSE(plain != coloured && std::filesystem::exists(plain) && std::filesystem::exists(coloured))
        << entry.name << " has two drawings of twice the size";
    for (const auto &twice : {plain, coloured}) {
      if (!std::filesystem::exists(twice)) continue;
      const atelier::Image large = atelier::lire_image(twice);
      EXPECT_EQ(large.width(), 2 * entry.width) << entry.name;
      EXPECT_EQ(large.height(), 2 * entry.height) << entry.name;
    }
  }
  for (int p = 1; p <= provinces; ++p)
    for (const char *stock : {"Pays", "Inv", "Drapeau"}) {
      const std::string name = "Graphismes." + std::string(stock) + "(" + std::to_string(p) + ")";
      EXPECT_TRUE(names.contains(name)) << name;
    }
  for (int r = 1; r <= regions; ++r)
    for (const char *stock : {"Région", "DrapeauRégion"}) {
      const std::string name = "Graphismes." + std::string(stock) + "(" + std::to_string(r) + ")";
      EXPECT_TRUE(names.contains(name)) << name;
    }
  EXPECT_TRUE(names.contains("image_région(0)"));
}

TEST(Stock, TheMapPictureHasItsSizeAndNoHole) {
  for (const int scale : {1, 2}) {
    const auto file = resources() / "images" / (scale == 1 ? "carte.gif" : "carte@2x.ppm");
    const atelier::Image map = atelier::lire_image(file);
    EXPECT_EQ(map.width(), map_width * scale);
    EXPECT_EQ(map.height(), map_height * scale);
    for (const atelier::Pixel &p : map.pixels()) ASSERT_EQ(p.a, 255);
  }
}

TEST(Stock, APictureThatIsNotCompressedIsTheOtherPixelByPixel) {
  const auto images = resources() / "images";
  for (const char *name : {"carte", "icons/accueil", "icons/accueil@2x"}) {
    const auto file = [&](const char *suffix) { return images / (std::string(name) + suffix); };
    EXPECT_TRUE(atelier::lire_image(file(".ppm")) == atelier::lire_image(file(".gif"))) << name;
  }
}

TEST(Stock, LandAndSeaOfTheMapPictureLieWhereThePointsFileHasThem) {
  const atelier::Image map = atelier::lire_gif(resources() / "images" / "carte.gif");
  long wrong = 0;
  long looked_at = 0;
  for (int y = 3; y + 3 < map_height; ++y)
    for (int x = 3; x + 3 < map_width; ++x) {
      const int code = codes().at(x, y);
      bool inner = code != 0;
      for (int dy = -3; dy <= 3 && inner; ++dy)
        for (int dx = -3; dx <= 3 && inner; ++dx) inner = codes().at(x + dx, y + dy) != 0;
      if (!inner) continue;
      ++looked_at;
      const atelier::Pixel p = map.at(x, y);
      wrong += p.b > p.r + 24 && p.b > p.g ? 1 : 0;
    }
  EXPECT_GT(looked_at, 90000);
  // Rivers and blue shadows take their part.
  EXPECT_LT(wrong, looked_at / 12);
}

TEST(Stock, EverythingTogetherStaysUnderSixteenMegabytes) {
  std::uintmax_t sum = 0;
  for (const auto &entry : std::filesystem::recursive_directory_iterator(resources()))
    if (entry.is_regular_file()) sum += entry.file_size();
  EXPECT_GT(sum, 1000000U);
  EXPECT_LT(sum, 16U * 1000 * 1000);
}

}  // namespace
}  // namespace content
