#pragma once

#include "core/context.h"
#include "platform/controls.h"

namespace ardane {

/// Reads the measures of the screen, which windows are placed by.
void Mesurer_écran(Contexte &c);
/// Reads those of the monitor, for the window that stands there before the program has its screen.
void Mesurer_moniteur(Contexte &c);
/// Centres a window's client area on the screen, to the whole pixel; the frame is not counted.
void Centrer_fenêtre(const GameState &g, Fenêtre &fenêtre);

}  // namespace ardane
