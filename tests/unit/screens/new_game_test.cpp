#include "screens/new_game.h"

#include <gtest/gtest.h>

#include "persistence/registry.h"
#include "platform/window_layout.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

class NewGameDialog : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }
  /// Opens the dialog and plays `joueur` in it.
  void ouvrir(std::function<void(Fenêtre &)> joueur) {
    m.façade.joueur = [joueur = std::move(joueur)](Fenêtre &f) {
      if (f.nom == "nouvelle_partie") joueur(f);
    };
    cliquer(m.e(), m.e().menu("fichier_nouveau"));
  }
  static void accepter(Fenêtre &f) { cliquer(f, contrôle(f, "bouton_sortie")); }
  static void annuler(Fenêtre &f) { cliquer(f, contrôle(f, "Bouton_annuler")); }
  std::string nom_retenu_pour(const std::string &saisi) {
    m.g().PartieVierge = true;
    ouvrir([&](Fenêtre &f) {
      saisir(contrôle(f, "boîte_nom_joueur"), saisi);
      accepter(f);
    });
    return m.g().Nom_joueur;
  }
  MondeFactice m;
};

TEST_F(NewGameDialog, LeadingBlanksStayInTheNameAndLongNamesAreCutToTwenty) {
  EXPECT_EQ(nom_retenu_pour("   Ann"), "   Ann");
  EXPECT_EQ(nom_retenu_pour("abcdefghijklmnopqrstuvwxy"), "abcdefghijklmnopqrst");
  EXPECT_EQ(nom_retenu_pour("12345678901234567890"), "12345678901234567890");
  EXPECT_EQ(nom_retenu_pour("123456789012345678901"), "12345678901234567890");
  EXPECT_EQ(nom_retenu_pour(std::string(10000, 'z')), std::string(20, 'z'));
}

TEST_F(NewGameDialog, ANameIsCutByCharactersAndNotByBytes) {
  EXPECT_EQ(nom_retenu_pour("éééééééééééééééééééééé"), "éééééééééééééééééééé");
  EXPECT_EQ(nom_retenu_pour("名前名前名前名前名前名前名前名前名前名前名前"),
            "名前名前名前名前名前名前名前名前名前名前");
}

TEST_F(NewGameDialog, ANameOfBlanksIsRefusedAndTheDialogStaysWithItsTextUnchanged) {
  ouvrir([&](Fenêtre &f) {
    saisir(contrôle(f, "boîte_nom_joueur"), "   ");
    accepter(f);
    EXPECT_EQ(m.dernière_boîte().texte, message(m.g(), Message::indiquer_votre_nom));
    EXPECT_EQ(m.dernière_boîte().titre, message(m.g(), Message::saisie_incomplète));
    EXPECT_EQ(m.dernière_boîte().icône, Icône::exclamation);
    EXPECT_TRUE(f.ouverte);
    EXPECT_EQ(contrôle(f, "boîte_nom_joueur").texte, "   ");
    annuler(f);
  });
}

TEST_F(NewGameDialog, AnEmptyNameIsRefused) {
  ouvrir([&](Fenêtre &f) {
    accepter(f);
    EXPECT_TRUE(f.ouverte);
    annuler(f);
  });
  EXPECT_EQ(m.g().Etape, étape_repos);
}

TEST_F(NewGameDialog, TheFirstGameOpensOnFacileWithTheFocusOnTheName) {
  ouvrir([](Fenêtre &f) {
    EXPECT_TRUE(contrôle(f, "niveau_facile").coché);
    EXPECT_FALSE(contrôle(f, "niveau_moyen").coché);
    EXPECT_EQ(f.focus, &contrôle(f, "boîte_nom_joueur"));
    annuler(f);
  });
}

TEST_F(NewGameDialog, AfterAnExpertGameItReopensOnExpertWithTheNameAndTheFocusOnOk) {
  m.nouvelle_partie(4, "Léa");
  ouvrir([](Fenêtre &f) {
    EXPECT_TRUE(contrôle(f, "niveau_expert").coché);
    EXPECT_EQ(contrôle(f, "boîte_nom_joueur").texte, "Léa");
    EXPECT_EQ(f.focus, &contrôle(f, "bouton_sortie"));
    annuler(f);
  });
}

TEST_F(NewGameDialog, AfterLearningModeItReopensOnFacile) {
  m.nouvelle_partie(0);
  EXPECT_TRUE(m.g().ModeApprentissage);
  EXPECT_TRUE(m.g().ScoreNonRetenu);
  EXPECT_EQ(m.g().Niveau, 1);
  ouvrir([](Fenêtre &f) {
    EXPECT_TRUE(contrôle(f, "niveau_facile").coché);
    EXPECT_FALSE(contrôle(f, "Niveau_apprentissage").coché);
    annuler(f);
  });
}

TEST_F(NewGameDialog, CancelAfterARefusalLeavesTheNameAsBefore) {
  m.nouvelle_partie(2, "Léa");
  ouvrir([](Fenêtre &f) {
    saisir(contrôle(f, "boîte_nom_joueur"), " ");
    accepter(f);
    annuler(f);
  });
  EXPECT_EQ(m.g().Nom_joueur, "Léa");
  EXPECT_EQ(m.g().Niveau, 2);
}

TEST_F(NewGameDialog, TheNameIsRememberedInTheRegistry) {
  m.nouvelle_partie(1, "Léa");
  std::string nom;
  Lire_registre(m.registre, clé_du_jeu, "joueur", nom);
  EXPECT_EQ(nom, "Léa");
}

TEST_F(NewGameDialog, TheLampIsLitAgainAtEachGame) {
  m.e().Bouton_gruge.image = m.e().Ampoule_éteinte.image;
  m.nouvelle_partie(0);
  EXPECT_EQ(m.e().Bouton_gruge.image, m.e().Ampoule_allumée.image);
}

TEST_F(NewGameDialog, TheLevelsOfTheOptionsAreOneToFour) {
  for (int niveau = 1; niveau <= 4; ++niveau) {
    m.g().PartieVierge = true;
    m.nouvelle_partie(niveau);
    EXPECT_EQ(m.g().Niveau, niveau);
    EXPECT_FALSE(m.g().ModeApprentissage);
  }
}

TEST_F(NewGameDialog, ItIsCentredAndCannotBeClosedButByItsButtons) {
  ouvrir([](Fenêtre &f) {
    EXPECT_EQ(f.gauche, (1280 - 312) / 2);
    EXPECT_EQ(f.haut, (1024 - 303) / 2);
    EXPECT_FALSE(f.fermable);
    EXPECT_EQ(f.titre, "Nouvelle partie");
    EXPECT_EQ(f.contexte_aide, 20);
    EXPECT_EQ(contrôle(f, "niveau_expert").texte, "Expert");
    annuler(f);
  });
}

}  // namespace
}  // namespace ardane
