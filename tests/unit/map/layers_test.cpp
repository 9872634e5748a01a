#include "map/layers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "map/visibility_rules.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

constexpr int province_d_essai = 40;

class Layers : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }
  GameState &g() { return m.g(); }
  Ecran_principal &e() { return m.e(); }
  MondeFactice m;
};

// Pictures and places.

TEST_F(Layers, EveryLayerHasThePictureOfItsStockAndItsSize) {
  for (int i = 1; i <= nombre_provinces; ++i) {
    EXPECT_EQ(e().Pays(i).image, e().stock.Pays(i)) << i;
    EXPECT_EQ(e().Inv(i).image, e().stock.Inv(i)) << i;
    EXPECT_EQ(e().Pays(i).largeur, e().stock.Pays(i).largeur) << i;
    EXPECT_EQ(e().Pays(i).hauteur, e().stock.Pays(i).hauteur) << i;
  }
  for (int r = 1; r <= nombre_régions; ++r) EXPECT_EQ(e().Région(r).image, e().stock.Région(r)) << r;
}

TEST_F(Layers, TheMarkerOfAProvinceSitsOnItsCapital) {
  for (int i = 1; i <= nombre_provinces; ++i) {
    EXPECT_EQ(g().TableVilles(i).province, i);
    EXPECT_EQ(e().rond(i).gauche, e().RondPref(i).gauche) << i;
    EXPECT_EQ(e().rond(i).haut, e().RondPref(i).haut) << i;
  }
}

TEST_F(Layers, ADotExistsForItsKindOfTownOnly) {
  EXPECT_NO_THROW(e().RondPref(110));
  EXPECT_THROW(e().RondPref(111), ErreurFatale);
  EXPECT_THROW(e().RondVille(110), ErreurFatale);
  EXPECT_NO_THROW(e().RondVille(111));
  EXPECT_THROW(e().RondVille(331), ErreurFatale);
}

// Order.

std::vector<const Contrôle *> de_bas_en_haut(Ecran_principal &e) {
  std::vector<const Contrôle *> pile;
  for (const Contrôle &c : e.contrôles()) pile.push_back(&c);
  std::sort(pile.begin(), pile.end(), [](auto *a, auto *b) { return a->plan < b->plan; });
  return pile;
}

/// True if the controls lie above each other in this order, whatever else lies between them.
void attendre_ordre(Ecran_principal &e, const std::vector<const Contrôle *> &attendus) {
  auto place = attendus.begin();
  for (const Contrôle *c : de_bas_en_haut(e))
    if (place != attendus.end() && c == *place) ++place;
  EXPECT_TRUE(place == attendus.end()) << (*place)->nom << " lies too low";
}

/// The map under its layers as a redraw leaves them.
std::vector<const Contrôle *> pile_redessinée(Ecran_principal &e) {
  std::vector<const Contrôle *> ordre{&e.image_région};
  for (int v = 1; v <= nombre_villes; ++v) ordre.push_back(&e.rond(v));
  for (int i = 1; i <= nombre_provinces; ++i) {
    ordre.push_back(&e.Inv(i));
    ordre.push_back(&e.Pays(i));
  }
  for (int r = 1; r <= nombre_régions; ++r) ordre.push_back(&e.Région(r));
  for (int v = 1; v <= nombre_villes; ++v) ordre.push_back(&repère(e, v));
  return ordre;
}

TEST_F(Layers, ARedrawStacksMarkersOutlinesFillsRegionsAndDots) {
  for (const int étape : {0, 1, 2, 3, 4, 5, 6, 7}) {
    g().Etape = static_cast<std::int16_t>(étape);
    g().Niveau = 1;
    RedessinerCarte(m.c());
    attendre_ordre(e(), pile_redessinée(e()));
  }
}

TEST_F(Layers, TheStartLeavesTheStackAsARedrawDoesAboveThePicturesThatAreOnlyKept) {
  std::vector<const Contrôle *> ordre = pile_redessinée(e());
  ordre.insert(ordre.begin(), &e().Drapeau(nombre_provinces));
  attendre_ordre(e(), ordre);
}

