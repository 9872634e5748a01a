// What the main window's load event does.
#pragma once

#include "core/context.h"

namespace ardane {

/// Loads the score file, lays the window out, gives the map its pictures and reads the gazetteer, and leaves
/// the window idle. The window is not yet on the screen.
void Initialiser_écran(Contexte &c);

/// Disables the menu entries that have nothing to do.
void désactiver_entrées_sans_effet(Ecran_principal &principale);

}  // namespace ardane
