// Systems other than Linux: the file is written whole, and the system takes its time to bring it to the disk.

#include <fstream>

#include "platform/durable_file.h"

namespace ardane {

Ecriture écrire_octets(const std::filesystem::path &fichier, std::string_view octets, Nom_de_fichier nom,
                       Disque) {
  std::error_code erreur;
  if (nom == Nom_de_fichier::libre &&
      std::filesystem::exists(std::filesystem::symlink_status(fichier, erreur)))
    return Ecriture::sans_fichier;
  std::ofstream flux(fichier, std::ios::binary | std::ios::trunc);
  if (!flux) return Ecriture::sans_fichier;
  flux.write(octets.data(), static_cast<std::streamsize>(octets.size()));
  flux.close();
  return flux.fail() ? Ecriture::incomplète : Ecriture::faite;
}

bool prendre_le_nom(const std::filesystem::path &fichier, const std::filesystem::path &nom) {
  std::error_code erreur;
  std::filesystem::rename(fichier, nom, erreur);
  return !erreur;
}

void fixer_dossier(const std::filesystem::path &) {}

}  // namespace ardane
