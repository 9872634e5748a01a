#include "persistence/registry.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/text_encoding.h"

namespace ardane {
namespace {

constexpr std::size_t parties_au_plus = 32;
constexpr std::size_t taille_du_tampon = 256;  // of which a byte of Windows-1252 is kept for the closing zero
constexpr std::string_view racine_de_l_utilisateur = "HKEY_CURRENT_USER";

constexpr std::array<std::string_view, 6> racines = {"HKEY_CLASSES_ROOT",     racine_de_l_utilisateur,
                                                     "HKEY_LOCAL_MACHINE",    "HKEY_USERS",
                                                     "HKEY_PERFORMANCE_DATA", "HKEY_CURRENT_CONFIG"};

/// The parts of a path, the first in capitals; none if there are too many.
std::vector<std::string> découper(std::string_view chemin) {
  std::vector<std::string> parties;
  while (!chemin.empty()) {
    const auto fin = std::min(chemin.find('\\'), chemin.size());
    if (fin > 0) parties.emplace_back(chemin.substr(0, fin));
    chemin.remove_prefix(std::min(fin + 1, chemin.size()));
  }
  if (parties.size() > parties_au_plus) return {};
  if (!parties.empty()) parties.front() = en_majuscules(parties.front());
  return parties;
}

std::string recoller(const std::vector<std::string> &parties) {
  std::string chemin = parties.front();
  for (std::size_t i = 1; i < parties.size(); ++i) chemin.append("\\").append(parties[i]);
  return chemin;
}

}  // namespace

std::optional<std::string> Ouvrir_clé(const Registre &registre, std::string_view chemin) {
  const std::vector<std::string> parties = découper(chemin);
  if (parties.empty() || std::find(racines.begin(), racines.end(), parties.front()) == racines.end())
    return std::nullopt;
  std::string clé = recoller(parties);
  // The roots are there before anything has been written.
  if (parties.size() > 1 && !registre.existe(clé)) return std::nullopt;
  return clé;
}

int Lire_registre(const Registre &registre, std::string_view clé, std::string_view valeur,
                  std::string &résultat) {
  const auto ouverte = Ouvrir_clé(registre, clé);
  if (!ouverte) return registre_sans_clé;
  const auto texte = registre.lire(*ouverte, sans_blancs(valeur));
  if (!texte) return registre_sans_valeur;
  // A character of the text is a byte of the buffer.
  résultat = premiers_caractères(*texte, taille_du_tampon - 1);
  return registre_lu;
}

int Ecrire_registre(Registre &registre, std::string_view clé, std::string_view valeur,
                    std::string_view texte) {
  const auto ouverte = Ouvrir_clé(registre, clé);
  if (!ouverte) return registre_sans_clé;
  return registre.écrire(*ouverte, valeur, texte) ? registre_lu : registre_sans_valeur;
}

int Créer_clé(Registre &registre, std::string_view clé) {
  const std::vector<std::string> parties = découper(clé);
  if (parties.empty()) return registre_sans_clé;
  if (parties.front() != racine_de_l_utilisateur) return registre_sans_valeur;
  return registre.créer(recoller(parties)) ? registre_lu : registre_sans_clé;
}

}  // namespace ardane
