#include "map/map_reset.h"

#include <gtest/gtest.h>

#include "map/layers.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

class MapReset : public testing::Test {
 protected:
  void SetUp() override {
    m.écran.taille = {640, 480};
    m.démarrer();
  }
  GameState &g() { return m.g(); }
  void inhiber_région(int r) {
    for (int i = 1; i <= nombre_provinces; ++i)
      if (g().TableProvinces(i).région == r) g().TableProvinces(i).inhibée = true;
  }
  MondeFactice m;
};

TEST_F(MapReset, WithTheWholeCountryInPlayEverythingIsLeftToFind) {
  RemiseAZéroCarte(m.c());
  EXPECT_EQ(g().ProvincesRestantes, 110);
  EXPECT_EQ(g().ProvincesEnJeu, 110);
  EXPECT_EQ(g().VillesRestantes, 330);
  EXPECT_EQ(g().VillesEnJeu, 330);
  EXPECT_EQ(g().RégionsRestantes, 20);
  EXPECT_EQ(g().RégionsEnJeu, 20);
  for (int i = 1; i <= nombre_provinces; ++i) {
    EXPECT_FALSE(g().TableProvinces(i).trouvée) << i;
    EXPECT_EQ(g().TableProvinces(i).villes_restantes, 3) << i;
  }
}

TEST_F(MapReset, TheCountersDoNotGrowFromResetToReset) {
  for (int k = 0; k < 3; ++k) RemiseAZéroCarte(m.c());
  EXPECT_EQ(g().ProvincesRestantes, 110);
  EXPECT_EQ(g().ProvincesEnJeu, 110);
  EXPECT_EQ(g().VillesEnJeu, 330);
  EXPECT_EQ(g().TableProvinces(1).villes_restantes, 3);
}

TEST_F(MapReset, WhatWasFoundIsUnplacedAgain) {
  g().TableProvinces(7).trouvée = true;
  g().TableVilles(7).trouvée = true;
  g().TableRégions(7).trouvée = true;
  RemiseAZéroCarte(m.c());
  EXPECT_FALSE(g().TableProvinces(7).trouvée);
  EXPECT_FALSE(g().TableVilles(7).trouvée);
  EXPECT_FALSE(g().TableRégions(7).trouvée);
}

TEST_F(MapReset, AnInhibitedProvinceIsFoundFromTheStartWithItsTowns) {
  g().TableProvinces(7).inhibée = true;
  RemiseAZéroCarte(m.c());
  EXPECT_TRUE(g().TableProvinces(7).trouvée);
  EXPECT_EQ(g().TableProvinces(7).villes_restantes, 0);
  for (int v = 1; v <= nombre_villes; ++v)
    EXPECT_EQ(g().TableVilles(v).trouvée, g().TableVilles(v).province == 7) << v;
  EXPECT_EQ(g().ProvincesRestantes, 109);
  EXPECT_EQ(g().VillesRestantes, 327);
  EXPECT_EQ(g().VillesEnJeu, 327);
}

TEST_F(MapReset, ATownWithABlankNameIsInPlayAndNeverAsked) {
  g().TableVilles(200).nom = "   ";
  RemiseAZéroCarte(m.c());
  EXPECT_EQ(g().VillesEnJeu, 330);
  EXPECT_EQ(g().VillesRestantes, 329);
  EXPECT_FALSE(g().TableVilles(200).trouvée);
}

TEST_F(MapReset, ARegionListsItsProvincesAscendingInhibitedOnesToo) {
  const int r = g().TableProvinces(50).région;
  g().TableProvinces(50).inhibée = true;
  RemiseAZéroCarte(m.c());
  const Fiche_région &région = g().TableRégions(r);
  int k = 0;
  for (int i = 1; i <= nombre_provinces; ++i) {
    if (g().TableProvinces(i).région != r) continue;
    ASSERT_LE(++k, région.nombre_provinces);
    EXPECT_EQ(région.membres(k), i);
  }
  EXPECT_EQ(région.nombre_provinces, k);
  EXPECT_EQ(région.provinces_restantes, k - 1);
  EXPECT_FALSE(région.trouvée);
}

TEST_F(MapReset, ARegionWithoutAProvinceInPlayIsFoundAndDoesNotCount) {
  inhiber_région(4);
  RemiseAZéroCarte(m.c());
  EXPECT_TRUE(g().TableRégions(4).trouvée);
  EXPECT_TRUE(g().TableRégions(4).inhibée);
  EXPECT_EQ(g().RégionsRestantes, 19);
  EXPECT_EQ(g().RégionsEnJeu, 19);
  EXPECT_FALSE(g().TableRégions(5).inhibée);
}

TEST_F(MapReset, ARegionBackInPlayLosesItsMark) {
  inhiber_région(4);
  RemiseAZéroCarte(m.c());
  for (int i = 1; i <= nombre_provinces; ++i) g().TableProvinces(i).inhibée = false;
  RemiseAZéroCarte(m.c());
  EXPECT_FALSE(g().TableRégions(4).trouvée);
  EXPECT_FALSE(g().TableRégions(4).inhibée);
  EXPECT_EQ(g().RégionsEnJeu, 20);
}

