#include "core/current_folder.h"

#include <filesystem>
#include <system_error>

#include "core/paths.h"

namespace ardane {

namespace fs = std::filesystem;

bool Dossier_courant::changer(std::string_view dossier) {
  const fs::path voulu = chemin_natif(complet(dossier));
  std::error_code erreur;
  // What lies in a folder can be looked at by those alone who may enter it.
  if (voulu.empty() || !fs::is_directory(voulu / ".", erreur)) return false;
  const fs::path réel = fs::canonical(voulu, erreur);
  if (erreur) return false;
  chemin_ = texte_du_chemin(réel);
  return true;
}

std::string Dossier_courant::chemin() const {
  std::error_code erreur;
  return fs::is_directory(chemin_natif(chemin_), erreur) ? chemin_ : std::string{};
}

std::string Dossier_courant::complet(std::string_view nom) const {
  const fs::path chemin = chemin_natif(nom);
  if (nom.empty() || chemin.is_absolute()) return std::string(nom);
  if (chemin.has_root_path())
    return texte_du_chemin(chemin_natif(chemin_) / chemin);  // of a drive, or of this one
  return chemin_.empty() ? std::string{} : Joindre_chemin(chemin_, nom);
}

std::string dossier_du_processus() {
  std::error_code erreur;
  return texte_du_chemin(fs::current_path(erreur));
}

std::string chemin_absolu(std::string_view chemin) {
  return texte_du_chemin(
      chemin_natif(Dossier_courant(dossier_du_processus()).complet(chemin)).lexically_normal());
}

}  // namespace ardane
