// What the keyboard's cursor can go to on the map.
#include "map/guide.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>
#include <stdexcept>
#include <tuple>

#include "core/hit_test_table.h"
#include "map/layers.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class Guide : public testing::Test {
 protected:
  void jouer(int étape, int niveau) {
    m.démarrer();
    m.g().Etape = static_cast<std::int16_t>(étape);
    m.g().Niveau = static_cast<std::int16_t>(niveau);
    RedessinerCarte(m.c());
  }
  std::vector<Point> cibles() { return Cibles(m.c()); }
  void placer_point(int rang, const std::string &nom, Point centre) {
    Contrôle &point = m.e().RondPref(rang);
    point.infobulle = nom;
    point.visible = point.actif = true;
    point.gauche = centre.x - point.largeur / 2;
    point.haut = centre.y - point.hauteur / 2;
  }

  MondeFactice m;
};

TEST_F(Guide, AtRestNothingOnTheMapCanBeGoneTo) {
  jouer(étape_repos, aucun_niveau);
  EXPECT_THAT(cibles(), IsEmpty());
}

TEST_F(Guide, WhereTheMapShowsNothingNothingCanBeGoneTo) {
  jouer(étape_provinces, niveau_expert);
  EXPECT_THAT(cibles(), IsEmpty());
}

TEST_F(Guide, OfAProvinceThatIsShownWithoutADotAPixelOfItsOwnIsGoneTo) {
  jouer(étape_repos, aucun_niveau);
  for (int p = 1; p <= nombre_provinces; ++p) m.e().Pays(p).visible = m.e().Pays(p).actif = true;
  const std::vector<Point> trouvées = cibles();
  ASSERT_THAT(trouvées, SizeIs(nombre_provinces));
  for (int p = 1; p <= nombre_provinces; ++p) {
    const auto [x, y] = trouvées.at(static_cast<std::size_t>(p - 1));
    EXPECT_EQ(code_du_pixel(m.g(), 0, x, y), p);
    const Contrôle &couche = m.e().Pays(p);
    const long milieu_x = std::lround(couche.gauche + couche.largeur / 2),
               milieu_y = std::lround(couche.haut + couche.hauteur / 2);
    const int plus_près = static_cast<int>(std::max(std::abs(x - milieu_x), std::abs(y - milieu_y))) - 1;
    for (int dy = -plus_près; dy <= plus_près; ++dy)
      for (int dx = -plus_près; dx <= plus_près; ++dx)
        ASSERT_NE(code_du_pixel(m.g(), 0, static_cast<int>(milieu_x) + dx, static_cast<int>(milieu_y) + dy),
                  p);
  }
}

TEST_F(Guide, WhereDotsAreShownTheyAreGoneTo) {
  jouer(étape_provinces, niveau_facile);
  EXPECT_THAT(cibles(), SizeIs(nombre_provinces));
}

// What is told of a place.

/// A pixel of the province, well inside it.
Point dans(GameState &g, int province) {
  for (int y = 2; y < 660; ++y)
    for (int x = 2; x < 600; ++x)
      if (code_du_pixel(g, 0, x, y) == province && code_du_pixel(g, 0, x + 2, y + 2) == province &&
          code_du_pixel(g, 0, x - 2, y - 2) == province)
        return {x, y};
  throw std::runtime_error("a province without a pixel");
}

/// Two neighbours across a border that runs between two columns: of one region, or of two.
struct Frontière {
  Point ouest, est;
};
Frontière frontière(GameState &g, bool même_région) {
  for (int y = 0; y < 662; ++y)
    for (int x = 0; x < 601; ++x) {
      const int p = code_du_pixel(g, 0, x, y), q = code_du_pixel(g, 0, x + 1, y);
      if (p == 0 || q == 0 || p == q) continue;
      if ((g.TableProvinces(p).région == g.TableProvinces(q).région) == même_région)
        return {{x, y}, {x + 1, y}};
    }
  throw std::runtime_error("a country without a border");
}

TEST_F(Guide, SeaAndLandAreToldAtEveryLevel) {
  jouer(étape_provinces, niveau_expert);
  EXPECT_EQ(Décrire_lieu(m.c(), {5, 5}, {6, 5}), "mer");
  const Point ici = dans(m.g(), 40);
  EXPECT_EQ(Décrire_lieu(m.c(), ici, ici), "terre");
}

