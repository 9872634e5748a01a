#pragma once

#include "core/context.h"

namespace ardane {

/// Puts tables, counters and map into the state that a stage starts from: nothing of it placed but what the
/// configuration leaves out, the map scrolled to 0, nothing asked.
void RemiseAZéroCarte(Contexte &c);

/// What is switched off on the map, while the configuration is edited, is what it leaves out from now on.
void Retenir_exclusions(GameState &g);

}  // namespace ardane
