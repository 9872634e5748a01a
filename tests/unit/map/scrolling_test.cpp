#include "map/scrolling.h"

#include <gtest/gtest.h>

#include "map/layers.h"
#include "map/visibility_rules.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

constexpr int province_visée = 40;

/// 640 x 300: the view is 396 x 280, so that both halves of the map are far from its middle.
class Scrolling : public testing::Test {
 protected:
  void démarrer(int largeur = 640, int hauteur = 300) {
    m.écran.taille = {largeur, hauteur};
    m.démarrer();
    m.g().Etape = étape_provinces;
    m.g().Niveau = 1;
    RedessinerCarte(m.c());
  }
  /// Gives province `province_visée` a place on the map and a size, whatever the country is like.
  void placer(int gauche, int haut, int largeur, int hauteur) {
    m.g().TableProvinces(province_visée).gauche = static_cast<std::int16_t>(gauche);
    m.g().TableProvinces(province_visée).haut = static_cast<std::int16_t>(haut);
    const Image image{1, static_cast<std::int16_t>(largeur), static_cast<std::int16_t>(hauteur)};
    poser_image(m.e().Pays(province_visée), image);
    Placer_provinces(m.c());
  }
  void attendre_places() {
    const GameState &g = m.g();
    Ecran_principal &e = m.e();
    const int dx = e.barre_h.valeur, dy = e.barre_v.valeur;
    EXPECT_EQ(e.image_région.gauche, -dx);
    EXPECT_EQ(e.image_région.haut, -dy);
    for (int i = 1; i <= nombre_provinces; ++i)
      for (const Contrôle *couche : {&e.Pays(i), &e.Inv(i)}) {
        EXPECT_EQ(couche->gauche, g.TableProvinces(i).gauche - dx) << couche->nom;
        EXPECT_EQ(couche->haut, g.TableProvinces(i).haut - dy) << couche->nom;
      }
    for (int r = 1; r <= nombre_régions; ++r) {
      EXPECT_EQ(e.Région(r).gauche, g.TableRégions(r).gauche - dx) << r;
      EXPECT_EQ(e.Région(r).haut, g.TableRégions(r).haut - dy) << r;
    }
    for (int v = 1; v <= nombre_villes; ++v) {
      const Contrôle &point = repère(e, v);
      EXPECT_EQ(point.gauche, g.TableVilles(v).x - dx) << v;
      EXPECT_EQ(point.haut, g.TableVilles(v).y - dy) << v;
      // A plain marker covers its dot.
      EXPECT_EQ(e.rond(v).gauche, point.gauche) << v;
      EXPECT_EQ(e.rond(v).haut, point.haut) << v;
    }
  }
  MondeFactice m;
};

TEST_F(Scrolling, EverythingOnTheMapMovesWithTheBars) {
  démarrer();
  attendre_places();
  fixer_valeur(m.e().barre_h, 37);
  attendre_places();
  fixer_valeur(m.e().barre_v, 101);
  attendre_places();
  fixer_valeur(m.e().barre_h, 0);
  attendre_places();
}

TEST_F(Scrolling, EachBarMovesItsOwnDirectionAlone) {
  démarrer();
  const Contrôle &couche = m.e().Pays(province_visée);
  const double gauche = couche.gauche, haut = couche.haut;
  fixer_valeur(m.e().barre_v, 50);
  EXPECT_EQ(couche.gauche, gauche);
  EXPECT_EQ(couche.haut, haut - 50);
  fixer_valeur(m.e().barre_h, 20);
  EXPECT_EQ(couche.gauche, gauche - 20);
  EXPECT_EQ(couche.haut, haut - 50);
}

TEST_F(Scrolling, TheTablesKeepTheirMapPositions) {
  démarrer();
  const Fiche_province province = m.g().TableProvinces(province_visée);
  const Fiche_ville ville = m.g().TableVilles(province_visée);
  fixer_valeur(m.e().barre_h, 37);
  fixer_valeur(m.e().barre_v, 101);
  EXPECT_EQ(m.g().TableProvinces(province_visée).gauche, province.gauche);
  EXPECT_EQ(m.g().TableProvinces(province_visée).haut, province.haut);
  EXPECT_EQ(m.g().TableVilles(province_visée).x, ville.x);
  EXPECT_EQ(m.g().TableVilles(province_visée).y, ville.y);
}

TEST_F(Scrolling, ABarNeverLeavesItsRange) {
  démarrer();
  fixer_valeur(m.e().barre_v, 100000);
  EXPECT_EQ(m.e().barre_v.valeur, 662 - 280 + 4);
  attendre_places();
  fixer_valeur(m.e().barre_v, -5);
  EXPECT_EQ(m.e().barre_v.valeur, 0);
  attendre_places();
}

TEST_F(Scrolling, ABarSetToItsOwnValueRedrawsNothing) {
  démarrer();
  fixer_valeur(m.e().barre_v, 50);
  m.sabliers.clear();
  fixer_valeur(m.e().barre_v, 50);
  EXPECT_TRUE(m.sabliers.empty());
}

