#include "platform/file_replacement.h"

#include <charconv>
#include <chrono>
#include <cstdint>
#include <fstream>
#include <limits>
#include <string>
#include <system_error>

#include "platform/durable_file.h"
#include "platform/processes.h"

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

constexpr std::string_view fin_provisoire = ".tmp";

/// A name beside the file that no other run takes at the same moment, and that tells whose it is.
fs::path nom_provisoire(const fs::path &fichier) {
  fs::path nom = fichier;
  const auto instant = std::chrono::system_clock::now().time_since_epoch().count();
  nom += "." + std::to_string(numéro_du_processus()) + "-" + std::to_string(instant);
  return nom += fin_provisoire;
}

/// Takes a number off the head of `texte`.
std::optional<std::int64_t> prendre_nombre(std::string_view &texte) {
  std::int64_t nombre = 0;
  const auto lu = std::from_chars(texte.data(), texte.data() + texte.size(), nombre);
  if (lu.ec != std::errc{} || nombre <= 0) return std::nullopt;
  texte.remove_prefix(static_cast<std::size_t>(lu.ptr - texte.data()));
  return nombre;
}

/// The process that made a file of that name in order to replace another; nothing for any other name.
std::optional<long> auteur_du_provisoire(std::string_view nom) {
  if (!nom.ends_with(fin_provisoire)) return std::nullopt;
  nom.remove_suffix(fin_provisoire.size());
  const auto point = nom.rfind('.');
  if (point == 0 || point == std::string_view::npos) return std::nullopt;
  nom.remove_prefix(point + 1);
  const auto processus = prendre_nombre(nom);
  if (!processus || *processus > std::numeric_limits<int>::max() || !nom.starts_with('-'))
    return std::nullopt;
  nom.remove_prefix(1);
  if (!prendre_nombre(nom) || !nom.empty()) return std::nullopt;
  return static_cast<long>(*processus);
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
  const Ecriture écriture = écrire_octets(provisoire, octets, Nom_de_fichier::libre, Disque::attendu);
  if (écriture == Ecriture::sans_fichier) return "son dossier refuse un nouveau fichier";
  if (écriture == Ecriture::faite) {
    if (fs::exists(ancien)) fs::permissions(provisoire, ancien.permissions(), erreur);
    if (prendre_le_nom(provisoire, cible)) return std::nullopt;
  }
  fs::remove(provisoire, erreur);
  return écriture == Ecriture::faite ? "il ne peut pas être remplacé" : "le disque est plein ou en panne";
}

void balayer_provisoires(const fs::path &dossier) {
  std::error_code erreur;
  for (fs::directory_iterator fichiers(dossier, erreur), fin; !erreur && fichiers != fin;
       fichiers.increment(erreur)) {
    const std::u8string nom = fichiers->path().filename().u8string();
    const auto auteur = auteur_du_provisoire({reinterpret_cast<const char *>(nom.data()), nom.size()});
    std::error_code sans_effet;
    if (auteur && !peut_être_en_vie(*auteur) && fs::is_regular_file(fichiers->symlink_status(sans_effet)))
      fs::remove(fichiers->path(), sans_effet);
  }
}

}  // namespace ardane
