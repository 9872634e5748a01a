// Systems other than Linux: the folder in the name that the program was started by.

#include <filesystem>

#include "core/paths.h"
#include "front/pilote/program_folder.h"

namespace ardane {

std::string dossier_de_l_exécutable(const std::string &argument_zéro) {
  return texte_du_chemin(std::filesystem::absolute(chemin_natif(argument_zéro)).parent_path());
}

}  // namespace ardane
