// Frames, places and boundary lines: what the parts of a coat of arms are measured and cut with.
#pragma once

#include <vector>

#include "armorial/blazon.h"
#include "drawing/path.h"

namespace atelier {

/// An upright rectangle: left, top, width and height.
struct Cadre {
  double x = 0;
  double y = 0;
  double l = 0;
  double h = 0;
  Point centre() const { return {x + l / 2, y + h / 2}; }
  double droite() const { return x + l; }
  double bas() const { return y + h; }
  double petit_côté() const { return l < h ? l : h; }
  /// A banner is wider than high, a shield is not.
  bool bannière() const { return l > h * 1.1; }
};

/// The room of one charge, and how far it is turned there (radians, clockwise).
struct Place {
  Cadre cadre;
  double angle = 0;
};

/// a at t = 0, b at t = 1.
Point entre(Point a, Point b, double t);
Cadre autour_de(Point centre, double l, double h);
Path rectangle(const Cadre &cadre);

/// The corners that diagonals run to: those of a banner, and in a shield those of the straight part of its
/// flanks.
struct Coins {
  explicit Coins(const Cadre &cadre);
  Point haut_dextre;
  Point haut_sénestre;
  Point bas_dextre;
  Point bas_sénestre;
  /// Where the diagonals cross.
  Point cœur;
};

/// Length of one wave, tooth or merlon in a frame; `unité` as in dessiner_blason.
double pas_des_lignes(const Cadre &cadre, double unité);

/// A line from a to b in the style; its waves, teeth or merlons stand to both sides of the straight line.
std::vector<Point> frontière(Point a, Point b, Ligne ligne, double pas);
/// The surface between two lines that run the same way.
Path ruban(std::vector<Point> dessus, const std::vector<Point> &dessous);
/// A band around the line from a to b. Waves run in step on both edges; other styles point outwards.
Path bandeau(Point a, Point b, double épaisseur, Ligne ligne, double pas);
/// A closed outline with the style all along it.
std::vector<Point> bord_travaillé(const std::vector<Point> &bord, Ligne ligne, double pas);

/// Cells of rows with the given numbers, all of one size, each row in the middle.
std::vector<Place> en_rangs(const Cadre &cadre, const std::vector<int> &rangs);
/// How many charges in each row, from the top, when the blazon leaves it to custom. `allongement` is the
/// charge's width by its height.
std::vector<int> rangs_usuels(int nombre, const Cadre &cadre, double allongement);
/// Places one behind the other from a to b, turned by the angle.
std::vector<Place> le_long(Point a, Point b, int nombre, double largeur, double angle);

}  // namespace atelier
