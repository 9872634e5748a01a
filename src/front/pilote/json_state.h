// The program-wide variables by name, for scripts to read and to set.
//
// A path is a variable's name, then indices in round brackets and field names behind a point:
// "Score", "TableProvinces(12).points_perdus(0)", "Meilleurs_scores(1,3).nom", "Rect_carte.left". Indices are
// the array's own.
#pragma once

#include <string_view>

#include "core/game_state.h"
#include "front/pilote/journal.h"

namespace ardane {

/// Every variable, by its name.
Json état_json(const GameState &g);
/// One variable, or a part of one. Throws Refus for a path that leads nowhere.
Json variable_json(const GameState &g, std::string_view chemin);
/// Gives a variable a value. Throws Refus, with nothing changed, if the path leads nowhere or the value is of
/// another kind or out of the variable's range.
void fixer_variable(GameState &g, std::string_view chemin, const Json &valeur);

}  // namespace ardane
