#include "screens/top_ten.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/window_layout.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

class TopTenWindow : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }
  void ouvrir(std::string_view entrée, std::function<void(Fenêtre &)> regarder) {
    m.façade.joueur = std::move(regarder);
    cliquer(m.e(), m.e().menu(entrée));
    m.façade.joueur = nullptr;
  }
  MondeFactice m;
};

TEST_F(TopTenWindow, AnEmptyListShowsItsTitleAndTenBlankRows) {
  ouvrir("score_moyen", [](Fenêtre &f) {
    EXPECT_EQ(contrôle(f, "Etiquette").texte, "Niveau moyen");
    for (int i = 1; i <= 10; ++i) {
      EXPECT_EQ(contrôle(f, indexé("nomjoueur", i)).texte, "");
      EXPECT_EQ(contrôle(f, indexé("valeurscore", i)).texte, "");
    }
  });
}

TEST_F(TopTenWindow, AnEntryOfExactlyZeroIsBlankEvenAboveAFilledRow) {
  m.g().Meilleurs_scores(1, 1) = {"Zéro", 0};
  m.g().Meilleurs_scores(1, 2) = {"Bob", -5};
  ouvrir("score_facile", [](Fenêtre &f) {
    EXPECT_EQ(contrôle(f, "nomjoueur(1)").texte, "");
    EXPECT_EQ(contrôle(f, "nomjoueur(2)").texte, "Bob");
  });
}

TEST_F(TopTenWindow, ANegativeScoreIsShownWithItsMinusSign) {
  m.g().Meilleurs_scores(3, 1) = {"Bob", -1250};
  ouvrir("score_difficile", [](Fenêtre &f) { EXPECT_EQ(contrôle(f, "valeurscore(1)").texte, "-1250"); });
}

TEST_F(TopTenWindow, TheTitleOfTheExpertLevelIsAMessageOfItsOwn) {
  m.g().Messages(static_cast<int>(Message::titre_niveau_expert)) = "Experts";
  ouvrir("score_expert", [](Fenêtre &f) { EXPECT_EQ(contrôle(f, "Etiquette").texte, "Experts"); });
  EXPECT_EQ(m.e().menu("score_expert").texte, message(m.g(), Message::menu_niveau_expert));
}

TEST_F(TopTenWindow, TheWayToTheStatisticsStaysFromTheEndOfAGameUntilTheNextOne) {
  const auto bouton = [&] {
    bool visible = false;
    ouvrir("score_facile", [&](Fenêtre &f) { visible = contrôle(f, "BoutonStatistiques").visible; });
    return visible;
  };
  EXPECT_FALSE(bouton());
  m.nouvelle_partie(1);
  m.g().Score = 1;
  m.répondre_faux();
  EXPECT_TRUE(bouton());
  m.nouvelle_partie(1);
  EXPECT_FALSE(bouton());
}

TEST_F(TopTenWindow, TheButtonOfTheStatisticsShowsItsPictureAndSpeaks) {
  ouvrir("score_facile", [&](Fenêtre &f) {
    const Contrôle &bouton = contrôle(f, "BoutonStatistiques");
    EXPECT_TRUE(bouton.image);
    EXPECT_EQ(bouton.image, m.c().ressources.images.chercher("Affichage_scores.BoutonStatistiques"));
    EXPECT_EQ(bouton.nom_parlé, "Statistiques");
  });
}

TEST_F(TopTenWindow, WithNoLevelChosenItSaysSoAndShowsFacile) {
  m.boîtes.montrées.clear();
  ouvrir("score_en_cours", [](Fenêtre &f) { EXPECT_EQ(contrôle(f, "Etiquette").texte, "Niveau facile"); });
  EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::niveau_non_sélectionné));
  EXPECT_EQ(m.dernière_boîte().titre, message(m.g(), Message::être_plus_précis));
  EXPECT_EQ(m.g().Niveau_affiché, 1);
}

TEST_F(TopTenWindow, ALevelThatDoesNotExistIsAFatalErrorToldInFrench) {
  for (const int niveau : {-1, 5}) {
    try {
      AfficherScores(m.c(), niveau);
      FAIL() << "level " << niveau << " was shown";
    } catch (const ErreurFatale &erreur) {
      EXPECT_THAT(erreur.what(),
                  testing::StartsWith("Indice " + std::to_string(niveau) + " hors des bornes 1 à 4"));
    }
  }
}

TEST_F(TopTenWindow, TheCurrentLevelIsThatOfTheGame) {
  m.nouvelle_partie(3);
  ouvrir("score_en_cours", [](Fenêtre &f) { EXPECT_EQ(contrôle(f, "Etiquette").texte, "Niveau difficile"); });
}

TEST_F(TopTenWindow, ItsButtonClosesIt) {
  ouvrir("score_facile", [](Fenêtre &f) {
    EXPECT_TRUE(f.fermable);
    EXPECT_TRUE(f.redimensionnable);
    cliquer(f, contrôle(f, "Command1"));
    EXPECT_FALSE(f.ouverte);
  });
}

}  // namespace
}  // namespace ardane
