#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "play/assistance.h"
#include "play/judgement.h"
#include "play/map_clicks.h"
#include "play/penalty.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Answers : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }

  void jouer(int étape, int niveau) {
    m.g().PartieVierge = true;
    m.g().Ordre_jeux.remplir(0);
    m.g().Ordre_jeux(1) = static_cast<std::int16_t>(étape);
    m.nouvelle_partie(niveau);
    m.son.joués.clear();
    m.boîtes.montrées.clear();
  }
  void se_tromper(int fois) {
    for (int i = 0; i < fois; ++i) m.répondre_faux();
  }
  int perdus(int province, int étape) { return m.g().TableProvinces(province).points_perdus(étape); }

  MondeFactice m;
};

TEST_F(Answers, AnErrorThatCostsMoreThanANumberHoldsEndsTheProgram) {
  jouer(étape_provinces, 1);
  m.g().TableProvinces(m.g().ProvinceCourante).points_perdus(étape_provinces) =
      std::numeric_limits<std::int32_t>::max();
  EXPECT_THROW(m.répondre_faux(), ErreurFatale);
}

TEST_F(Answers, ARightAnswerAfterNineErrorsCostsNothingMore) {
  jouer(étape_provinces, 1);
  const int p = m.g().ProvinceCourante;
  se_tromper(9);
  m.répondre_juste();
  EXPECT_EQ(m.g().Score, 999999 - 511);
  EXPECT_EQ(perdus(p, 1), 511);
  EXPECT_EQ(perdus(p, 0), 511);
  EXPECT_EQ(m.g().NbErreurs, 0);
}

TEST_F(Answers, TheTenthWrongClickCosts512ChangesTheQuestionAndPlacesNothing) {
  jouer(étape_provinces, 2);
  const int p = m.g().ProvinceCourante;
  se_tromper(9);
  const int avant = m.g().Score;
  m.son.joués.clear();
  m.répondre_faux();
  EXPECT_EQ(m.g().Score, avant - 512);
  EXPECT_EQ(perdus(p, 1), 1023);
  EXPECT_NE(m.g().ProvinceCourante, p);
  EXPECT_FALSE(m.g().TableProvinces(p).trouvée);
  EXPECT_EQ(m.g().ProvincesRestantes, 110);
  EXPECT_EQ(m.g().NbErreurs, 0);
  EXPECT_THAT(m.son.joués, ElementsAre("carte_pe.wav"));
  EXPECT_EQ(m.dernière_boîte().icône, Icône::exclamation);
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::essayer_autre_chose));
  EXPECT_EQ(m.dernière_boîte().titre, message(m.g(), Message::se_ressaisir));
}

TEST_F(Answers, AnObjectGivenUpComesBackWithNoErrorCounted) {
  jouer(étape_provinces, 2);
  const int p = m.g().ProvinceCourante;
  se_tromper(10);
  m.hasard.suite = {(static_cast<float>(p) - 0.5F) / 109.0F};
  m.g().TableProvinces(m.autre_province()).trouvée = false;
  while (m.g().ProvinceCourante != p) m.répondre_juste();
  EXPECT_EQ(m.g().NbErreurs, 0);
}

TEST_F(Answers, TheLastObjectOfAStagePlaysTheStageSoundAndGivesNoTip) {
  jouer(étape_provinces, 1);
  m.g().Ordre_jeux(2) = étape_drapeaux;
  for (int i = 1; i < nombre_provinces; ++i) m.répondre_juste();
  m.son.joués.clear();
  m.boîtes.montrées.clear();
  m.répondre_juste();
  EXPECT_THAT(m.son.joués, ElementsAre("carte_ga.wav"));
  ASSERT_EQ(m.boîtes.montrées.size(), 1U);
  EXPECT_EQ(m.dernière_boîte().titre, message(m.g(), Message::étape_suivante));
  EXPECT_EQ(m.g().Etape, étape_drapeaux);
}

TEST_F(Answers, InLearningModeTheScoreNeverMovesButThePointsLostGrow) {
  jouer(étape_provinces, 0);
  const int p = m.g().ProvinceCourante;
  se_tromper(10);
  EXPECT_EQ(m.g().Score, 999999);
  EXPECT_EQ(perdus(p, 0), 1023);
  EXPECT_EQ(m.g().Etape, étape_provinces);
}

