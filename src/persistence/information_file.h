// The file of information cards in use, `Fichiers_info(Langue)`.
#pragma once

#include "core/context.h"
#include "persistence/card_format.h"

namespace ardane {

/// Sets `Fichiers_info` for every language, and makes the files that are not there, after boxes that say so;
/// in a folder that refuses them the player chooses another one. A file that is there is never touched.
void Préparer_fichiers_info(Contexte &c);

/// The card of a province; nothing if it cannot be read.
std::optional<Fiche_information> Lire_fiche_information(const Contexte &c, int province);
/// What is there of a card that cannot be read.
Fiche_information Lire_restes_de_fiche(const Contexte &c, int province);

/// Puts the card of a province into the file. False if it is longer than its slot, if the other cards cannot
/// be read or the file not be written: it then stays as it was.
bool Ecrire_fiche_information(const Contexte &c, int province, const Fiche_information &fiche);

}  // namespace ardane
