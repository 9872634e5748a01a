// Which picture lies under a point of the map.
#pragma once

#include "core/context.h"
#include "platform/services.h"

namespace ardane {

/// The topmost picture at a place of the viewport that takes clicks, in pixels of the viewport; null if there
/// is none. Layers of regions let clicks through.
Contrôle *image_sous(Ecran_principal &principale, double x, double y);
/// The topmost dot at that place whose tool tip is to be shown, or null.
const Contrôle *image_avec_infobulle(Ecran_principal &principale, double x, double y);

}  // namespace ardane
