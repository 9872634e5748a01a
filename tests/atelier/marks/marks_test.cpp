// The small pictures that ship with the game: marks on the map, swatches, buttons, icons, the welcome
// picture.
#include "marks/marks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>

#include "files/catalogue.h"
#include "files/gif_file.h"
#include "files/image_file.h"

namespace {

namespace fs = std::filesystem;
using atelier::Image;
using atelier::Pixel;

const fs::path images = fs::path(RESOURCES) / "images";

bool is_gif(const std::string &file) {
  return file.ends_with(".gif");
}

Image picture(const std::string &file) {
  return is_gif(file) ? atelier::lire_gif(images / file) : atelier::lire_image(images / file);
}

int count(const Image &image, Pixel colour) {
  return static_cast<int>(std::count(image.pixels().begin(), image.pixels().end(), colour));
}

int opaque(const Image &image) {
  return static_cast<int>(
      std::count_if(image.pixels().begin(), image.pixels().end(), [](Pixel p) { return p.a == 255; }));
}

struct Expected {
  const char *file;
  int width;
  int height;
};

constexpr Expected sizes[] = {
    {"marks/rond.gif", 20, 20},
    {"marks/rondjaune.gif", 20, 20},
    {"marks/rondnoir.gif", 20, 20},
    {"marks/rondcible.gif", 23, 23},
    {"marks/rondrouge.gif", 16, 16},
    {"marks/etoile-jaune.gif", 16, 16},
    {"marks/etoile-rouge.gif", 16, 16},
    {"marks/rondpref.gif", 7, 8},
    {"marks/rondville.gif", 7, 8},
    {"marks/choix/01.gif", 7, 8},
    {"marks/choix/40.gif", 7, 8},
    {"buttons/etoile.gif", 19, 19},
    {"buttons/fermeture.gif", 19, 19},
    {"buttons/ampoule-allumee.png", 32, 32},
    {"buttons/ampoule-eteinte.png", 32, 32},
    {"buttons/passe.png", 32, 32},
    {"buttons/gruge.png", 32, 32},
    {"buttons/fermer.png", 32, 32},
    {"buttons/sauvegarde.png", 32, 32},
    {"buttons/statistiques.png", 32, 32},
    {"buttons/quitter.png", 32, 32},
    {"buttons/premiere.png", 32, 32},
    {"buttons/derniere.png", 32, 32},
    {"buttons/precedente.png", 32, 32},
    {"buttons/suivante.png", 32, 32},
    {"buttons/villes.gif", 38, 37},
    {"buttons/provinces.gif", 38, 37},
    {"buttons/regions.gif", 40, 27},
    {"buttons/nouveau-dossier.gif", 25, 26},
    {"icons/accueil.gif", 120, 132},
    {"icons/ecran-principal-32.png", 32, 32},
    {"icons/ecran-principal-16.png", 16, 16},
};

class Small_picture : public testing::TestWithParam<Expected> {};

TEST_P(Small_picture, HasItsSize) {
  const Image image = picture(GetParam().file);
  EXPECT_EQ(image.width(), GetParam().width);
  EXPECT_EQ(image.height(), GetParam().height);
}

TEST_P(Small_picture, HasADrawingOfTwiceTheSize) {
  const Image image = picture(atelier::fichier_double(GetParam().file));
  EXPECT_EQ(image.width(), 2 * GetParam().width);
  EXPECT_EQ(image.height(), 2 * GetParam().height);
}

// What is drawn twice as large is the same thing: where one shows, the other shows too, but for the edges.
TEST_P(Small_picture, AgreesInShapeWithItsLargeDrawing) {
  const Image small = picture(GetParam().file);
  const Image large = picture(atelier::fichier_double(GetParam().file));
  int different = 0;
  for (int y = 0; y < small.height(); ++y) {
    for (int x = 0; x < small.width(); ++x) {
      int covered = 0;
      for (const auto &[dx, dy] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
        covered += large.at(2 * x + dx, 2 * y + dy).a >= 128 ? 1 : 0;
      }
      const bool shows = small.at(x, y).a >= 128;
      if ((shows && covered == 0) || (!shows && covered == 4)) ++different;
    }
  }
  EXPECT_LE(different, small.width() * small.height() / 20);
}

// That of the welcome window is read at every start, and uncompressed: such a file knows no ground.
TEST_P(Small_picture, LeavesTheGroundFreeAtItsCornersUnlessItIsTheWelcomesWhichHasNoGround) {
  const Image image = picture(GetParam().file);
  const bool ground = GetParam().file != std::string_view("icons/accueil.gif");
  EXPECT_EQ(image.at(0, 0).a < 128, ground);
  EXPECT_EQ(image.at(image.width() - 1, image.height() - 1).a < 128, ground);
}

INSTANTIATE_TEST_SUITE_P(Stock, Small_picture, testing::ValuesIn(sizes), [](const auto &parameter) {
  std::string name = parameter.param.file;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
  return name;
});

// The colours that the player can choose from, eight in a row.
constexpr std::array<Pixel, 40> swatches = {{
    {0x00, 0x00, 0x00}, {0x99, 0x33, 0x00}, {0x33, 0x33, 0x00}, {0x00, 0x33, 0x00}, {0x00, 0x33, 0x66},
    {0x00, 0x00, 0x80}, {0x33, 0x33, 0x99}, {0x33, 0x33, 0x33}, {0x80, 0x00, 0x00}, {0xFF, 0x66, 0x00},
    {0x80, 0x80, 0x00}, {0x00, 0x80, 0x00}, {0x00, 0x80, 0x80}, {0x00, 0x00, 0xFF}, {0x66, 0x66, 0x99},
    {0x80, 0x80, 0x80}, {0xFF, 0x00, 0x00}, {0xFF, 0x99, 0x00}, {0x99, 0xCC, 0x00}, {0x33, 0x99, 0x66},
    {0x33, 0xCC, 0xCC}, {0x33, 0x66, 0xFF}, {0x80, 0x00, 0x80}, {0x99, 0x99, 0x99}, {0xFF, 0x00, 0xFF},
    {0xFF, 0xCC, 0x00}, {0xFF, 0xFF, 0x00}, {0x00, 0xFF, 0x00}, {0x00, 0xFF, 0xFF}, {0x00, 0xCC, 0xFF},
    {0x99, 0x33, 0x66}, {0xC0, 0xC0, 0xC0}, {0xFF, 0x99, 0xCC}, {0xFF, 0xCC, 0x99}, {0xFF, 0xFF, 0x99},
    {0xCC, 0xFF, 0xCC}, {0xCC, 0xFF, 0xFF}, {0x99, 0xCC, 0xFF}, {0xCC, 0x99, 0xFF}, {0xFF, 0xFF, 0xFF},
}};

void expect_dot(const std::string &file, Pixel colour) {
  const Image image = picture(file);
  const Pixel white{255, 255, 255};
  const Pixel rim = colour == white ? Pixel{0, 0, 0} : white;
  EXPECT_EQ(image.width(), 7) << file;
  EXPECT_EQ(image.height(), 8) << file;
  EXPECT_EQ(count(image, colour), 16) << file;
  EXPECT_EQ(count(image, rim), 5) << file;
  EXPECT_EQ(opaque(image), 21) << file;
}

TEST(Dots, HaveSixteenPixelsOfColourAndFiveOfRim) {
  for (std::size_t i = 0; i < swatches.size(); ++i) {
    expect_dot(atelier::fichier_numéroté("marks/choix", static_cast<int>(i) + 1, 2), swatches[i]);
  }
  expect_dot("marks/rondpref.gif", swatches[16]);
  expect_dot("marks/rondville.gif", swatches[13]);
}

TEST(Dots, OfAllColoursHaveOneShape) {
  const Image first = picture("marks/choix/01.gif");
  for (int i = 2; i <= 40; ++i) {
    const Image other = picture(atelier::fichier_numéroté("marks/choix", i, 2));
    for (std::size_t p = 0; p < first.pixels().size(); ++p) {
      EXPECT_EQ(first.pixels()[p].a, other.pixels()[p].a) << "swatch " << i << ", pixel " << p;
    }
  }
}

TEST(Rings, LetTheTownShowThrough) {
  for (const char *file :
       {"marks/rond.gif", "marks/rondjaune.gif", "marks/rondnoir.gif", "marks/rondcible.gif"}) {
    const Image image = picture(file);
    const int x = image.width() / 2;
    const int y = image.height() / 2;
    for (int dy = -3; dy <= 2; ++dy) {
      for (int dx = -3; dx <= 2; ++dx) EXPECT_EQ(image.at(x + dx, y + dy).a, 0) << file;
    }
    EXPECT_GT(opaque(image), 100) << file;
  }
}

TEST(Rings, ShowTheirColour) {
  EXPECT_GT(count(picture("marks/rondnoir.gif"), {0, 0, 0}), 60);
  const auto reddish = [](Pixel p) { return p.a == 255 && p.r > 180 && p.g < 90 && p.b < 90; };
  const auto yellow = [](Pixel p) { return p.a == 255 && p.r > 220 && p.g > 190 && p.b < 120; };
  const Image target = picture("marks/rondcible.gif");
  EXPECT_GT(std::count_if(target.pixels().begin(), target.pixels().end(), reddish), 80);
  const Image excluded = picture("marks/rondrouge.gif");
  EXPECT_GT(std::count_if(excluded.pixels().begin(), excluded.pixels().end(), reddish), 50);
  const Image playing = picture("marks/rondjaune.gif");
  EXPECT_GT(std::count_if(playing.pixels().begin(), playing.pixels().end(), yellow), 80);
}

TEST(Icons, OfTheProgramComeInSevenSizes) {
  for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
    const Image image = picture("icons/ardane-" + std::to_string(side) + ".png");
    EXPECT_EQ(image.width(), side);
    EXPECT_EQ(image.height(), side);
  }
}

