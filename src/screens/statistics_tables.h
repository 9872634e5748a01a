// What each object cost, as the statistics tell it: the order of the rows and the colours of the cells.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/game_state.h"
#include "platform/controls.h"

namespace ardane {

/// The three tables: values of the window's `TableauCourant`.
enum class Tableau : std::uint8_t { aucun = 0, provinces = 1, régions = 2, villes = 3 };

/// Fill `OrdreTableau` from index 1 with the objects in play, the most costly first; ties stay in table
/// order. The three share it.
void Trier_provinces(GameState &g);
void Trier_régions(GameState &g);
void Trier_villes(GameState &g);

/// How many rows a table has.
int nombre_de_lignes(const GameState &g, Tableau tableau);

/// True unless some province of the region is in play.
bool Région_hors_jeu(const GameState &g, int région);

/// What an object cost in a stage.
struct Coût {
  std::int32_t points = 0;
  bool trouvée = false;
  bool hors_jeu = false;
};

Coût coût_de_province(const GameState &g, int province, int étape);
Coût coût_de_région(const GameState &g, int région);
Coût coût_de_ville(const GameState &g, int ville);

/// Red for a stage of the game, else the colour of scroll bars.
Teinte Couleur_étape(const GameState &g, int étape);
/// The ground of a cell: green for right at the first try, red for not found though the stage was played.
Teinte couleur_de_cellule(const GameState &g, const Coût &coût, int étape);
/// What a listener is told in place of that colour.
std::string mots_de_cellule(const GameState &g, const Coût &coût, int étape);

}  // namespace ardane