TEST_F(Layers, AtStartEverythingIsStackedAsMapRegionsProvincesMarkersAndDots) {
  Empiler_au_départ(m.c());
  std::vector<const Contrôle *> ordre{&e().image_région};
  for (int r = 1; r <= nombre_régions; ++r) ordre.push_back(&e().Région(r));
  for (int i = 1; i <= nombre_provinces; ++i) ordre.push_back(&e().Pays(i));
  for (int v = 1; v <= nombre_villes; ++v) {
    ordre.push_back(&e().rond(v));
    ordre.push_back(&repère(e(), v));
  }
  attendre_ordre(e(), ordre);
}

TEST_F(Layers, WhatLiesOnAnotherMapPictureIsNotStackedOnThisOneAtStart) {
  g().TableRégions(3).encart = 1;
  g().TableProvinces(5).encart = 1;
  const Contrôle *const ailleurs[] = {&e().Région(3), &e().Pays(5), &e().Inv(5), &e().rond(5),
                                      &e().RondPref(5)};
  std::vector<std::uint64_t> avant;
  for (const Contrôle *c : ailleurs) avant.push_back(c->plan);
  Empiler_au_départ(m.c());
  for (std::size_t k = 0; k < avant.size(); ++k) EXPECT_EQ(ailleurs[k]->plan, avant[k]) << ailleurs[k]->nom;
}

// Hiding and redrawing.

TEST_F(Layers, HidingTheMapHidesEveryLayerMarkerAndDotButNotTheMap) {
  g().Etape = étape_révision;
  RedessinerCarte(m.c());
  for (int v = 1; v <= nombre_villes; ++v) e().rond(v).visible = true;
  MasquerCarte(m.c());
  EXPECT_TRUE(e().image_région.visible);
  for (const Contrôle &c : e().contrôles())
    if (c.conteneur == &e().Carte && &c != &e().image_région) {
      EXPECT_FALSE(c.visible) << c.nom;
    }
}

TEST_F(Layers, ARedrawShowsTheHourglassAndGivesTheArrowBack) {
  m.sabliers.clear();
  RedessinerCarte(m.c());
  EXPECT_EQ(m.sabliers, (std::vector<bool>{true, false}));
}

TEST_F(Layers, ARedrawLeavesEveryPictureAsItsOwnRuleDoes) {
  for (const int étape : {0, 1, 2, 3, 4, 5, 6, 7})
    for (int niveau = 1; niveau <= 4; ++niveau) {
      g().Etape = static_cast<std::int16_t>(étape);
      g().Niveau = static_cast<std::int16_t>(niveau);
      for (int i = 1; i <= nombre_provinces; ++i) g().TableProvinces(i).trouvée = i % 3 == 0;
      for (int v = 1; v <= nombre_villes; ++v) g().TableVilles(v).trouvée = v % 5 == 0;
      MasquerCarte(m.c());
      RedessinerCarte(m.c());
      std::vector<bool> visibles;
      for (const Contrôle &c : e().contrôles()) visibles.push_back(c.visible);
      MasquerCarte(m.c());
      for (int i = 1; i <= nombre_provinces; ++i) Montrer_province(m.c(), i, false);
      for (int r = 1; r <= nombre_régions; ++r) Montrer_région(m.c(), r);
      std::size_t k = 0;
      for (const Contrôle &c : e().contrôles())
        EXPECT_EQ(visibles[k++], c.visible) << c.nom << " at " << étape << "/" << niveau;
    }
}

TEST_F(Layers, InTheTownStageARedrawLeavesTownsOfAnotherMapPictureHidden) {
  g().Etape = étape_villes;
  g().Niveau = 2;
  g().TableProvinces(province_d_essai).encart = 1;
  MasquerCarte(m.c());
  RedessinerCarte(m.c());
  EXPECT_FALSE(e().RondPref(province_d_essai).visible);
  EXPECT_TRUE(e().RondPref(province_d_essai + 1).visible);
}

// Markers.

struct Cas_rond {
  std::vector<int> étapes;
  bool cible, retenue;
  bool écartée;  ///< `trouvée` of the province
  bool aidée;    ///< help is on and points at the province
  const char *image;
  bool reste_caché;
};

