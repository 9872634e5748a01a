// The publisher's games: the latest version known of each, what is installed here, and the news between the
// two. The list is fed by the program's own catalogue, by the settings that all the games share, and by a
// page of the publisher's site.
//
// Versions are compared as texts, byte by byte, never as numbers. An unknown date is "01/01/1900".
#pragma once

#include <string>
#include <string_view>

#include "core/context.h"

namespace ardane {

/// Begins the list with the games of the key "Updates", which remembers the latest version ever seen of each.
void Lire_mises_à_jour(Contexte &c);

/// Adds the games of the program's own catalogue, rows 6000 and up of the string table, then runs
/// `Ecrire_mises_à_jour`.
void Fusionner_catalogue(Contexte &c);

/// Fills what is installed here from the keys beside this game's own, and adds the games that only they name.
void Lire_versions_locales(Contexte &c);

/// Brings the list and "Updates" both to the greater of their versions: a stored one never goes down.
void Ecrire_mises_à_jour(Contexte &c);

/// Tells the player of the newer versions, or where to look for them.
void Annoncer_mises_à_jour(Contexte &c);

/// The menu entry `FichierVersion`: fetches the publisher's page, merges its rows, tells the player. A page
/// that cannot be fetched counts as empty.
void Chercher_mises_à_jour(Contexte &c);

/// The version in a version line, "Version 1.00 du 24/02/2007": the first digits and points from the eighth
/// character on. Empty for a shorter text.
std::string Extraire_version(std::string_view texte);
/// The date behind the last blank of a version line, "01/01/1900" if it is none.
std::string Extraire_date(std::string_view texte);

/// The n-th "#"-separated field of a row, from 1; empty if the row has fewer.
std::string_view Champ_page(std::string_view ligne, int n);

}  // namespace ardane
