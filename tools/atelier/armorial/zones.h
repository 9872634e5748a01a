// Parts of a picture that can be painted, of any outline.
#pragma once

#include <vector>

#include "armorial/geometry.h"
#include "drawing/raster.h"

namespace atelier {

/// How much of each pixel belongs to the zone, with the smallest frame around those that mostly do.
struct Zone {
  Coverage masque;
  Cadre cadre;
  bool vide() const { return cadre.l == 0; }
};

Zone zone(Coverage masque);
/// What the zone and the path have in common.
Zone dans(const Zone &zone, const Path &path);
/// What the path leaves of the zone.
Zone hors_de(const Zone &zone, const Path &path);

/// The pixels of a zone that are at least `marge` pixels away from its edge.
class Intérieur {
 public:
  Intérieur(const Coverage &masque, double marge);
  bool contient(Point p) const;

 private:
  std::size_t indice(int x, int y) const;
  int largeur_;
  int hauteur_;
  std::vector<char> libres_;
};

/// The outline of the zone moved inwards by `écart`, clockwise from three o'clock, as seen from its middle.
std::vector<Point> tour_intérieur(const Zone &zone, double écart);
/// Square places along that outline, the first one at the top.
std::vector<Place> places_sur_le_tour(const Zone &zone, double écart, int nombre, double taille);
/// The bordure of the zone: what lies outside the outline moved inwards.
Path bordure(const Zone &zone, double épaisseur, Ligne ligne, double unité);

}  // namespace atelier
