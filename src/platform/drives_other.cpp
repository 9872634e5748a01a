// Systems other than Windows: one folder is above all others.
#include "platform/drives.h"

namespace ardane {

std::vector<std::string> lecteurs_du_système() {
  return {};
}

}  // namespace ardane
