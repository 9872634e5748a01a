// The system's own alert sounds are silenced while the program runs: they would spoil the game's.
#pragma once

#include "core/context.h"

namespace ardane {

/// Keeps the four sounds and empties them; a sound whose setting cannot be read is left alone.
void Sauver_sons_système(Contexte &c);
/// Writes back what was kept, also where nothing could be read.
void Rendre_sons_système(Contexte &c);

}  // namespace ardane