TEST_F(Answers, AtTheLowLevelsAnyClickInTheRightProvincePlacesTheTownAsked) {
  for (const int niveau : {1, 2}) {
    jouer(étape_villes, niveau);
    m.hasard.suite = {0};
    const int ville = m.g().VilleCourante;
    int autre = 111;
    while (m.g().TableVilles(autre).province != m.g().ProvinceCourante) ++autre;
    Clic_repère(m.c(), autre);
    EXPECT_TRUE(m.g().TableVilles(ville).trouvée);
    EXPECT_FALSE(m.g().TableVilles(autre).trouvée);
    EXPECT_EQ(m.g().Score, 999999);
  }
}

TEST_F(Answers, AtTheHighLevelsAWrongMarkerIsWrongEvenInTheRightProvince) {
  for (const int niveau : {3, 4}) {
    jouer(étape_villes, niveau);
    const int ville = m.g().VilleCourante;
    int autre = 111;
    while (m.g().TableVilles(autre).province != m.g().ProvinceCourante || autre == ville) ++autre;
    Clic_repère(m.c(), autre);
    EXPECT_FALSE(m.g().TableVilles(ville).trouvée);
    EXPECT_EQ(m.g().Score, 999998);
    Clic_repère(m.c(), ville);
    EXPECT_TRUE(m.g().TableVilles(ville).trouvée);
    EXPECT_EQ(m.g().Score, 999998);
  }
}

TEST_F(Answers, AClickInAProvinceWithAllTownsPlacedCostsNothingAtFacileAndIsWrongAbove) {
  const int coûts[] = {0, 1, 1, 1};
  for (int niveau = 1; niveau <= 4; ++niveau) {
    jouer(étape_villes, niveau);
    const int autre = m.g().ProvinceCourante == 5 ? 6 : 5;
    m.g().TableProvinces(autre).trouvée = true;
    ClicProvince(m.c(), autre);
    EXPECT_EQ(m.g().Score, 999999 - coûts[niveau - 1]) << "level " << niveau;
  }
}

TEST_F(Answers, AProvincePlacedAgainIsIgnoredUpToMoyenAndWrongAbove) {
  const int coûts[] = {0, 0, 1, 1};
  for (const int étape : {étape_provinces, étape_drapeaux}) {
    for (int niveau = 1; niveau <= 4; ++niveau) {
      jouer(étape, niveau);
      const int placée = m.g().ProvinceCourante;
      m.répondre_juste();
      ClicProvince(m.c(), placée);
      EXPECT_EQ(m.g().Score, 999999 - coûts[niveau - 1]) << "stage " << étape << ", level " << niveau;
    }
  }
}

TEST_F(Answers, AnInhibitedProvinceNeverCostsAnything) {
  for (int niveau = 1; niveau <= 4; ++niveau) {
    m.g().TableProvinces(50).inhibée = true;
    jouer(étape_provinces, niveau);
    ClicProvince(m.c(), 50);
    EXPECT_EQ(m.g().Score, 999999);
    EXPECT_THAT(m.son.joués, IsEmpty());
  }
}

TEST_F(Answers, AScoreOfExactlyZeroEndsTheGame) {
  jouer(étape_provinces, 1);
  m.g().Score = 1;
  m.répondre_faux();
  EXPECT_EQ(m.g().Etape, étape_repos);
  EXPECT_TRUE(m.g().PartieClose);
}

TEST_F(Answers, TheSoundOfTheErrorComesAfterTheTopTenOfALostGame) {
  jouer(étape_provinces, 1);
  m.g().Score = 1;
  m.façade.joueur = [&](Fenêtre &f) {
    if (f.nom == "Affichage_scores") m.son.joués.push_back("top ten");
  };
  m.répondre_faux();
  EXPECT_THAT(m.son.joués, ElementsAre("carte_pe.wav", "carte_ga.wav", "top ten", "carte_er.wav"));
}

TEST_F(Answers, TheBoxOfTheAnswerAlreadyGivenIsKeptAsASafetyNet) {
  jouer(étape_provinces, 3);
  m.g().TableProvinces(m.g().ProvinceCourante).trouvée = true;
  ClicProvince(m.c(), m.g().ProvinceCourante);
  EXPECT_THAT(m.son.joués, ElementsAre("carte_ok.wav"));
  EXPECT_EQ(m.dernière_boîte().icône, Icône::information);
  EXPECT_EQ(m.dernière_boîte().titre, message(m.g(), Message::tour_gratuit));
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::réponse_déjà_donnée));
  EXPECT_EQ(m.g().Score, 999999);
}

