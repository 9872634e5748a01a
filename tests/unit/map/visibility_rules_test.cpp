#include "map/visibility_rules.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <sstream>
#include <vector>

#include "map/layers.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using Codes = std::vector<int>;
/// Levels that can be played, none, and such as only a script could set.
const Codes tous{-1, 0, 1, 2, 3, 4, 5, 99};

// Province of the tests, in a region of its own choosing, with two towns beside its capital.
constexpr std::int16_t p = 40;
constexpr std::int16_t autre_province = 41;

/// One way in which the flags can stand. Each test goes through all of them that its table speaks of.
struct Cas {
  bool trouvée = false;
  bool inhibée = false;
  bool courante = false;
  bool assistance = false;
  bool apprentissage = false;
  bool hors_sélection = false;
  bool choisie = false;     ///< in the selection of stage Régions
  int région_demandée = 0;  ///< 0 none, 1 that of the province, 2 another
  bool ville_trouvée = false;
  bool région_trouvée = false;
  bool autre_encart = false;
  bool visible_avant = false;
  bool clignote_avant = false;
  int étape = 0;
  int niveau = 0;

  bool V() const { return trouvée || inhibée; }
  bool B() const { return ville_trouvée || inhibée; }
  bool T() const { return !autre_encart; }
};

std::ostream &operator<<(std::ostream &flux, const Cas &c) {
  return flux << "Etape " << c.étape << " Niveau " << c.niveau << " trouvée " << c.trouvée << " inhibée "
              << c.inhibée << " courante " << c.courante << " assistance " << c.assistance
              << " apprentissage " << c.apprentissage << " hors sélection " << c.hors_sélection << " choisie "
              << c.choisie << " région " << c.région_demandée << " ville trouvée " << c.ville_trouvée
              << " région trouvée " << c.région_trouvée << " autre encart " << c.autre_encart
              << " visible avant " << c.visible_avant << " clignote avant " << c.clignote_avant;
}

/// A cell of a table: what it says in a case; nothing where it leaves the picture as it is.
using Cellule = std::function<std::optional<bool>(const Cas &)>;

const Cellule oui = [](const Cas &) { return true; };
const Cellule non = [](const Cas &) { return false; };
const Cellule inchangé = [](const Cas &) { return std::nullopt; };
const Cellule V = [](const Cas &c) { return c.V(); };
const Cellule pas_V = [](const Cas &c) { return !c.V(); };
const Cellule X = [](const Cas &c) { return c.inhibée; };
const Cellule pas_X = [](const Cas &c) { return !c.inhibée; };
const Cellule trouvée = [](const Cas &c) { return c.trouvée; };
const Cellule pas_trouvée = [](const Cas &c) { return !c.trouvée; };
const Cellule cible = [](const Cas &c) { return c.courante && c.assistance; };
const Cellule T = [](const Cas &c) { return c.T(); };
const Cellule T_sans_B = [](const Cas &c) { return c.T() && !c.B(); };
const Cellule apprise = [](const Cas &c) { return c.trouvée && c.apprentissage; };
const Cellule apprise_et_T = [](const Cas &c) { return c.trouvée && c.apprentissage && c.T(); };
const Cellule région_apprise_et_T = [](const Cas &c) { return c.région_trouvée && c.apprentissage && c.T(); };
const Cellule région_trouvée = [](const Cas &c) { return c.région_trouvée; };

template <class Ligne>
const Ligne *chercher(const std::vector<Ligne> &table, int étape, int niveau) {
  const Ligne *trouvée_ici = nullptr;
  for (const Ligne &ligne : table) {
    for (const int e : ligne.étapes)
      for (const int n : ligne.niveaux)
        if (e == étape && n == niveau) {
          EXPECT_EQ(trouvée_ici, nullptr) << "two rows for Etape " << étape << " Niveau " << niveau;
          trouvée_ici = &ligne;
        }
  }
  return trouvée_ici;
}

