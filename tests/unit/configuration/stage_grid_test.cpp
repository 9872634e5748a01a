#include "configuration/stage_grid.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "core/game_state.h"

namespace ardane {
namespace {

// A grid is drawn as the player sees it: a row a stage (Provinces, Régions, Villes, Drapeaux), a column a
// position.

std::string dessiner(const Grille_jeux &grille) {
  std::string dessin;
  for (int jeu = 1; jeu <= nombre_jeux; ++jeu) {
    for (int position = 1; position <= nombre_jeux; ++position) dessin += grille(position, jeu) ? 'x' : '.';
    dessin += '\n';
  }
  return dessin;
}

/// A drawing without its margins.
std::string dessin(std::string_view texte) {
  std::istringstream rangs{std::string(texte)};
  std::string résultat, rang;
  while (rangs >> rang) résultat += rang + '\n';
  return résultat;
}

/// What the rule says of a click and what it makes of the grid, drawn beside the grid as it was. There the
/// click stands: '+' ticks an empty box, '-' clears a ticked one.
void attendre(Refus_de_case refus, std::string_view avant_et_après) {
  std::istringstream dessins{std::string(avant_et_après)};
  Grille_jeux grille;
  std::string attendu;
  int position_du_clic = 0;
  int jeu_du_clic = 0;
  for (int jeu = 1; jeu <= nombre_jeux; ++jeu) {
    std::string avant, après;
    dessins >> avant >> après;
    attendu += après + '\n';
    for (int position = 1; position <= nombre_jeux; ++position) {
      const char c = avant.at(static_cast<std::size_t>(position - 1));
      grille(position, jeu) = c == 'x' || c == '+';
      if (c != '+' && c != '-') continue;
      position_du_clic = position;
      jeu_du_clic = jeu;
    }
  }
  EXPECT_EQ(Régler_grille(grille, position_du_clic, jeu_du_clic), refus) << avant_et_après;
  EXPECT_EQ(dessiner(grille), attendu) << avant_et_après;
}

using enum Refus_de_case;

TEST(StageGrid, ATickBehindAnEmptyPositionIsRefused) {
  attendre(position_précédente_vide, R"(
    x...   x...
    ....   ....
    ..+.   ....
    ....   ....)");
  attendre(position_précédente_vide, R"(
    x...   x...
    .x..   .x..
    ....   ....
    ...+   ....)");
}

TEST(StageGrid, ATickBeforeThereIsAFirstStageIsRefused) {
  attendre(position_précédente_vide, R"(
    .+..   ....
    ....   ....
    ....   ....
    ....   ....)");
}

TEST(StageGrid, TheEmptyPositionIsToldBeforeTheStageThatIsPlacedAlready) {
  attendre(position_précédente_vide, R"(
    x.+.   x...
    ....   ....
    ....   ....
    ....   ....)");
}

TEST(StageGrid, AStageThatStandsInAPositionBeforeIsRefused) {
  attendre(jeu_déjà_placé, R"(
    x+..   x...
    ....   ....
    ....   ....
    ....   ....)");
  attendre(jeu_déjà_placé, R"(
    x..+   x...
    .x..   .x..
    ..x.   ..x.
    ....   ....)");
}

TEST(StageGrid, ARefusedTickLeavesTheOtherBoxOfItsPositionAndWhatFollows) {
  attendre(jeu_déjà_placé, R"(
    x+..   x...
    .x..   .x..
    ..x.   ..x.
    ...x   ...x)");
}

TEST(StageGrid, ATickInTheNextPositionIsTaken) {
  attendre(aucun, R"(
    x...   x...
    ....   ....
    ....   ....
    .+..   .x..)");
}

TEST(StageGrid, ATickTakesThePlaceOfTheOtherStageOfItsPosition) {
  attendre(aucun, R"(
    x...   x...
    .x..   ....
    .+..   .x..
    ....   ....)");
  attendre(aucun, R"(
    x...   ....
    ....   ....
    +...   x...
    ....   ....)");
}

TEST(StageGrid, ATickTakesItsStageOutOfTheLaterPositionThatHadIt) {
  attendre(aucun, R"(
    x...   ....
    .x..   .x..
    ..x.   ..x.
    +..x   x...)");
}

TEST(StageGrid, APositionThatATickHasEmptiedTakesThoseBehindItAlong) {
  attendre(aucun, R"(
    x...   ....
    +x..   x...
    ..x.   ....
    ...x   ....)");
  attendre(aucun, R"(
    x...   x...
    .x..   ....
    .+x.   .x..
    ...x   ....)");
}

TEST(StageGrid, AnEmptyFirstPositionIsRefused) {
  attendre(aucun_premier_jeu, R"(
    ....   ....
    -...   x...
    .x..   .x..
    ..x.   ..x.)");
}

TEST(StageGrid, AnEmptiedPositionClearsAllBehindIt) {
  attendre(aucun, R"(
    x...   x...
    .-..   ....
    ..x.   ....
    ...x   ....)");
  attendre(aucun, R"(
    x...   x...
    .x..   .x..
    ..x.   ..x.
    ...-   ....)");
}

// No click of the player's leads here: two boxes of one position are the program's own doing, between a tick
// and what the rule makes of it.
TEST(StageGrid, ABoxClearedBesideAnotherOfItsPositionChangesNothingMore) {
  attendre(aucun, R"(
    x...   x...
    .-..   ....
    .xx.   .xx.
    ...x   ...x)");
}

// Nor here: the box that is ticked again is followed up like one that the player ticks.
TEST(StageGrid, AFirstStageThatIsKeptIsTakenOutOfTheLaterPositions) {
  attendre(aucun_premier_jeu, R"(
    -.x.   x...
    .x..   .x..
    ....   ....
    ...x   ....)");
}

TEST(StageGrid, AnOrderOfPlayIsReadFromTheGridThatItMade) {
  const Ordre_de_jeu habituel({étape_provinces, étape_régions, étape_villes, étape_drapeaux});
  EXPECT_EQ(dessiner(Grille_de_l_ordre(habituel)), dessin(R"(
    x...
    .x..
    ..x.
    ...x)"));
  const Ordre_de_jeu court({étape_drapeaux, étape_villes, aucun_jeu, aucun_jeu});
  EXPECT_EQ(dessiner(Grille_de_l_ordre(court)), dessin(R"(
    ....
    ....
    .x..
    x...)"));
}

// --- All grids

using Bits = std::uint32_t;
constexpr Bits toutes_les_grilles = 1U << (nombre_jeux * nombre_jeux);

constexpr Bits bit(int position, int jeu) {
  return 1U << ((position - 1) * nombre_jeux + jeu - 1);
}

Bits en_bits(const Grille_jeux &grille) {
  Bits bits = 0;
  Bits suivant = bit(1, 1);
  for (int position = 1; position <= nombre_jeux; ++position) {
    for (const bool cochée : grille.ligne(position)) {
      if (cochée) bits |= suivant;
      suivant <<= 1;
    }
  }
  return bits;
}

Grille_jeux en_grille(Bits bits) {
  Grille_jeux grille;
  for (int position = 1; position <= nombre_jeux; ++position) {
    for (bool &cochée : grille.ligne(position)) {
      cochée = (bits & 1U) != 0;
      bits >>= 1;
    }
  }
  return grille;
}

/// How many stages stand in a position, and in how many positions a stage stands.
int occupation(Bits grille, int position) {
  int nombre = 0;
  for (int jeu = 1; jeu <= nombre_jeux; ++jeu) nombre += (grille & bit(position, jeu)) != 0 ? 1 : 0;
  return nombre;
}
int présence(Bits grille, int jeu) {
  int nombre = 0;
  for (int position = 1; position <= nombre_jeux; ++position)
    nombre += (grille & bit(position, jeu)) != 0 ? 1 : 0;
  return nombre;
}

/// One stage at most in a position, one position at most for a stage, and something to begin with.
bool ordonnée(Bits grille) {
  for (int i = 1; i <= nombre_jeux; ++i)
    if (occupation(grille, i) > 1 || présence(grille, i) > 1) return false;
  return occupation(grille, 1) == 1;
}

bool contiguë(Bits grille) {
  for (int position = 2; position <= nombre_jeux; ++position)
    if (occupation(grille, position) > 0 && occupation(grille, position - 1) == 0) return false;
  return true;
}

/// All orders that a file may hold: a stage in the first place, none twice. Some have gaps.
std::vector<Ordre_de_jeu> ordres_lisibles() {
  std::vector<Ordre_de_jeu> ordres;
  constexpr int codes = nombre_jeux + 1;
  for (int n = 0; n < codes * codes * codes * codes; ++n) {
    Ordre_de_jeu ordre;
    int reste = n;
    for (std::int16_t &code : ordre) {
      code = static_cast<std::int16_t>(reste % codes);
      reste /= codes;
    }
    std::multiset<int> joués(ordre.begin(), ordre.end());
    joués.erase(aucun_jeu);
    const bool répété = std::set<int>(joués.begin(), joués.end()).size() != joués.size();
    if (ordre(1) != aucun_jeu && !répété) ordres.push_back(ordre);
  }
  return ordres;
}

/// All grids that clicks lead to, those to begin with among them.
std::set<Bits> accessibles(const std::vector<Bits> &départs) {
  std::set<Bits> vues(départs.begin(), départs.end());
  std::vector<Bits> à_voir(vues.begin(), vues.end());
  while (!à_voir.empty()) {
    const Bits avant = à_voir.back();
    à_voir.pop_back();
    for (int position = 1; position <= nombre_jeux; ++position) {
      for (int jeu = 1; jeu <= nombre_jeux; ++jeu) {
        Grille_jeux grille = en_grille(avant ^ bit(position, jeu));
        const Refus_de_case refus = Régler_grille(grille, position, jeu);
        const Bits après = en_bits(grille);
        EXPECT_TRUE(ordonnée(après)) << avant << " clicked at " << position << ", " << jeu;
        if (contiguë(avant)) {
          EXPECT_TRUE(contiguë(après)) << avant << " clicked at " << position << ", " << jeu;
          EXPECT_EQ(après == avant, refus != aucun) << avant << " clicked at " << position << ", " << jeu;
        }
        if (vues.insert(après).second) à_voir.push_back(après);
      }
    }
  }
  return vues;
}

TEST(StageGrid, EveryOrderThatAFileMayHoldComesBackFromItsGrid) {
  const auto ordres = ordres_lisibles();
  EXPECT_EQ(ordres.size(), 136U);
  for (const Ordre_de_jeu &ordre : ordres) {
    const Ordre_de_jeu relu = Ordre_de_la_grille(Grille_de_l_ordre(ordre));
    EXPECT_TRUE(std::equal(ordre.begin(), ordre.end(), relu.begin()));
  }
}

TEST(StageGrid, WhateverIsClickedOneAfterTheOtherTheGridStaysInOrder) {
  std::vector<Bits> tous, contigus;
  for (const Ordre_de_jeu &ordre : ordres_lisibles()) {
    tous.push_back(en_bits(Grille_de_l_ordre(ordre)));
    if (contiguë(tous.back())) contigus.push_back(tous.back());
  }
  // As many as there are ways to put one to four of four stages in a row.
  constexpr std::size_t suites = 4 + 4 * 3 + 4 * 3 * 2 + 4 * 3 * 2 * 1;
  EXPECT_EQ(contigus.size(), suites);
  EXPECT_EQ(accessibles({contigus.front()}), std::set<Bits>(contigus.begin(), contigus.end()))
      << "from any one of them every other can be reached, and nothing else";
  EXPECT_EQ(accessibles(tous), std::set<Bits>(tous.begin(), tous.end()));
}

TEST(StageGrid, FromAnyGridAtAllAClickEndsAndTicksNothingButItsOwnBox) {
  for (Bits avant = 0; avant < toutes_les_grilles; ++avant) {
    const Grille_jeux départ = en_grille(avant);
    for (int position = 1; position <= nombre_jeux; ++position) {
      for (int jeu = 1; jeu <= nombre_jeux; ++jeu) {
        Grille_jeux grille = départ;
        grille(position, jeu) = !grille(position, jeu);
        const Refus_de_case refus = Régler_grille(grille, position, jeu);
        const Bits après = en_bits(grille);
        const Bits clic = bit(position, jeu);
        ASSERT_EQ(après & ~avant & ~clic, 0U) << avant << " clicked at " << position << ", " << jeu;
        ASSERT_EQ((après & clic) == (avant & clic), refus != aucun)
            << avant << " clicked at " << position << ", " << jeu;
      }
    }
  }
}

}  // namespace
}  // namespace ardane
