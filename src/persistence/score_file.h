// The score file in use, `Fichier_lancement`: the ten best of each level and the configuration they were made
// under.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/context.h"
#include "persistence/slot_file.h"

namespace ardane {

constexpr std::string_view nom_fichier_scores = "ARDANE.SCI";
constexpr std::string_view extension_scores = ".SCI";

/// Empties the ten best of the levels 1 to 4.
void Vider_scores(Contexte &c);

/// The lists of the levels 1 to 4 as files hold them: level by level, each from its best.
std::vector<Enregistrement_score> Liste_des_scores(const GameState &g);
/// Puts such a list below the scores that are there already; level 0 is taken and never shown.
void Ajouter_scores(GameState &g, const std::vector<Enregistrement_score> &scores);

/// Writes the file whole, the old one deleted first; without the scores if `avec_scores` is false. On any
/// failure a box tells the player, the log says why, `Scores_non_sauvés` is set and the result is false.
bool Ecrire_scores(Contexte &c, bool avec_scores);

/// The lists, as they are to be when the game under way has ended, will be written whatever happens to this
/// run.
void Annoncer_scores(Contexte &c);

/// Deletes the file in use. What it holds is kept beside.
bool Effacer_scores(Contexte &c);

/// Reads the file's configuration, and its scores into the emptied lists. False on any fault: the scores
/// above it are then there, and the configuration is as it was.
bool Lire_fichier_scores(Contexte &c);

/// Loads the file. One that is damaged or was written by another version is told to the player and deleted.
/// Where there is none, or none any more, the default file's name and the default configuration take its
/// place.
void Charger_scores(Contexte &c);

/// Why a file, a complete path, would be refused by the above; nothing if it is a score file of this version.
std::optional<std::string> Défaut_du_fichier_de_scores(const Contexte &c, const std::string &chemin);
/// The box on a file, of scores or of a game, that is no such file or a damaged one.
void Refuser_format(Contexte &c, const std::string &fichier);

/// Takes into the lists what the file in use has more than they, each score below its equals, the tenth
/// falling out: another run of the program may have written it. A file that cannot be read, or that another
/// version wrote, has nothing for them; nothing is told.
void Reprendre_scores_des_autres(Contexte &c);

/// `menu_Scoresraz`: after a question, forgets all scores, in the file too.
void Remise_à_zéro(Contexte &c);

}  // namespace ardane
