#include "play/stage_sequencer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "map/map_reset.h"
#include "map/panel.h"
#include "platform/window_layout.h"
#include "play/map_clicks.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class Stages : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }

  void ordonner(std::initializer_list<int> jeux) {
    m.g().Ordre_jeux.remplir(0);
    int rang = 0;
    for (const int code : jeux) m.g().Ordre_jeux(++rang) = static_cast<std::int16_t>(code);
  }
  /// Plays stages 1 to 3 to their end without an error.
  void finir_étape() {
    const int étape = m.g().Etape;
    while (m.g().Etape == étape) m.répondre_juste();
  }
  void annuler_le_dialogue() {
    m.façade.joueur = [](Fenêtre &f) {
      if (f.nom == "nouvelle_partie") cliquer(f, contrôle(f, "Bouton_annuler"));
    };
  }
  /// What can be seen in the main window.
  std::vector<std::string> vus() {
    std::vector<std::string> noms;
    for (const Contrôle &contrôle : m.e().contrôles())
      if (est_visible(contrôle)) noms.push_back(contrôle.nom);
    return noms;
  }
  void choisir(std::string_view entrée) { cliquer(m.e(), m.e().menu(entrée)); }

  MondeFactice m;
};

TEST_F(Stages, CancellingTheDialogAfterAgreeingToAbandonScoresTheOldGameAndStartsNoNewOne) {
  m.nouvelle_partie(1);
  m.répondre_juste();
  m.boîtes.réponses = {Réponse::oui};
  annuler_le_dialogue();
  choisir("fichier_nouveau");
  EXPECT_EQ(m.g().Etape, étape_repos);
  EXPECT_EQ(m.g().Nombre_scores(1), 1);
  EXPECT_FALSE(m.e().que_faire.visible);
  EXPECT_TRUE(m.g().PartieVierge);
}

TEST_F(Stages, BehindTheDialogOfANewGameTheWindowIsAsBareAsAtTheStart) {
  const std::vector<std::string> au_départ = vus();
  for (const int jeu : {étape_provinces, étape_villes, étape_régions}) {
    ordonner({jeu});
    m.nouvelle_partie(1);
    ClicProvince(m.c(), m.g().ProvinceCourante == 0 ? 1 : m.g().ProvinceCourante);
    ASSERT_NE(vus(), au_départ);
    std::vector<std::string> derrière;
    m.façade.joueur = [&](Fenêtre &f) {
      if (f.nom != "nouvelle_partie") return;
      derrière = vus();
      cliquer(f, contrôle(f, "Bouton_annuler"));
    };
    choisir("fichier_nouveau");
    EXPECT_EQ(derrière, au_départ) << jeu;
    EXPECT_EQ(vus(), au_départ) << jeu;
  }
}

TEST_F(Stages, AGameOfOneStageEndsAtItsLastObjectWithoutAnAnnouncement) {
  ordonner({étape_provinces});
  m.nouvelle_partie(1);
  finir_étape();
  EXPECT_EQ(m.g().Etape, étape_repos);
  for (const Boîte &boîte : m.boîtes.montrées)
    EXPECT_NE(boîte.titre, message(m.g(), Message::étape_suivante));
  EXPECT_EQ(m.g().Meilleurs_scores(1, 1).score, 999999);
}

TEST_F(Stages, AGameOfFourStagesEndsAfterTheFourth) {
  ordonner({étape_provinces, étape_drapeaux, étape_provinces, étape_villes});
  m.g().Ordre_jeux(3) = étape_régions;
  m.nouvelle_partie(1);
  finir_étape();
  finir_étape();
  EXPECT_EQ(m.g().Etape, étape_régions);
  m.g().Etape = étape_villes;
  RemiseAZéroCarte(m.c());
  m.g().VillesRestantes = 1;
  m.g().VilleCourante = 1;
  m.g().ProvinceCourante = 1;
  m.répondre_juste();
  EXPECT_EQ(m.g().Etape, étape_repos);
  EXPECT_TRUE(m.g().PartieClose);
}

TEST_F(Stages, TheScoreCarriesItsLossesFromStageToStage) {
  ordonner({étape_provinces, étape_drapeaux, étape_villes});
  m.nouvelle_partie(2);
  m.répondre_faux();
  finir_étape();
  EXPECT_EQ(m.g().Score, 999998);
  m.répondre_faux();
  finir_étape();
  EXPECT_EQ(m.g().Score, 999997);
  finir_étape();
  EXPECT_EQ(m.g().Meilleurs_scores(2, 1).score, 999997);
}

