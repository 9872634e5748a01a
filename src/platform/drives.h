// The drives of this machine.
#pragma once

#include <string>
#include <vector>

namespace ardane {

/// Their topmost folders, as "C:\"; none where all folders have one above them all.
std::vector<std::string> lecteurs_du_système();

}  // namespace ardane
