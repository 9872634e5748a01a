#include "play/end_of_game.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/window_layout.h"
#include "play/map_clicks.h"
#include "play/stage_sequencer.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::ElementsAre;

class EndOfGame : public testing::Test {
 protected:
  void SetUp() override {
    m.démarrer();
    m.nouvelle_partie(1, "Zoé");
    m.boîtes.montrées.clear();
    m.façade.ouvertes.clear();
    m.son.joués.clear();
  }
  void remplir_table(int niveau, int dixième) {
    m.g().Nombre_scores(niveau) = 10;
    for (int rang = 1; rang <= 10; ++rang)
      m.g().Meilleurs_scores(niveau, rang) = {"ancien " + std::to_string(rang), dixième + 10 * (10 - rang)};
  }
  void entrer(int score) {
    m.g().Score = score;
    EntréeTopTen(m.c());
  }
  MondeFactice m;
};

TEST_F(EndOfGame, AScoreEqualToTheTenthOfAFullTableIsNotEntered) {
  remplir_table(1, 1000);
  entrer(1000);
  EXPECT_EQ(m.g().Meilleurs_scores(1, 10).nom, "ancien 10");
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::hors_du_top_ten));
  EXPECT_THAT(m.son.joués, ElementsAre("carte_pe.wav"));
  EXPECT_EQ(m.g().Nombre_scores(1), 10);
}

TEST_F(EndOfGame, ATieLeavesTheOlderEntryAheadAndTheTenthFallsOut) {
  remplir_table(1, 1000);
  entrer(1040);
  EXPECT_EQ(m.g().Meilleurs_scores(1, 6).nom, "ancien 6");
  EXPECT_EQ(m.g().Meilleurs_scores(1, 7).nom, "Zoé");
  EXPECT_EQ(m.g().Meilleurs_scores(1, 8).nom, "ancien 7");
  EXPECT_EQ(m.g().Meilleurs_scores(1, 10).nom, "ancien 9");
}

TEST_F(EndOfGame, TheFirstGameOfALevelEntersAtTheTopWhateverItsScore) {
  entrer(-999999);
  EXPECT_EQ(m.g().Nombre_scores(1), 1);
  EXPECT_EQ(m.g().Meilleurs_scores(1, 1).score, -999999);
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::top_ten_mais_peut_mieux_faire));
  EXPECT_EQ(m.dernière_boîte().titre, message(m.g(), Message::meilleur_score));
}

TEST_F(EndOfGame, AGoodScoreIsPraised) {
  entrer(1);
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::bravo_top_ten));
  EXPECT_EQ(m.dernière_boîte().titre, message(m.g(), Message::joli_score));
  EXPECT_THAT(m.son.joués, ElementsAre("carte_ga.wav"));
}

TEST_F(EndOfGame, ALearningGameIsToldAndShownAndWritesNothing) {
  m.nouvelle_partie(0);
  m.son.joués.clear();
  entrer(500000);
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::score_d_apprentissage_non_enregistré));
  EXPECT_EQ(m.façade.ouvertes.back(), "Affichage_scores");
  EXPECT_THAT(m.son.joués, ElementsAre("carte_pe.wav"));
  EXPECT_FALSE(fichier_existe(m.dossier.fichier("ARDANE.SCI")));
  EXPECT_EQ(m.g().Nombre_scores(1), 0);
}

TEST_F(EndOfGame, AnEntryInTheTopTenIsWrittenToTheScoreFile) {
  entrer(1234);
  EXPECT_NE(lire_fichier(m.dossier.fichier("ARDANE.SCI")).find("Zo\xE9"), std::string::npos);
}

TEST_F(EndOfGame, AnExhaustedScoreOnTheLastObjectIsPaidBeforeTheGameCanEnd) {
  for (int i = 1; i < nombre_provinces; ++i) m.répondre_juste();
  m.g().Score = 1;
  ClicProvince(m.c(), 0);
  EXPECT_EQ(m.g().Etape, étape_repos);
  EXPECT_LT(m.g().Meilleurs_scores(1, 1).score, 0);
}

