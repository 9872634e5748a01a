// The settings as the program asks for them: full key paths whose first part names a root, and the results
// that the start-up reads its way from.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/services.h"

namespace ardane {

/// What all games of the publisher share, what is this game's, and the latest versions known of all.
constexpr std::string_view clé_de_famille = R"(HKEY_CURRENT_USER\Software\Mirabonde)";
constexpr std::string_view clé_du_jeu = R"(HKEY_CURRENT_USER\Software\Mirabonde\Ardane)";
constexpr std::string_view clé_des_mises_à_jour = R"(HKEY_CURRENT_USER\Software\Mirabonde\Updates)";

/// Values of the family's key, then of the game's.
constexpr std::string_view réglage_date = "date";
constexpr std::string_view réglage_version = "version";
constexpr std::string_view réglage_joueur = "joueur";
constexpr std::string_view réglage_langue = "langue";
constexpr std::string_view réglage_répertoire = "répertoire";
constexpr std::string_view réglage_fichier_lancement = "fichier de lancement";
constexpr std::string_view réglage_répertoire_info = "répertoire information";

/// Results of the three procedures below.
constexpr int registre_lu = 0;
constexpr int registre_sans_clé = -1;
constexpr int registre_sans_valeur = -2;

/// The key's own path if it can be opened: parts between backslashes, empty ones skipped, 32 at most, of
/// which the first, in any case of letters, names one of the six roots.
std::optional<std::string> Ouvrir_clé(const Registre &registre, std::string_view chemin);

/// Reads a value, whose name is taken without the blanks around it. `résultat` takes its first 255 characters
/// at most and stays as it is where nothing could be read. 0, -1 (no key), -2 (no value).
int Lire_registre(const Registre &registre, std::string_view clé, std::string_view valeur,
                  std::string &résultat);

/// The same, of a key that `Ouvrir_clé` has opened: for many values of one. 0, -2.
int Lire_clé_ouverte(const Registre &registre, std::string_view clé, std::string_view valeur,
                     std::string &résultat);

/// 0, -1 (no key), -2 (the store could not keep the value).
int Ecrire_registre(Registre &registre, std::string_view clé, std::string_view valeur,
                    std::string_view texte);

/// Makes a key of the root HKEY_CURRENT_USER and those above it. 0, also where it is there already; -2 for
/// another root; -1 for more than 32 parts or where the store could not keep it.
int Créer_clé(Registre &registre, std::string_view clé);

}  // namespace ardane
