// The window `Patience`: greets the player while the program loads, and measures the screen.
#pragma once

#include "core/context.h"
#include "platform/controls.h"

namespace ardane {

/// Leaves the measures of the screen in `Largeur_écran`, `Hauteur_écran` and `Couleurs_écran`, and the modes
/// that are wider in `Modes_écran`. It takes no input.
class Patience : public Fenêtre {
 public:
  explicit Patience(Contexte &c);
};

/// Looks for a mode that is wider than the screen and has 16 bits a pixel at least: `Modes_écran(0)` gets the
/// widest, then deepest, first of them. False if there is none: it holds the screen's own width and depth
/// then.
bool Chercher_mode_supérieur(Contexte &c);

}  // namespace ardane