TEST_F(Guide, AProvinceThatIsShownIsToldInYellow) {
  jouer(étape_provinces, niveau_expert);
  m.e().Pays(40).visible = true;
  const Point ici = dans(m.g(), 40);
  EXPECT_EQ(Décrire_lieu(m.c(), ici, ici), "en jaune");
}

TEST_F(Guide, TheNeighboursLandIsToldApart) {
  jouer(étape_provinces, niveau_expert);
  EXPECT_EQ(Décrire_lieu(m.c(), {595, 300}, {595, 300}), "pays voisin");
  int x = 595;
  while (code_du_pixel(m.g(), 0, x - 1, 300) == 0) --x;
  EXPECT_EQ(Décrire_lieu(m.c(), {x, 300}, {x - 1, 300}), "frontière, terre");
  EXPECT_EQ(Décrire_lieu(m.c(), {x - 1, 300}, {x, 300}), "frontière, pays voisin");
}

TEST_F(Guide, TheNeighboursHaveACoastToo) {
  jouer(étape_provinces, niveau_expert);
  int y = 300;
  while (Voir(m.c(), {595, y}).étendue == Etendue::pays_voisin) --y;
  EXPECT_EQ(Décrire_lieu(m.c(), {595, y + 1}, {595, y}), "côte, mer");
}

TEST_F(Guide, AnIsletOfNoProvinceIsToldAsOne) {
  jouer(étape_provinces, niveau_expert);
  int îlots = 0;
  for (int y = 0; y < 662; ++y)
    for (int x = 0; x < 602; ++x) {
      if (m.c().ressources.étendues.en(x, y) != Etendue::îlot) continue;
      ++îlots;
      EXPECT_EQ(Décrire_lieu(m.c(), {x, y}, {x, y}), "îlot");
    }
  EXPECT_GT(îlots, 100);
}

TEST_F(Guide, TheCoastIsToldWhenItIsCrossed) {
  jouer(étape_provinces, niveau_expert);
  int x = 0;
  while (code_du_pixel(m.g(), 0, x + 1, 300) == 0) ++x;
  EXPECT_EQ(Décrire_lieu(m.c(), {x, 300}, {x + 1, 300}), "côte, terre");
  EXPECT_EQ(Décrire_lieu(m.c(), {x + 1, 300}, {x, 300}), "côte, mer");
}

TEST_F(Guide, WhoLeapsAcrossTheMapIsToldNoLineOnTheWay) {
  jouer(étape_provinces, niveau_expert);
  EXPECT_EQ(Décrire_lieu(m.c(), {5, 5}, dans(m.g(), 40)), "terre");
}

TEST_F(Guide, ALakeIsToldAsOne) {
  jouer(étape_provinces, niveau_expert);
  int lacs = 0;
  for (int y = 150; y < 250; ++y)
    for (int x = 200; x < 320; ++x) {
      if (code_du_pixel(m.g(), 0, x, y) != 0) continue;
      ++lacs;
      EXPECT_EQ(Décrire_lieu(m.c(), {x, y}, {x, y}), "lac");
    }
  EXPECT_GT(lacs, 100) << "the lakes in the north of the country";
}

TEST_F(Guide, ALakesShoreIsNotTheCountrysEdge) {
  jouer(étape_provinces, niveau_expert);
  Point rive{200, 150};
  while (code_du_pixel(m.g(), 0, rive.x + 1, rive.y) != 0)
    rive = rive.x == 319 ? Point{200, rive.y + 1} : Point{rive.x + 1, rive.y};
  EXPECT_EQ(Ligne_franchie(m.c(), rive, {rive.x + 1, rive.y}), Ligne::rive);
}

TEST_F(Guide, ABorderIsToldWhereItIsDrawn) {
  jouer(étape_provinces, niveau_moyen);
  const auto [ouest, est] = frontière(m.g(), true);
  EXPECT_EQ(Ligne_franchie(m.c(), ouest, est), Ligne::limite_de_province);
  EXPECT_EQ(Ligne_franchie(m.c(), est, ouest), Ligne::limite_de_province);
}

