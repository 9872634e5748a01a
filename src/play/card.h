#pragma once

#include "core/context.h"

namespace ardane {

/// Opens the information card of a province, if there is a window of cards, its marker shown as the target
/// meanwhile. `retenue` says how the marker is dressed afterwards.
void Ouvrir_fiche(Contexte &c, int province, bool retenue);

/// The tip that cards can be opened by a click, once a game: it sets `ConseilFicheVu`. Does nothing where
/// there is no window of cards to open.
void Conseiller_fiches(Contexte &c);

}  // namespace ardane
