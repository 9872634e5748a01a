// The folders that the player's files go to, proved by a real write, and the deleting of files. Paths are
// complete ones (core/current_folder.h).
#pragma once

#include <string>
#include <string_view>

#include "core/context.h"

namespace ardane {

/// True if a file could be written to the folder and deleted again: "~zut.tmp", holding its own path as a
/// slot file does, so that a path of more than 126 characters fails too. A file of that name that is there
/// already is deleted and proves the folder as well; a link is deleted and not followed.
bool Tester_ecriture(std::string_view dossier);

/// True if the program's folder is the system's, made by an installation: nothing is written there, not even
/// by who could, and what else would lie beside the program lies with the scores.
bool est_installé(const GameState &g);
/// Where it lies: `Répertoire_programme`, or `Répertoire_sauvegarde`.
const std::string &Dossier_à_côté_du_programme(const GameState &g);

/// Asks whether a folder other than `Répertoire_sauvegarde` shall take its place, and on Oui makes it that,
/// in the settings too, and the current folder. Folders are compared in capitals, without blanks around.
void Proposer_répertoire(Contexte &c, const std::string &dossier);

/// Has the next starts begin with a score file, and proposes its folder as above.
void Lancer_aux_prochains_démarrages(Contexte &c, const std::string &fichier, const std::string &dossier);

/// Deletes a plain file. False if there is none, or if it is write-protected, though its folder would allow
/// it.
bool Effacer_fichier(std::string_view chemin);

}  // namespace ardane
