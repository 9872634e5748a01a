// The command line of the desktop program.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/registry_store.h"

namespace ardane {

struct DesktopOptions {
  bool aide = false;
  bool version = false;
  bool prêt_et_quitter = false;              ///< measure the start and end
  std::optional<std::string> démonstration;  ///< folder for the pictures of a game that plays itself
  std::optional<std::string> programme;      ///< the program's folder, in place of the executable's
  std::optional<std::string> registre;       ///< the file of settings, in place of the player's own
  bool sans_cadre = false;                   ///< the borderless window at the top of the screen
  bool secours = false;                      ///< list what score files held before, or give one back
  std::optional<int> numéro;                 ///< which of them to give back
  std::optional<std::string> fichier;        ///< a saved game or a configuration to begin with
  std::string erreur;                        ///< why the command line was not understood; empty if it was
};

/// The toolkit's own options ("-style", "-platform", ...) are passed over: it takes them itself.
DesktopOptions read_options(int argc, const char *const *argv);

/// Where the player is asked for a folder, if the program has none of its own to write in.
std::string first_folder();

/// What --help prints, and what is told of a command line that was not understood.
std::string help_text();
/// What --help prints further: where the player's files are. `lifeline` may be empty.
std::string files_text(const RegistreGardé &settings, const std::filesystem::path &lifeline);

}  // namespace ardane
