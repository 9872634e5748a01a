#include "armorial/geometry.h"

#include <algorithm>
#include <cmath>

#include "numbers/math.h"

namespace atelier {
namespace {

/// Adds one wave, tooth or merlon; `point` gives the place at t pieces from the start, so far off the line.
template <typename Placeur>
void ajouter_motif(std::vector<Point> &points, Ligne ligne, double t, double pas, double onde,
                   const Placeur &point) {
  switch (ligne) {
    case Ligne::ondée:
      for (int k = 0; k < 16; ++k) points.push_back(point(t + k / 16.0, sine(2 * pi * k / 16.0) * onde));
      break;
    case Ligne::engrêlée:
      for (int k = 0; k < 12; ++k)
        points.push_back(point(t + k / 12.0, (0.5 - sine(pi * k / 12.0)) * pas * 0.34));
      break;
    case Ligne::crénelée:
      points.push_back(point(t, pas * 0.2));
      points.push_back(point(t + 0.5, pas * 0.2));
      points.push_back(point(t + 0.5, -pas * 0.2));
      points.push_back(point(t + 1, -pas * 0.2));
      break;
    case Ligne::dentelée:
      points.push_back(point(t, pas * 0.24));
      points.push_back(point(t + 0.5, -pas * 0.24));
      break;
    case Ligne::droite: break;
  }
}

}  // namespace

Point entre(Point a, Point b, double t) {
  return {mix(a.x, b.x, t), mix(a.y, b.y, t)};
}

Cadre autour_de(Point centre, double l, double h) {
  return {centre.x - l / 2, centre.y - h / 2, l, h};
}

Path rectangle(const Cadre &cadre) {
  return Path().add_rectangle(cadre.x, cadre.y, cadre.l, cadre.h);
}

Coins::Coins(const Cadre &cadre) {
  const double bas = cadre.y + cadre.h * (cadre.bannière() ? 1 : 0.94);
  haut_dextre = {cadre.x, cadre.y};
  haut_sénestre = {cadre.droite(), cadre.y};
  bas_dextre = {cadre.x, bas};
  bas_sénestre = {cadre.droite(), bas};
  cœur = entre(haut_dextre, bas_sénestre, 0.5);
}

double pas_des_lignes(const Cadre &cadre, double unité) {
  return std::max(6 * unité, cadre.petit_côté() * 0.17);
}

std::vector<Point> frontière(Point a, Point b, Ligne ligne, double pas) {
  const double l = length(b - a);
  if (ligne == Ligne::droite || l == 0) return {a, b};
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const int n = std::max(1, static_cast<int>(std::lround(l / pas)));
  const Point travers{-dy / l, dx / l};
  const auto point = [&](double t, double écart) {
    return Point{a.x + dx * (t / n) + travers.x * écart, a.y + dy * (t / n) + travers.y * écart};
  };
  // On a slanted line a wave of the usual height would look like stairs.
  const double onde = pas * (dx != 0 && dy != 0 ? 0.12 : 0.19);
  std::vector<Point> points;
  for (int i = 0; i < n; ++i) ajouter_motif(points, ligne, i, pas, onde, point);
  points.push_back(point(n, ligne == Ligne::dentelée ? pas * 0.24 : 0));
  return points;
}

Path ruban(std::vector<Point> dessus, const std::vector<Point> &dessous) {
  dessus.insert(dessus.end(), dessous.rbegin(), dessous.rend());
  return polygon(dessus);
}

Path bandeau(Point a, Point b, double épaisseur, Ligne ligne, double pas) {
  const double l = length(b - a);
  const Point e{-(b.y - a.y) / l * épaisseur / 2, (b.x - a.x) / l * épaisseur / 2};
  const auto dessus = frontière({a.x - e.x, a.y - e.y}, {b.x - e.x, b.y - e.y}, ligne, pas);
  if (ligne == Ligne::ondée)
    return ruban(dessus, frontière({a.x + e.x, a.y + e.y}, {b.x + e.x, b.y + e.y}, ligne, pas));
  auto dessous = frontière({b.x + e.x, b.y + e.y}, {a.x + e.x, a.y + e.y}, ligne, pas);
  std::reverse(dessous.begin(), dessous.end());
  return ruban(dessus, dessous);
}

std::vector<Point> bord_travaillé(const std::vector<Point> &bord, Ligne ligne, double pas) {
  if (ligne == Ligne::droite) return bord;
  std::vector<double> parcouru{0};
  for (std::size_t i = 0; i < bord.size(); ++i)
    parcouru.push_back(parcouru.back() + length(bord[(i + 1) % bord.size()] - bord[i]));
  const double tour = parcouru.back();
  const auto place = [&](double s) {
    s -= tour * std::floor(s / tour);
    const auto suivant = std::upper_bound(parcouru.begin() + 1, parcouru.end() - 1, s);
    const auto i = static_cast<std::size_t>(suivant - parcouru.begin()) - 1;
    const double l = parcouru[i + 1] - parcouru[i];
    return entre(bord[i], bord[(i + 1) % bord.size()], l == 0 ? 0 : (s - parcouru[i]) / l);
  };
  // A whole number of waves, each as long as the others, right around and through every bend.
  const int n = std::max(3, static_cast<int>(std::lround(tour / pas)));
  const double onde = tour / n;
  const auto point = [&](double t, double écart) {
    const double s = t * onde;
    const Point le_long = place(s + onde * 0.3) - place(s - onde * 0.3);
    const double l = length(le_long);
    const Point ici = place(s);
    return l == 0 ? ici : Point{ici.x - le_long.y / l * écart, ici.y + le_long.x / l * écart};
  };
  std::vector<Point> result;
  for (int i = 0; i < n; ++i) ajouter_motif(result, ligne, i, onde, onde * 0.19, point);
  return result;
}

std::vector<Place> en_rangs(const Cadre &cadre, const std::vector<int> &rangs) {
  std::vector<Place> places;
  const int plus_long = *std::max_element(rangs.begin(), rangs.end());
  const double l = cadre.l / plus_long;
  const double h = cadre.h / static_cast<double>(rangs.size());
  for (std::size_t i = 0; i < rangs.size(); ++i)
    for (int k = 0; k < rangs[i]; ++k)
      places.push_back(
          {{cadre.x + cadre.l / 2 + (k - rangs[i] / 2.0) * l, cadre.y + h * static_cast<double>(i), l, h}});
  return places;
}

std::vector<int> rangs_usuels(int nombre, const Cadre &cadre, double allongement) {
  if (cadre.l > cadre.h * 1.55 && nombre <= 6) return {nombre};
  if (cadre.h > cadre.l * 1.9) return std::vector<int>(static_cast<std::size_t>(nombre), 1);
  switch (nombre) {
    case 1: return {1};
    case 2: return allongement < 0.8 ? std::vector{2} : std::vector{1, 1};
    case 3: return {2, 1};
    case 4: return {2, 2};
    case 5: return {2, 1, 2};
    case 6: return {3, 2, 1};
    case 7: return {3, 3, 1};
    case 8: return {3, 2, 3};
    case 9: return {3, 3, 3};
    case 10: return {4, 3, 2, 1};
    case 11: return {4, 4, 2, 1};
    default: return {4, 4, 3, 1};
  }
}

std::vector<Place> le_long(Point a, Point b, int nombre, double largeur, double angle) {
  const double chacun = length(b - a) / nombre;
  std::vector<Place> places;
  places.reserve(static_cast<std::size_t>(nombre));
  for (int i = 0; i < nombre; ++i)
    places.push_back({autour_de(entre(a, b, (i + 0.5) / nombre), chacun, largeur), angle});
  return places;
}

}  // namespace atelier
