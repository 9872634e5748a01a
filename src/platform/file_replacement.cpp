#include "platform/file_replacement.h"

#include <chrono>
#include <fstream>
#include <string>
#include <system_error>

#include "platform/durable_file.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

/// The file to replace: what a link leads to.
fs::path au_bout_du_lien(const fs::path &fichier) {
  std::error_code erreur;
  if (!fs::is_symlink(fichier, erreur)) return fichier;
  const fs::path réel = fs::weakly_canonical(fichier, erreur);
  return erreur ? fichier : réel;
}

/// A name beside the file that no other run takes at the same moment.
fs::path nom_provisoire(const fs::path &fichier) {
  fs::path nom = fichier;
  return nom += "." + std::to_string(std::chrono::system_clock::now().time_since_epoch().count()) + ".tmp";
}

bool est_protégé(const fs::path &fichier) {
  return !std::ofstream(fichier, std::ios::binary | std::ios::app).is_open();
}

}  // namespace

std::optional<std::string_view> remplacer_fichier(const fs::path &fichier, std::string_view octets) {
  std::error_code erreur;
  const fs::path cible = au_bout_du_lien(fichier);
  const fs::file_status ancien = fs::status(cible, erreur);
  // Opening a pipe could wait for ever, so what is no plain file is not touched at all.
  if (fs::exists(ancien) && !fs::is_regular_file(ancien)) return "ce n'est pas un fichier ordinaire";
  if (fs::exists(ancien) && est_protégé(cible)) return "il est protégé contre l'écriture";

  const fs::path provisoire = nom_provisoire(cible);
  const Ecriture écriture = écrire_durablement(provisoire, octets, Nom_de_fichier::libre);
  if (écriture == Ecriture::sans_fichier) return "son dossier refuse un nouveau fichier";
  if (écriture == Ecriture::faite) {
    if (fs::exists(ancien)) fs::permissions(provisoire, ancien.permissions(), erreur);
    fs::rename(provisoire, cible, erreur);
    if (!erreur) {
      fixer_dossier(cible.parent_path());
      return std::nullopt;
    }
  }
  fs::remove(provisoire, erreur);
  return écriture == Ecriture::faite ? "il ne peut pas être remplacé" : "le disque est plein ou en panne";
}

}  // namespace ardane
