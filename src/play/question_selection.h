#pragma once

#include "core/context.h"

namespace ardane {

/// Picks the next object of the stage at random among those not found, never the last one again while another
/// is left, records it as the object asked, and shows it. Does nothing when the stage has none left.
void QuestionSuivante(Contexte &c);

/// Asks for an object of the stage that has been drawn before, as if it had just been drawn.
void Poser_question(Contexte &c, int choix);

}  // namespace ardane
