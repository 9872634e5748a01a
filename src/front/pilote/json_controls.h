// Windows and controls as scripts read them.
#pragma once

#include "core/resources.h"
#include "front/pilote/journal.h"
#include "platform/controls.h"

namespace ardane {

Json fenêtre_json(const Fenêtre &fenêtre);
Json contrôle_json(const Fenêtre &fenêtre, const Contrôle &contrôle, const CatalogueImages &images);

/// All controls of a window: the menu entries in the order of the menu bar, each followed by its items; then
/// the others in stacking order from bottom to top, a container right before what lies in it.
Json contrôles_json(const Fenêtre &fenêtre, const CatalogueImages &images);

}  // namespace ardane
