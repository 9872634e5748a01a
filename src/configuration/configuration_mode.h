// The mode in which the player sees or edits what is played: which provinces, which stages, in which order.
// The map stays, its provinces switched on and off by clicks (play/map_clicks.h); a panel of boxes takes the
// place of the play widgets (map/configuration_panel.h).
#pragma once

#include "core/context.h"

namespace ardane {

/// The menu entry `Menu_affiche_paramètres`: the configuration in use, to look at.
void AfficherParamétrage(Contexte &c);
/// The menu entry `menu_définir`: the same, to change.
void DéfinirParamétrage(Contexte &c);
/// The menu entry `menu_recharger`: has the player choose the file of another configuration.
void Recharger(Contexte &c);
/// The menu entry `Menu_défaut`: the configuration of the default file, from now on and at the next starts.
void Utiliser_défaut(Contexte &c);

/// Fills the panel for the present mode and shows it.
void ConstruirePanneauParamétrage(Contexte &c);
/// The player has changed box `i` of the grid, 1 to 16.
void Clic_bouton(Contexte &c, int i);
/// `BTN(1)`: takes the configuration and leaves the mode, unless the player has thought better of it.
void Valider_paramétrage(Contexte &c);
/// `BTN(2)`: leaves the mode; nothing of the editing survives.
void FinParamétrage(Contexte &c);

}  // namespace ardane
