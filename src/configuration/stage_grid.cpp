#include "configuration/stage_grid.h"

#include <algorithm>

#include "core/game_state.h"

namespace ardane {
namespace {

/// The stage of each column.
constexpr Ordre_de_jeu jeux_des_colonnes({étape_provinces, étape_régions, étape_villes, étape_drapeaux});

bool occupée(const Grille_jeux &grille, int position) {
  const auto &cases = grille.ligne(position);
  return std::count(cases.begin(), cases.end(), true) > 0;
}

bool placé_avant(const Grille_jeux &grille, int position, int colonne) {
  for (int avant = 1; avant < position; ++avant)
    if (grille(avant, colonne)) return true;
  return false;
}

/// Clears a box by program, which the rule follows up as it does a box that the player clears.
void décocher(Grille_jeux &grille, int position, int colonne) {
  if (!grille(position, colonne)) return;
  grille(position, colonne) = false;
  Régler_grille(grille, position, colonne);
}

Refus_de_case régler_cochée(Grille_jeux &grille, int position, int colonne) {
  const bool trou = position > 1 && !occupée(grille, position - 1);
  if (trou || placé_avant(grille, position, colonne)) {
    décocher(grille, position, colonne);
    return trou ? Refus_de_case::position_précédente_vide : Refus_de_case::jeu_déjà_placé;
  }
  for (int autre = 1; autre <= nombre_jeux; ++autre)
    if (autre != colonne) décocher(grille, position, autre);
  for (int après = position + 1; après <= nombre_jeux; ++après) décocher(grille, après, colonne);
  return Refus_de_case::aucun;
}

Refus_de_case régler_décochée(Grille_jeux &grille, int position, int colonne) {
  if (occupée(grille, position)) return Refus_de_case::aucun;
  if (position == 1) {
    grille(position, colonne) = true;
    régler_cochée(grille, position, colonne);
    return Refus_de_case::aucun_premier_jeu;
  }
  for (int après = position + 1; après <= nombre_jeux; ++après)
    for (int autre = 1; autre <= nombre_jeux; ++autre) décocher(grille, après, autre);
  return Refus_de_case::aucun;
}

}  // namespace

Refus_de_case Régler_grille(Grille_jeux &grille, int position, int colonne) {
  return grille(position, colonne) ? régler_cochée(grille, position, colonne)
                                   : régler_décochée(grille, position, colonne);
}

Grille_jeux Grille_de_l_ordre(const Ordre_de_jeu &ordre) {
  Grille_jeux grille;
  for (int position = 1; position <= nombre_jeux; ++position)
    for (int colonne = 1; colonne <= nombre_jeux; ++colonne)
      grille(position, colonne) = ordre(position) == jeux_des_colonnes(colonne);
  return grille;
}

Ordre_de_jeu Ordre_de_la_grille(const Grille_jeux &grille) {
  Ordre_de_jeu ordre;
  for (int position = 1; position <= nombre_jeux; ++position)
    for (int colonne = 1; colonne <= nombre_jeux; ++colonne)
      if (grille(position, colonne)) ordre(position) = jeux_des_colonnes(colonne);
  return ordre;
}

}  // namespace ardane