TEST_F(MapReset, RegionZeroIsFoundAndHasNoProvince) {
  g().TableRégions(0).nombre_provinces = 5;
  RemiseAZéroCarte(m.c());
  EXPECT_TRUE(g().TableRégions(0).trouvée);
  EXPECT_EQ(g().TableRégions(0).nombre_provinces, 0);
}

TEST_F(MapReset, NothingIsAskedNorHelpedNorBlinking) {
  g().TailleRégion = 3;
  g().NbErreurs = 4;
  g().PartieClose = g().AssistanceActive = g().AprèsPartie = true;
  g().ProvinceCourante = g().VilleCourante = g().RégionCourante = 5;
  g().PhaseClignotement = false;
  g().TableClignotement.remplir(true);
  m.e().Bouton_gruge.visible = m.e().BoutonPasse.visible = true;
  RemiseAZéroCarte(m.c());
  EXPECT_EQ(g().TailleRégion, 0);
  EXPECT_EQ(g().NbErreurs, 0);
  EXPECT_FALSE(g().PartieClose || g().AssistanceActive || g().AprèsPartie);
  EXPECT_EQ(g().ProvinceCourante + g().VilleCourante + g().RégionCourante, 0);
  EXPECT_TRUE(g().PhaseClignotement);
  for (int i = 1; i <= nombre_provinces; ++i) EXPECT_FALSE(g().TableClignotement(i)) << i;
  EXPECT_FALSE(m.e().Bouton_gruge.visible || m.e().BoutonPasse.visible);
}

TEST_F(MapReset, TheLossesOfTheGameAreKept) {
  g().TableProvinces(7).points_perdus(1) = 12;
  g().TableProvinces(7).trouvée_étape(1) = true;
  g().TableVilles(7).points_perdus = 13;
  g().TableRégions(7).points_perdus = 14;
  g().Score = 4711;
  RemiseAZéroCarte(m.c());
  EXPECT_EQ(g().TableProvinces(7).points_perdus(1), 12);
  EXPECT_TRUE(g().TableProvinces(7).trouvée_étape(1));
  EXPECT_EQ(g().TableVilles(7).points_perdus, 13);
  EXPECT_EQ(g().TableRégions(7).points_perdus, 14);
  EXPECT_EQ(g().Score, 4711);
}

TEST_F(MapReset, TheMapScrollsBackTo0AndEveryLayerLiesAtItsMapPosition) {
  fixer_valeur(m.e().barre_h, 50);
  fixer_valeur(m.e().barre_v, 60);
  RemiseAZéroCarte(m.c());
  EXPECT_EQ(m.e().barre_h.valeur, 0);
  EXPECT_EQ(m.e().barre_v.valeur, 0);
  for (int i = 1; i <= nombre_provinces; ++i) {
    EXPECT_EQ(m.e().Pays(i).gauche, g().TableProvinces(i).gauche) << i;
    EXPECT_EQ(m.e().Inv(i).haut, g().TableProvinces(i).haut) << i;
  }
  for (int r = 1; r <= nombre_régions; ++r) EXPECT_EQ(m.e().Région(r).haut, g().TableRégions(r).haut) << r;
  for (int v = 1; v <= nombre_villes; ++v) EXPECT_EQ(repère(m.e(), v).gauche, g().TableVilles(v).x) << v;
}

TEST_F(MapReset, EveryMarkerIsAPlainDotOfItsKindAgain) {
  g().Etape = étape_provinces;
  for (int v = 1; v <= nombre_villes; ++v) poser_image(m.e().rond(v), m.e().Rondcible.image);
  RemiseAZéroCarte(m.c());
  for (int v = 1; v <= nombre_villes; ++v) {
    const Contrôle &modèle = v <= nombre_provinces ? m.e().RondPref(0) : m.e().RondVille(0);
    EXPECT_EQ(m.e().rond(v).image, modèle.image) << v;
    EXPECT_EQ(m.e().rond(v).gauche, repère(m.e(), v).gauche) << v;
    EXPECT_EQ(m.e().rond(v).haut, repère(m.e(), v).haut) << v;
  }
}

TEST_F(MapReset, InStageRegionsTheMarkersOfProvincesInPlayAreRingsAtOnce) {
  g().Etape = étape_régions;
  g().TableProvinces(7).inhibée = true;
  RemiseAZéroCarte(m.c());
  EXPECT_EQ(m.e().rond(8).image, m.e().rondjaune.image);
  EXPECT_EQ(m.e().rond(7).image, m.e().RondPref(0).image);
  EXPECT_EQ(m.e().rond(200).image, m.e().RondVille(0).image);
}

}  // namespace
}  // namespace ardane
