// The dialog `nouvelle_partie`: the player's name and the level.
#pragma once

#include "core/context.h"
#include "platform/controls.h"

namespace ardane {

/// On OK it leaves the name, the level and its flags, and `Etape` at the first stage; on cancel `Etape` 0 and
/// nothing else changed.
class Nouvelle_partie : public Fenêtre {
 public:
  explicit Nouvelle_partie(Contexte &c);

 private:
  void accepter();
  void annuler();
  void lire_niveau();

  Contexte &c_;
};

}  // namespace ardane
