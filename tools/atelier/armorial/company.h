// Where what accompanies a piece or a charge stands.
#pragma once

#include <vector>

#include "armorial/blazon.h"
#include "armorial/charges.h"
#include "armorial/zones.h"

namespace atelier {

/// Number of charges in each of the frames around a piece.
std::vector<int> répartis(int nombre, std::size_t cadres, Pièce pièce, Lieu lieu);

/// The places of what accompanies a charge, `meuble` being its kind; their room is taken from the charge's
/// frame.
std::vector<Place> places_prises(const Annexe &annexe, const Meuble &meuble, const Meuble &principal,
                                 const Zone &zone, Cadre &c);

}  // namespace atelier
