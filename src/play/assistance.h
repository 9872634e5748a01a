// The two ways out of a question on which the player is stuck.
#pragma once

#include "core/context.h"

namespace ardane {

/// `Bouton_gruge`, learning mode: the target blinks.
void AideClignotante(Contexte &c);
/// `BoutonPasse`, level Facile: the question is paid in full and given up.
void JePasse(Contexte &c);
/// The right answer while the target blinks: the object is not placed and will be asked again.
void RéponseAssistée(Contexte &c);

}  // namespace ardane
