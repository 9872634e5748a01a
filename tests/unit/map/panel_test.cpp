#include "map/panel.h"

#include <gtest/gtest.h>

#include <vector>

#include "map/configuration_panel.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

class Panel : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }
  GameState &g() { return m.g(); }
  Ecran_principal &e() { return m.e(); }
  void afficher(int étape, int niveau, bool apprentissage = false) {
    g().Etape = static_cast<std::int16_t>(étape);
    g().Niveau = static_cast<std::int16_t>(niveau);
    g().ModeApprentissage = apprentissage;
    AfficherPanneau(m.c());
  }
  std::string chiffres_du_score() {
    std::string texte;
    for (int i = 6; i >= 1; --i) texte += e().Digit(i).texte;
    return texte;
  }
  std::string chiffres_du_reste() { return e().Reste(3).texte + e().Reste(2).texte + e().Reste(1).texte; }
  MondeFactice m;
};

struct Ligne_question {
  std::vector<int> étapes, niveaux;
  bool texte, image;
};

const std::vector<Ligne_question> table_questions = {
    {{0, 5, 6, 7}, {0, 1, 2, 3, 4}, false, false},
    {{1}, {1, 2, 3}, true, true},
    {{1}, {4}, true, false},
    {{2}, {1, 2}, true, true},
    {{2}, {3, 4}, true, false},
    {{3}, {1, 2, 3, 4}, false, true},
    {{4}, {1, 2, 3, 4}, true, true},
};

TEST_F(Panel, EveryModeShowsItsPartsOfTheQuestion) {
  for (const Ligne_question &ligne : table_questions)
    for (const int étape : ligne.étapes)
      for (const int niveau : ligne.niveaux)
        for (const bool avant : {false, true}) {
          for (Contrôle *c : {&e().Texte_à_chercher, &e().Elément_recherché, &e().Image_recherchée})
            c->visible = avant;
          afficher(étape, niveau);
          EXPECT_EQ(e().Texte_à_chercher.visible, ligne.texte) << étape << "/" << niveau;
          EXPECT_EQ(e().Elément_recherché.visible, ligne.image) << étape << "/" << niveau;
          EXPECT_EQ(e().Image_recherchée.visible, ligne.image) << étape << "/" << niveau;
        }
}

TEST_F(Panel, HeadingAndCountersStandInTheFourStagesOnly) {
  for (int étape = 0; étape <= 7; ++étape) {
    const bool jeu = étape >= 1 && étape <= 4;
    afficher(étape, 1);
    EXPECT_EQ(e().que_faire.visible, jeu) << étape;
    EXPECT_EQ(e().Boîte_score.visible, jeu) << étape;
    EXPECT_EQ(e().Boîte_restants.visible, jeu) << étape;
    for (int i = 0; i <= 6; ++i) EXPECT_EQ(e().Digit(i).visible, jeu) << étape;
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(e().Reste(i).visible, jeu) << étape;
  }
}

TEST_F(Panel, LearningModeShowsNoScore) {
  afficher(étape_provinces, 1, true);
  EXPECT_FALSE(e().Boîte_score.visible);
  for (int i = 0; i <= 6; ++i) EXPECT_FALSE(e().Digit(i).visible) << i;
  EXPECT_TRUE(e().Boîte_restants.visible);
  afficher(étape_provinces, 1, false);
  EXPECT_TRUE(e().Boîte_score.visible);
}

TEST_F(Panel, TheCounterOfProvincesStandsInStageRegionsOnly) {
  for (int étape = 0; étape <= 7; ++étape) {
    afficher(étape, 2);
    for (const Contrôle *c : {&e().BoîteProvinces, &e().NombreProvinces, &e().EtiquetteProvinces})
      EXPECT_EQ(c->visible, étape == 4) << c->nom << " at " << étape;
  }
  EXPECT_EQ(e().BoîteProvinces.texte, "Provinces");
  EXPECT_EQ(e().EtiquetteProvinces.texte, "(dans la    région)");
}

TEST_F(Panel, TheCounterOfProvincesIsSpokenWithItsFrame) {
  AfficherNombreProvinces(m.c(), 7);
  EXPECT_EQ(e().NombreProvinces.texte, "7");
  EXPECT_EQ(e().BoîteProvinces.nom_parlé, "Provinces de la région à choisir : 7");
}

TEST_F(Panel, ThePictureOfTheQuestionHasANameBeforeAnyIsPutThere) {
  m.nouvelle_partie(niveau_difficile);
  ASSERT_EQ(g().Etape, étape_provinces);
  ASSERT_TRUE(est_visible(e().Image_recherchée));
  EXPECT_EQ(e().Image_recherchée.nom_parlé, "Ce qu'il faut trouver");
}

TEST_F(Panel, ShownPartsComeToTheFrontDigitsAboveTheirFrames) {
  afficher(étape_régions, 1);
  EXPECT_GT(e().Boîte_score.plan, e().que_faire.plan);
  for (int i = 1; i <= 6; ++i) EXPECT_GT(e().Digit(i).plan, e().Boîte_score.plan) << i;
  for (int i = 1; i <= 3; ++i) EXPECT_GT(e().Reste(i).plan, e().Boîte_restants.plan) << i;
  EXPECT_GT(e().NombreProvinces.plan, e().BoîteProvinces.plan);
}

