#include "core/window_placing.h"

#include <cmath>

#include "core/game_state.h"

namespace ardane {

void Mesurer_écran(Contexte &c) {
  const Ecran &écran = c.plateforme.écran;
  c.état.Largeur_écran = écran.largeur();
  c.état.Hauteur_écran = écran.hauteur();
  c.état.Couleurs_écran = écran.bits_par_pixel();
}

void Mesurer_moniteur(Contexte &c) {
  const Mode_écran mode = c.plateforme.écran.moniteur();
  c.état.Largeur_écran = mode.largeur;
  c.état.Hauteur_écran = mode.hauteur;
  c.état.Couleurs_écran = mode.couleurs;
}

void Centrer_fenêtre(const GameState &g, Fenêtre &fenêtre) {
  fenêtre.haut = std::floor((g.Hauteur_écran - fenêtre.hauteur) / 2);
  fenêtre.gauche = std::floor((g.Largeur_écran - fenêtre.largeur) / 2);
}

}  // namespace ardane
