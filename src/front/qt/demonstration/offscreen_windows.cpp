// Windows only: every session has a screen, and the game is seen as it plays itself.
#include "front/qt/demonstration/offscreen.h"

namespace ardane {

Offscreen::Offscreen() = default;

}  // namespace ardane