const std::vector<Cas_rond> table_ronds = {
    {{4}, true, false, false, false, "Rondcible", false},
    {{4}, true, true, false, true, "Rondcible", false},
    {{4}, false, true, false, true, "RondPref(0)", true},
    {{4}, false, false, true, true, "rondjaune", false},
    {{5}, true, false, false, true, "Rondcible", false},
    {{5}, true, true, true, false, "Rondcible", false},
    {{5}, false, false, false, true, "RondPref(0)", false},
    {{5}, false, true, true, false, "RondPref(0)", false},
    {{6, 7}, false, false, true, true, "RondRouge", false},
    {{6, 7}, true, true, true, false, "RondRouge", false},
    {{6, 7}, false, false, false, true, "rondjaune", false},
    {{6, 7}, true, true, false, false, "rondjaune", false},
    {{0, 1, 2, 3}, false, false, false, true, "rondnoir", false},
    {{0, 1, 2, 3}, true, true, true, true, "rondnoir", false},
    {{0, 1, 2, 3}, false, false, true, false, "RondPref(0)", false},
    {{0, 1, 2, 3}, true, true, false, false, "RondPref(0)", false},
};

TEST_F(Layers, AMarkerTakesThePictureOfItsStageAndStaysAsVisibleAsItWas) {
  for (const Cas_rond &cas : table_ronds)
    for (const int étape : cas.étapes)
      for (const bool visible : {false, true}) {
        g().Etape = static_cast<std::int16_t>(étape);
        g().TableProvinces(province_d_essai).trouvée = cas.écartée;
        g().AssistanceActive = cas.aidée;
        g().ProvinceCourante = province_d_essai;
        e().rond(province_d_essai).visible = visible;
        Poser_rond(m.c(), province_d_essai, cas.cible, cas.retenue);
        EXPECT_EQ(e().rond(province_d_essai).image, e().chercher(cas.image)->image)
            << cas.image << " at " << étape;
        EXPECT_EQ(e().rond(province_d_essai).visible, visible && !cas.reste_caché)
            << cas.image << " at " << étape;
      }
}

TEST_F(Layers, TheBlackMarkerIsForTheProvinceAskedAlone) {
  g().Etape = étape_provinces;
  g().AssistanceActive = true;
  g().ProvinceCourante = province_d_essai;
  Poser_rond(m.c(), province_d_essai + 1, false, false);
  EXPECT_EQ(e().rond(province_d_essai + 1).image, e().RondPref(0).image);
}

TEST_F(Layers, AHiddenMarkerStaysHidden) {
  for (int étape = 0; étape <= 7; ++étape)
    for (const bool cible : {false, true}) {
      g().Etape = static_cast<std::int16_t>(étape);
      e().rond(province_d_essai).visible = false;
      Poser_rond(m.c(), province_d_essai, cible, false);
      EXPECT_FALSE(e().rond(province_d_essai).visible) << étape;
    }
}

TEST_F(Layers, AMarkerOfAnySizeIsCentredOnItsDot) {
  const Fiche_ville &ville = g().TableVilles(province_d_essai);
  const struct {
    int étape;
    bool cible, écartée;
    int taille, à_gauche, au_dessus;
  } cas[] = {
      {étape_régions, true, false, 23, 8, 7},             // (23 - 7) / 2 and the cut half of (23 - 8)
      {étape_régions, false, false, 20, 6, 6},            // the cut half of (20 - 7), and (20 - 8) / 2
      {étape_paramétrage_défini, false, true, 16, 4, 4},  // the cut half of (16 - 7), and (16 - 8) / 2
  };
  for (const auto &c : cas) {
    g().Etape = static_cast<std::int16_t>(c.étape);
    g().TableProvinces(province_d_essai).trouvée = c.écartée;
    Poser_rond(m.c(), province_d_essai, c.cible, false);
    EXPECT_EQ(e().rond(province_d_essai).largeur, c.taille);
    EXPECT_EQ(e().rond(province_d_essai).gauche, ville.x - c.à_gauche) << c.taille;
    EXPECT_EQ(e().rond(province_d_essai).haut, ville.y - c.au_dessus) << c.taille;
  }
}

TEST_F(Layers, AMarkerFollowsTheScroll) {
  g().Etape = étape_régions;
  e().image_région.gauche = -37;
  e().image_région.haut = -101;
  Poser_rond(m.c(), province_d_essai, false, false);
  EXPECT_EQ(e().rond(province_d_essai).gauche, g().TableVilles(province_d_essai).x - 37 - 6);
  EXPECT_EQ(e().rond(province_d_essai).haut, g().TableVilles(province_d_essai).y - 101 - 6);
}

// Blinking.

