#include "play/region_stage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "map/map_reset.h"
#include "play/map_clicks.h"
#include "play/question_selection.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Regions : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }

  void jouer(int niveau) {
    m.g().PartieVierge = true;
    m.g().Ordre_jeux.remplir(0);
    m.g().Ordre_jeux(1) = étape_régions;
    m.nouvelle_partie(niveau);
    m.son.joués.clear();
    m.boîtes.montrées.clear();
  }
  /// Makes the table's provinces belong to regions of these sizes, the rest to the last region, and starts.
  void jouer_avec_régions(int niveau, const std::vector<int> &tailles) {
    int p = 0;
    int r = 0;
    for (const int taille : tailles) {
      ++r;
      for (int k = 0; k < taille; ++k) m.g().TableProvinces(++p).région = static_cast<std::int16_t>(r);
    }
    while (p < nombre_provinces) {
      ++r;
      for (int k = 0; k < 6 && p < nombre_provinces; ++k)
        m.g().TableProvinces(++p).région = static_cast<std::int16_t>(r);
    }
    jouer(niveau);
    demander(1);
  }
  /// Asks for a region, as the next question would.
  void demander(int région) {
    for (int r = 1; r <= nombre_régions; ++r)
      if (r != région && !m.g().TableRégions(r).trouvée) autres.push_back(r);
    const int restantes = m.g().RégionsRestantes;
    for (const int r : autres) m.g().TableRégions(r).trouvée = true;
    m.g().RégionsRestantes = 1;
    QuestionSuivante(m.c());
    m.g().RégionsRestantes = static_cast<std::int16_t>(restantes);
    for (const int r : autres) m.g().TableRégions(r).trouvée = false;
    autres.clear();
  }
  const Fiche_région &région() { return m.g().TableRégions(m.g().RégionCourante); }
  int étrangère(int rang = 1) {
    for (int i = nombre_provinces; i >= 1; --i)
      if (m.g().TableProvinces(i).région != m.g().RégionCourante && !m.g().TableProvinces(i).trouvée &&
          --rang == 0)
        return i;
    return 0;
  }
  void cliquer_membres(int premier, int dernier) { cliquer_membres(m.c(), premier, dernier); }
  void cliquer_membres(Contexte &c, int premier, int dernier) {
    const Fiche_région copie = région();
    for (int k = premier; k <= dernier; ++k) ClicProvince(c, copie.membres(k));
  }

  MondeFactice m;
  std::vector<int> autres;
};

TEST_F(Regions, ARegionWithOneProvinceLeftIsSubmittedByOneClickAtTheLowLevels) {
  for (const int niveau : {1, 2}) {
    jouer_avec_régions(niveau, {3, 6});
    cliquer_membres(1, 2);
    ClicProvince(m.c(), étrangère());
    demander(1);
    ASSERT_EQ(m.g().TailleRégion, 1);
    ClicProvince(m.c(), région().membres(3));
    EXPECT_TRUE(m.g().TableRégions(1).trouvée);
  }
}

TEST_F(Regions, HalfRightAtFacileTheRightOnesStayAndTheRestIsAskedLater) {
  jouer_avec_régions(1, {4, 6});
  cliquer_membres(1, 2);
  ClicProvince(m.c(), étrangère(1));
  ClicProvince(m.c(), étrangère(2));
  EXPECT_TRUE(m.g().TableProvinces(1).trouvée);
  EXPECT_TRUE(m.g().TableProvinces(2).trouvée);
  EXPECT_FALSE(m.g().TableProvinces(3).trouvée);
  EXPECT_EQ(m.g().TableRégions(1).provinces_restantes, 2);
  EXPECT_EQ(m.g().ProvincesRestantes, 108);
  demander(1);
  EXPECT_EQ(m.g().TailleRégion, 2);
}

TEST_F(Regions, OneWrongAmongSixAtDifficilePlacesNothingAndAsksForSixAgain) {
  jouer_avec_régions(3, {6, 6});
  cliquer_membres(1, 5);
  ClicProvince(m.c(), étrangère());
  for (int k = 1; k <= 6; ++k) EXPECT_FALSE(m.g().TableProvinces(k).trouvée);
  EXPECT_EQ(m.g().Score, 999999 - 4096);
  EXPECT_NE(m.g().RégionCourante, 1);
  demander(1);
  EXPECT_EQ(m.g().TailleRégion, 6);
}

