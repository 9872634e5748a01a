#include "core/hit_test_table.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/gazetteer.h"
#include "support/fake_world.h"
#include "support/points_file.h"

namespace ardane {
namespace {

/// The loader over a file of the test's own, texts loaded, nothing else started.
class HitTestTable : public testing::Test {
 protected:
  void SetUp() override {
    Charger_textes(m.c());
    m.g().Répertoire_programme = m.dossier.chemin();
  }
  bool charger(const std::string &octets) {
    écrire_fichier(chemin(), octets);
    return Charger_points(m.c());
  }
  bool charger(const FichierPoints &fichier) { return charger(fichier.octets()); }
  std::string chemin() const { return m.dossier.fichier("ardane.pts"); }
  int code(int x, int y) { return code_du_pixel(m.g(), 0, x, y); }
  void attendre_boîte_de_format() {
    ASSERT_EQ(m.boîtes.montrées.size(), 1U);
    const Boîte &boîte = m.boîtes.montrées[0];
    EXPECT_EQ(boîte.icône, Icône::aucune);
    EXPECT_EQ(boîte.boutons, Boutons::ok);
    EXPECT_EQ(boîte.titre, "L'Ardane et ses provinces");
    EXPECT_EQ(boîte.texte, "Ce fichier n'est plus interprétable ; installez sa nouvelle version !");
  }
  MondeFactice m;
};

// The file.

TEST_F(HitTestTable, AnAbsentFileIsToldToThePlayerAndRefused) {
  std::filesystem::remove(chemin_natif(chemin()));
  EXPECT_FALSE(Charger_points(m.c()));
  ASSERT_EQ(m.boîtes.montrées.size(), 1U);
  const Boîte &boîte = m.boîtes.montrées[0];
  EXPECT_EQ(boîte.icône, Icône::information);
  EXPECT_EQ(boîte.boutons, Boutons::ok);
  EXPECT_EQ(boîte.titre, message(m.g(), Message::erreur));
  EXPECT_EQ(boîte.texte, message(m.g(), Message::fichier_pts_absent));
}

TEST_F(HitTestTable, AFolderOfThatNameCountsAsAbsent) {
  std::filesystem::remove(chemin_natif(chemin()));
  std::filesystem::create_directory(chemin_natif(chemin()));
  EXPECT_FALSE(Charger_points(m.c()));
  EXPECT_EQ(m.boîtes.montrées.at(0).texte, message(m.g(), Message::fichier_pts_absent));
}

TEST_F(HitTestTable, APipeOfThatNameCountsAsAbsentAndIsNotWaitedFor) {
  std::filesystem::remove(chemin_natif(chemin()));
  ASSERT_EQ(mkfifo(chemin().c_str(), S_IRUSR | S_IWUSR), 0);
  EXPECT_FALSE(Charger_points(m.c()));
  EXPECT_EQ(m.boîtes.montrées.size(), 1U);
}

TEST_F(HitTestTable, WithoutTheFileTheProgramEndsBeforeItsWindow) {
  std::filesystem::remove(chemin_natif(chemin()));
  EXPECT_FALSE(m.programme.Démarrage(m.dossier.chemin()));
  EXPECT_TRUE(m.façade.ouvertes.empty());
  EXPECT_FALSE(m.programme.en_cours());
}

TEST_F(HitTestTable, WithAFileOfAnotherVersionTheProgramEndsBeforeItsWindow) {
  écrire_fichier(chemin(), FichierPoints().enregistrement(0, 0, 5).octets());
  EXPECT_FALSE(m.programme.Démarrage(m.dossier.chemin()));
  EXPECT_TRUE(m.façade.ouvertes.empty());
}

TEST_F(HitTestTable, ThePathOfTheFileIsKept) {
  EXPECT_TRUE(charger(FichierPoints::au_format()));
  EXPECT_EQ(m.g().Chemin_points, chemin());
}

TEST_F(HitTestTable, AnEmptyFileIsRefused) {
  EXPECT_FALSE(charger(std::string()));
  attendre_boîte_de_format();
}

TEST_F(HitTestTable, AFileOfOneByteIsRefused) {
  EXPECT_FALSE(charger(FichierPoints().octet(0)));
  attendre_boîte_de_format();
}

TEST_F(HitTestTable, AFirstRecordOfAnotherVersionIsRefused) {
  EXPECT_FALSE(charger(FichierPoints().enregistrement(0, 0, 3).lignes(3)));
  attendre_boîte_de_format();
}

TEST_F(HitTestTable, AFirstRecordWithAnAbscissaIsRefused) {
  EXPECT_FALSE(charger(FichierPoints().enregistrement(0, 1, 4).lignes(3)));
  attendre_boîte_de_format();
}

TEST_F(HitTestTable, ARowMarkInFrontIsNoFormatRecord) {
  EXPECT_FALSE(charger(FichierPoints().ligne().segment(5, 1).ligne()));
  attendre_boîte_de_format();
}

TEST_F(HitTestTable, TheFormatRecordAndTheRowMarksAreNotStored) {
  ASSERT_TRUE(charger(FichierPoints::au_format().ligne().segment(10, 7).ligne()));
  const Segment_carte &premier = m.g().Points_segments(0, 0);
  EXPECT_EQ(premier.abscisse, 10);
  EXPECT_EQ(premier.code, 7);
  EXPECT_EQ(m.g().Points_lignes(0, 0), 0);
  EXPECT_EQ(m.g().Points_lignes(0, 1), 1);
}

TEST_F(HitTestTable, AFileCutInARecordKeepsItsWholeRecords) {
  auto fichier = FichierPoints::au_format().ligne().segment(10, 7).ligne().segment(20, 8).ligne();
  ASSERT_TRUE(charger(fichier.octet(0).octet(5)));
  EXPECT_TRUE(m.boîtes.montrées.empty());
  EXPECT_EQ(code(11, 0), 7);
  EXPECT_EQ(code(21, 1), 8);
  EXPECT_EQ(code(21, 2), 0);
}

TEST_F(HitTestTable, WithoutAClosingMarkTheLastRowHasNoProvince) {
  ASSERT_TRUE(charger(FichierPoints::au_format().ligne().segment(10, 7).ligne().segment(20, 8)));
  EXPECT_TRUE(m.boîtes.montrées.empty());
  EXPECT_EQ(code(11, 0), 7);
  EXPECT_EQ(code(500, 1), 0);
}

TEST_F(HitTestTable, AMapOfNumber1FromTheStartEndsTheProgramAtItsFirstRow) {
  EXPECT_THROW(charger(FichierPoints().enregistrement(1, 0, 4).enregistrement(1, 0, 0)), ErreurFatale);
}

TEST_F(HitTestTable, AMapOfNumber1AfterTheFirstRecordEndsTheProgram) {
  auto fichier = FichierPoints::au_format().ligne().segment(10, 7).ligne();
  EXPECT_THROW(charger(fichier.enregistrement(1, 10, 7)), ErreurFatale);
}

TEST_F(HitTestTable, AFirstRecordForTheSameMapAsBeforeEndsTheProgramAtTheFirstRow) {
  EXPECT_THROW(charger(FichierPoints().enregistrement(255, 0, 4).enregistrement(255, 0, 0)), ErreurFatale);
}

TEST_F(HitTestTable, AMiddleRecordForTheSameMapAsBeforeIsReadAsUsual) {
  auto fichier = FichierPoints::au_format().ligne().segment(10, 7);
  ASSERT_TRUE(charger(fichier.enregistrement(255, 20, 8).enregistrement(255, 0, 0).segment(30, 9).ligne()));
  EXPECT_EQ(code(15, 0), 7);
  EXPECT_EQ(code(25, 0), 8);
  EXPECT_EQ(code(31, 1), 9);
}

TEST_F(HitTestTable, SixHundredAndSixtySevenRowsFit) {
  ASSERT_TRUE(charger(FichierPoints::au_format().lignes(665).segment(10, 7).lignes(2)));
  EXPECT_EQ(code(11, 664), 7);
  EXPECT_EQ(code(11, 665), 0);
}

TEST_F(HitTestTable, SixHundredAndSixtyEightRowsEndTheProgram) {
  EXPECT_THROW(charger(FichierPoints::au_format().lignes(668)), ErreurFatale);
}

TEST_F(HitTestTable, FiveThousandEightHundredAndThirtyThreeRunsFit) {
  EXPECT_TRUE(charger(FichierPoints::au_format().ligne().segments(5833).ligne()));
}

TEST_F(HitTestTable, FiveThousandEightHundredAndThirtyFourRunsEndTheProgram) {
  EXPECT_THROW(charger(FichierPoints::au_format().ligne().segments(5834)), ErreurFatale);
}

TEST_F(HitTestTable, UnorderedRunsEndTheSearchAtTheFirstThatLiesFurtherRight) {
  ASSERT_TRUE(
      charger(FichierPoints::au_format().ligne().segment(50, 7).segment(10, 8).segment(90, 9).ligne()));
  EXPECT_EQ(code(30, 0), 0);
  EXPECT_EQ(code(60, 0), 8);
  EXPECT_EQ(code(91, 0), 9);
}

TEST_F(HitTestTable, AnotherLoadLeavesNothingOfTheFormerRows) {
  ASSERT_TRUE(charger(FichierPoints::au_format().ligne().segment(1, 5).ligne().segment(1, 6).ligne()));
  ASSERT_TRUE(charger(FichierPoints::au_format().ligne().segment(1, 9).ligne()));
  EXPECT_EQ(code(3, 0), 9);
  EXPECT_EQ(code(3, 1), 0);
}

// The look-up.

TEST_F(HitTestTable, ARunHoldsThePixelsStrictlyRightOfItsAbscissa) {
  ASSERT_TRUE(charger(FichierPoints::au_format().ligne().segment(100, 7).segment(200, 8).ligne()));
  EXPECT_EQ(code(100, 0), 0);
  EXPECT_EQ(code(101, 0), 7);
  EXPECT_EQ(code(200, 0), 7);
  EXPECT_EQ(code(201, 0), 8);
}

TEST_F(HitTestTable, AtX0ARunThatBeginsAt0GivesNoProvince) {
  ASSERT_TRUE(charger(FichierPoints::au_format().ligne().segment(0, 7).ligne()));
  EXPECT_EQ(code(0, 0), 0);
  EXPECT_EQ(code(1, 0), 7);
}

TEST_F(HitTestTable, RightOfTheLastRunItsCodeHoldsToTheEdge) {
  ASSERT_TRUE(charger(FichierPoints::au_format().ligne().segment(10, 7).ligne()));
  EXPECT_EQ(code(601, 0), 7);
  EXPECT_EQ(code(32767, 0), 7);
}

TEST_F(HitTestTable, ARowWithNoRunGivesNoProvince) {
  ASSERT_TRUE(charger(FichierPoints::au_format().ligne().ligne().segment(10, 7).ligne()));
  EXPECT_EQ(code(300, 0), 0);
}

TEST_F(HitTestTable, TwoRowMarksInARowMakeAnEmptyRow) {
  ASSERT_TRUE(
      charger(FichierPoints::au_format().ligne().segment(10, 7).ligne().ligne().segment(10, 8).ligne()));
  EXPECT_EQ(code(300, 0), 7);
  EXPECT_EQ(code(300, 1), 0);
  EXPECT_EQ(code(300, 2), 8);
}

TEST_F(HitTestTable, ALakeBetweenTwoProvincesGivesNoProvince) {
  ASSERT_TRUE(
      charger(FichierPoints::au_format().ligne().segment(10, 7).segment(20, 0).segment(30, 8).ligne()));
  EXPECT_EQ(code(20, 0), 7);
  EXPECT_EQ(code(25, 0), 0);
  EXPECT_EQ(code(31, 0), 8);
}

TEST_F(HitTestTable, OutsideTheTableThereIsNoProvince) {
  ASSERT_TRUE(charger(FichierPoints::au_format().ligne().segment(0, 7).ligne()));
  for (const int y : {-1, -30000, 1, 662, 665, 666, 667, 30000}) EXPECT_EQ(code(300, y), 0) << y;
  EXPECT_EQ(code(-1, 0), 0);
  EXPECT_EQ(code_du_pixel(m.g(), 1, 300, 0), 0);
  EXPECT_EQ(code_du_pixel(m.g(), -1, 300, 0), 0);
}

TEST_F(HitTestTable, TheProgramsOwnFileHasEveryProvinceAndNothingElse) {
  ASSERT_TRUE(Charger_points(m.c()));
  std::array<int, 256> pixels{};
  for (int y = 0; y < 662; ++y)
    for (int x = 0; x < 602; ++x) ++pixels.at(static_cast<std::size_t>(code(x, y)));
  EXPECT_GT(pixels[0], 0);
  for (std::size_t i = 1; i < pixels.size(); ++i) EXPECT_EQ(pixels[i] > 0, i <= nombre_provinces) << i;
}

}  // namespace
}  // namespace ardane
