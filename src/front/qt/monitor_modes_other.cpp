// Systems other than Windows: desktops do not tell a program the modes that are not in use.
#include "front/qt/monitor_modes.h"

namespace ardane {

std::vector<Mode_écran> monitor_modes() {
  return {};
}

}  // namespace ardane