// Seen on white as on black, an icon must not melt into the ground: enough of it differs clearly from both.
TEST(Icons, AreReadableOnLightAndDark) {
  for (const auto &entry : fs::recursive_directory_iterator(images / "icons")) {
    if (entry.path().extension() != ".png") continue;
    const Image image = atelier::lire_image(entry.path());
    int on_white = 0;
    int on_black = 0;
    for (const Pixel p : image.pixels()) {
      const int grey = (p.r * 299 + p.g * 587 + p.b * 114) / 1000;
      if (p.a * (255 - grey) > 255 * 60) ++on_white;
      if (p.a * grey > 255 * 60) ++on_black;
    }
    const int area = image.width() * image.height();
    EXPECT_GT(on_white, area / 6) << entry.path();
    EXPECT_GT(on_black, area / 6) << entry.path();
  }
}

std::string bytes_of(const fs::path &file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::set<std::string> files_under(const fs::path &root) {
  std::set<std::string> files;
  for (const char *folder : {"marks", "buttons", "icons"}) {
    for (const auto &entry : fs::recursive_directory_iterator(root / folder)) {
      if (entry.is_regular_file()) files.insert(fs::relative(entry.path(), root).generic_string());
    }
  }
  return files;
}

TEST(Marks, AreByteForByteWhatTheAtelierDrawsToday) {
  const fs::path folder = fs::path(testing::TempDir()) / ("marks-" + std::to_string(std::random_device()()));
  atelier::Catalogue catalogue;
  atelier::dessiner_repères(folder, catalogue);
  const auto drawn = files_under(folder);
  EXPECT_EQ(drawn, files_under(images));
  for (const std::string &file : drawn) {
    EXPECT_TRUE(bytes_of(folder / file) == bytes_of(images / file)) << file;
  }
  fs::remove_all(folder);
}

}  // namespace