TEST_F(Regions, ASelectionTakesInProvincesOfAnyRegion) {
  jouer_avec_régions(2, {4, 6});
  const int p = étrangère();
  ClicProvince(m.c(), p);
  EXPECT_EQ(m.g().ResteRégion, 3);
  EXPECT_EQ(m.g().SélectionRégion(4), p);
  EXPECT_EQ(m.g().Score, 999999);
}

TEST_F(Regions, RegionsWithNoActiveProvinceAreFoundFromTheStartAndNeverAsked) {
  for (int i = 1; i <= nombre_provinces; ++i)
    m.g().TableProvinces(i).inhibée =
        m.g().TableProvinces(i).région != 20 && m.g().TableProvinces(i).région != 18;
  jouer(1);
  EXPECT_EQ(m.g().RégionsEnJeu, 2);
  for (int tirage = 0; tirage < 20; ++tirage) {
    m.hasard.suite = {static_cast<float>(tirage) / 20.0F};
    QuestionSuivante(m.c());
    EXPECT_THAT(m.g().RégionCourante, testing::AnyOf(18, 20));
  }
}

TEST_F(Regions, TheStageEndsWhenNoRegionIsLeft) {
  jouer(1);
  while (m.g().Etape == étape_régions) {
    const Fiche_région copie = région();
    for (int k = 1; k <= copie.nombre_provinces; ++k) ClicProvince(m.c(), copie.membres(k));
  }
  EXPECT_EQ(m.g().Etape, étape_repos);
  EXPECT_EQ(m.g().Meilleurs_scores(1, 1).score, 999999);
}

TEST_F(Regions, NeitherHelpButtonEverShows) {
  for (int niveau = 0; niveau <= 4; ++niveau) {
    jouer_avec_régions(niveau, {2, 6});
    ClicProvince(m.c(), étrangère(1));
    ClicProvince(m.c(), étrangère(2));
    EXPECT_FALSE(m.e().Bouton_gruge.visible || m.e().BoutonPasse.visible);
    EXPECT_EQ(m.g().NbErreurs, 0);
  }
}

TEST_F(Regions, TheSelectionFillsFromTheTopDownAndClosesItsHoles) {
  jouer_avec_régions(2, {5, 6});
  ClicProvince(m.c(), 10);
  ClicProvince(m.c(), 20);
  ClicProvince(m.c(), 30);
  EXPECT_EQ(m.g().SélectionRégion(5), 10);
  EXPECT_EQ(m.g().SélectionRégion(4), 20);
  EXPECT_EQ(m.g().SélectionRégion(3), 30);
  m.son.joués.clear();
  ClicProvince(m.c(), 20);
  EXPECT_EQ(m.g().ResteRégion, 3);
  EXPECT_EQ(m.g().SélectionRégion(5), 10);
  EXPECT_EQ(m.g().SélectionRégion(4), 30);
  EXPECT_EQ(m.e().NombreProvinces.texte, "3");
  EXPECT_THAT(m.son.joués, ElementsAre("carte_es.wav"));
}

TEST_F(Regions, TakingAProvinceOutOfASelectionOfMoreThanNineEndsTheProgram) {
  jouer_avec_régions(2, {12, 6});
  for (int p = 101; p <= 109; ++p) ClicProvince(m.c(), p);
  EXPECT_NO_THROW(ClicProvince(m.c(), 101));
  ClicProvince(m.c(), 101);
  ClicProvince(m.c(), 110);
  ASSERT_EQ(m.g().TailleRégion - m.g().ResteRégion, 10);
  EXPECT_THROW(ClicProvince(m.c(), 110), ErreurFatale);
}

TEST_F(Regions, AProvincePlacedInAnEarlierRegionCanBePickedAgainAtTheHighLevelsOnly) {
  const bool attendu[] = {false, false, true, true};
  for (int niveau = 1; niveau <= 4; ++niveau) {
    jouer_avec_régions(niveau, {2, 6});
    cliquer_membres(1, 2);
    ASSERT_TRUE(m.g().TableProvinces(1).trouvée);
    demander(2);
    const int reste = m.g().ResteRégion;
    ClicProvince(m.c(), 1);
    EXPECT_EQ(m.g().ResteRégion == reste - 1, attendu[niveau - 1]) << "level " << niveau;
  }
}

TEST_F(Regions, AnInhibitedProvinceCannotBePicked) {
  m.g().TableProvinces(110).inhibée = true;
  jouer_avec_régions(4, {5, 6});
  ClicProvince(m.c(), 110);
  EXPECT_EQ(m.g().ResteRégion, 5);
}

struct Peine {
  int taille, justes, perdus;
};

class RegionPenalty : public Regions, public testing::WithParamInterface<Peine> {};

