// The rule of the configuration's grid of boxes: which stage is played at which position. Positions stay
// contiguous from the first, one stage a position, one position a stage.
#pragma once

#include <cstdint>

#include "core/gazetteer.h"
#include "core/table.h"

namespace ardane {

/// Ticked boxes, by position and column; both from 1.
using Grille_jeux = Table2<bool, 1, nombre_jeux, 1, nombre_jeux>;

/// What the rule has against a click.
enum class Refus_de_case : std::uint8_t {
  aucun,
  position_précédente_vide,
  jeu_déjà_placé,
  aucun_premier_jeu,
};

/// Brings the grid in order after the player has changed one box, which stands in its new state. A refused
/// change is undone.
Refus_de_case Régler_grille(Grille_jeux &grille, int position, int colonne);

/// The grid of an order of play, and back: the code of the ticked column at each position, 0 where there is
/// none.
Grille_jeux Grille_de_l_ordre(const Ordre_de_jeu &ordre);
Ordre_de_jeu Ordre_de_la_grille(const Grille_jeux &grille);

}  // namespace ardane
