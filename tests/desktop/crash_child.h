// The child process in which the program dies of an unforeseen error.
#pragma once

#include <string_view>

inline constexpr std::string_view crash_option = "--erreur";
/// A variable of the environment: the program's folder, of which the parent disposes.
inline constexpr std::string_view crash_folder = "ARDANE_CRASH_FOLDER";

/// Lets an event of a window fail in the way named: "fatale", "indice", "inconnue" or "boucle" (in a modal
/// window's own event); "réglages" starts the whole program where no settings can be kept, "réglages
/// illisibles" where they cannot be read at the very start; "partie" plays a game of the real program, kept in the
/// folder "secours" of the one that the environment names, up to an error that a legal click brings about, and tells
/// the text and the small print of its box alone. Writes the error box's icon, title, text and buttons, and presses
/// its button. What it returns is never the program's own end.
int crash(std::string_view way);
