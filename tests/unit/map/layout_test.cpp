#include "map/layout.h"

#include <gtest/gtest.h>

#include <map>

#include "map/layers.h"
#include "map/scrolling.h"
#include "platform/window_layout.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

/// Where a control stands: left, top, width, height.
struct Cadre {
  double gauche, haut, largeur, hauteur;
  friend bool operator==(const Cadre &, const Cadre &) = default;
};

std::ostream &operator<<(std::ostream &flux, const Cadre &c) {
  return flux << c.gauche << "," << c.haut << " " << c.largeur << "x" << c.hauteur;
}

Cadre cadre(const Contrôle &c) {
  return {c.gauche, c.haut, c.largeur, c.hauteur};
}

std::map<std::string, Cadre> toutes_les_places(Ecran_principal &e) {
  std::map<std::string, Cadre> places;
  for (const Contrôle &c : e.contrôles()) places[c.nom] = cadre(c);
  return places;
}

class Layout : public testing::Test {
 protected:
  void démarrer(int largeur, int hauteur) {
    m.écran.taille = {largeur, hauteur};
    m.démarrer();
  }
  Ecran_principal &e() { return m.e(); }
  MondeFactice m;
};

// The map picture is 602 x 662, the first label of the panel 200 wide, the bars 15 high and 14 wide.

TEST_F(Layout, WhereTheWholeMapFitsThereIsNoBarAndTheViewportIs606By662) {
  démarrer(1280, 1024);
  EXPECT_EQ(cadre(e().Carte), (Cadre{10, 5, 606, 662}));
  EXPECT_FALSE(e().barre_h.visible);
  EXPECT_FALSE(e().barre_v.visible);
  EXPECT_EQ(e().largeur, 200 + 14 + 606 + 10 + 30);
  EXPECT_EQ(e().hauteur, 662 + 5 + 5);
  EXPECT_EQ(m.g().Largeur_fenêtre, 860);
  EXPECT_EQ(m.g().Hauteur_fenêtre, 672);
}

TEST_F(Layout, At800By600BothBarsStandAndThePanelIsRightOfTheVerticalOne) {
  démarrer(800, 600);
  EXPECT_EQ(cadre(e().Carte), (Cadre{10, 5, 800 - 200 - 30 - 14, 600 - 5 - 15}));
  EXPECT_TRUE(e().barre_h.visible);
  EXPECT_EQ(cadre(e().barre_h), (Cadre{10, 585, 556, 15}));
  EXPECT_TRUE(e().barre_v.visible);
  EXPECT_EQ(cadre(e().barre_v), (Cadre{566, 5, 14, 580}));
  EXPECT_EQ(e().que_faire.gauche, 566 + 14 + 10);
  EXPECT_EQ(e().largeur, 200 + 14 + 556 + 10 + 30);
  EXPECT_EQ(e().hauteur, 580 + 5 + 5 + 15);
}

TEST_F(Layout, RangeAndStepsOfTheBarsComeFromTheOverhang) {
  démarrer(800, 600);
  EXPECT_EQ(e().barre_v.min, 0);
  EXPECT_EQ(e().barre_v.max, 662 - 580 + 4);
  EXPECT_EQ(e().barre_v.grand_pas, 662 - 580);
  EXPECT_EQ(e().barre_v.petit_pas, 662 - 580) << "the vertical arrows move a whole page";
  EXPECT_EQ(e().barre_h.min, 0);
  EXPECT_EQ(e().barre_h.max, 602 - 556 + 4);
  EXPECT_EQ(e().barre_h.grand_pas, 602 - 556);
  EXPECT_EQ(e().barre_h.petit_pas, 9) << "the horizontal arrows move a fifth of a page";
}

TEST_F(Layout, At640By480AViewUnderTwoThirdsOfTheMapScrollsByNineTenthsOfItself) {
  démarrer(640, 480);
  EXPECT_EQ(cadre(e().Carte), (Cadre{10, 5, 396, 460}));
  EXPECT_EQ(e().barre_v.max, 206);
  EXPECT_EQ(e().barre_v.grand_pas, 662 - 460) << "662 is under 460 x 1.5";
  EXPECT_EQ(e().barre_h.max, 210);
  EXPECT_EQ(e().barre_h.grand_pas, 356) << "602 is over 396 x 1.5";
  EXPECT_EQ(e().barre_h.petit_pas, 71);
  EXPECT_EQ(e().largeur, 650);
  EXPECT_EQ(e().hauteur, 485);
}

