// The spine of a game: setting it up, one stage after the other, and dropping it.
#pragma once

#include "core/context.h"

namespace ardane {

/// The menu entry `fichier_nouveau`.
void NouvellePartie(Contexte &c);
/// The stage's last object has been placed: the next stage, or the end of the game.
void EtapeSuivante(Contexte &c);
/// No game: the map blank, the panels away, the menus open. The layout stays.
void RevenirAuRepos(Contexte &c);
/// The menu entry `Menu_révision`: the whole map with every name, every card a click away.
void Révision(Contexte &c);
/// Asks before a running game is dropped, and scores it as abandoned. False if the player keeps it; nothing
/// has changed then.
bool ConfirmerAbandon(Contexte &c);

}  // namespace ardane
