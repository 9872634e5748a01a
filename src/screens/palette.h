// The window `Palette`: the colour of the town markers, for this run of the program.
#pragma once

#include "core/context.h"
#include "platform/controls.h"

namespace ardane {

/// The families of markers that a colour can be chosen for: values of `Palette_cible`.
enum Cibles_de_palette : std::int16_t {
  repères_des_autres_villes = 1,
  repères_des_capitales = 2,
};

/// Opens the palette for a family.
void Choisir_couleur(Contexte &c, Cibles_de_palette cible);

/// Forty dots to choose from; the one that is clicked becomes the marker's picture. It closes then, and by
/// its closing picture or the Escape key without a choice.
class Palette : public Fenêtre {
 public:
  explicit Palette(Contexte &c);

 private:
  void peindre(Image image);

  Contexte &c_;
};

}  // namespace ardane