class VisibilityRules : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }

  int région() { return m.g().TableProvinces(p).région; }
  int autre_région() { return région() == 1 ? 2 : 1; }
  /// The first town of the province that is not its capital.
  int autre_ville(int province = p) {
    int v = nombre_provinces + 1;
    while (m.g().TableVilles(v).province != province) ++v;
    return v;
  }

  void poser_drapeaux(const Cas &c) {
    GameState &g = m.g();
    g.Etape = static_cast<std::int16_t>(c.étape);
    g.Niveau = static_cast<std::int16_t>(c.niveau);
    Fiche_province &province = g.TableProvinces(p);
    province.trouvée = c.trouvée;
    province.inhibée = c.inhibée;
    province.encart = c.autre_encart ? 1 : 0;
    g.TableRégions(région()).trouvée = c.région_trouvée;
    g.AssistanceActive = c.assistance;
    g.ModeApprentissage = c.apprentissage;
    g.ProvinceCourante = c.courante ? p : autre_province;
    g.TableClignotement(p) = c.clignote_avant;
    g.TableVilles(p).trouvée = g.TableVilles(autre_ville()).trouvée = c.ville_trouvée;
    g.RégionCourante = static_cast<std::int16_t>(c.région_demandée == 0   ? 0
                                                 : c.région_demandée == 1 ? région()
                                                                          : autre_région());
    // A selection of four of which two are picked: it fills from the top down.
    g.SélectionRégion.dimensionner(4);
    g.TailleRégion = 4;
    g.ResteRégion = 2;
    g.SélectionRégion(3) = c.choisie ? p : 1;
    g.SélectionRégion(4) = 2;
    // What was picked before and taken back still stands below; it counts for nothing.
    g.SélectionRégion(1) = p;
    g.SélectionRégion(2) = p;
  }

  MondeFactice m;
};

/// Calls `essai` with every combination of the flags that stage and level leave open.
void pour_tous(std::initializer_list<bool Cas::*> drapeaux, Cas cas,
               const std::function<void(const Cas &)> &essai) {
  const std::vector<bool Cas::*> liste(drapeaux);
  for (unsigned masque = 0; masque < (1U << liste.size()); ++masque) {
    for (std::size_t k = 0; k < liste.size(); ++k) cas.*liste[k] = ((masque >> k) & 1U) != 0;
    essai(cas);
  }
}

// Provinces.

struct Ligne_province {
  Codes étapes, niveaux;
  Cellule pays, inv, rond;
};

const std::vector<Ligne_province> table_provinces = {
    {{0}, tous, non, non, non},
    {{1}, {1}, V, pas_V, cible},
    {{1}, {2}, V, pas_V, non},
    {{1}, {3}, X, pas_X, inchangé},
    {{1}, {4}, X, non, non},
    {{2}, {1}, pas_V, V, cible},
    {{2}, {2, 3, 4}, X, pas_X, non},
    {{3}, {1}, pas_V, V, cible},
    {{3}, {2}, V, pas_V, non},
    {{3}, {3}, X, pas_X, non},
    {{3}, {4}, X, non, non},
    // The marker of stage Régions has a table of its own, below.
    {{4}, {1}, pas_V, V, nullptr},
    {{4}, {2}, V, pas_V, nullptr},
    {{4}, {3}, X, pas_X, nullptr},
    {{4}, {4}, X, non, nullptr},
    {{5}, tous, oui, non, non},
    {{6, 7}, tous, pas_trouvée, trouvée, non},
};

struct Rond_attendu {
  bool visible, clignote;
};

/// Marker and blinking of stage Régions, case by case.
Rond_attendu attendu_en_régions(const Cas &c) {
  Rond_attendu rond{c.visible_avant, c.clignote_avant};
  const bool membre = c.région_demandée == 1;
  if (c.hors_sélection || c.région_demandée == 0) {
    if (c.niveau <= 2) rond.clignote = false;
    rond.visible = false;
  } else if (c.niveau == 1) {
    if (membre) rond.visible = c.V();
    if (c.choisie) rond.clignote = true;
  } else if (c.niveau == 2) {
    if (membre) rond.clignote = c.V();
    if (c.choisie) rond = {true, false};
  } else {
    rond.visible = c.choisie;
  }
  return rond;
}

TEST_F(VisibilityRules, EveryCaseOfTheRegionStageSetsMarkerAndBlinking) {
  for (int niveau = 1; niveau <= 4; ++niveau)
    for (int région_demandée = 0; région_demandée <= 2; ++région_demandée) {
      Cas cas;
      cas.étape = 4;
      cas.niveau = niveau;
      cas.région_demandée = région_demandée;
      pour_tous({&Cas::trouvée, &Cas::inhibée, &Cas::hors_sélection, &Cas::choisie, &Cas::visible_avant,
                 &Cas::clignote_avant, &Cas::apprentissage, &Cas::assistance},
                cas, [&](const Cas &c) {
                  poser_drapeaux(c);
                  // The list of members is made at the start of a stage.
                  Fiche_région &fiche = m.g().TableRégions(région());
                  fiche.nombre_provinces = 2;
                  fiche.membres(1) = 3;
                  fiche.membres(2) = p;
                  m.g().TableRégions(autre_région()).nombre_provinces = 0;
                  m.e().rond(p).visible = c.visible_avant;
                  m.e().rond(p).actif = !c.visible_avant;
                  Montrer_province(m.c(), p, c.hors_sélection);
                  const Rond_attendu rond = attendu_en_régions(c);
                  ASSERT_EQ(m.e().rond(p).visible, rond.visible) << c;
                  ASSERT_EQ(m.e().rond(p).actif, rond.visible) << c;
                  ASSERT_EQ(m.g().TableClignotement(p), rond.clignote) << c;
                });
    }
}