TEST_F(EndOfGame, TheTopTenIsShownBeforeTheActionThatWasAskedForGoesOn) {
  m.répondre_juste();
  m.façade.joueur = [](Fenêtre &f) {
    if (f.nom == "nouvelle_partie") cliquer(f, contrôle(f, "Bouton_annuler"));
  };
  m.façade.ouvertes.clear();
  NouvellePartie(m.c());
  EXPECT_THAT(m.façade.ouvertes, ElementsAre("Affichage_scores", "nouvelle_partie"));
}

TEST_F(EndOfGame, AGameOfFlagsAloneIsWorthNothingHoweverFarItWent) {
  m.g().Ordre_jeux.remplir(0);
  m.g().Ordre_jeux(1) = étape_drapeaux;
  m.nouvelle_partie(1);
  for (int i = 0; i < 50; ++i) m.répondre_juste();
  ScoreDeProgression(m.c());
  EXPECT_EQ(m.g().Score, -999999);
}

TEST_F(EndOfGame, AGameDroppedRightAfterACompleteStageOfProvincesIsWorthThatStage) {
  m.g().Ordre_jeux(1) = étape_provinces;
  m.g().Ordre_jeux(2) = étape_drapeaux;
  m.nouvelle_partie(1);
  for (int i = 0; i < nombre_provinces; ++i) m.répondre_juste();
  EXPECT_EQ(m.g().Etape, étape_drapeaux);
  ScoreDeProgression(m.c());
  EXPECT_EQ(m.g().Score, -893079);
}

TEST_F(EndOfGame, TownsWeighSixAndCountByTowns) {
  m.g().Ordre_jeux.remplir(0);
  m.g().Ordre_jeux(1) = étape_villes;
  m.nouvelle_partie(1);
  for (int i = 0; i < 10; ++i) m.répondre_juste();
  ScoreDeProgression(m.c());
  EXPECT_EQ(m.g().Score, -999999 + 10 * 6 * 324);
}

TEST_F(EndOfGame, RegionsWeighOneAndCountByProvinces) {
  m.g().Ordre_jeux.remplir(0);
  m.g().Ordre_jeux(1) = étape_régions;
  m.nouvelle_partie(1);
  const Fiche_région région = m.g().TableRégions(m.g().RégionCourante);
  for (int k = 1; k <= région.nombre_provinces; ++k) ClicProvince(m.c(), région.membres(k));
  ScoreDeProgression(m.c());
  EXPECT_EQ(m.g().Score, -999999 + région.nombre_provinces * 324);
}

TEST_F(EndOfGame, BehindTheLastStageOfAConfigurationNothingCounts) {
  m.g().Ordre_jeux = Ordre_de_jeu({étape_provinces, aucun_jeu, étape_villes, aucun_jeu});
  m.g().Etape = étape_régions;
  ScoreDeProgression(m.c());
  EXPECT_EQ(m.g().Score, -999999 + 3 * 324 * m.g().ProvincesEnJeu);
}

TEST_F(EndOfGame, WithNothingInPlayTheProgressIsNone) {
  for (int i = 1; i <= nombre_provinces; ++i) m.g().TableProvinces(i).inhibée = true;
  m.nouvelle_partie(1);
  ScoreDeProgression(m.c());
  EXPECT_EQ(m.g().Score, -999999);
}

TEST_F(EndOfGame, ALostGameTellsSoWithTheStopIconAndScoresItsProgress) {
  m.répondre_juste();
  m.g().Score = 1;
  m.répondre_faux();
  EXPECT_EQ(m.boîtes.montrées[0].icône, Icône::stop);
  EXPECT_EQ(m.boîtes.montrées[0].texte, message(m.g(), Message::partie_terminée));
  EXPECT_EQ(m.boîtes.montrées[0].titre, message(m.g(), Message::tour_gratuit));
  EXPECT_EQ(m.g().Meilleurs_scores(1, 1).score, -999999 + 3 * 324);
  EXPECT_TRUE(m.g().PartieClose);
  EXPECT_TRUE(m.g().PartieVierge);
  EXPECT_FALSE(m.e().que_faire.visible);
}

