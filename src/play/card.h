#pragma once

#include "core/context.h"

namespace ardane {

/// Opens the information card of a province, its marker shown as the target meanwhile. `retenue` says how the
/// marker is dressed afterwards.
void Ouvrir_fiche(Contexte &c, int province, bool retenue);

/// The tip that cards can be opened by a click, once a game: it sets `ConseilFicheVu`.
void Conseiller_fiches(Contexte &c);

}  // namespace ardane
