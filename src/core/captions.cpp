#include "core/captions.h"

#include "core/game_state.h"
#include "platform/window_layout.h"

namespace ardane {

void Poser_légendes(const GameState &g, Fenêtre &fenêtre, std::span<const Légende> légendes) {
  for (const Légende &légende : légendes)
    contrôle(fenêtre, légende.contrôle).texte = message(g, légende.message);
}

}  // namespace ardane
