// The window `Affichage_scores`: the ten best scores of a level.
#pragma once

#include "core/context.h"
#include "platform/controls.h"

namespace ardane {

/// Opens the top ten of a level from the menu; 0 for no level chosen yet.
void AfficherScores(Contexte &c, int niveau);

/// Shows the list of `Niveau_affiché`, which it brings from 0 to 1 after a box that says so.
class Affichage_scores : public Fenêtre {
 public:
  explicit Affichage_scores(Contexte &c);

 private:
  void écrire_titre(Contexte &c);
  void écrire_liste(const Contexte &c);
};

}  // namespace ardane
