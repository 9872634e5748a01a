// How a game ends: the score that each ending leaves, and its way into the top ten.
#pragma once

#include "core/context.h"

namespace ardane {

/// Replaces `Score` by the worth of an unfinished game: how far the player got, from -999999 upward.
void ScoreDeProgression(Contexte &c);

/// Deals with `Score` as it stands: its rank in the top ten of the level, the boxes, the score file, the
/// top-ten window.
void EntréeTopTen(Contexte &c);

/// The game has run out of points.
void PartiePerdue(Contexte &c);

/// Takes the game off the screen: mode idle, tables reset, map and panels hidden, nothing left to confirm.
void TerminerPartie(Contexte &c);

}  // namespace ardane
