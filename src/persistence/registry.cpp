#include "persistence/registry.h"

#include <algorithm>
#include <array>

#include "platform/registry_key.h"
#include "platform/text.h"

namespace ardane {
namespace {

constexpr std::size_t taille_du_tampon = 256;  // of which a byte of Windows-1252 is kept for the closing zero
constexpr std::string_view racine_de_l_utilisateur = "HKEY_CURRENT_USER";

constexpr std::array<std::string_view, 6> racines = {"HKEY_CLASSES_ROOT",     racine_de_l_utilisateur,
                                                     "HKEY_LOCAL_MACHINE",    "HKEY_USERS",
                                                     "HKEY_PERFORMANCE_DATA", "HKEY_CURRENT_CONFIG"};

struct Chemin {
  std::string racine;  ///< in capitals
  std::string clé;     ///< the whole path
};

/// The path without its empty parts; nothing if it has none at all, or too many.
std::optional<Chemin> lire_chemin(std::string_view chemin) {
  auto parties = parties_de_clé(chemin);
  if (parties.empty() || parties.size() > parties_au_plus) return std::nullopt;
  const std::string racine = en_majuscules(parties.front());
  parties.front() = racine;
  return Chemin{racine, clé_de(parties)};
}

}  // namespace

std::optional<std::string> Ouvrir_clé(const Registre &registre, std::string_view chemin) {
  const auto lu = lire_chemin(chemin);
  if (!lu || std::find(racines.begin(), racines.end(), lu->racine) == racines.end()) return std::nullopt;
  // The roots are there before anything has been written.
  if (lu->clé != lu->racine && !registre.existe(lu->clé)) return std::nullopt;
  return lu->clé;
}

int Lire_registre(const Registre &registre, std::string_view clé, std::string_view valeur,
                  std::string &résultat) {
  const auto ouverte = Ouvrir_clé(registre, clé);
  if (!ouverte) return registre_sans_clé;
  return Lire_clé_ouverte(registre, *ouverte, valeur, résultat);
}

int Lire_clé_ouverte(const Registre &registre, std::string_view clé, std::string_view valeur,
                     std::string &résultat) {
  const auto texte = registre.lire(clé, sans_blancs(valeur));
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
  const auto lu = lire_chemin(clé);
  if (!lu) return registre_sans_clé;
  if (lu->racine != racine_de_l_utilisateur) return registre_sans_valeur;
  return registre.créer(lu->clé) ? registre_lu : registre_sans_clé;
}

}  // namespace ardane
