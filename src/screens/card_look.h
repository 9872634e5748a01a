// What the two windows of cards have in common to the eye.
#pragma once

#include "platform/controls.h"

namespace ardane {

/// White on dark red, in the letters of a book.
void Habiller_fiche(Fenêtre &fenêtre, Contrôle &titre, Contrôle &texte);

}  // namespace ardane
