// What a player who does not see the map, or has no mouse, is told of it: nothing that an eye would not see.
#pragma once

#include <string>
#include <vector>

#include "core/context.h"
#include "platform/services.h"

namespace ardane {

/// The places that can be seen and clicked, in pixels of the map: the middle of every dot and marker that is
/// shown, and a place inside every province whose layer is shown without one.
std::vector<Point> Cibles(Contexte &c);

}  // namespace ardane
