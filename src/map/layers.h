// The stack of pictures on the map: where they lie, in which order, and the markers of the towns.
#pragma once

#include "core/context.h"

namespace ardane {

/// The layers take their pictures from the stock.
void Charger_images(Contexte &c);
/// Puts each layer, dot and marker at its map position, whatever the scroll.
void Placer_provinces(Contexte &c);
void Placer_régions(Contexte &c);
void Placer_repère(Contexte &c, int ville);

/// The order in which everything is stacked once at start: map, regions, provinces, markers and dots.
void Empiler_au_départ(Contexte &c);

/// Hides everything of the stack but the map.
void MasquerCarte(Contexte &c);
/// Brings the whole stack into the state that `Etape`, `Niveau` and the tables ask for.
void RedessinerCarte(Contexte &c);

/// Dresses the marker of town `i` for the stage and centres it on the town's dot. `cible`: it points at the
/// selected target; `retenue`: it stays hidden in stage Régions. A hidden marker stays hidden.
void Poser_rond(Contexte &c, int i, bool cible, bool retenue);

/// The flag of a province or of a region in the question's box, fitted into it, with its blazon for who
/// listens.
void AfficherDrapeau(Contexte &c, int province);
void AfficherDrapeauRégion(Contexte &c, int région);

/// One tick of the 500 ms timer: the layers of the provinces that blink change their visibility.
void Clignotant(Contexte &c);

}  // namespace ardane
