#include "core/announcement.h"

#include "core/game_state.h"

namespace ardane {

void annoncer(Contexte &c, Message titre, Message texte, Icône icône) {
  c.plateforme.boîtes.montrer({icône, message(c.état, titre), message(c.état, texte)});
}

}  // namespace ardane
