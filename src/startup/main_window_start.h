// What the main window's load event does.
#pragma once

#include "core/context.h"

namespace ardane {

/// Loads the score file, lays the window out, gives the map its pictures and reads the gazetteer, and leaves
/// the window idle. The window is not yet on the screen.
void Initialiser_écran(Contexte &c);

}  // namespace ardane
