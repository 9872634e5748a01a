#include "map/scrolling.h"

#include <cmath>

#include "core/game_state.h"
#include "map/layers.h"
#include "map/main_window.h"

namespace ardane {
namespace {

void déplacer_tout(Contexte &c) {
  Placer_provinces(c);
  for (int i = 1; i <= nombre_villes; ++i) Placer_repère(c, i);
  Placer_régions(c);
  RedessinerCarte(c);
}

void défiler_jusqu_à(Contrôle &barre, double place) {
  fixer_valeur(barre, static_cast<int>(std::trunc(place)));
}

/// One bar of the two: the layer's begin and length along it, those of the map and of the view, and the
/// length that the far edge is measured with. Setting the bar moves layer, map and marker at once, so the
/// second test must see them anew.
struct Axe {
  Contrôle &barre;
  const double &début, &carte_début, &longueur, &carte_longueur, &vue_longueur, &repère;
};

void centrer(const Axe &axe) {
  const double demi_vue = axe.vue_longueur / 2;
  if (axe.début < -axe.carte_début)
    défiler_jusqu_à(axe.barre, axe.début < demi_vue ? 0 : axe.début - demi_vue);
  if (axe.début + axe.longueur > axe.vue_longueur - axe.carte_début) {
    const bool près_du_bord = axe.carte_longueur - axe.début - axe.repère < demi_vue;
    défiler_jusqu_à(axe.barre,
                    près_du_bord ? axe.carte_longueur - axe.vue_longueur : axe.début + axe.repère - demi_vue);
  }
}

}  // namespace

void Défiler_horizontal(Contexte &c) {
  MasquerCarte(c);
  c.principale.image_région.gauche = -c.principale.barre_h.valeur;
  déplacer_tout(c);
}

void Défiler_vertical(Contexte &c) {
  MasquerCarte(c);
  c.principale.image_région.haut = -c.principale.barre_v.valeur;
  déplacer_tout(c);
}

void Centrer_cible(Contexte &c, int p) {
  Ecran_principal &e = c.principale;
  const Contrôle &couche = e.Pays(p);
  const Contrôle &carte = e.image_région;
  // The vertical bar measures the far edge with the marker, the horizontal one with the layer.
  if (e.barre_v.visible)
    centrer({e.barre_v, couche.haut, carte.haut, couche.hauteur, carte.hauteur, e.Carte.hauteur,
             e.rond(p).hauteur});
  if (e.barre_h.visible)
    centrer({e.barre_h, couche.gauche, carte.gauche, couche.largeur, carte.largeur, e.Carte.largeur,
             couche.largeur});
}

}  // namespace ardane
