#include "core/sound.h"

#include "core/game_state.h"

namespace ardane {

void Jouer_son(Contexte &c, const std::string &son) {
  if (c.état.SonActif) c.plateforme.son.jouer(son);
}

}  // namespace ardane
