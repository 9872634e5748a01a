// Where charges go, and how large they can be.
#pragma once

#include <vector>

#include "armorial/charges.h"
#include "armorial/zones.h"

namespace atelier {

/// Cells for `nombre` charges of the object's kind in the frame, as its arrangement wants them; `nombre` may
/// be less than the object has when they are spread over several frames. Only an orle looks at the zone and
/// not at the frame: it follows its outline.
std::vector<Place> disposés(const Objet &objet, int nombre, const Cadre &cadre, const Zone &zone,
                            const Meuble &meuble);

/// How a charge is laid down: its box's centre at `centre`, larger by `échelle`, turned and mirrored.
Affine pose(const Meuble &meuble, const Objet &objet, double échelle, double angle, Point centre);

struct Poses {
  double échelle = 0;
  /// One for each place.
  std::vector<Point> centres;
};

/// All charges at one scale, the largest at which each lies in its place and within the zone, at least
/// `marge` from its edge, as near as can be to the place's middle. On the ground (`au_sol`) their feet stand
/// on the places' lower edges, and may leave the zone there. Throws Erreur_de_blason when they would be
/// smaller than `le_moins`.
Poses poses_les_plus_grandes(const Meuble &meuble, const Objet &objet, const std::vector<Place> &places,
                             const Zone &zone, double marge, bool au_sol, double le_moins);

}  // namespace atelier