TEST(EndOfGameOnASmallScreen, ALostGameLeavesNoButtonAndTheMapWhereItBegins) {
  MondeFactice m;
  m.écran.taille = {640, 480};
  m.démarrer();
  m.nouvelle_partie(1);
  for (Contrôle *barre : {&m.e().barre_h, &m.e().barre_v}) fixer_valeur(*barre, barre->max);
  m.g().Score = 3;
  m.répondre_faux();
  ASSERT_TRUE(est_visible(m.e().BoutonPasse));
  m.répondre_faux();
  ASSERT_EQ(m.g().Etape, étape_repos);
  EXPECT_FALSE(est_visible(m.e().BoutonPasse));
  EXPECT_EQ(m.e().image_région.gauche, 0);
  EXPECT_EQ(m.e().image_région.haut, 0);
}

/// The score as the panel shows it.
std::string score_affiché(Ecran_principal &e) {
  std::string chiffres;
  for (int i = 6; i >= 1; --i) chiffres += e.Digit(i).texte;
  return e.Digit(0).texte + chiffres;
}

TEST_F(EndOfGame, ALostGameShowsItsScoreBeforeItIsTold) {
  m.répondre_juste();
  m.g().Score = 1;
  std::vector<std::string> affichés;
  m.boîtes.pendant = [&](const Boîte &) { affichés.push_back(score_affiché(m.e())); };
  m.répondre_faux();
  ASSERT_FALSE(affichés.empty());
  EXPECT_EQ(affichés.front(), "-999027");
}

TEST_F(EndOfGame, AGameThatIsDroppedShowsItsScoreUnderTheTopTen) {
  m.répondre_juste();
  std::string affiché;
  m.façade.joueur = [&](Fenêtre &) { affiché = score_affiché(m.e()); };
  EXPECT_TRUE(ConfirmerAbandon(m.c()));
  EXPECT_EQ(affiché, "-999027");
}

TEST_F(EndOfGame, ASecondGameBeginsWithoutTheStatisticsAndTheHintOfTheFirst) {
  m.g().ConseilFicheVu = true;
  m.g().TableVilles(7).points_perdus = 5;
  m.g().TableVilles(330).trouvée_étape = true;
  m.g().TableRégions(3).points_perdus = 6;
  m.g().TableProvinces(110).points_perdus(0) = 8;
  m.nouvelle_partie(1);
  EXPECT_FALSE(m.g().ConseilFicheVu);
  EXPECT_EQ(m.g().TableVilles(7).points_perdus, 0);
  EXPECT_FALSE(m.g().TableVilles(330).trouvée_étape);
  EXPECT_EQ(m.g().TableRégions(3).points_perdus, 0);
  EXPECT_EQ(m.g().TableProvinces(110).points_perdus(0), 0);
}

TEST_F(EndOfGame, AfterAnyEndingNothingIsAskedOrScoredAgain) {
  m.g().Score = 1;
  m.répondre_faux();
  m.boîtes.montrées.clear();
  EXPECT_TRUE(ConfirmerAbandon(m.c()));
  EXPECT_TRUE(m.boîtes.montrées.empty());
  EXPECT_EQ(m.g().Nombre_scores(1), 1);
}

TEST_F(EndOfGame, TheStatisticsOfTheGameStayInMemoryAfterItsEnd) {
  const int p = m.g().ProvinceCourante;
  m.répondre_faux();
  m.g().Score = 1;
  m.répondre_faux();
  EXPECT_EQ(m.g().TableProvinces(p).points_perdus(1), 3);
}

}  // namespace
}  // namespace ardane
