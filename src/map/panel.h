// The side panel of a game: what it shows in each mode, and the counters.
#pragma once

#include "core/context.h"

namespace ardane {

/// A number with a space between thousands, as it is read out.
std::string En_milliers(long nombre);

/// True in the four stages of a game, where something is asked.
bool est_en_jeu(int étape);
/// Shows the panels of the present `Etape` and `Niveau`.
void AfficherPanneau(Contexte &c);
/// Hides them all.
void MasquerPanneau(Contexte &c);
/// `Score` in the digit boxes: six digits, units in `Digit(1)`, the sign in `Digit(0)`.
void AfficherScore(Contexte &c);
/// How many provinces of the region asked are still to be chosen.
void AfficherNombreProvinces(Contexte &c, int nombre);
/// The caption of the counter for the present `Etape`; in other modes it stays.
void Légender_reste(Contexte &c);
/// The same, and `nombre` in the counter's three boxes.
void AfficherReste(Contexte &c, int nombre);
/// The counter of the present stage: what is left to place in it.
int reste_de_l_étape(const GameState &g);

}  // namespace ardane