TEST_F(Layout, OnAWorkAreaUnderTheMapsHeightTheVerticalBarStandsAlone) {
  démarrer(1280, 600);
  EXPECT_FALSE(e().barre_h.visible);
  EXPECT_TRUE(e().barre_v.visible);
  EXPECT_EQ(cadre(e().Carte), (Cadre{10, 5, 606 - 14, 595}));
  EXPECT_EQ(cadre(e().barre_v), (Cadre{602, 5, 14, 595}));
  EXPECT_EQ(e().hauteur, 595 + 5 + 5);
}

TEST_F(Layout, AVeryLowViewScrollsDownByNineTenthsOfItself) {
  démarrer(1280, 400);
  EXPECT_EQ(e().Carte.hauteur, 395);
  EXPECT_EQ(e().barre_v.grand_pas, 355);
  EXPECT_EQ(e().barre_v.petit_pas, 355);
}

TEST_F(Layout, OnANarrowTallScreenTheHorizontalBarStandsAloneRightUnderTheMap) {
  démarrer(700, 1024);
  EXPECT_TRUE(e().barre_h.visible);
  EXPECT_FALSE(e().barre_v.visible);
  EXPECT_EQ(cadre(e().Carte), (Cadre{10, 5, 470, 662}));
  EXPECT_EQ(cadre(e().barre_h), (Cadre{10, 5 + 662, 470, 15}));
  EXPECT_EQ(e().hauteur, 662 + 5 + 5 + 15);
}

TEST_F(Layout, AScreenThatLeavesTheMapItsExactWidthNeedsNoBar) {
  démarrer(602 + 200 + 30, 1024);
  EXPECT_FALSE(e().barre_h.visible);
  EXPECT_EQ(e().Carte.largeur, 606);
}

TEST_F(Layout, AMapJustWiderThanItsViewHasTheOverhangAsPageAndReaches4PixelsFurther) {
  démarrer(600 + 200 + 30, 1024);
  EXPECT_TRUE(e().barre_h.visible);
  EXPECT_EQ(e().barre_h.max, 2 + 4);
  EXPECT_EQ(e().barre_h.grand_pas, 2);
  EXPECT_EQ(e().barre_h.petit_pas, 1) << "a fifth of 2 would not move at all";
}

TEST_F(Layout, OnAScreen606WideTheViewIsNarrowedToWhatThePanelLeaves) {
  démarrer(606, 1024);
  EXPECT_EQ(cadre(e().Carte), (Cadre{10, 5, 376, 662}));
  EXPECT_EQ(e().barre_h.max, 602 - 376 + 4);
  EXPECT_EQ(e().barre_h.grand_pas, 338) << "602 is over 376 x 1.5";
}

TEST_F(Layout, AScreenTooNarrowForThePanelEndsTheProgram) {
  EXPECT_THROW(démarrer(229, 1024), ErreurFatale);
}

TEST_F(Layout, AScreenThatTheVerticalBarMakesTooNarrowEndsTheProgram) {
  EXPECT_THROW(démarrer(230 + 13, 600), ErreurFatale);
}

TEST_F(Layout, AScreenTooLowForTheMapEndsTheProgram) {
  EXPECT_THROW(démarrer(1280, 4), ErreurFatale);
}

TEST_F(Layout, AScreenThatTheHorizontalBarMakesTooLowEndsTheProgram) {
  EXPECT_THROW(démarrer(700, 5 + 14), ErreurFatale);
}

TEST_F(Layout, TheSmallestScreensThatLeaveTheMapNothingStillStart) {
  démarrer(230 + 14, 5 + 15);
  EXPECT_EQ(cadre(e().Carte), (Cadre{10, 5, 0, 0}));
  EXPECT_GE(e().barre_h.petit_pas, 1);
  EXPECT_GE(e().barre_v.grand_pas, 1);
}

