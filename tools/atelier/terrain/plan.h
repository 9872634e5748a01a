// The hand-drawn plan of the country, data/terrain.txt: what noise and erosion start from.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "drawing/path.h"

namespace atelier {

/// The map picture's size; the model of the terrain has twice as many cells a side.
inline constexpr int largeur_carte = 602;
inline constexpr int hauteur_carte = 662;

struct Coast_point {
  Point place;
  /// 0 smooth, 1 torn.
  double raggedness = 0;
};

struct Ridge {
  double height = 0;
  double half_width = 0;
  std::vector<Point> crest;
};

struct River_wish {
  double source_height = 0;
  std::vector<Point> course;
};

struct Delta_arm {
  double first_width = 0;
  double last_width = 0;
  std::vector<Point> course;
};

struct Lake {
  Point centre;
  double half_length = 0;
  double half_width = 0;
  double tilt = 0;
};

/// A round stretch of country, of whatever kind.
struct Stretch {
  Point centre;
  double radius = 0;
};

/// How much of a place lies in one of the stretches: 1 in its middle, 0 from its edge on.
double within(const std::vector<Stretch> &stretches, Point p);

struct Volcano {
  /// Its foot.
  Stretch foot;
  double height = 0;
};

/// A bank of sand or a row of rocks off the coast, of no province.
struct Islet {
  double half_width = 0;
  std::vector<Point> line;
};

/// A drowned valley, from the sea inland, narrower and narrower.
struct Ria {
  double half_width = 0;
  std::vector<Point> line;
};

/// All lengths in map pixels, heights in metres.
struct Plan {
  std::uint64_t seed = 0;
  std::vector<Coast_point> coast;
  std::vector<std::vector<Coast_point>> islands;
  std::vector<Point> border;
  std::vector<Ridge> ridges;
  std::vector<River_wish> rivers;
  std::vector<Delta_arm> arms;
  std::vector<Lake> lakes;
  std::vector<Stretch> forests;
  std::vector<Stretch> vineyards;
  std::vector<Stretch> karst;
  /// Coasts that fall steeply into the sea.
  std::vector<Stretch> cliffs;
  std::vector<Volcano> volcanoes;
  std::vector<Islet> islets;
  std::vector<Ria> rias;
  /// By region number from 1; regions of the islands have no anchor and stand at (0, 0).
  std::vector<Point> anchors;
  /// By region number: how large its provinces are beside those of others.
  std::vector<double> spaciousness;
};

/// Throws std::runtime_error that names the line which has not the expected form.
Plan lire_plan(const std::filesystem::path &fichier);

/// The points of a smooth curve through the given ones (Catmull and Rom's spline), `step` apart or a little
/// less.
std::vector<Point> smooth_line(const std::vector<Point> &points, double step, bool closed);

/// Distance of a point from a line of points.
double distance_to_line(const std::vector<Point> &line, Point p);

}  // namespace atelier
