// The armorial as a whole: every province and region has its arms, drawn in the size and form the game shows.
#include "armorial.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

namespace atelier {
namespace {

const std::filesystem::path data = ATELIER_DATA;

const Meubles &meubles() {
  static const Meubles result = Meubles::lire(data / "charges.txt");
  return result;
}
const Armorial &armorial() {
  static const Armorial result = lire_armorial(data / "armorial.txt", meubles());
  return result;
}

std::string contents(const std::filesystem::path &file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

std::string refus(const std::string &texte) {
  const auto fichier =
      std::filesystem::path(testing::TempDir()) /
      (std::string("armorial_") + testing::UnitTest::GetInstance()->current_test_info()->name() + ".txt");
  std::ofstream(fichier, std::ios::binary) << texte;
  try {
    lire_armorial(fichier, meubles());
  } catch (const std::runtime_error &failure) {
    return failure.what();
  }
  return "accepted";
}

TEST(Armorial, EveryBlazonIsReadAndNoneIsThereTwice) {
  std::set<std::string> texts;
  for (int p = 1; p <= nombre_provinces; ++p)
    EXPECT_TRUE(texts.insert(armorial().provinces[static_cast<std::size_t>(p)].texte).second) << p;
  for (int r = 1; r <= nombre_régions; ++r)
    EXPECT_TRUE(texts.insert(armorial().régions[static_cast<std::size_t>(r)].texte).second) << r;
}

TEST(Armorial, ABadFileIsRefusedWithTheLine) {
  std::string good = contents(data / "armorial.txt");
  EXPECT_EQ(refus(good), "accepted");
  EXPECT_NE(refus(good + "province|1|murale|d'azur\n").find("given twice: 1"), std::string::npos);
  EXPECT_NE(refus(good + "province|111|murale|d'azur\n").find("no such number: 111"), std::string::npos);
  EXPECT_NE(refus("pays|murale|d'azur\nville|1|d'azur\n").find("line 2: unknown line"), std::string::npos);
  EXPECT_NE(refus("pays|d'azur\n").find("line 1: a field is missing"), std::string::npos);
  EXPECT_NE(refus("pays|papale|d'azur\n").find("couronne papale"), std::string::npos);
  EXPECT_NE(refus("région|1|d'or à la tour d'argent\n").find("line 1"), std::string::npos);
  EXPECT_NE(refus("pays|murale|d'azur\n").find("has no arms"), std::string::npos);
}

TEST(Armorial, AShieldStandsUnderItsCrownOnATransparentGround) {
  for (const std::size_t p : {1, 48, 51, 107}) {
    const Image image = dessiner_armes(armorial().provinces[p], meubles());
    ASSERT_EQ(image.width(), 2 * largeur_des_armes);
    ASSERT_EQ(image.height(), 2 * hauteur_des_armes);
    for (const auto &[x, y] : {std::pair{0, 0}, {199, 0}, {0, 281}, {199, 281}})
      EXPECT_EQ(image.at(x, y).a, 0);
    EXPECT_EQ(image.at(100, 160).a, 255);
    int crown = 0;
    for (int y = 0; y < 60; ++y)
      for (int x = 0; x < image.width(); ++x) crown += image.at(x, y).a > 127;
    EXPECT_GT(crown, 1500) << p;
  }
}

TEST(Armorial, AFlagCoversItsPicture) {
  const Image image = dessiner_drapeau(armorial().régions[1], meubles());
  ASSERT_EQ(image.width(), 2 * largeur_du_drapeau);
  ASSERT_EQ(image.height(), 2 * hauteur_du_drapeau);
  for (const Pixel &p : image.pixels()) ASSERT_EQ(p.a, 255);
}

TEST(Armorial, AChargeWithoutRoomIsTold) {
  const Armoiries crowded{
      "", "", lire_blason("d'or à neuf burelles d'azur chargées de neuf châteaux d'argent", meubles())};
  EXPECT_THROW(dessiner_drapeau(crowded, meubles()), Erreur_de_blason);
}

TEST(Armorial, TheDocumentHasEveryProvinceWithItsBlazonAndPicture) {
  const auto text = contents(std::filesystem::path(DOCS) / "armorial.md");
  const Données données = lire_données(data);
  for (int p = 1; p <= nombre_provinces; ++p) {
    const auto i = static_cast<std::size_t>(p);
    const auto start = text.find("\n| " + std::to_string(p) + " | " + données.provinces[i].nom + " |");
    ASSERT_NE(start, std::string::npos) << p;
    const std::string row = text.substr(start + 1, text.find('\n', start + 1) - start - 1);
    EXPECT_NE(row.find(armorial().provinces[i].texte), std::string::npos) << row;
    EXPECT_NE(row.find(fichier_numéroté("drapeau", p, 3)), std::string::npos) << row;
  }
}

}  // namespace
}  // namespace atelier