TEST_F(Layout, TheRectangleOfTheMapIsThatOfItsViewportOnTheScreen) {
  démarrer(1280, 1024);
  EXPECT_EQ(m.g().Rect_carte.gauche, 10);
  EXPECT_EQ(m.g().Rect_carte.haut, 5);
  EXPECT_EQ(m.g().Bas_zone_travail, 1024);
  e().gauche = 300;
  e().haut = 40;
  Lire_rectangle_carte(m.c());
  EXPECT_EQ(m.g().Rect_carte, (Rect{310, 45, 916, 707}));
}

TEST_F(Layout, ThePanelStacksUpRightOfTheMap) {
  démarrer(1280, 1024);
  const double x = 10 + 606 + 14 + 10;
  EXPECT_EQ(cadre(e().que_faire), (Cadre{x, 5, 200, 26}));
  EXPECT_EQ(cadre(e().Elément_recherché), (Cadre{x, 41, 200, 188}));
  EXPECT_EQ(cadre(e().Texte_à_chercher), (Cadre{x, 239, 200, 56}));
  EXPECT_EQ(cadre(e().Boîte_restants), (Cadre{x, 305, 103.2, 57}));
  EXPECT_EQ(cadre(e().Boîte_score), (Cadre{x, 372, 188, 57}));
  // Right of the counter, on its bottom line.
  EXPECT_EQ(cadre(e().Bouton_gruge), (Cadre{x + 103.2 + 5, 305 + 57 - 50, 50, 50}));
  EXPECT_EQ(e().BoutonPasse.gauche, e().Bouton_gruge.gauche);
  EXPECT_EQ(e().BoutonPasse.haut, e().Bouton_gruge.haut);
}

TEST_F(Layout, DigitsMoveWithTheirFramesAndTheSignStays) {
  démarrer(1280, 1024);
  const double dx = 640 - 32;
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(cadre(e().Reste(i)), (Cadre{109 - 24.0 * i + dx, 325, 24, 34})) << i;
  for (int i = 1; i <= 6; ++i) EXPECT_EQ(cadre(e().Digit(i)), (Cadre{202 - 24.0 * i + dx, 392, 24, 34})) << i;
  EXPECT_EQ(cadre(e().Digit(0)), (Cadre{34, 94, 24, 34}));
  EXPECT_EQ(cadre(e().BoîteProvinces), (Cadre{136 + dx, 305, 79.2, 57}));
  EXPECT_EQ(cadre(e().NombreProvinces), (Cadre{142.4 + dx, 330, 24, 34}));
  EXPECT_FALSE(e().BoîteProvinces.visible || e().NombreProvinces.visible || e().EtiquetteProvinces.visible);
}

TEST_F(Layout, TheCounterOfRegionsIsHiddenByEveryLayout) {
  démarrer(1280, 1024);
  e().BoîteProvinces.visible = e().NombreProvinces.visible = e().EtiquetteProvinces.visible = true;
  Disposer_écran(m.c());
  EXPECT_FALSE(e().BoîteProvinces.visible || e().NombreProvinces.visible || e().EtiquetteProvinces.visible);
}

TEST_F(Layout, DigitsLieAboveTheirFramesAndTheCounterAboveTheButtons) {
  démarrer(1280, 1024);
  Disposer_écran(m.c());
  EXPECT_GT(e().Boîte_score.plan, e().Boîte_restants.plan);
  EXPECT_GT(e().Boîte_restants.plan, e().Bouton_gruge.plan);
  EXPECT_GT(e().Boîte_restants.plan, e().BoutonPasse.plan);
  for (int i = 1; i <= 3; ++i) EXPECT_GT(e().Reste(i).plan, e().Boîte_restants.plan) << i;
  for (int i = 1; i <= 6; ++i) EXPECT_GT(e().Digit(i).plan, e().Boîte_score.plan) << i;
}