// Sizes of the region, provinces of it rightly selected (at Facile they stay), and what the error costs.
INSTANTIATE_TEST_SUITE_P(Table, RegionPenalty,
                         testing::Values(Peine{1, 0, 1024}, Peine{2, 0, 1024}, Peine{4, 3, 8},
                                         Peine{4, 0, 4096}, Peine{9, 0, 262144}, Peine{10, 0, 1024},
                                         Peine{12, 0, 4096}));

TEST_P(RegionPenalty, GrowsWithWhatIsMissingAndStepsDownForLargeRegions) {
  const Peine peine = GetParam();
  jouer_avec_régions(1, {peine.taille, 6});
  cliquer_membres(1, peine.justes);
  for (int k = peine.justes + 1; k <= peine.taille; ++k) ClicProvince(m.c(), étrangère(k));
  EXPECT_EQ(m.g().Score, 999999 - peine.perdus);
  EXPECT_EQ(m.g().TableRégions(1).points_perdus, peine.perdus);
}

TEST_F(Regions, AtExpertTheCountOfTheRegionIsRestoredAfterAnError) {
  m.g().TableProvinces(2).inhibée = true;
  jouer_avec_régions(4, {4, 6});
  ASSERT_EQ(m.g().TailleRégion, 3);
  ClicProvince(m.c(), 1);
  ClicProvince(m.c(), étrangère(1));
  ClicProvince(m.c(), étrangère(2));
  EXPECT_EQ(m.g().TableRégions(1).provinces_restantes, 3);
  EXPECT_FALSE(m.g().TableProvinces(1).trouvée);
}

TEST_F(Regions, SelectedProvincesBlinkAtFacileAndBearTheMarkerAbove) {
  for (int niveau = 1; niveau <= 4; ++niveau) {
    jouer_avec_régions(niveau, {4, 6});
    const int p = étrangère();
    ClicProvince(m.c(), p);
    EXPECT_EQ(m.g().TableClignotement(p), niveau == 1);
    EXPECT_EQ(m.e().rond(p).visible, niveau != 1);
    ClicProvince(m.c(), p);
    EXPECT_FALSE(m.g().TableClignotement(p));
    EXPECT_FALSE(m.e().rond(p).visible);
  }
}

TEST_F(Regions, AWrongSelectionLeavesNoMarkBehind) {
  for (int niveau = 1; niveau <= 4; ++niveau) {
    jouer_avec_régions(niveau, {2, 6});
    const int p = étrangère();
    ClicProvince(m.c(), p);
    ClicProvince(m.c(), étrangère(2));
    EXPECT_FALSE(m.g().TableClignotement(p)) << niveau;
    EXPECT_FALSE(m.e().rond(p).visible) << niveau;
  }
}

TEST_F(Regions, AWrongSelectionSoundsPicksThenError) {
  jouer_avec_régions(3, {2, 6});
  ClicProvince(m.c(), étrangère(1));
  ClicProvince(m.c(), étrangère(2));
  EXPECT_THAT(m.son.joués, ElementsAre("carte_es.wav", "carte_es.wav", "carte_er.wav"));
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
}

TEST_F(Regions, ARegionPlacedInLearningModeGivesTheTipOfTheCardsOnce) {
  jouer_avec_régions(0, {2, 3});
  cliquer_membres(m.c(), 1, 2);
  ASSERT_EQ(m.boîtes.montrées.size(), 1U);
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::conseil_fiches_des_provinces));
  demander(2);
  cliquer_membres(m.c(), 1, 3);
  EXPECT_EQ(m.boîtes.montrées.size(), 1U);
}

TEST_F(Regions, AProvincePlacedWithAnEarlierRegionShowsItsCardInLearningModeAlone) {
  for (const int niveau : {0, 1}) {
    jouer_avec_régions(niveau, {2, 3});
    cliquer_membres(1, 2);
    demander(2);
    m.oublier();
    ClicProvince(m.c(), 1);
    if (niveau == 0)
      EXPECT_THAT(m.façade.ouvertes, ElementsAre("Pompe"));
    else
      EXPECT_THAT(m.façade.ouvertes, IsEmpty());
  }
}

TEST_F(Regions, APartlyRightSelectionInLearningModeGivesTheTipToo) {
  jouer_avec_régions(0, {3, 6});
  cliquer_membres(m.c(), 1, 2);
  ClicProvince(m.c(), étrangère());
  ASSERT_EQ(m.boîtes.montrées.size(), 1U);
  EXPECT_TRUE(m.g().ConseilFicheVu);
}

}  // namespace
}  // namespace ardane
