#include "play/question_selection.h"

#include <gtest/gtest.h>

#include "support/fake_world.h"

namespace ardane {
namespace {

/// A game of stage Provinces in which only the given provinces are left to find.
void laisser_provinces(MondeFactice &m, std::initializer_list<int> restantes) {
  GameState &g = m.g();
  for (int i = 1; i <= nombre_provinces; ++i) g.TableProvinces(i).trouvée = true;
  for (const int i : restantes) g.TableProvinces(i).trouvée = false;
  g.ProvincesRestantes = static_cast<std::int16_t>(restantes.size());
}

float tirage_du_rang(int k, int n) {
  return (static_cast<float>(k) - 0.5F) / static_cast<float>(n);
}

class QuestionSelection : public testing::Test {
 protected:
  void SetUp() override {
    m.démarrer();
    m.nouvelle_partie(1);
  }
  MondeFactice m;
};

TEST_F(QuestionSelection, OneProvinceLeftIsAskedAgainAtOnce) {
  laisser_provinces(m, {7});
  m.g().ProvinceCourante = 7;
  QuestionSuivante(m.c());
  EXPECT_EQ(m.g().ProvinceCourante, 7);
}

TEST_F(QuestionSelection, WithTwoLeftTheOtherOneComesNext) {
  laisser_provinces(m, {7, 9});
  m.g().ProvinceCourante = 9;
  m.hasard.suite = {tirage_du_rang(2, 2)};
  QuestionSuivante(m.c());
  EXPECT_EQ(m.g().ProvinceCourante, 7);
}

TEST_F(QuestionSelection, FirstRankDrawnOnThePreviousObjectTakesTheSecondCandidate) {
  laisser_provinces(m, {3, 5, 8, 11});
  m.g().ProvinceCourante = 3;
  m.hasard.suite = {tirage_du_rang(1, 4)};
  QuestionSuivante(m.c());
  EXPECT_EQ(m.g().ProvinceCourante, 5);
}

TEST_F(QuestionSelection, FourthRankDrawnOnThePreviousObjectTakesTheThirdCandidate) {
  laisser_provinces(m, {3, 5, 8, 11});
  m.g().ProvinceCourante = 11;
  m.hasard.suite = {tirage_du_rang(4, 4)};
  QuestionSuivante(m.c());
  EXPECT_EQ(m.g().ProvinceCourante, 8);
}

TEST_F(QuestionSelection, EveryCandidateCanBeDrawnAndNothingElse) {
  laisser_provinces(m, {3, 5, 8, 110});
  const int attendus[] = {3, 5, 8, 110};
  for (int k = 1; k <= 4; ++k) {
    m.g().ProvinceCourante = 0;
    m.hasard.suite = {tirage_du_rang(k, 4)};
    QuestionSuivante(m.c());
    EXPECT_EQ(m.g().ProvinceCourante, attendus[k - 1]);
  }
}

TEST_F(QuestionSelection, TheLargestDrawStillFallsOnTheLastCandidate) {
  laisser_provinces(m, {3, 5, 8});
  m.g().ProvinceCourante = 0;
  m.hasard.suite = {0.99999994F};
  QuestionSuivante(m.c());
  EXPECT_EQ(m.g().ProvinceCourante, 8);
}

TEST_F(QuestionSelection, AStageWithoutCandidatesAsksNothingAndLeavesThePreviousObject) {
  laisser_provinces(m, {});
  m.g().ProvinceCourante = 12;
  const int tirages = m.hasard.tirages;
  QuestionSuivante(m.c());
  EXPECT_EQ(m.g().ProvinceCourante, 12);
  EXPECT_EQ(m.hasard.tirages, tirages);
}

TEST_F(QuestionSelection, IdleItDrawsAndDoesNothing) {
  m.g().Etape = étape_repos;
  const int avant = m.g().ProvinceCourante;
  const int tirages = m.hasard.tirages;
  QuestionSuivante(m.c());
  EXPECT_EQ(m.g().ProvinceCourante, avant);
  EXPECT_EQ(m.hasard.tirages, tirages + 1);
}

TEST_F(QuestionSelection, ACityWithABlankNameIsACandidateButIsNotCounted) {
  m.g().TableVilles(1).nom = "  ";
  m.g().Etape = étape_villes;
  m.g().Ordre_jeux(1) = étape_villes;
  m.nouvelle_partie(1);
  EXPECT_EQ(m.g().VillesRestantes, 329);
  EXPECT_EQ(m.g().VillesEnJeu, 330);
  EXPECT_EQ(m.g().VilleCourante, 1);
}

TEST_F(QuestionSelection, TheGazetteerHasNoCityWithABlankName) {
  EXPECT_EQ(m.g().VillesRestantes, m.g().VillesEnJeu);
}

TEST_F(QuestionSelection, StageDrapeauxLooksTheSameAtEveryLevelAndNeverShowsAName) {
  for (int niveau = 1; niveau <= 4; ++niveau) {
    m.g().PartieVierge = true;
    m.g().Ordre_jeux(1) = étape_drapeaux;
    m.nouvelle_partie(niveau);
    EXPECT_FALSE(m.e().Texte_à_chercher.visible);
    EXPECT_TRUE(m.e().Elément_recherché.visible);
    EXPECT_EQ(m.e().Image_recherchée.image, m.e().Drapeau(m.g().ProvinceCourante).image);
  }
}

TEST_F(QuestionSelection, FacileShowsTheShapeOfTheProvinceCentredInItsBox) {
  const Image forme = m.e().Pays(m.g().ProvinceCourante).image;
  const Contrôle &image = m.e().Image_recherchée;
  EXPECT_EQ(image.image, forme);
  EXPECT_EQ(image.largeur, forme.largeur);
  EXPECT_EQ(image.gauche, (200 - forme.largeur) / 2);
  EXPECT_EQ(image.haut, (188 - forme.hauteur) / 2);
  EXPECT_EQ(m.e().Texte_à_chercher.texte, m.g().TableProvinces(m.g().ProvinceCourante).nom);
}

TEST_F(QuestionSelection, MoyenShowsTheFlag) {
  m.nouvelle_partie(2);
  EXPECT_EQ(m.e().Image_recherchée.image, m.e().Drapeau(m.g().ProvinceCourante).image);
}

TEST(QuestionSelectionAtStart, AtDifficileTheFirstGameAfterStartShowsAnEmptyBox) {
  MondeFactice m;
  m.démarrer();
  m.nouvelle_partie(3);
  EXPECT_TRUE(m.e().Elément_recherché.visible);
  EXPECT_EQ(m.e().Image_recherchée.image, Image{});
}

TEST_F(QuestionSelection, AtDifficileALaterGameShowsTheLastPictureOfAnEarlierQuestion) {
  const Image dernière = m.e().Image_recherchée.image;
  m.nouvelle_partie(3);
  EXPECT_TRUE(m.e().Elément_recherché.visible);
  EXPECT_EQ(m.e().Image_recherchée.image, dernière);
}

TEST_F(QuestionSelection, ARegionAskedOffersASelectionOfWhatIsLeftOfIt) {
  m.g().Ordre_jeux(1) = étape_régions;
  m.nouvelle_partie(2);
  const Fiche_région &région = m.g().TableRégions(m.g().RégionCourante);
  EXPECT_EQ(m.g().TailleRégion, région.provinces_restantes);
  EXPECT_EQ(m.g().ResteRégion, m.g().TailleRégion);
  EXPECT_EQ(m.g().SélectionRégion.dernier(), m.g().TailleRégion);
  EXPECT_EQ(m.e().NombreProvinces.texte, std::to_string(m.g().TailleRégion));
  EXPECT_EQ(m.e().Image_recherchée.image, m.e().DrapeauRégion(m.g().RégionCourante).image);
}

TEST_F(QuestionSelection, ATownAskedShowsTheFlagOfItsProvinceAtTheLowLevelsOnly) {
  for (int niveau = 1; niveau <= 4; ++niveau) {
    m.g().Ordre_jeux(1) = étape_villes;
    m.g().PartieVierge = true;
    m.e().Image_recherchée.image = Image{};
    m.nouvelle_partie(niveau);
    EXPECT_EQ(m.g().ProvinceCourante, m.g().TableVilles(m.g().VilleCourante).province);
    EXPECT_EQ(m.e().Texte_à_chercher.texte, m.g().TableVilles(m.g().VilleCourante).nom);
    const Image attendue = niveau <= 2 ? m.e().Drapeau(m.g().ProvinceCourante).image : Image{};
    EXPECT_EQ(m.e().Image_recherchée.image, attendue);
  }
}

}  // namespace
}  // namespace ardane
