// What the map shows, by stage and level. At the high levels it keeps the player's past answers to itself;
// every change on the map goes through these three procedures.
#pragma once

#include "core/context.h"

namespace ardane {

/// Shows and hides the layers and the marker of province `i`, and the dots of its towns. With
/// `hors_sélection` the selection of stage Régions is not looked at.
void Montrer_province(Contexte &c, int i, bool hors_sélection);
/// Shows or hides the layer of region `r`.
void Montrer_région(Contexte &c, int r);
/// Shows or hides the dot of town `v`, and gives it its tool tip.
void Montrer_repère(Contexte &c, int v);

/// True if the province stands in the selection of stage Régions.
bool est_sélectionnée(const GameState &g, int province);

}  // namespace ardane
