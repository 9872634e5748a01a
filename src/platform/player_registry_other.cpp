// Systems other than Windows: there is no store of settings but files.
#include "platform/registry_store.h"

namespace ardane {

std::unique_ptr<RegistreGardé> registre_du_joueur(const std::filesystem::path &fichier) {
  return std::make_unique<RegistreFichier>(fichier);
}

}  // namespace ardane
