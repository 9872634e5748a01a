// The paints of the arms: tinctures, their tones, and the ink of the outlines.
#pragma once

#include "armorial/charges.h"
#include "armorial/tinctures.h"
#include "drawing/image.h"

namespace atelier {

struct Objet;

inline constexpr Pixel encre{38, 28, 20};

/// The tincture as paint; "au naturel" gives a brown.
Pixel couleur(Émail émail);

/// What a stroke of the charge is painted with, as the blazon tinctures the object and its details.
Pixel peinture(const Meuble &meuble, const Objet &objet, const Trait_de_meuble &trait);

}  // namespace atelier
