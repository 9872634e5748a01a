// What becomes of a file of the player's, a saved game or a configuration, that he picks in the window or
// that the program is started with. Paths are complete ones.
#pragma once

#include <string>
#include <string_view>

#include "core/context.h"

namespace ardane {

/// True for a name that ends as saved games or configurations do, in capitals or not.
bool est_nom_de_fichier_du_jeu(std::string_view nom);

/// Puts a saved game in the place of the one in memory, to its next question, proposes its folder, and
/// deletes the file once the game is kept otherwise. False, after a box, if the file was refused; nothing has
/// changed then.
bool Reprendre_fichier(Contexte &c, const std::string &chemin);

/// Plays from now on by a configuration, at the next starts too if the player wishes it; the program is idle
/// then. A file that is refused is deleted, as at every loading of one in use.
void Prendre_fichier_paramétrage(Contexte &c, const std::string &chemin);

/// The file that the program was started with, of a name as above: does what its menu entry does once the
/// player has picked it. What is no such file gets its box and stays as it is: nobody has picked it from a
/// list of the game's own.
void Ouvrir_fichier(Contexte &c, const std::string &chemin);

}  // namespace ardane
