// Where the executable lies: what ships with the program lies beside it.
#pragma once

#include <string>

namespace ardane {

/// Folder of the running executable, absolute. `argument_zéro`, the name that it was started by, serves where
/// the system does not tell.
std::string dossier_de_l_exécutable(const std::string &argument_zéro);

}  // namespace ardane
