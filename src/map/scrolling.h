// Moving the map under its viewport, and bringing a province into view.
#pragma once

#include "core/context.h"

namespace ardane {

/// Change events of the two bars: everything on the map moves, hidden, and is drawn anew once.
void Défiler_horizontal(Contexte &c);
void Défiler_vertical(Contexte &c);

/// Moves the bars so that province `p` can be seen; a province in full view moves nothing.
void Centrer_cible(Contexte &c, int p);

}  // namespace ardane
