// The side panel: what it shows in each mode, the counters, and the configuration grid when it is away.
#pragma once

#include "core/context.h"

namespace ardane {

/// Shows the panels of the present `Etape` and `Niveau`.
void AfficherPanneau(Contexte &c);
/// Hides them all.
void MasquerPanneau(Contexte &c);
/// Hides the configuration grid and gives the menus back.
void MasquerParamétrage(Contexte &c);

/// `Score` in the digit boxes: six digits, units in `Digit(1)`, the sign in `Digit(0)`.
void AfficherScore(Contexte &c);
/// The caption of the counter for the present `Etape`, and `nombre` in its three boxes.
void AfficherReste(Contexte &c, int nombre);
/// The counter of the present stage: what is left to place in it.
int reste_de_l_étape(const GameState &g);

}  // namespace ardane
