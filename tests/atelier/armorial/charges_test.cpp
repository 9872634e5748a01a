// The file of charges: enough of them, all paintable, all within their boxes; and what a bad file is told.
#include "armorial/charges.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "armorial/blazon_drawing.h"

namespace atelier {
namespace {

const Meubles &meubles() {
  static const Meubles result = Meubles::lire(std::filesystem::path(ATELIER_DATA) / "charges.txt");
  return result;
}

std::string refus(const std::string &texte) {
  const auto fichier =
      std::filesystem::path(testing::TempDir()) /
      (std::string("charges_") + testing::UnitTest::GetInstance()->current_test_info()->name() + ".txt");
  std::ofstream(fichier, std::ios::binary) << texte;
  try {
    Meubles::lire(fichier);
  } catch (const std::runtime_error &failure) {
    return failure.what();
  }
  return "accepted";
}

TEST(Charges, ThereAreAtLeastFortyEightAndNoNameTwice) {
  std::set<std::string> names;
  for (const Meuble &meuble : meubles().tous()) EXPECT_TRUE(names.insert(meuble.nom).second) << meuble.nom;
  EXPECT_GE(names.size(), 48U);
}

TEST(Charges, EachCanBePaintedInEveryTincture) {
  for (const Meuble &meuble : meubles().tous())
    for (const Émail émail : {Émail::or_, Émail::sable, Émail::naturel}) {
      Image image(48, 48);
      ASSERT_NO_THROW(dessiner_meuble(image, meuble, émail, {4, 4}, 40, 40, 1)) << meuble.nom;
      int painted = 0;
      for (const Pixel &p : image.pixels()) painted += p.a > 127;
      EXPECT_GT(painted, 100) << meuble.nom;
    }
}

TEST(Charges, EachKeepsNearItsBox) {
  for (const Meuble &meuble : meubles().tous()) {
    const auto [low, high] = meuble.silhouette().bounds();
    EXPECT_GT(low.x, -0.12 * meuble.largeur) << meuble.nom;
    EXPECT_GT(low.y, -0.16 * meuble.hauteur) << meuble.nom;
    EXPECT_LT(high.x, 1.12 * meuble.largeur) << meuble.nom;
    EXPECT_LT(high.y, 1.12 * meuble.hauteur) << meuble.nom;
  }
}

TEST(Charges, AMissingFileOrChargeIsTold) {
  EXPECT_THROW(Meubles::lire("no such file"), std::runtime_error);
  EXPECT_THROW(meubles().chercher("licorne"), std::out_of_range);
}

TEST(Charges, ABadLineIsNamed) {
  const std::string head = "meuble|tour|tours|f\n";
  EXPECT_EQ(refus(head + "plein corps poly 0,0 10,0 10,10\n"), "accepted");
  for (const char *line :
       {"plein corps poly 0,0 10 10,10", "plein corps poly 0,0", "plein corps rond 5 5 5", "plain",
        "branche corps ligne 0,0 5,5", "boîte 10", "naturel brun", "plein corps cercle 5 5 x"})
    EXPECT_NE(refus(head + line + "\n").find("line 2"), std::string::npos) << line;
  EXPECT_NE(refus("plein corps poly 0,0 10,0 10,10\n").find("before the first charge"), std::string::npos);
  EXPECT_NE(refus("meuble|tour|tours\n").find("name, plural and gender"), std::string::npos);
}

TEST(Charges, ASmoothCurveGoesThroughItsPointsAndDoesNotSwingOut) {
  const auto fichier = std::filesystem::path(testing::TempDir()) / "charges_smooth.txt";
  std::ofstream(fichier, std::ios::binary) << "meuble|x|x|m\nplein corps lisse 0,0 100,0 100,10 0,10\n";
  const Meubles one = Meubles::lire(fichier);
  const auto [low, high] = one.chercher("x").silhouette().bounds();
  EXPECT_LE(low.x, 0);
  EXPECT_GE(high.x, 100);
  EXPECT_GT(low.x, -30);
  EXPECT_GT(low.y, -30);
  EXPECT_LT(high.y, 40);
}

}  // namespace
}  // namespace atelier
