// Two lists of the whole country, to be printed and learned from. They can be written at any moment and
// change nothing of the game.
#pragma once

#include "core/context.h"

namespace ardane {

/// The menu entry `Menu_liste`: "ARDANE.TXT" in `Répertoire_sauvegarde`, province by province. A box tells
/// where it lies.
void Ecrire_liste_des_provinces(Contexte &c);
/// The menu entry `Menu_liste_souspréf`: "ARDANE_SP.TXT", every town with its province, by the town's name.
void Ecrire_liste_des_villes(Contexte &c);

}  // namespace ardane