TEST_F(VisibilityRules, OutsideStageRegionsNoProvinceStartsOrStopsBlinking) {
  for (const int étape : {0, 1, 2, 3, 5, 6, 7})
    for (int niveau = 0; niveau <= 4; ++niveau)
      for (const bool clignote : {false, true}) {
        Cas cas;
        cas.étape = étape;
        cas.niveau = niveau;
        cas.choisie = true;
        cas.région_demandée = 1;
        cas.clignote_avant = clignote;
        poser_drapeaux(cas);
        Montrer_province(m.c(), p, false);
        EXPECT_EQ(m.g().TableClignotement(p), clignote) << cas;
      }
}

TEST_F(VisibilityRules, AProvinceIsShownWithItsThreeTownsAndNoOther) {
  GameState &g = m.g();
  g.Etape = étape_révision;
  MasquerCarte(m.c());
  Montrer_province(m.c(), p, false);
  for (int v = 1; v <= nombre_villes; ++v) {
    EXPECT_EQ(repère(m.e(), v).visible, g.TableVilles(v).province == p) << v;
    if (g.TableVilles(v).province == p) {
      EXPECT_EQ(repère(m.e(), v).infobulle, g.TableVilles(v).nom);
    }
  }
}

TEST_F(VisibilityRules, ATownMovedToAnotherProvinceIsShownWithThatOne) {
  GameState &g = m.g();
  const int v = autre_ville();
  g.TableVilles(v).province = autre_province;
  g.VillesParProvince.relever(g.TableVilles);
  g.Etape = étape_révision;
  MasquerCarte(m.c());
  Montrer_province(m.c(), p, false);
  EXPECT_FALSE(repère(m.e(), v).visible);
  Montrer_province(m.c(), autre_province, false);
  EXPECT_TRUE(repère(m.e(), v).visible);
}

TEST_F(VisibilityRules, TheMarkerIsDressedBeforeItIsShown) {
  Cas cas;
  cas.étape = 1;
  cas.niveau = 1;
  cas.courante = cas.assistance = true;
  poser_drapeaux(cas);
  Montrer_province(m.c(), p, false);
  EXPECT_TRUE(m.e().rond(p).visible);
  EXPECT_EQ(m.e().rond(p).image, m.e().rondnoir.image);
}

// Regions.

struct Ligne_région {
  Codes étapes, niveaux;
  Cellule visible;
};

const std::vector<Ligne_région> table_régions = {
    {{1, 2}, {1}, oui},
    {{4}, {1, 2}, région_trouvée},
    {{5, 7}, tous, oui},
};

// Dots of towns.

struct Ligne_repère {
  Codes étapes, niveaux;
  Cellule visible, nommé;
  bool caché_sans_plus = false;  ///< hidden and left enabled as it was
};

const std::vector<Ligne_repère> table_capitales = {
    {{0}, tous, non, inchangé},
    {{2}, {1, 3}, T_sans_B, non},
    {{2}, {2, 4}, T, non},
    {{1, 3, 4, 6, 7}, {1, 2, 3}, oui, apprise},
    {{1, 3, 4, 6, 7}, {4}, non, apprise, true},
    {{5}, tous, oui, oui},
};

const std::vector<Ligne_repère> table_autres_villes = {
    {{0}, tous, inchangé, inchangé},
    {{1}, {1}, apprise_et_T, apprise},
    {{1}, {2, 3, 4}, non, inchangé},
    {{2}, {1, 3}, T_sans_B, non},
    {{2}, {2, 4}, T, non},
    {{3, 6, 7}, {1, 2, 3}, inchangé, inchangé},
    {{3, 6, 7}, {4}, non, inchangé, true},
    {{4}, {1}, région_apprise_et_T, apprise},
    {{4}, {2, 3, 4}, non, inchangé},
    {{5}, tous, oui, oui},
};

class EveryRow : public VisibilityRules {
 protected:
  /// Sets a picture to what stood before, then compares it with what a row says of it; without a row or where
  /// the row leaves the picture alone, with what stood before.
  static void poser(Contrôle &image, const Cas &c) {
    image.visible = c.visible_avant;
    image.actif = !c.visible_avant;
  }

