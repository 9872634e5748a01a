// The panel of the configuration as it lies on the main window: its texts, and its coming and going. What is
// ticked in it, and what a click on it does, is decided in configuration/configuration_mode.h.
#pragma once

#include "core/context.h"

namespace ardane {

/// True in the two modes that show the panel.
bool paramétrage_visible(const GameState &g);

/// Gives every control of the panel its text for the present `Etape`.
void Légender_paramétrage(Contexte &c);
/// Shows the panel. Its two buttons are there, and the menus are closed, while it is edited.
void AfficherPanneauParamétrage(Contexte &c);
/// Hides the panel and gives the menus back.
void MasquerParamétrage(Contexte &c);

}  // namespace ardane
