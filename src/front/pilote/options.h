// The command line of the pilot.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/services.h"

namespace ardane {

struct Options {
  std::string programme;  ///< the program's folder; empty for that of the executable
  std::string dossier;    ///< current folder at start; empty for the process's own
  std::string registre;   ///< file of the settings; empty for settings that live in memory
  Mode_écran écran{1280, 1024, 32};
  std::optional<Rect> zone;                         ///< work area; the whole screen otherwise
  std::vector<Mode_écran> modes;                    ///< display modes; the screen's own alone if empty
  std::optional<std::chrono::year_month_day> date;  ///< today; the system's date otherwise
  std::optional<std::uint32_t> hasard;              ///< seed of the random source; the clock otherwise
};

/// `what()` is a French sentence for the player of scripts.
class OptionRefusée : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads the arguments that follow the program's name. Of an option given twice the last counts. Throws
/// OptionRefusée.
Options lire_options(const std::vector<std::string> &arguments);

/// Makes the paths absolute, and the program's folder and the current one known where no option names them.
/// `argument_zéro` is the name that the program was started by. Throws OptionRefusée.
void établir_dossiers(Options &options, const std::string &argument_zéro);

}  // namespace ardane
