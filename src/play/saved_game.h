// A game stopped and taken up again: between the game state and the saved game's file. A saved game can be
// taken up once.
#pragma once

#include <functional>
#include <string>

#include "core/context.h"
#include "persistence/saved_game_format.h"

namespace ardane {

/// The menu entry `Fichier_enregistrer`: pays what the question still owes and has the player name a file. If
/// that takes the last point the game is lost, and nothing is saved. Nothing happens without a game under
/// way.
void Demander_enregistrement(Contexte &c);
/// The menu entry `Fichier_lire`: has the player choose a saved game, the running one dropped first. Without
/// a choice the program is idle.
void Demander_reprise(Contexte &c);
/// The same by another way to choose: `choix` takes a saved game up, or none.
void Reprendre_par(Contexte &c, const std::function<void()> &choix);

/// Writes the game under way to a complete path. False, after a box that tells the player, if that failed:
/// what lay there is then as it was.
bool Enregistrer_partie(Contexte &c, const std::string &chemin);

/// Reads a saved game and puts it in the place of the one in memory, its configuration too. False, after a
/// box that tells the player, if it is another version's or damaged: nothing has changed then. The file stays
/// in any case.
bool Charger_partie(Contexte &c, const std::string &chemin);

/// Brings panel and map to the game just loaded and asks its next question.
void Reprendre_partie(Contexte &c);

// --- What an interrupted game has in common with a saved one

/// The game under way as a value; without what an interruption adds.
Contenu_partie Relever_partie(const GameState &g, bool interrompue);
/// Puts a game in the place of the one in memory. Nothing is shown yet, and no question asked.
void Placer_partie(Contexte &c, const Contenu_partie &contenu);
/// Brings panel and map to it.
void Montrer_partie(Contexte &c);

}  // namespace ardane
