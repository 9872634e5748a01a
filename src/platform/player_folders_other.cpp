// Systems other than Windows: the folders of the desktops' common convention, as the environment names them.
#include <cstdlib>

#include "platform/player_folders.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

fs::path variable(const char *nom) {
  const char *valeur = std::getenv(nom);
  return {valeur == nullptr ? "" : valeur};
}

}  // namespace

fs::path dossier_des_réglages() {
  fs::path configuration = variable("XDG_CONFIG_HOME");
  if (configuration.is_absolute()) return configuration;
  const fs::path maison = variable("HOME");
  return maison.empty() ? fs::path{} : maison / ".config";
}

fs::path dossier_des_états() {
  fs::path états = variable("XDG_STATE_HOME");
  if (!états.is_absolute() && !variable("HOME").empty()) états = variable("HOME") / ".local" / "state";
  if (!états.is_absolute()) états = variable("LOCALAPPDATA");
  return états.is_absolute() ? états : fs::path{};
}

fs::path dossier_des_documents() {
  return {};
}

}  // namespace ardane
