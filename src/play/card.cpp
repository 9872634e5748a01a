#include "play/card.h"

#include <string_view>

#include "core/announcement.h"
#include "core/game_state.h"
#include "core/sound.h"
#include "map/layers.h"

namespace ardane {
namespace {

constexpr std::string_view fenêtre_des_fiches = "Pompe";

}  // namespace

void Ouvrir_fiche(Contexte &c, int province, bool retenue) {
  if (!c.plateforme.fenêtres.existe(fenêtre_des_fiches)) return;
  GameState &g = c.état;
  Jouer_son(c, g.SonFiche);
  g.ProvinceFiche = static_cast<std::int16_t>(province);
  Poser_rond(c, province, true, false);
  c.plateforme.fenêtres.ouvrir_modale(fenêtre_des_fiches);
  Poser_rond(c, province, false, retenue);
}

void Conseiller_fiches(Contexte &c) {
  if (!c.plateforme.fenêtres.existe(fenêtre_des_fiches)) return;
  annoncer(c, Message::à_propos, Message::conseil_fiches_des_provinces);
  c.état.ConseilFicheVu = true;
}

}  // namespace ardane
