// Draws blazons.
#pragma once

#include "armorial/blazon.h"
#include "armorial/charges.h"
#include "drawing/image.h"
#include "drawing/path.h"

namespace atelier {

/// Draws the arms inside the closed `contour`, in the picture's own coordinates, with `unité` pixels to one
/// pixel of the plain drawing: line widths and margins grow with it. The contour itself is not drawn.
void dessiner_blason(Image &image, const Blason &blason, const Meubles &meubles, const Path &contour,
                     double unité);

/// Draws one charge as large as the box allows, its foot on the box's lower edge.
void dessiner_meuble(Image &image, const Meuble &meuble, Émail émail, Point coin, double largeur,
                     double hauteur, double unité);

}  // namespace atelier