TEST_F(Stages, TheAnnouncementJoinsTheStageThatEndsToTheOneThatComes) {
  ordonner({étape_drapeaux, étape_villes});
  m.nouvelle_partie(1);
  finir_étape();
  EXPECT_EQ(m.dernière_boîte().texte, "Après les drapeaux nous allons passer aux villes....");
  EXPECT_EQ(m.dernière_boîte().titre, "Etape suivante");
}

TEST_F(Stages, TheFinishedMapStandsUnderTheAnnouncementOfTheNextStage) {
  ordonner({étape_provinces, étape_villes});
  m.nouvelle_partie(1);
  int visibles = 0;
  std::string reste;
  m.boîtes.pendant = [&](const Boîte &) {
    for (int p = 1; p <= nombre_provinces; ++p) visibles += est_visible(m.e().Pays(p)) ? 1 : 0;
    for (int i = 3; i >= 1; --i) reste += m.e().Reste(i).texte;
  };
  finir_étape();
  EXPECT_EQ(visibles, nombre_provinces);
  EXPECT_EQ(reste, "000");
}

TEST_F(Stages, TheNextStageBeginsWithNothingFoundAndACountOfItsOwn) {
  ordonner({étape_provinces, étape_drapeaux});
  m.nouvelle_partie(2);
  finir_étape();
  ASSERT_EQ(m.g().Etape, étape_drapeaux);
  EXPECT_FALSE(est_visible(m.e().Texte_à_chercher)) << "it would tell the province's name";
  EXPECT_EQ(m.e().Boîte_restants.texte, "Drapeaux à placer");
  EXPECT_EQ(m.e().Reste(3).texte + m.e().Reste(2).texte + m.e().Reste(1).texte, "110");
  for (int p = 1; p <= nombre_provinces; ++p) {
    EXPECT_FALSE(est_visible(m.e().Pays(p))) << p;
    EXPECT_TRUE(est_visible(m.e().Inv(p))) << p;
  }
}

TEST_F(Stages, AClickOnTheMapAtRestIsNone) {
  m.cliquer_carte(m.g().TableVilles(7).x, m.g().TableVilles(7).y);
  EXPECT_TRUE(m.g().PartieVierge);
}

TEST_F(Stages, AGameNeverClickedIsDroppedWithoutAQuestionAndWithoutAScore) {
  m.nouvelle_partie(1);
  m.boîtes.montrées.clear();
  annuler_le_dialogue();
  choisir("fichier_nouveau");
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_EQ(m.g().Nombre_scores(1), 0);
}

TEST_F(Stages, AfterASingleClickTheGameIsConfirmedAndScoredByItsProgress) {
  ordonner({étape_provinces});
  m.nouvelle_partie(1);
  m.répondre_juste();
  m.boîtes.montrées.clear();
  annuler_le_dialogue();
  choisir("fichier_nouveau");
  ASSERT_GE(m.boîtes.montrées.size(), 2U);
  EXPECT_EQ(m.boîtes.montrées[0].texte, message(m.g(), Message::confirmer_abandon));
  EXPECT_EQ(m.boîtes.montrées[0].titre, message(m.g(), Message::partie_en_cours));
  EXPECT_EQ(m.boîtes.montrées[0].boutons, Boutons::oui_non);
  EXPECT_TRUE(m.boîtes.montrées[0].non_par_défaut);
  EXPECT_EQ(m.g().Meilleurs_scores(1, 1).score, -999999 + 324 * 3);
}

TEST_F(Stages, WhenTheConfigurationIsShownNoConfirmationIsAsked) {
  m.g().Etape = étape_paramétrage_affiché;
  m.g().PartieVierge = false;
  m.g().PartieClose = false;
  m.boîtes.montrées.clear();
  EXPECT_TRUE(ConfirmerAbandon(m.c()));
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
}

TEST_F(Stages, ARefusedAbandonLeavesTheGameAsItWasBlinkingIncluded) {
  m.nouvelle_partie(0);
  m.répondre_faux();
  cliquer(m.e(), m.e().Bouton_gruge);
  const int p = m.g().ProvinceCourante;
  m.boîtes.réponses = {Réponse::non};
  choisir("fichier_nouveau");
  EXPECT_EQ(m.g().Etape, étape_provinces);
  EXPECT_EQ(m.g().ProvinceCourante, p);
  EXPECT_TRUE(m.g().TableClignotement(p));
  EXPECT_TRUE(m.g().AssistanceActive);
  EXPECT_TRUE(m.e().que_faire.visible);
}

