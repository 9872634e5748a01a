// Linux only: the kernel's own link to the executable, which holds whatever name or path it was started by.

#include <filesystem>
#include <system_error>

#include "core/paths.h"
#include "front/pilote/program_folder.h"

namespace ardane {

std::string dossier_de_l_exécutable(const std::string &argument_zéro) {
  std::error_code erreur;
  const auto exécutable = std::filesystem::read_symlink("/proc/self/exe", erreur);
  const auto retenu = erreur ? std::filesystem::absolute(chemin_natif(argument_zéro)) : exécutable;
  return texte_du_chemin(retenu.parent_path());
}

}  // namespace ardane