TEST_F(Answers, EachFurtherErrorCostsTwiceTheLast) {
  jouer(étape_provinces, 4);
  int attendu = 999999;
  for (int e = 0; e < 10; ++e) {
    m.répondre_faux();
    attendu -= 1 << e;
    EXPECT_EQ(m.g().Score, attendu);
  }
}

TEST_F(Answers, TheObjectAskedIsChargedAndNotTheOneClicked) {
  jouer(étape_villes, 2);
  const int demandée = m.g().ProvinceCourante;
  const int ville = m.g().VilleCourante;
  const int autre = m.autre_province();
  ClicProvince(m.c(), autre);
  EXPECT_EQ(perdus(demandée, 2), 1);
  EXPECT_EQ(perdus(demandée, 0), 1);
  EXPECT_EQ(m.g().TableVilles(ville).points_perdus, 1);
  EXPECT_EQ(perdus(autre, 0), 0);
}

TEST_F(Answers, HelpAppearsAtTheFirstErrorAndDependsOnTheLevel) {
  for (int niveau = 0; niveau <= 4; ++niveau) {
    jouer(étape_provinces, niveau);
    EXPECT_FALSE(m.e().Bouton_gruge.visible || m.e().BoutonPasse.visible);
    m.répondre_faux();
    EXPECT_EQ(m.e().Bouton_gruge.visible, niveau == 0);
    EXPECT_EQ(m.e().BoutonPasse.visible, niveau == 1);
    m.répondre_juste();
    EXPECT_FALSE(m.e().Bouton_gruge.visible || m.e().BoutonPasse.visible);
  }
}

TEST_F(Answers, TheTipOfTheCardsComesOnceAGameAndInLearningModeOnly) {
  const auto répondre_juste = [&] { ClicProvince(m.c(), m.g().ProvinceCourante); };
  jouer(étape_provinces, 0);
  répondre_juste();
  ASSERT_EQ(m.boîtes.montrées.size(), 1U);
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::conseil_fiches_des_provinces));
  EXPECT_EQ(m.dernière_boîte().titre, message(m.g(), Message::à_propos));
  EXPECT_TRUE(m.g().ConseilFicheVu);
  répondre_juste();
  EXPECT_EQ(m.boîtes.montrées.size(), 1U);
  jouer(étape_provinces, 1);
  répondre_juste();
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
}

TEST_F(Answers, AsTheTipSaysAClickOnAFoundProvinceOpensItsCard) {
  jouer(étape_provinces, 0);
  const auto trouvée = m.g().ProvinceCourante;
  ClicProvince(m.c(), trouvée);
  m.façade.ouvertes.clear();
  ClicProvince(m.c(), trouvée);
  EXPECT_THAT(m.façade.ouvertes, ElementsAre("Pompe"));
  EXPECT_EQ(m.g().ProvinceFiche, trouvée);
}

TEST_F(Answers, TheFirstClickEndsTheGameIntact) {
  jouer(étape_provinces, 1);
  EXPECT_TRUE(m.g().PartieVierge);
  m.répondre_juste();
  EXPECT_FALSE(m.g().PartieVierge);
}

TEST_F(Answers, WithTheSoundCutNoSoundReachesThePlatform) {
  jouer(étape_provinces, 1);
  cliquer(m.e(), m.e().menu("MenuSon"));
  m.répondre_juste();
  m.répondre_faux();
  EXPECT_THAT(m.son.joués, IsEmpty());
}

TEST_F(Answers, WhenATownIsPlacedItsProvinceIsFoundOnlyWithItsLastTown) {
  jouer(étape_villes, 1);
  const int p = m.g().ProvinceCourante;
  int placées = 0;
  while (!m.g().TableProvinces(p).trouvée) {
    if (m.g().ProvinceCourante == p) ++placées;
    EXPECT_EQ(m.g().TableProvinces(p).trouvée_étape(2), false);
    m.répondre_juste();
  }
  EXPECT_EQ(placées, 3);
  EXPECT_TRUE(m.g().TableProvinces(p).trouvée_étape(2));
}

}  // namespace
}  // namespace ardane
