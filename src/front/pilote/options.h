// The command line of the pilot.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "front/scripted/world_options.h"

namespace ardane {

struct OptionsPilote : OptionsMonde {
  std::string programme;  ///< the program's folder; empty for that of the executable
  std::string dossier;    ///< current folder at start; empty for the process's own
  std::string secours;    ///< folder of the lifeline; empty for none
  bool version = false;   ///< tell the version alone
};

/// `what()` is a French sentence for the player of scripts.
class OptionRefusée : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads the arguments that follow the program's name. Of an option given twice the last counts. Throws
/// OptionRefusée.
OptionsPilote lire_options(const std::vector<std::string> &arguments);

/// Makes the paths absolute, and the program's folder and the current one known where no option names them.
/// `argument_zéro` is the name that the program was started by. Throws OptionRefusée.
void établir_dossiers(OptionsPilote &options, const std::string &argument_zéro);

}  // namespace ardane
