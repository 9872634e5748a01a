// The main window laid out from the screen's size, the work area and the map's size.
#pragma once

#include "core/context.h"
#include "platform/services.h"

namespace ardane {

/// A screen of this size in pixels shows map and panel whole, without a bar, and is no larger than that
/// takes.
Point Taille_confortable(const Ecran_principal &principale);
/// Sizes viewport, bars and window. A screen too small for the panel leaves a negative size: fatal error.
void DisposerCarte(Contexte &c);
/// Keeps the screen rectangle of the viewport, outer edges, in `Rect_carte`.
void Lire_rectangle_carte(Contexte &c);
/// Lays the whole window out, scrolled back to 0. Run again it moves nothing.
void Disposer_écran(Contexte &c);
/// Lays it out for a screen that has changed under the player: what he sees stays, the scrolling where it
/// can.
void Redisposer(Contexte &c);

}  // namespace ardane
