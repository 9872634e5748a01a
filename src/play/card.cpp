#include "play/card.h"

#include "core/announcement.h"
#include "core/game_state.h"
#include "core/sound.h"
#include "map/layers.h"

namespace ardane {

void Ouvrir_fiche(Contexte &c, int province, bool retenue) {
  GameState &g = c.état;
  Jouer_son(c, g.SonFiche);
  g.ProvinceFiche = static_cast<std::int16_t>(province);
  Poser_rond(c, province, true, false);
  c.plateforme.fenêtres.ouvrir_modale("Pompe");
  Poser_rond(c, province, false, retenue);
}

void Conseiller_fiches(Contexte &c) {
  annoncer(c, Message::à_propos, Message::conseil_fiches_des_provinces);
  c.état.ConseilFicheVu = true;
}

}  // namespace ardane
