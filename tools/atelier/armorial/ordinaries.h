// The ordinaries: their shapes in a frame, and the places on them and around them.
#pragma once

#include <vector>

#include "armorial/geometry.h"

namespace atelier {

/// The ordinaries of one frame. Only the bordure has no shape here: it follows the field's outline and not
/// its frame.
class Pièces_honorables {
 public:
  Pièces_honorables(const Cadre &cadre, double unité);

  /// Across the piece, of one out of `nombre`.
  double épaisseur(Pièce pièce, int nombre) const;
  /// One path for each of `nombre` pieces, reaching over the frame's edges.
  std::vector<Path> formes(Pièce pièce, int nombre, Ligne ligne) const;
  /// Frames beside the piece, for what accompanies it, in the order in which they are filled.
  std::vector<Cadre> places_autour(Pièce pièce) const;
  /// Places on the piece itself, for what it is charged with.
  std::vector<Place> places_dessus(Pièce pièce, int nombre, double allongement) const;

 private:
  Path chef(Ligne ligne) const;
  Path champagne(Ligne ligne) const;
  Path terrasse() const;
  Path diagonale(Point a, Point b, int rang, int nombre, Pièce pièce, Ligne ligne) const;
  Path chevron(int rang, int nombre, Ligne ligne) const;
  Path croix(Ligne ligne) const;
  Path sautoir(Ligne ligne) const;
  Path pairle(Ligne ligne) const;
  Path pile(Ligne ligne) const;
  Path pointe(Ligne ligne) const;
  Path forme(Pièce pièce, int rang, int nombre, Ligne ligne) const;
  std::vector<Place> places_du_chevron(int nombre) const;
  std::vector<Place> places_rayonnantes(int nombre, double centre, double bras,
                                        const std::vector<Point> &bouts) const;

  Cadre c_;
  double u_;
  Coins coins_;
  double pas_;
  /// The frame with a little more on each side, so that no seam shows at the edge.
  Cadre large_;
};

}  // namespace atelier
