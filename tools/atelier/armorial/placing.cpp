#include "armorial/placing.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "numbers/math.h"

namespace atelier {
namespace {

constexpr double quart_de_tour = pi / 2;
constexpr double en_biais = pi / 4;

std::vector<Place> en_diagonale(const Cadre &c, int nombre, bool bande, double allongement) {
  if (nombre == 1) return {{c, (allongement < 1) == bande ? -en_biais : en_biais}};
  const Point a = bande ? Point{c.x, c.y} : Point{c.droite(), c.y};
  const Point b = bande ? Point{c.droite(), c.y + c.h * 0.9} : Point{c.x, c.y + c.h * 0.9};
  return le_long(entre(a, b, 0.06), entre(a, b, 0.94), nombre, c.petit_côté() * 0.42, 0);
}

/// The outline's points, close enough together that nothing sticks out between two of them.
std::vector<Point> points_du_contour(const Path &path) {
  constexpr double le_plus_loin = 6;
  std::vector<Point> points;
  for (const Contour &contour : path.contours()) {
    const std::size_t n = contour.points.size();
    for (std::size_t i = 0; i < n; ++i) {
      const Point a = contour.points[i];
      const Point b = contour.points[(i + 1) % n];
      const int parts =
          1 + static_cast<int>(std::max(std::abs(b.x - a.x), std::abs(b.y - a.y)) / le_plus_loin);
      for (int k = 0; k < parts; ++k) points.push_back(entre(a, b, static_cast<double>(k) / parts));
    }
  }
  return points;
}

/// A charge at one scale and angle, its box's centre at the origin.
struct Silhouette {
  Silhouette(const std::vector<Point> &contour, const Affine &affine) {
    for (const Point p : contour) {
      const Point q = affine.apply(p);
      low = {std::min(low.x, q.x), std::min(low.y, q.y)};
      high = {std::max(high.x, q.x), std::max(high.y, q.y)};
      points.push_back(q);
    }
  }
  double largeur() const { return high.x - low.x; }
  double hauteur() const { return high.y - low.y; }
  std::vector<Point> points;
  Point low{1e9, 1e9};
  Point high{-1e9, -1e9};
};

/// Tries the middle of the place first, then ever wider diamonds around it.
std::optional<Point> centre_libre(const Silhouette &s, const Place &place, const Intérieur &intérieur,
                                  bool au_sol) {
  const Cadre &c = place.cadre;
  const bool droit = place.angle == 0;
  if (droit && (s.largeur() > c.l || s.hauteur() > c.h)) return {};
  Point milieu{c.centre().x - (s.low.x + s.high.x) / 2, c.centre().y - (s.low.y + s.high.y) / 2};
  if (au_sol) milieu.y = c.bas() - s.high.y;
  const double jeu_x = droit ? std::min((c.l - s.largeur()) / 2, c.l * 0.2) : c.l * 0.12;
  const double jeu_y = au_sol ? 0 : droit ? (c.h - s.hauteur()) / 2 : c.h * 0.16;
  const auto libre = [&](Point centre) {
    return std::all_of(s.points.begin(), s.points.end(), [&](Point p) {
      return (au_sol && p.y > s.high.y * 0.75) || intérieur.contient({p.x + centre.x, p.y + centre.y});
    });
  };
  constexpr int essais = 12;
  for (int rayon = 0; rayon <= essais; ++rayon)
    for (int dy = -rayon; dy <= rayon; ++dy) {
      const int dx = rayon - std::abs(dy);
      for (const int x : {-dx, dx}) {
        const Point centre{milieu.x + jeu_x * x / essais, milieu.y + jeu_y * dy / essais};
        if (libre(centre)) return centre;
      }
    }
  return {};
}

}  // namespace

std::vector<Place> disposés(const Objet &objet, int nombre, const Cadre &c, const Zone &zone_,
                            const Meuble &meuble) {
  const double allongement = meuble.largeur / meuble.hauteur;
  switch (objet.disposition) {
    case Disposition::en_rangs:
      if (nombre == objet.nombre) return en_rangs(c, objet.rangs);
      break;
    case Disposition::en_fasce:
      if (nombre == 1) return {{c, allongement < 1 ? quart_de_tour : 0}};
      return en_rangs(c, {nombre});
    case Disposition::en_pal:
      if (nombre == 1) return {{c, allongement > 1 ? -quart_de_tour : 0}};
      // The lowest of a pile would else be as small as the shield's point, and the others with it.
      return en_rangs({c.x, c.y, c.l,
                       c.h * (c.bannière()      ? 1
                              : allongement > 2 ? 0.78
                                                : 0.86)},
                      std::vector<int>(static_cast<std::size_t>(nombre), 1));
    case Disposition::en_bande:
    case Disposition::en_barre:
      return en_diagonale(c, nombre, objet.disposition == Disposition::en_bande, allongement);
    case Disposition::en_sautoir:
      if (nombre == 2)
        return {{c, allongement < 1 ? -en_biais : en_biais}, {c, allongement < 1 ? en_biais : -en_biais}};
      if (nombre == 5) return en_rangs(c, {2, 1, 2});
      break;
    case Disposition::en_croix:
      if (nombre == 5) return en_rangs(c, {1, 3, 1});
      break;
    case Disposition::en_orle:
      return places_sur_le_tour(zone_, zone_.cadre.petit_côté() * 0.15, nombre,
                                zone_.cadre.petit_côté() * 0.2);
    case Disposition::mouvant_de_la_pointe:
    case Disposition::usuelle: break;
  }
  return en_rangs(c, rangs_usuels(nombre, c, allongement));
}

Affine pose(const Meuble &meuble, const Objet &objet, double échelle, double angle, Point centre) {
  return Affine::translation(-meuble.largeur / 2, -meuble.hauteur / 2)
      .then(Affine::scaling(objet.contourné ? -échelle : échelle, objet.renversé ? -échelle : échelle))
      .then(Affine::rotation(angle))
      .then(Affine::translation(centre.x, centre.y));
}

Poses poses_les_plus_grandes(const Meuble &meuble, const Objet &objet, const std::vector<Place> &places,
                             const Zone &zone_, double marge, bool au_sol, double le_moins) {
  const Intérieur intérieur(zone_.masque, marge);
  const auto contour = points_du_contour(meuble.silhouette());
  const double taille = std::max(meuble.largeur, meuble.hauteur);
  double côté = std::max(zone_.masque.width, zone_.masque.height) * 4.0;
  for (const Place &place : places) côté = std::min(côté, 1.5 * std::max(place.cadre.l, place.cadre.h));
  // A little air between neighbours.
  const double air = places.size() > 1 ? 1.08 : 1;
  for (Poses poses{côté / taille, {}}; poses.échelle * taille >= le_moins; poses.échelle *= 0.97) {
    poses.centres.clear();
    for (const Place &place : places) {
      const Silhouette silhouette(contour, pose(meuble, objet, poses.échelle * air, place.angle, {0, 0}));
      const auto centre = centre_libre(silhouette, place, intérieur, au_sol);
      if (!centre) break;
      poses.centres.push_back(*centre);
    }
    if (poses.centres.size() == places.size()) return poses;
  }
  throw Erreur_de_blason("no room for \"" + meuble.nom + "\"");
}

}  // namespace atelier
