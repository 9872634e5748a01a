// The window `Edition`: the cards of the information file, one after the other, to be rewritten.
#pragma once

#include <string>

#include "core/context.h"
#include "platform/controls.h"

namespace ardane {

/// The menu entry `MenuFicheur`: the editor, over an idle map; if the player keeps a running game, over that.
void Editer_fiches(Contexte &c);

/// A card whose text has changed is written before another one is shown. One that cannot be written stays,
/// after a box that says how long it is. A changed title alone is not noticed.
class Edition : public Fenêtre {
 public:
  explicit Edition(Contexte &c);

 private:
  void lire_fiche(int n);
  bool écrire_fiche();
  bool quitter_fiche();
  void aller(int n);

  Contexte &c_;
  Contrôle &titre_fiche_;
  Contrôle &texte_;
  int fiche_courante_ = 1;
  std::string texte_lu_;
};

}  // namespace ardane
