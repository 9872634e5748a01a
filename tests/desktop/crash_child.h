// The child process in which the program dies of an unforeseen error.
#pragma once

#include <string_view>

inline constexpr std::string_view crash_option = "--erreur";
/// The way "partie": a game of the real program, over the folder that this variable of the environment names
/// and kept in its folder "secours", up to an error that a legal click brings about. Of the box its text and
/// its small print are told.
inline constexpr std::string_view crash_folder = "ARDANE_CRASH_FOLDER";

/// The ways "signal" and "signal sous une boîte" are such a game, too: the signal comes right behind an
/// answer, or while the player is asked whether he gives the game up; with "signal de fin de session" it is
/// the desktop's own. With "travail" it comes while a procedure is at work, with "erreur" under the box of an
/// error; neither has a game.

/// Lets an event of a window fail in the way named: "fatale", "indice", "inconnue" or "boucle" (in a modal
/// window's own event); "réglages" starts the whole program where no settings can be kept, "réglages
/// illisibles" where they cannot be read at the very start; "partie", see `crash_folder`. Writes the
/// error box's icon, title, text and buttons, and presses its button. What it returns is never the program's
/// own end.
int crash(std::string_view way);