TEST_F(Panel, HidingThePanelHidesAllOfIt) {
  afficher(étape_régions, 1);
  MasquerPanneau(m.c());
  for (const Contrôle *c :
       {&e().que_faire, &e().Boîte_score, &e().Boîte_restants, &e().Texte_à_chercher, &e().Elément_recherché,
        &e().Image_recherchée, &e().BoîteProvinces, &e().NombreProvinces, &e().EtiquetteProvinces})
    EXPECT_FALSE(c->visible) << c->nom;
  for (int i = 0; i <= 6; ++i) EXPECT_FALSE(e().Digit(i).visible) << i;
  for (int i = 1; i <= 3; ++i) EXPECT_FALSE(e().Reste(i).visible) << i;
}

TEST_F(Panel, HidingTheConfigurationHidesTheGridAndGivesTheMenusBack) {
  for (int i = 1; i <= 16; ++i) e().Bouton(i).visible = true;
  for (const char *nom : {"menu_fichier", "menu_scores", "Menu_réviser", "menu_paramétrer"})
    e().menu(nom).actif = false;
  MasquerParamétrage(m.c());
  for (int i = 1; i <= 13; ++i) EXPECT_FALSE(e().LBL_param(i).visible) << i;
  for (int i = 1; i <= 16; ++i) EXPECT_FALSE(e().Bouton(i).visible) << i;
  EXPECT_FALSE(e().BTN(1).visible || e().BTN(2).visible);
  EXPECT_FALSE(e().BTN_Sauvegarde.visible || e().BTN_Démarrage.visible);
  for (const char *nom : {"menu_fichier", "menu_scores", "Menu_réviser", "menu_paramétrer"})
    EXPECT_TRUE(e().menu(nom).actif) << nom;
}

TEST_F(Panel, TheScoreStandsInSixDigitsUnitsFirst) {
  const struct {
    int score;
    const char *chiffres, *signe;
  } cas[] = {{999999, "999999", ""}, {0, "000000", ""}, {42, "000042", ""}, {-1023, "001023", "-"}};
  for (const auto &c : cas) {
    g().Score = c.score;
    AfficherScore(m.c());
    EXPECT_EQ(chiffres_du_score(), c.chiffres);
    EXPECT_EQ(e().Digit(0).texte, c.signe) << c.score;
  }
  EXPECT_EQ(e().Digit(1).texte, "3") << "the units of 1023";
}

TEST_F(Panel, WhatIsLeftStandsInThreeDigitsUnderTheCaptionOfTheStage) {
  const struct {
    int étape;
    std::string légende;
  } cas[] = {{1, message(g(), Message::provinces_à_placer)},
             {2, message(g(), Message::villes_à_placer)},
             {3, "Drapeaux à placer"},
             {4, message(g(), Message::régions_à_placer)}};
  for (const auto &c : cas) {
    g().Etape = static_cast<std::int16_t>(c.étape);
    AfficherReste(m.c(), 7);
    EXPECT_EQ(e().Boîte_restants.texte, c.légende) << c.étape;
    EXPECT_EQ(chiffres_du_reste(), "007");
  }
  AfficherReste(m.c(), 330);
  EXPECT_EQ(chiffres_du_reste(), "330");
}

TEST_F(Panel, InOtherModesTheCaptionIsLeftAsItIs) {
  for (const int étape : {0, 5, 6, 7}) {
    g().Etape = static_cast<std::int16_t>(étape);
    e().Boîte_restants.texte = "as before";
    AfficherReste(m.c(), 12);
    EXPECT_EQ(e().Boîte_restants.texte, "as before") << étape;
    EXPECT_EQ(chiffres_du_reste(), "012");
  }
}

TEST_F(Panel, TheCaptionOfFlagsIsNotInTheMessages) {
  for (int i = 0; i <= g().Nombre_messages; ++i) g().Messages(i) = "another language";
  g().Etape = étape_drapeaux;
  AfficherReste(m.c(), 1);
  EXPECT_EQ(e().Boîte_restants.texte, "Drapeaux à placer");
}

TEST_F(Panel, EachStageCountsItsOwnObjects) {
  g().ProvincesRestantes = 11;
  g().VillesRestantes = 22;
  g().RégionsRestantes = 33;
  const int attendus[] = {11, 22, 11, 33};
  for (int étape = 1; étape <= 4; ++étape) {
    g().Etape = static_cast<std::int16_t>(étape);
    EXPECT_EQ(reste_de_l_étape(g()), attendus[étape - 1]) << étape;
  }
}

TEST_F(Panel, DigitsAreYellowOnBlackAndCentred) {
  std::vector<const Contrôle *> chiffres{&e().NombreProvinces};
  for (int i = 0; i <= 6; ++i) chiffres.push_back(&e().Digit(i));
  for (int i = 1; i <= 3; ++i) chiffres.push_back(&e().Reste(i));
  for (const Contrôle *c : chiffres) {
    EXPECT_EQ(c->couleur, Teinte(Couleur{255, 255, 0})) << c->nom;
    EXPECT_EQ(c->fond, Teinte(Couleur{0, 0, 0})) << c->nom;
    EXPECT_EQ(c->alignement, Alignement::centre) << c->nom;
  }
}

}  // namespace
}  // namespace ardane
