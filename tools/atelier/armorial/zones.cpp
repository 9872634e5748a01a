#include "armorial/zones.h"

#include <algorithm>
#include <cmath>

#include "numbers/math.h"

namespace atelier {

Zone zone(Coverage masque) {
  int gauche = masque.width;
  int droite = -1;
  int haut = masque.height;
  int bas = -1;
  for (int y = 0; y < masque.height; ++y)
    for (int x = 0; x < masque.width; ++x)
      if (masque.at(x, y) > 0.5F) {
        gauche = std::min(gauche, x);
        droite = std::max(droite, x);
        haut = std::min(haut, y);
        bas = std::max(bas, y);
      }
  if (droite < 0) return {std::move(masque), {}};
  return {std::move(masque),
          {static_cast<double>(gauche), static_cast<double>(haut), static_cast<double>(droite - gauche + 1),
           static_cast<double>(bas - haut + 1)}};
}

Zone dans(const Zone &zone_, const Path &path) {
  Coverage masque = coverage(path, zone_.masque.width, zone_.masque.height);
  for (std::size_t i = 0; i < masque.values.size(); ++i) masque.values[i] *= zone_.masque.values[i];
  return zone(std::move(masque));
}

Zone hors_de(const Zone &zone_, const Path &path) {
  Coverage masque = coverage(path, zone_.masque.width, zone_.masque.height);
  for (std::size_t i = 0; i < masque.values.size(); ++i)
    masque.values[i] = (1 - masque.values[i]) * zone_.masque.values[i];
  return zone(std::move(masque));
}

Intérieur::Intérieur(const Coverage &masque, double marge)
    : largeur_(masque.width), hauteur_(masque.height), libres_(masque.values.size()) {
  const int r = static_cast<int>(std::lround(marge));
  // A square is free when its rows are, and a row is looked at once for all squares that share it.
  std::vector<char> lignes(masque.values.size());
  for (int y = 0; y < hauteur_; ++y)
    for (int x = 0; x < largeur_; ++x) {
      bool libre = x >= r && x + r < largeur_;
      for (int d = -r; libre && d <= r; ++d) libre = masque.at(x + d, y) > 0.5F;
      lignes[indice(x, y)] = libre;
    }
  for (int y = 0; y < hauteur_; ++y)
    for (int x = 0; x < largeur_; ++x) {
      bool libre = y >= r && y + r < hauteur_;
      for (int d = -r; libre && d <= r; ++d) libre = lignes[indice(x, y + d)] != 0;
      libres_[indice(x, y)] = libre;
    }
}

bool Intérieur::contient(Point p) const {
  const int x = static_cast<int>(std::floor(p.x));
  const int y = static_cast<int>(std::floor(p.y));
  return x >= 0 && y >= 0 && x < largeur_ && y < hauteur_ && libres_[indice(x, y)] != 0;
}

std::size_t Intérieur::indice(int x, int y) const {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(largeur_) + static_cast<std::size_t>(x);
}

std::vector<Point> tour_intérieur(const Zone &zone_, double écart) {
  constexpr int rayons = 180;
  constexpr double avance = 0.25;
  const Intérieur intérieur(zone_.masque, écart);
  const Point centre{zone_.cadre.centre().x, zone_.cadre.y + zone_.cadre.h * 0.45};
  std::vector<Point> points;
  for (int i = 0; i < rayons; ++i) {
    const double angle = 2 * pi * i / rayons;
    const Point d{cosine(angle), sine(angle)};
    Point p = centre;
    for (Point q = p; intérieur.contient(q); q = {q.x + d.x * avance, q.y + d.y * avance}) p = q;
    points.push_back(p);
  }
  return points;
}

std::vector<Place> places_sur_le_tour(const Zone &zone_, double écart, int nombre, double taille) {
  const auto tour = tour_intérieur(zone_, écart);
  // Way from the first point to each, once around.
  std::vector<double> chemin{0};
  for (std::size_t i = 0; i < tour.size(); ++i)
    chemin.push_back(chemin.back() + length(tour[(i + 1) % tour.size()] - tour[i]));
  const double départ = chemin[tour.size() * 3 / 4];
  std::vector<Place> places;
  for (int i = 0; i < nombre; ++i) {
    double but = départ + chemin.back() * i / nombre;
    if (but >= chemin.back()) but -= chemin.back();
    const auto après = std::upper_bound(chemin.begin() + 1, chemin.end() - 1, but);
    places.push_back({autour_de(tour[static_cast<std::size_t>(après - chemin.begin()) - 1], taille, taille)});
  }
  return places;
}

Path bordure(const Zone &zone_, double épaisseur, Ligne ligne, double unité) {
  auto bord =
      bord_travaillé(tour_intérieur(zone_, épaisseur), ligne, pas_des_lignes(zone_.cadre, unité) * 0.75);
  const Cadre &c = zone_.cadre;
  const double marge = 4 * unité;
  Path path = rectangle({c.x - marge, c.y - marge, c.l + 2 * marge, c.h + 2 * marge});
  // The hole turns the other way, so that both rules of filling leave it open.
  std::reverse(bord.begin(), bord.end());
  return path.add_polygon(bord);
}

}  // namespace atelier
