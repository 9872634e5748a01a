// Pictures written as GIF files and read back.
#include "files/gif_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace atelier {
namespace {

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
