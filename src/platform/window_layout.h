// The designed places of a window's controls: a row a control, in the table at the head of the window's file.
#pragma once

#include <string_view>

#include "platform/controls.h"

namespace ardane {

struct Place {
  std::string_view nom;
  Genre genre;
  double gauche, haut, largeur, hauteur;  ///< pixels, relative to the container
  int ordre_tabulation = -1;
  std::string_view texte = {};
  std::string_view conteneur = {};  ///< name of a control placed before; empty for the client area
};

/// Adds a control at its designed place.
Contrôle &placer(Fenêtre &fenêtre, const Place &place);

/// Adds a control for every row; a row's container must stand above it. Gives the window back.
template <class Places>
Fenêtre &placer_tout(Fenêtre &fenêtre, const Places &places) {
  for (const Place &place : places) placer(fenêtre, place);
  return fenêtre;
}

/// The control of that name, which the window has.
Contrôle &contrôle(Fenêtre &fenêtre, std::string_view nom);

/// "nom(i)", the name of a control of an array.
std::string indexé(std::string_view nom, int i);

}  // namespace ardane