TEST_F(Guide, ABorderThatIsNotDrawnIsNotTold) {
  jouer(étape_provinces, niveau_expert);
  for (const bool même_région : {true, false}) {
    const auto [ouest, est] = frontière(m.g(), même_région);
    if (!même_région) {
      m.e().Région(m.g().TableProvinces(code_du_pixel(m.g(), 0, ouest.x, ouest.y)).région).visible = false;
      m.e().Région(m.g().TableProvinces(code_du_pixel(m.g(), 0, est.x, est.y)).région).visible = false;
    }
    EXPECT_EQ(Ligne_franchie(m.c(), ouest, est), Ligne::aucune);
  }
}

TEST_F(Guide, ARegionsBorderIsToldWhereTheRegionIsHighlighted) {
  jouer(étape_provinces, niveau_facile);
  const auto [ouest, est] = frontière(m.g(), false);
  EXPECT_EQ(Ligne_franchie(m.c(), ouest, est), Ligne::limite_de_région);
}

TEST_F(Guide, AYellowProvinceIsTold) {
  jouer(étape_provinces, niveau_moyen);
  const Point ici = dans(m.g(), 40);
  EXPECT_FALSE(Voir(m.c(), ici).en_jaune);
  m.g().TableProvinces(40).trouvée = true;
  RedessinerCarte(m.c());
  EXPECT_TRUE(Voir(m.c(), ici).en_jaune);
}

TEST_F(Guide, ADotIsToldByItsNameOnlyWhereTheMapShowsTheName) {
  jouer(étape_provinces, niveau_facile);
  const std::vector<Point> points = cibles();
  EXPECT_TRUE(Voir(m.c(), points.front()).repère);
  EXPECT_EQ(Voir(m.c(), points.front()).nom, "");
  EXPECT_THAT(Décrire_lieu(m.c(), points.front(), points.front()), "point");
  m.g().Etape = étape_révision;
  RedessinerCarte(m.c());
  EXPECT_NE(Voir(m.c(), cibles().front()).nom, "");
}

TEST_F(Guide, WherePlaceLiesIsToldFromTheNearestNameAndFromTheEdges) {
  jouer(étape_provinces, niveau_expert);
  EXPECT_EQ(Situer(m.c(), {100, 50}), "bords : nord 50, est 501, sud 611, ouest 100 km");
  placer_point(7, "Saulonde", {100, 80});
  EXPECT_THAT(Situer(m.c(), {100, 50}), testing::StartsWith("30 km au nord de Saulonde ; "));
  EXPECT_THAT(Situer(m.c(), {100, 80}), testing::StartsWith("Saulonde ; "));
  placer_point(6, "Ambreuil", {100, 200});
  placer_point(8, "Vauxelles", {100, 210});
  placer_point(9, "", {100, 49});
  EXPECT_THAT(Situer(m.c(), {100, 50}), testing::StartsWith("30 km au nord de Saulonde ; "));
}

TEST_F(Guide, WhatLiesAroundIsToldInEightDirectionsFromTheNorthOn) {
  jouer(étape_provinces, niveau_expert);
  EXPECT_EQ(Balayer(m.c(), {3, 4}).substr(0, 73),
            "nord : bord de la carte, 5 km ; nord-est : bord de la carte, 7 km ; est :");
  placer_point(7, "Saulonde", {13, 4});
  EXPECT_THAT(Balayer(m.c(), {3, 4}), testing::HasSubstr("est : Saulonde, 10 km"));
  EXPECT_THAT(Balayer(m.c(), {13, 4}), testing::Not(testing::HasSubstr("Saulonde"))) << "it lies here";
}

TEST_F(Guide, ALineThatIsDrawnIsMetOnTheWay) {
  jouer(étape_provinces, niveau_facile);
  const auto [ouest, est] = frontière(m.g(), false);
  EXPECT_THAT(Balayer(m.c(), ouest), testing::HasSubstr("; est : limite de région, 1 km"));
}

TEST_F(Guide, WhatLiesBehindTheCountrysEdgeIsMetOnTheWay) {
  jouer(étape_provinces, niveau_expert);
  const std::string autour = Balayer(m.c(), {360, 280});
  EXPECT_THAT(autour, testing::ContainsRegex("^nord : mer, [0-9]+ km"));
  EXPECT_THAT(autour, testing::ContainsRegex("; est : pays voisin, [0-9]+ km"));
}

