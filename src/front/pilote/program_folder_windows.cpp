// Windows only: the system knows the executable's path, however it was started.

#include <filesystem>

#include "core/paths.h"
#include "front/pilote/program_folder.h"
#include "platform/windows_headers.h"

namespace ardane {

std::string dossier_de_l_exécutable(const std::string &) {
  std::wstring chemin(MAX_PATH, L'\0');
  while (true) {
    const DWORD longueur = GetModuleFileNameW(nullptr, chemin.data(), static_cast<DWORD>(chemin.size()));
    if (longueur < chemin.size()) {
      chemin.resize(longueur);
      return texte_du_chemin(std::filesystem::path(chemin).parent_path());
    }
    chemin.resize(2 * chemin.size());
  }
}

}  // namespace ardane