TEST_F(Scrolling, AScrollRedrawsOnceUnderTheHourglass) {
  démarrer();
  m.sabliers.clear();
  fixer_valeur(m.e().barre_v, 50);
  EXPECT_EQ(m.sabliers, (std::vector<bool>{true, false}));
}

TEST_F(Scrolling, TheLayersComeBackInTheStateOfStageAndLevel) {
  démarrer();
  m.g().TableProvinces(province_visée).trouvée = true;
  RedessinerCarte(m.c());
  fixer_valeur(m.e().barre_v, 50);
  for (int i = 1; i <= nombre_provinces; ++i) {
    EXPECT_EQ(m.e().Pays(i).visible, i == province_visée) << i;
    EXPECT_EQ(m.e().Inv(i).visible, i != province_visée) << i;
  }
}

TEST_F(Scrolling, WhatNoRuleBringsBackStaysHiddenAfterAScroll) {
  démarrer();
  m.g().Etape = étape_drapeaux;
  m.e().RondVille(200).visible = true;
  fixer_valeur(m.e().barre_v, 50);
  EXPECT_FALSE(m.e().RondVille(200).visible);
}

// Bringing a province into view.

TEST_F(Scrolling, AProvinceInFullViewMovesNothing) {
  démarrer();
  placer(100, 100, 60, 50);
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_h.valeur, 0);
  EXPECT_EQ(m.e().barre_v.valeur, 0);
}

TEST_F(Scrolling, AProvinceThatJustFitsIntoTheViewMovesNothing) {
  démarrer();
  placer(396 - 60, 280 - 50, 60, 50);
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_h.valeur, 0);
  EXPECT_EQ(m.e().barre_v.valeur, 0);
}

TEST_F(Scrolling, WithoutBarsNothingMovesAtAll) {
  démarrer(1280, 1024);
  placer(-50, 700, 60, 50);
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_h.valeur, 0);
  EXPECT_EQ(m.e().barre_v.valeur, 0);
}

TEST_F(Scrolling, AProvinceAboveTheViewInTheTopHalfBringsTheBarTo0) {
  démarrer();
  placer(100, 150, 60, 50);
  fixer_valeur(m.e().barre_v, 100);
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_v.valeur, 0);
}

TEST_F(Scrolling, AProvinceBelowTheViewIsCentredByItsMarker) {
  démarrer();
  placer(100, 300, 60, 50);
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_v.valeur, 300 + 8 - 140);
  attendre_places();
}

TEST_F(Scrolling, NearTheBottomEdgeTheBarStops4PixelsShortOfItsEnd) {
  démarrer();
  placer(100, 600, 60, 50);
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_v.valeur, 662 - 280);
  EXPECT_EQ(m.e().barre_v.valeur, m.e().barre_v.max - 4);
}

TEST_F(Scrolling, AProvinceRightOfTheViewIsCentredByItsLayer) {
  démarrer();
  placer(340, 100, 60, 50);
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_h.valeur, 340 + 60 - 198);
  EXPECT_EQ(m.e().barre_v.valeur, 0);
}

TEST_F(Scrolling, NearTheRightEdgeTheBarStops4PixelsShortOfItsEnd) {
  démarrer();
  placer(500, 100, 60, 50);
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_h.valeur, 602 - 396);
  EXPECT_EQ(m.e().barre_h.valeur, m.e().barre_h.max - 4);
}

TEST_F(Scrolling, AProvinceLeftOfTheViewInTheLeftHalfBringsTheBarTo0) {
  démarrer();
  placer(210, 100, 60, 50);
  fixer_valeur(m.e().barre_h, 200);
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_h.valeur, 0);
}

TEST_F(Scrolling, TheSecondTestSeesThePlacesThatTheFirstScrollHasMade) {
  démarrer();
  placer(100, 500, 60, 50);
  fixer_valeur(m.e().barre_v, 300);
  // Seen at 200, above 300: the bar goes to 200 - 140 = 60. Then seen at 440, whose bottom lies below the
  // view.
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_v.valeur, 440 + 8 - 140);
}

TEST_F(Scrolling, TheSecondTestSeesTheMarkerThatTheFirstScrollHasDressed) {
  démarrer();
  placer(100, 500, 60, 50);
  fixer_valeur(m.e().barre_v, 300);
  m.g().ProvinceCourante = province_visée;
  m.g().AssistanceActive = true;
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().rond(province_visée).hauteur, 20);
  EXPECT_EQ(m.e().barre_v.valeur, 440 + 20 - 140);
}

TEST_F(Scrolling, PlacesBetweenTwoPixelsAreCut) {
  démarrer(640, 301);
  ASSERT_EQ(m.e().Carte.hauteur, 281);
  placer(100, 300, 60, 50);
  Centrer_cible(m.c(), province_visée);
  EXPECT_EQ(m.e().barre_v.valeur, 167) << "300 + 8 - 140.5";
}

}  // namespace
}  // namespace ardane