TEST_F(Layers, ATickTurnsThePhaseAndTheLayersThatBlink) {
  g().Etape = étape_provinces;
  g().Niveau = 1;
  RedessinerCarte(m.c());
  g().PhaseClignotement = true;
  g().TableClignotement(province_d_essai) = true;
  e().Pays(province_d_essai).visible = true;
  Clignotant(m.c());
  EXPECT_FALSE(g().PhaseClignotement);
  EXPECT_FALSE(e().Pays(province_d_essai).visible);
  Clignotant(m.c());
  EXPECT_TRUE(g().PhaseClignotement);
  EXPECT_TRUE(e().Pays(province_d_essai).visible);
  for (int i = 1; i <= nombre_provinces; ++i) EXPECT_EQ(e().Pays(i).visible, i == province_d_essai) << i;
}

TEST_F(Layers, TheTimerOfTheWindowTicks) {
  const bool phase = g().PhaseClignotement;
  e().tic();
  EXPECT_NE(g().PhaseClignotement, phase);
}

// Flags.

struct Cas_drapeau {
  const char *cas;
  int largeur, hauteur;
  int boîte_largeur, boîte_hauteur;
  double gauche, haut, montré_largeur, montré_hauteur;
};

TEST_F(Layers, AFlagIsFittedIntoItsBox) {
  const Cas_drapeau cas[] = {
      {"no scaling needed, centred", 100, 144, 200, 188, 50, 22, 100, 144},
      {"as large as the box", 200, 188, 200, 188, 0, 0, 200, 188},
      {"half pixels are cut", 101, 145, 200, 188, 49, 21, 101, 145},
      {"taller than the box: its width comes from the box", 100, 376, 200, 188, 50, 0, 100, 188},
      {"taller and wider: the first step narrows it enough", 300, 300, 200, 188, 37, 0, 125, 188},
      {"wider than the box: its height comes from the box", 400, 100, 200, 188, 0, 47, 200, 94},
      {"a tie goes down to the even width", 10, 3008, 200, 188, 94, 0, 12, 188},
      {"a tie goes up to the even width", 10, 200, 107, 100, 26, 0, 54, 100},
      {"a tie goes down to the even height", 200, 10, 100, 105, 0, 26, 100, 52},
      {"a tie goes up to the even height", 200, 10, 100, 107, 0, 26, 100, 54},
  };
  for (const Cas_drapeau &c : cas)
    for (const bool région : {false, true}) {
      const Image drapeau{1, static_cast<std::int16_t>(c.largeur), static_cast<std::int16_t>(c.hauteur)};
      g().Largeur_image_cible = c.boîte_largeur;
      g().Hauteur_image_cible = c.boîte_hauteur;
      if (région) {
        e().DrapeauRégion(5).image = drapeau;
        AfficherDrapeauRégion(m.c(), 5);
      } else {
        e().Drapeau(province_d_essai).image = drapeau;
        AfficherDrapeau(m.c(), province_d_essai);
      }
      const Contrôle &image = e().Image_recherchée;
      EXPECT_EQ(image.gauche, c.gauche) << c.cas;
      EXPECT_EQ(image.haut, c.haut) << c.cas;
      EXPECT_EQ(image.largeur, c.montré_largeur) << c.cas;
      EXPECT_EQ(image.hauteur, c.montré_hauteur) << c.cas;
      EXPECT_EQ(image.image, drapeau) << c.cas;
    }
}

TEST_F(Layers, AFlagIsToldByItsBlazon) {
  AfficherDrapeau(m.c(), 46);
  EXPECT_EQ(e().Image_recherchée.nom_parlé,
            "d'argent à l'ancre d'azur, à la bordure crénelée de sinople, timbré d'une couronne navale");
  AfficherDrapeauRégion(m.c(), 19);
  EXPECT_EQ(e().Image_recherchée.nom_parlé, "d'azur à la croix d'or cantonnée de quatre besants d'argent");
}

TEST_F(Layers, TheBoxIsThatOfTheSidePanel) {
  EXPECT_EQ(g().Largeur_image_cible, 200);
  EXPECT_EQ(g().Hauteur_image_cible, 188);
}

TEST_F(Layers, ThereIsNoFlagOfAProvinceThatDoesNotExist) {
  EXPECT_THROW(AfficherDrapeau(m.c(), 111), ErreurFatale);
  EXPECT_THROW(AfficherDrapeauRégion(m.c(), 21), ErreurFatale);
}

}  // namespace
}  // namespace ardane
