// The modes that a monitor can be set to.
#pragma once

#include <vector>

#include "platform/services.h"

namespace ardane {

/// Those of the primary monitor; none where the desktop does not tell a program.
std::vector<Mode_écran> monitor_modes();

}  // namespace ardane
