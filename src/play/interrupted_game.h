// A game that ended otherwise than the player wished: kept while it is played, and offered at the next start.
#pragma once

#include "core/context.h"

namespace ardane {

/// Keeps the game under way in the lifeline, as it stands between two events; drops what is kept if there is
/// none.
void Tenir_partie(Contexte &c);

/// Asks whether a game that an earlier run has left shall go on, once the main window stands. Oui goes on at
/// the very question; Non drops it. Nothing happens where there is none, or one that this program cannot go
/// on with, which stays where it is.
void Proposer_reprise(Contexte &c);

}  // namespace ardane
