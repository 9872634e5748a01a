#include "map/pointing.h"

#include <gtest/gtest.h>

#include <optional>

#include "core/hit_test_table.h"
#include "map/layers.h"
#include "play/map_clicks.h"
#include "support/fake_world.h"
#include "support/points_file.h"

namespace ardane {
namespace {

constexpr int la_province = 40;

// The picture under the mouse.

class Pointing : public testing::Test {
 protected:
  void SetUp() override {
    m.démarrer();
    MasquerCarte(m.c());
  }
  Ecran_principal &e() { return m.e(); }
  /// Lays a picture over the pixels (100, 100) to (119, 109).
  Contrôle &étaler(Contrôle &image) {
    image.gauche = image.haut = 100;
    image.largeur = 20;
    image.hauteur = 10;
    image.visible = image.actif = true;
    return image;
  }
  MondeFactice m;
};

TEST_F(Pointing, WhereNothingElseIsShownTheMapPictureTakesTheClick) {
  EXPECT_EQ(image_sous(e(), 100, 100), &e().image_région);
}

TEST_F(Pointing, OutsideTheMapNothingIsHit) {
  EXPECT_EQ(image_sous(e(), -1, 100), nullptr);
  EXPECT_EQ(image_sous(e(), 100, -1), nullptr);
  EXPECT_EQ(image_sous(e(), 602, 100), nullptr);
  EXPECT_EQ(image_sous(e(), 100, 662), nullptr);
  EXPECT_EQ(image_sous(e(), 601, 661), &e().image_région);
}

TEST_F(Pointing, APictureIsHitFromItsFirstPixelToItsLast) {
  const Contrôle &image = étaler(e().Pays(la_province));
  EXPECT_EQ(image_sous(e(), 100, 100), &image);
  EXPECT_EQ(image_sous(e(), 119, 109), &image);
  EXPECT_EQ(image_sous(e(), 99, 105), &e().image_région);
  EXPECT_EQ(image_sous(e(), 120, 105), &e().image_région);
  EXPECT_EQ(image_sous(e(), 110, 99), &e().image_région);
  EXPECT_EQ(image_sous(e(), 110, 110), &e().image_région);
}

TEST_F(Pointing, OfSeveralPicturesTheTopmostIsHit) {
  Contrôle &dessous = étaler(e().Pays(la_province));
  Contrôle &dessus = étaler(e().RondPref(la_province));
  e().au_premier_plan(dessus);
  EXPECT_EQ(image_sous(e(), 105, 105), &dessus);
  e().au_premier_plan(dessous);
  EXPECT_EQ(image_sous(e(), 105, 105), &dessous);
}

TEST_F(Pointing, HiddenAndDisabledPicturesAreNotHit) {
  Contrôle &image = étaler(e().Pays(la_province));
  image.visible = false;
  EXPECT_EQ(image_sous(e(), 105, 105), &e().image_région);
  image.visible = true;
  image.actif = false;
  EXPECT_EQ(image_sous(e(), 105, 105), &e().image_région);
}

TEST_F(Pointing, ARegionLayerLetsClicksThroughToWhatLiesUnderIt) {
  const Contrôle &dessous = étaler(e().Pays(la_province));
  e().au_premier_plan(étaler(e().Région(3)));
  EXPECT_EQ(image_sous(e(), 105, 105), &dessous);
}

TEST_F(Pointing, ControlsOutsideTheMapAreNotHit) {
  Contrôle &bouton = étaler(e().Bouton_gruge);
  e().au_premier_plan(bouton);
  EXPECT_EQ(image_sous(e(), 105, 105), &e().image_région);
}

TEST_F(Pointing, ATipBelongsToTheTopmostPictureAlone) {
  Contrôle &point = étaler(e().RondPref(la_province));
  point.infobulle = "Ville";
  e().au_premier_plan(point);
  EXPECT_EQ(image_avec_infobulle(e(), 105, 105), &point);
  e().au_premier_plan(étaler(e().Pays(la_province)));
  EXPECT_EQ(image_avec_infobulle(e(), 105, 105), nullptr);
  EXPECT_EQ(image_avec_infobulle(e(), 300, 300), nullptr);
}

// From the click to the province. Choosing the provinces of the configuration is the mode that answers to a
// click by turning one flag.

class MapClick : public testing::Test {
 protected:
  /// Row 0: sea to 100, province 7 to 200, a lake to 300, province 8 to the edge. Row 1: empty. Row 2:
  /// province 9 from 0 on.
  void démarrer(Point taille = {1280, 1024}) {
    m.écran.taille = taille;
    m.démarrer();
    écrire_fichier(m.dossier.fichier("ardane.pts"), FichierPoints::au_format()
                                                        .ligne()
                                                        .segment(100, 7)
                                                        .segment(200, 0)
                                                        .segment(300, 8)
                                                        .ligne()
                                                        .ligne()
                                                        .segment(0, 9)
                                                        .lignes(660)
                                                        .octets());
    ASSERT_TRUE(Charger_points(m.c()));
    g().Etape = étape_paramétrage_défini;
  }
  GameState &g() { return m.g(); }
  /// The province that a click on a map pixel designates; nothing if no click comes out of it.
  std::optional<int> désignée(int x, int y) {
    for (int i = 1; i <= nombre_provinces; ++i) g().TableProvinces(i).trouvée = false;
    m.son.joués.clear();
    m.cliquer_carte(x, y);
    for (int i = 1; i <= nombre_provinces; ++i)
      if (g().TableProvinces(i).trouvée) return i;
    EXPECT_TRUE(m.son.joués.empty());
    return std::nullopt;
  }
  MondeFactice m;
};

TEST_F(MapClick, DesignatesTheProvinceWhoseRunHoldsThePixel) {
  démarrer();
  EXPECT_EQ(désignée(150, 0), 7);
  EXPECT_EQ(désignée(350, 0), 8);
}

TEST_F(MapClick, OnTheAbscissaOfARunBelongsToTheRunBefore) {
  démarrer();
  EXPECT_EQ(désignée(100, 0), std::nullopt);
  EXPECT_EQ(désignée(101, 0), 7);
  EXPECT_EQ(désignée(200, 0), 7);
}

TEST_F(MapClick, AtX0DesignatesNothingEvenWhereARunBegins) {
  démarrer();
  EXPECT_EQ(désignée(0, 2), std::nullopt);
  EXPECT_EQ(désignée(1, 2), 9);
}

TEST_F(MapClick, RightOfTheLastRunDesignatesItsProvince) {
  démarrer();
  EXPECT_EQ(désignée(601, 0), 8);
}

TEST_F(MapClick, OnSeaLakeEmptyRowOrOutsideDesignatesNothing) {
  démarrer();
  EXPECT_EQ(désignée(50, 0), std::nullopt);
  EXPECT_EQ(désignée(250, 0), std::nullopt);
  EXPECT_EQ(désignée(350, 1), std::nullopt);
  EXPECT_EQ(désignée(350, -3), std::nullopt);
  EXPECT_EQ(désignée(350, 5000), std::nullopt);
}

TEST_F(MapClick, OnALakeCostsNothingInAGame) {
  démarrer();
  m.nouvelle_partie(4);
  const int score = g().Score;
  m.cliquer_carte(250, 0);
  EXPECT_EQ(g().Score, score);
  EXPECT_EQ(g().NbErreurs, 0);
  EXPECT_TRUE(g().PartieVierge) << "no province was designated, so the game has not begun";
}

TEST_F(MapClick, WhileTheGameIsIdleDoesNothing) {
  démarrer();
  g().Etape = étape_repos;
  EXPECT_EQ(désignée(150, 0), std::nullopt);
}

TEST_F(MapClick, FollowsTheWindow) {
  démarrer();
  m.e().gauche = 300;
  m.e().haut = 40;
  m.e().déplacement();
  m.écran.placer_curseur({300 + 10 + 150, 40 + 5 + 0});
  Clic_carte(m.c(), 0);
  EXPECT_TRUE(g().TableProvinces(7).trouvée);
}

TEST_F(MapClick, TheSameMapPixelGivesTheSameProvinceScrolledOrNot) {
  démarrer({640, 480});
  ASSERT_TRUE(m.e().barre_h.visible && m.e().barre_v.visible);
  EXPECT_EQ(désignée(150, 2), 9);
  EXPECT_EQ(désignée(320, 0), 8);
  const Point curseur = m.écran.curseur();
  fixer_valeur(m.e().barre_h, 170);
  EXPECT_EQ(désignée(320, 0), 8);
  EXPECT_EQ(m.écran.curseur(), (Point{curseur.x - 170, curseur.y}));
  fixer_valeur(m.e().barre_v, 60);
  EXPECT_EQ(désignée(320, 0), 8);
  EXPECT_EQ(désignée(320, 1), std::nullopt);
}

TEST_F(MapClick, AnyLayerAsksTheTableAndNotItsOwnNumber) {
  démarrer();
  g().Etape = étape_paramétrage_défini;
  désignée(150, 0);
  for (Contrôle *couche : {&m.e().Pays(50), &m.e().Inv(50), &m.e().image_région}) {
    g().TableProvinces(7).trouvée = false;
    cliquer(m.e(), *couche);
    EXPECT_TRUE(g().TableProvinces(7).trouvée) << couche->nom;
    EXPECT_FALSE(g().TableProvinces(50).trouvée) << couche->nom;
  }
}

TEST_F(MapClick, InTheTownStageLandCountsAtTheLowLevelsOnly) {
  démarrer();
  for (int niveau = 1; niveau <= 4; ++niveau) {
    m.boîtes.montrées.clear();
    g().PartieVierge = true;
    g().Ordre_jeux.remplir(0);
    g().Ordre_jeux(1) = étape_villes;
    m.nouvelle_partie(niveau);
    g().VilleCourante = 50;
    g().ProvinceCourante = 50;
    m.cliquer_carte(150, 0);
    EXPECT_EQ(g().NbErreurs, niveau <= 2 ? 1 : 0) << niveau;
    EXPECT_EQ(g().PartieVierge, niveau > 2) << niveau;
  }
}

// Dots and markers.

TEST_F(MapClick, AMarkerDesignatesTheProvinceOfItsNumber) {
  démarrer();
  cliquer(m.e(), m.e().rond(la_province));
  EXPECT_TRUE(g().TableProvinces(la_province).trouvée);
}

TEST_F(MapClick, ADotOutsideTheTownStageStandsForItsProvince) {
  démarrer();
  cliquer(m.e(), m.e().RondPref(la_province));
  EXPECT_TRUE(g().TableProvinces(la_province).trouvée);
  const int province = g().TableVilles(200).province;
  cliquer(m.e(), m.e().RondVille(200));
  EXPECT_EQ(g().TableProvinces(province).trouvée, province != la_province);
}

class DotClick : public MapClick {
 protected:
  /// The town stage, town 200 asked; the errors that a click on a dot brings.
  int erreurs(int niveau, int ville_cliquée) {
    g().PartieVierge = true;
    g().Ordre_jeux.remplir(0);
    g().Ordre_jeux(1) = étape_villes;
    m.nouvelle_partie(niveau);
    g().VilleCourante = 200;
    g().ProvinceCourante = g().TableVilles(200).province;
    cliquer(m.e(), repère(m.e(), ville_cliquée));
    return g().NbErreurs;
  }
  int voisine() {
    int v = nombre_provinces + 1;
    while (v == 200 || g().TableVilles(v).province != g().TableVilles(200).province) ++v;
    return v;
  }
  int étrangère() { return g().TableVilles(200).province == 1 ? 2 : 1; }
};

TEST_F(DotClick, AtTheLowLevelsAnyDotOfTheRightProvinceIsRight) {
  démarrer();
  for (const int niveau : {1, 2}) {
    EXPECT_EQ(erreurs(niveau, 200), 0) << niveau;
    EXPECT_TRUE(g().TableVilles(200).trouvée) << niveau;
    EXPECT_EQ(erreurs(niveau, voisine()), 0) << niveau;
    EXPECT_TRUE(g().TableVilles(200).trouvée) << niveau;
    EXPECT_EQ(erreurs(niveau, étrangère()), 1) << niveau;
    EXPECT_FALSE(g().TableVilles(200).trouvée) << niveau;
  }
}

TEST_F(DotClick, AtTheHighLevelsOnlyTheDotAskedIsRightAndAnyOtherIsAnError) {
  démarrer();
  for (const int niveau : {3, 4}) {
    EXPECT_EQ(erreurs(niveau, 200), 0) << niveau;
    EXPECT_TRUE(g().TableVilles(200).trouvée) << niveau;
    EXPECT_EQ(erreurs(niveau, voisine()), 1) << niveau;
    EXPECT_EQ(erreurs(niveau, étrangère()), 1) << niveau;
    EXPECT_FALSE(g().TableVilles(200).trouvée) << niveau;
  }
}

TEST_F(DotClick, AtAnyOtherLevelOfTheTownStageADotDoesNothing) {
  démarrer();
  for (const int niveau : {0, 5, -1}) {
    g().Etape = étape_villes;
    g().Niveau = static_cast<std::int16_t>(niveau);
    g().PartieVierge = true;
    g().NbErreurs = 0;
    Clic_repère(m.c(), 200);
    EXPECT_TRUE(g().PartieVierge) << niveau;
    EXPECT_EQ(g().NbErreurs, 0) << niveau;
  }
}

}  // namespace
}  // namespace ardane