  void vérifier_province(const Cas &cas) {
    const Ligne_province *ligne = chercher(table_provinces, cas.étape, cas.niveau);
    pour_tous({&Cas::trouvée, &Cas::inhibée, &Cas::courante, &Cas::assistance, &Cas::apprentissage,
               &Cas::hors_sélection, &Cas::visible_avant},
              cas, [&](const Cas &c) {
                poser_drapeaux(c);
                Contrôle &pays = m.e().Pays(p), &inv = m.e().Inv(p), &rond = m.e().rond(p);
                for (Contrôle *image : {&pays, &inv, &rond}) poser(*image, c);
                Montrer_province(m.c(), p, c.hors_sélection);
                const auto cellule = [&](const Cellule &dite) { return dite(c).value_or(c.visible_avant); };
                ASSERT_EQ(pays.visible, ligne != nullptr ? cellule(ligne->pays) : c.visible_avant) << c;
                ASSERT_EQ(inv.visible, ligne != nullptr ? cellule(ligne->inv) : c.visible_avant) << c;
                if (ligne == nullptr || ligne->rond) {
                  ASSERT_EQ(rond.visible, ligne != nullptr ? cellule(ligne->rond) : c.visible_avant) << c;
                }
                for (const Contrôle *image : {&pays, &inv, &rond})
                  ASSERT_EQ(image->actif, ligne != nullptr ? image->visible : !c.visible_avant)
                      << image->nom << ", " << c;
              });
  }

  void vérifier_région(const Cas &cas) {
    const Ligne_région *ligne = chercher(table_régions, cas.étape, cas.niveau);
    pour_tous({&Cas::région_trouvée, &Cas::apprentissage, &Cas::trouvée, &Cas::visible_avant}, cas,
              [&](const Cas &c) {
                poser_drapeaux(c);
                m.e().Région(région()).visible = c.visible_avant;
                Montrer_région(m.c(), région());
                ASSERT_EQ(m.e().Région(région()).visible, ligne != nullptr && *ligne->visible(c)) << c;
              });
  }

  void vérifier_repère(const Cas &cas, const std::vector<Ligne_repère> &table, int v) {
    const Ligne_repère *ligne = chercher(table, cas.étape, cas.niveau);
    const std::string avant = "tip of before";
    pour_tous({&Cas::trouvée, &Cas::inhibée, &Cas::ville_trouvée, &Cas::région_trouvée, &Cas::apprentissage,
               &Cas::autre_encart, &Cas::visible_avant},
              cas, [&](const Cas &c) {
                poser_drapeaux(c);
                Contrôle &point = repère(m.e(), v);
                poser(point, c);
                point.infobulle = avant;
                Montrer_repère(m.c(), v);
                const auto visible = ligne == nullptr ? std::nullopt : ligne->visible(c);
                const auto nommé = ligne == nullptr ? std::nullopt : ligne->nommé(c);
                ASSERT_EQ(point.visible, visible.value_or(c.visible_avant)) << c;
                const bool actif_inchangé = !visible || ligne->caché_sans_plus;
                ASSERT_EQ(point.actif, actif_inchangé ? !c.visible_avant : *visible) << c;
                ASSERT_EQ(point.infobulle, !nommé ? avant : *nommé ? m.g().TableVilles(v).nom : "") << c;
              });
  }
};

TEST_F(EveryRow, OfEveryTableHoldsForEveryStateOfTheFlagsAndNoRowChangesNothing) {
  for (int étape = -1; étape <= 8; ++étape)
    for (const int niveau : tous) {
      Cas cas;
      cas.étape = étape;
      cas.niveau = niveau;
      vérifier_province(cas);
      vérifier_région(cas);
      vérifier_repère(cas, table_capitales, p);
      vérifier_repère(cas, table_autres_villes, autre_ville());
      if (HasFatalFailure()) return;
    }
}

// The cases that a player would notice.

class VisibleGame : public VisibilityRules {
 protected:
  void jouer(int niveau, int étape = étape_provinces) {
    m.g().Ordre_jeux.remplir(0);
    m.g().Ordre_jeux(1) = static_cast<std::int16_t>(étape);
    m.nouvelle_partie(niveau);
  }
};