TEST_F(Layout, TheConfigurationGridSitsJustRightOfTheMapLevelWithItsTop) {
  démarrer(1280, 1024);
  const double dx = 630 - 720, dy = 5 - 80;
  EXPECT_EQ(cadre(e().LBL_param(1)), (Cadre{630, 5, 216, 33}));
  EXPECT_EQ(e().LBL_param(1).alignement, Alignement::centre);
  for (int i = 1; i <= 13; ++i) {
    const bool est_un_numéro = i == 13 || (i >= 7 && i <= 9);
    EXPECT_EQ(e().LBL_param(i).multiligne, !est_un_numéro) << i;
    EXPECT_EQ(e().LBL_param(i).déborde, est_un_numéro) << i;
  }
  EXPECT_EQ(cadre(e().LBL_param(13)), (Cadre{912 + dx, 264 + dy, 17, 17}));
  EXPECT_EQ(cadre(e().BTN(1)), (Cadre{760 + dx, 544 + dy, 66, 31}));
  EXPECT_EQ(cadre(e().BTN(2)), (Cadre{840 + dx, 544 + dy, 66, 31}));
  EXPECT_EQ(cadre(e().BTN_Sauvegarde), (Cadre{720 + dx, 456 + dy, 17, 17}));
  EXPECT_EQ(cadre(e().BTN_Démarrage), (Cadre{720 + dx, 504 + dy, 17, 17}));
  for (int colonne = 0; colonne < 4; ++colonne)
    for (int rang = 0; rang < 4; ++rang)
      EXPECT_EQ(cadre(e().Bouton(4 * colonne + rang + 1)),
                (Cadre{824 + 32.0 * colonne + dx, 288 + 24.0 * rang + dy, 17, 17}));
}

TEST_F(Layout, LayingOutTwiceMovesNothing) {
  for (const Point taille : {Point{1280, 1024}, Point{800, 600}, Point{640, 480}, Point{1280, 600}}) {
    MondeFactice monde;
    monde.écran.taille = taille;
    monde.démarrer();
    const auto avant = toutes_les_places(monde.e());
    const double largeur = monde.e().largeur, hauteur = monde.e().hauteur;
    Disposer_écran(monde.c());
    for (const auto &[nom, place] : toutes_les_places(monde.e()))
      EXPECT_EQ(place, avant.at(nom)) << nom << " at " << taille.x << "x" << taille.y;
    EXPECT_EQ(monde.e().largeur, largeur);
    EXPECT_EQ(monde.e().hauteur, hauteur);
  }
}

TEST_F(Layout, ThePanelFollowsTheScreenThereAndBack) {
  démarrer(1280, 1024);
  const auto avant = toutes_les_places(e());
  m.écran.taille = {800, 600};
  m.g().Largeur_écran = 800;
  Disposer_écran(m.c());
  EXPECT_EQ(e().que_faire.gauche, 590);
  EXPECT_EQ(e().LBL_param(1).gauche, 580);
  EXPECT_EQ(e().Digit(1).gauche - e().Boîte_score.gauche, 178 - 32);
  m.écran.taille = {1280, 1024};
  m.g().Largeur_écran = 1280;
  Disposer_écran(m.c());
  for (const char *nom :
       {"Carte", "que_faire", "Boîte_score", "Digit(3)", "Reste(2)", "BTN(2)", "Bouton(16)"})
    EXPECT_EQ(cadre(contrôle(e(), nom)), avant.at(nom)) << nom;
}

TEST_F(Layout, AChangedScreenIsNoticedAtTheNextLayoutOnly) {
  démarrer(1280, 1024);
  m.écran.taille = {1280, 600};
  EXPECT_EQ(e().Carte.hauteur, 662);
  DisposerCarte(m.c());
  EXPECT_EQ(e().Carte.hauteur, 595);
  EXPECT_EQ(m.g().Bas_zone_travail, 600);
}