TEST_F(Guide, FromTheSeaTheLandIsMet) {
  jouer(étape_provinces, niveau_expert);
  EXPECT_THAT(Balayer(m.c(), {20, 300}), testing::ContainsRegex("; est : terre, [0-9]+ km"));
}

/// Every stage at every level, with some things found.
class GuideAtEveryLevel : public Guide, public testing::WithParamInterface<std::tuple<int, int>> {
 protected:
  void SetUp() override {
    const auto [étape, niveau] = GetParam();
    jouer(étape, niveau);
    for (int p = 1; p <= nombre_provinces; p += 3) m.g().TableProvinces(p).trouvée = true;
    for (int v = 1; v <= nombre_villes; v += 4) m.g().TableVilles(v).trouvée = true;
    for (int r = 1; r <= nombre_régions; r += 5) m.g().TableRégions(r).trouvée = true;
    RedessinerCarte(m.c());
    for (Contrôle &image : m.e().contrôles())
      if (image.visible && image.actif && image.clic && !image.infobulle.empty())
        montrés.insert(image.infobulle);
  }
  /// The rows of the map, shared out among a level's stages.
  static std::vector<int> rangées() {
    constexpr int étapes = 4;
    std::vector<int> rangées;
    for (int y = std::get<0>(GetParam()) % étapes; y < 662; y += étapes) rangées.push_back(y);
    return rangées;
  }
  /// Names of the country that the sentence holds and the map does not show.
  std::vector<std::string> trahis(const std::string &phrase) {
    std::vector<std::string> noms;
    const auto chercher = [&](const std::string &nom) {
      const bool montré = std::ranges::any_of(
          montrés, [&](const std::string &texte) { return texte.find(nom) != std::string::npos; });
      if (!montré && phrase.find(nom) != std::string::npos) noms.push_back(nom);
    };
    for (int p = 1; p <= nombre_provinces; ++p) chercher(m.g().TableProvinces(p).nom);
    for (int v = 1; v <= nombre_villes; ++v) chercher(m.g().TableVilles(v).nom);
    for (int r = 1; r <= nombre_régions; ++r) chercher(m.g().TableRégions(r).nom);
    return noms;
  }

  std::set<std::string> montrés;
};

TEST_P(GuideAtEveryLevel, NoPlaceIsToldByANameThatIsNotShownThere) {
  for (const int y : rangées())
    for (int x = 0; x < 602; ++x) {
      const Vue_du_lieu vue = Voir(m.c(), {x, y});
      if (vue.nom.empty()) continue;
      EXPECT_TRUE(montrés.contains(vue.nom)) << vue.nom;
      EXPECT_TRUE(vue.repère) << vue.nom;
    }
}

TEST_P(GuideAtEveryLevel, NoSentenceHoldsANameThatTheMapDoesNotShow) {
  for (int y = 20; y < 662; y += 80)
    for (int x = 20; x < 602; x += 80)
      for (const std::string &phrase :
           {Situer(m.c(), {x, y}), Balayer(m.c(), {x, y}), Décrire_lieu(m.c(), {x - 1, y}, {x, y})})
        EXPECT_THAT(trahis(phrase), IsEmpty()) << phrase;
}

TEST_P(GuideAtEveryLevel, NoBorderIsToldBetweenProvincesOfWhichNothingIsDrawn) {
  const auto rien = [&](int p) {
    return !m.e().Pays(p).visible && !m.e().Inv(p).visible &&
           !m.e().Région(m.g().TableProvinces(p).région).visible;
  };
  for (const int y : rangées())
    for (int x = 1; x < 602; ++x) {
      const int p = code_du_pixel(m.g(), 0, x - 1, y), q = code_du_pixel(m.g(), 0, x, y);
      if (p == q || p == 0 || q == 0 || !rien(p) || !rien(q)) continue;
      EXPECT_EQ(Ligne_franchie(m.c(), {x - 1, y}, {x, y}), Ligne::aucune) << p << " and " << q;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryStage, GuideAtEveryLevel,
                         testing::Combine(testing::Values(étape_provinces, étape_villes, étape_drapeaux,
                                                          étape_régions),
                                          testing::Range(1, 5)));

}  // namespace
}  // namespace ardane
