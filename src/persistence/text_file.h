// Texts for the player to print or to read elsewhere: whole files in Windows-1252.
#pragma once

#include <string>
#include <string_view>

#include "core/context.h"

namespace ardane {

/// Writes a text file in the place of an older one. `texte` is UTF-8, its line ends as they shall stand; what
/// has no place in Windows-1252 is written as "?". False, after a box that tells the player, if that failed:
/// the older file then stays.
bool Ecrire_fichier_texte(Contexte &c, const std::string &chemin, std::string_view texte);

}  // namespace ardane
