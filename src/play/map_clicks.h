// From a click on the map to an answer.
#pragma once

#include "core/context.h"

namespace ardane {

/// A click on a layer or on the map picture: the province under the mouse cursor, if any, is designated.
void Clic_carte(Contexte &c, int carte);
/// A click on the dot of town `i`.
void Clic_repère(Contexte &c, int i);
/// A click has designated province `p`, 0 for none. The only gate into the game.
void ClicProvince(Contexte &c, int p);

}  // namespace ardane