TEST_F(VisibleGame, InLearningModeAFoundProvinceBringsUpItsOtherCitiesWithTheirNames) {
  jouer(0);
  const int trouvée_ici = m.g().ProvinceCourante;
  const auto autres = [&](auto vérifier) {
    for (int v = nombre_provinces + 1; v <= nombre_villes; ++v)
      if (m.g().TableVilles(v).province == trouvée_ici) vérifier(v, m.e().RondVille(v));
  };
  autres([](int, const Contrôle &point) { EXPECT_FALSE(point.visible); });
  m.répondre_juste();
  autres([&](int v, const Contrôle &point) {
    EXPECT_TRUE(point.visible && point.actif) << v;
    EXPECT_EQ(point.infobulle, m.g().TableVilles(v).nom);
  });
  EXPECT_EQ(m.e().RondPref(trouvée_ici).infobulle, m.g().TableVilles(trouvée_ici).nom);
}

TEST_F(VisibleGame, AtFacileWithoutLearningAFoundProvinceTellsNoNames) {
  jouer(1);
  const int trouvée_ici = m.g().ProvinceCourante;
  m.répondre_juste();
  EXPECT_EQ(m.e().RondPref(trouvée_ici).infobulle, "");
  EXPECT_FALSE(m.e().RondVille(autre_ville(trouvée_ici)).visible);
}

TEST_F(VisibilityRules, AtDifficileInStageProvincesTheMarkerIsLeftInWhateverStateItHad) {
  for (const bool avant : {false, true}) {
    Cas cas;
    cas.étape = 1;
    cas.niveau = 3;
    poser_drapeaux(cas);
    m.e().rond(p).visible = avant;
    Montrer_province(m.c(), p, false);
    EXPECT_EQ(m.e().rond(p).visible, avant);
  }
}

TEST_F(VisibilityRules, AnInhibitedProvinceShowsItsFillAtEveryLevelOfProvincesAndAboveFacileInFlags) {
  for (const int étape : {1, 3})
    for (int niveau = 1; niveau <= 4; ++niveau)
      for (const bool trouvée_aussi : {false, true}) {
        Cas cas;
        cas.étape = étape;
        cas.niveau = niveau;
        cas.inhibée = true;
        cas.trouvée = trouvée_aussi;
        poser_drapeaux(cas);
        Montrer_province(m.c(), p, false);
        const bool jaune_veut_dire_à_trouver = étape == 3 && niveau == 1;
        EXPECT_EQ(m.e().Pays(p).visible, !jaune_veut_dire_à_trouver) << cas;
      }
}

TEST_F(VisibleGame, AtExpertTheMapShowsNeitherFillsNorBordersNorDots) {
  jouer(4);
  m.répondre_juste();
  for (int i = 1; i <= nombre_provinces; ++i) {
    EXPECT_FALSE(m.e().Pays(i).visible || m.e().Inv(i).visible || m.e().rond(i).visible) << i;
  }
  for (int v = 1; v <= nombre_villes; ++v) EXPECT_FALSE(repère(m.e(), v).visible) << v;
}

TEST_F(VisibleGame, AProvinceThatBlinksKeepsBlinkingAcrossRedrawsUntilItsFlagIsCleared) {
  jouer(1);
  m.g().TableClignotement(p) = true;
  for (int redessin = 0; redessin < 3; ++redessin) {
    RedessinerCarte(m.c());
    EXPECT_TRUE(m.g().TableClignotement(p));
    const bool phase = m.g().PhaseClignotement;
    Clignotant(m.c());
    EXPECT_EQ(m.e().Pays(p).visible, !phase);
    Clignotant(m.c());
    EXPECT_EQ(m.e().Pays(p).visible, phase);
  }
  m.g().TableClignotement(p) = false;
  RedessinerCarte(m.c());
  Clignotant(m.c());
  EXPECT_FALSE(m.e().Pays(p).visible);
}

TEST_F(VisibilityRules, TheSelectionIsWhatStandsAboveTheRestAndNothingBelow) {
  GameState &g = m.g();
  g.SélectionRégion.dimensionner(5);
  g.TailleRégion = 5;
  for (int k = 0; k <= 5; ++k) g.SélectionRégion(k) = static_cast<std::int16_t>(10 + k);
  g.ResteRégion = 5;
  for (int i = 10; i <= 15; ++i) EXPECT_FALSE(est_sélectionnée(g, i)) << i;
  g.ResteRégion = 3;
  for (int i = 10; i <= 15; ++i) EXPECT_EQ(est_sélectionnée(g, i), i == 14 || i == 15) << i;
  g.ResteRégion = 0;
  for (int i = 10; i <= 15; ++i) EXPECT_EQ(est_sélectionnée(g, i), i >= 11) << i;
}

}  // namespace
}  // namespace ardane