TEST_F(Layout, AScreenThatHasChangedLeavesThePlayerWhatHeSees) {
  for (const std::int16_t étape : {étape_régions, étape_provinces}) {
    démarrer(800, 600);
    m.g().Ordre_jeux(1) = étape;
    m.nouvelle_partie(1);
    fixer_valeur(e().barre_h, 20);
    fixer_valeur(e().barre_v, 30);
    m.écran.taille = {760, 560};
    m.programme.écran_changé();
    EXPECT_EQ(e().Carte.largeur, 760 - 200 - 30 - 14);
    EXPECT_EQ(e().barre_h.valeur, 20);
    EXPECT_EQ(e().barre_v.valeur, 30);
    for (const Contrôle *c : {&e().BoîteProvinces, &e().EtiquetteProvinces, &e().NombreProvinces})
      EXPECT_EQ(c->visible, étape == étape_régions) << c->nom;
    m.écran.taille = {1280, 1024};
    m.programme.écran_changé();
    EXPECT_EQ(e().barre_h.valeur, 0);
    EXPECT_EQ(e().barre_v.valeur, 0);
    EXPECT_EQ(e().image_région.gauche, 0);
  }
}

TEST_F(Layout, AScreenThatHasChangedLeavesAMapItsFullWidth) {
  démarrer(800, 600);
  cliquer(e(), e().menu("Menu_révision"));
  m.écran.taille = {600, 600};
  m.programme.écran_changé();
  EXPECT_TRUE(m.g().Carte_pleine_largeur);
  EXPECT_EQ(e().Carte.largeur, 600 - 30 - 14);
}

TEST_F(Layout, OnAScreenThatHasNotChangedNothingIsDrawnAnew) {
  démarrer(640, 480);
  fixer_valeur(e().barre_h, 20);
  m.oublier();
  m.programme.écran_changé();
  EXPECT_THAT(m.sabliers, testing::IsEmpty());
}

TEST_F(Layout, AHiddenVerticalBarStillLeavesItsWidthBetweenMapAndPanel) {
  démarrer(1280, 1024);
  ASSERT_FALSE(e().barre_v.visible);
  EXPECT_EQ(e().que_faire.gauche - (e().Carte.gauche + e().Carte.largeur), 14 + 10);
}

TEST_F(Layout, AScrolledMapIsBroughtBackToZeroWithItsLayers) {
  démarrer(640, 480);
  const auto avant = toutes_les_places(e());
  fixer_valeur(e().barre_h, 100);
  fixer_valeur(e().barre_v, 150);
  ASSERT_NE(cadre(e().Pays(1)), avant.at("Pays(1)"));
  Disposer_écran(m.c());
  EXPECT_EQ(e().barre_h.valeur, 0);
  EXPECT_EQ(e().barre_v.valeur, 0);
  for (const auto &[nom, place] : toutes_les_places(e())) EXPECT_EQ(place, avant.at(nom)) << nom;
}

TEST_F(Layout, ABarThatLosesItsRangeBringsTheMapBackIntoView) {
  démarrer(640, 480);
  fixer_valeur(e().barre_v, e().barre_v.max);
  m.écran.taille = {640, 600};
  DisposerCarte(m.c());
  EXPECT_EQ(e().barre_v.valeur, e().barre_v.max);
  EXPECT_EQ(e().image_région.haut, -e().barre_v.valeur);
}

TEST_F(Layout, TheFullWidthGivesTheMapAllBut30PixelsAndLeavesThePanelWhereItIs) {
  démarrer(640, 1024);
  const Cadre panneau = cadre(e().que_faire);
  m.g().Carte_pleine_largeur = true;
  DisposerCarte(m.c());
  EXPECT_EQ(e().Carte.largeur, 606) << "610 pixels are left, more than the map needs";
  EXPECT_FALSE(e().barre_h.visible);
  EXPECT_EQ(cadre(e().que_faire), panneau);
  m.g().Largeur_écran = 620;
  DisposerCarte(m.c());
  EXPECT_EQ(e().Carte.largeur, 590);
  EXPECT_TRUE(e().barre_h.visible);
}

TEST_F(Layout, LayingTheWindowOutEndsTheFullWidth) {
  démarrer(640, 1024);
  m.g().Carte_pleine_largeur = true;
  DisposerCarte(m.c());
  Disposer_écran(m.c());
  EXPECT_FALSE(m.g().Carte_pleine_largeur);
  EXPECT_EQ(e().Carte.largeur, 410);
}

}  // namespace
}  // namespace ardane