TEST_F(Stages, WhatTheConfigurationLeavesOutIsFoundFromTheStart) {
  const int région = m.g().TableProvinces(1).région;
  int membres = 0;
  for (int i = 1; i <= nombre_provinces; ++i) {
    if (m.g().TableProvinces(i).région != région) continue;
    m.g().TableProvinces(i).inhibée = true;
    ++membres;
  }
  m.nouvelle_partie(1);
  EXPECT_TRUE(m.g().TableProvinces(1).trouvée);
  EXPECT_TRUE(m.g().TableRégions(région).trouvée);
  EXPECT_EQ(m.g().RégionsEnJeu, 19);
  EXPECT_EQ(m.g().ProvincesEnJeu, nombre_provinces - membres);
  EXPECT_EQ(m.g().VillesEnJeu, nombre_villes - 3 * membres);
}

TEST_F(Stages, TheNumberOfProvincesInPlayDoesNotGrowFromStageToStage) {
  ordonner({étape_provinces, étape_drapeaux});
  m.nouvelle_partie(1);
  finir_étape();
  EXPECT_EQ(m.g().ProvincesEnJeu, nombre_provinces);
}

TEST_F(Stages, TheCaptionOfTheFlagsStaysFrenchWhateverTheLanguage) {
  ordonner({étape_drapeaux});
  m.g().Messages(static_cast<int>(Message::provinces_à_placer)) = "Provinces to place";
  m.nouvelle_partie(1);
  EXPECT_EQ(m.e().Boîte_restants.texte, "Drapeaux à placer");
}

TEST_F(Stages, ANewGameClearsTheStatisticsAndAChangeOfStageKeepsThem) {
  ordonner({étape_provinces, étape_drapeaux});
  m.nouvelle_partie(1);
  const int p = m.g().ProvinceCourante;
  m.répondre_faux();
  finir_étape();
  EXPECT_EQ(m.g().TableProvinces(p).points_perdus(1), 1);
  EXPECT_TRUE(m.g().TableProvinces(p).trouvée_étape(1));
  finir_étape();
  m.nouvelle_partie(1);
  EXPECT_EQ(m.g().TableProvinces(p).points_perdus(1), 0);
  EXPECT_FALSE(m.g().TableProvinces(p).trouvée_étape(1));
}

TEST_F(Stages, LearningModeHidesTheScore) {
  m.nouvelle_partie(0);
  EXPECT_FALSE(m.e().Boîte_score.visible);
  EXPECT_FALSE(m.e().Digit(1).visible);
  EXPECT_TRUE(m.e().Reste(1).visible);
  m.nouvelle_partie(1);
  EXPECT_TRUE(m.e().Boîte_score.visible);
}

TEST_F(Stages, TheCounterAndTheScoreStandInTheirBoxesUnitsFirst) {
  m.nouvelle_partie(1);
  EXPECT_EQ(m.e().Reste(1).texte, "0");
  EXPECT_EQ(m.e().Reste(2).texte, "1");
  EXPECT_EQ(m.e().Reste(3).texte, "1");
  m.g().Score = -1250;
  AfficherScore(m.c());
  EXPECT_EQ(m.e().Digit(0).texte, "-");
  EXPECT_EQ(m.e().Digit(1).texte, "0");
  EXPECT_EQ(m.e().Digit(4).texte, "1");
  EXPECT_EQ(m.e().Digit(6).texte, "0");
}

TEST_F(Stages, QuittingPassesTheConfirmationAndGivesTheSystemSoundsBack) {
  m.nouvelle_partie(1);
  m.répondre_juste();
  m.boîtes.réponses = {Réponse::non};
  choisir("fichier_quitter");
  EXPECT_TRUE(m.programme.en_cours());
  m.boîtes.réponses = {Réponse::oui};
  m.e().demande_de_fermeture();
  EXPECT_FALSE(m.programme.en_cours());
  EXPECT_THAT(m.façade.ouvertes, Contains("Affichage_scores"));
}

TEST_F(Stages, TheHelpContextIsThatOfPlayFromANewGameOn) {
  m.e().contexte_aide = 65;
  m.nouvelle_partie(1);
  EXPECT_EQ(m.e().contexte_aide, 10);
}

}  // namespace
}  // namespace ardane
