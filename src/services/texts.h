// The captions of the main window, and the menu entries that only speak.
#pragma once

#include "core/context.h"

namespace ardane {

/// Sets all captions of the main window from the messages of the language in use.
void Poser_textes(Contexte &c);
/// `Menu_langue`: the other language, or a request for help where there is one only.
void Changer_langue(Contexte &c);
/// `Menu_aide`: the help at the place for play.
void Aide_du_menu(Contexte &c);
/// The help at a context number, as the F1 key opens it.
void Ouvrir_aide(Contexte &c, int contexte);
/// `Menu_à_propos`.
void A_propos(Contexte &c);
/// `MenuSon`: sound on or off, until the program ends.
void Basculer_son(Contexte &c);

}  // namespace ardane
