#include "armorial/ordinaries.h"

#include <algorithm>

#include "numbers/math.h"

namespace atelier {
namespace {

/// Waves along a diagonal are longer than level ones.
constexpr double pas_oblique = 1.35;

struct Pieds_du_chevron {
  Point sommet;
  Point dextre;
  Point sénestre;
};

/// The upper edge of a chevron, `écart` lower than the usual place.
Pieds_du_chevron pieds_du_chevron(const Cadre &c, double écart) {
  const Point sommet{c.x + c.l / 2, c.y + c.h * 0.27 + écart};
  const Point dextre{c.x - c.l * 0.04, c.y + c.h * 0.8 + écart};
  return {sommet, dextre, {2 * sommet.x - dextre.x, dextre.y}};
}

std::vector<Point> suite(std::vector<Point> première, const std::vector<Point> &seconde) {
  première.insert(première.end(), seconde.begin(), seconde.end());
  return première;
}

}  // namespace

Pièces_honorables::Pièces_honorables(const Cadre &cadre, double unité)
    : c_(cadre),
      u_(unité),
      coins_(cadre),
      pas_(pas_des_lignes(cadre, unité)),
      large_{cadre.x - 2 * unité, cadre.y - 2 * unité, cadre.l + 4 * unité, cadre.h + 4 * unité} {}

double Pièces_honorables::épaisseur(Pièce pièce, int nombre) const {
  const double petit = c_.petit_côté();
  const bool seule = nombre == 1;
  switch (pièce) {
    case Pièce::chef:
    case Pièce::champagne: return c_.h * 0.3;
    case Pièce::terrasse: return c_.h * 0.27;
    case Pièce::bordure: return petit * 0.105;
    case Pièce::fasce: return seule ? c_.h * 0.3 : c_.h / (2 * nombre + 1);
    case Pièce::burelle: return c_.h / (3.2 * nombre + 1);
    case Pièce::pal: return seule ? c_.l * 0.27 : c_.l / (2 * nombre + 1);
    case Pièce::vergette: return c_.l / (4 * nombre + 3);
    case Pièce::bande:
    case Pièce::barre: return petit * (seule ? 0.36 : 0.42 / nombre);
    case Pièce::cotice: return petit * (seule ? 0.13 : 0.24 / nombre);
    case Pièce::chevron: return petit * (seule ? 0.17 : 0.3 / nombre);
    case Pièce::croix: return petit * 0.24;
    case Pièce::sautoir:
    case Pièce::pairle: return petit * 0.22;
    case Pièce::pile:
    case Pièce::pointe:
    case Pièce::franc_canton:
    case Pièce::meuble: break;
  }
  return petit * 0.3;
}

std::vector<Path> Pièces_honorables::formes(Pièce pièce, int nombre, Ligne ligne) const {
  std::vector<Path> result;
  result.reserve(static_cast<std::size_t>(nombre));
  for (int rang = 0; rang < nombre; ++rang) result.push_back(forme(pièce, rang, nombre, ligne));
  return result;
}

Path Pièces_honorables::forme(Pièce pièce, int rang, int nombre, Ligne ligne) const {
  const double e = épaisseur(pièce, nombre);
  const double part = (rang + 1.0) / (nombre + 1);
  switch (pièce) {
    case Pièce::chef: return chef(ligne);
    case Pièce::champagne: return champagne(ligne);
    case Pièce::terrasse: return terrasse();
    case Pièce::fasce:
    case Pièce::burelle: {
      const double y = c_.y + c_.h * part;
      return bandeau({large_.x, y}, {large_.droite(), y}, e, ligne, pas_);
    }
    case Pièce::pal:
    case Pièce::vergette: {
      const double x = c_.x + c_.l * part;
      return bandeau({x, large_.y}, {x, large_.bas()}, e, ligne, pas_);
    }
    case Pièce::bande:
    case Pièce::cotice: return diagonale(coins_.haut_dextre, coins_.bas_sénestre, rang, nombre, pièce, ligne);
    case Pièce::barre: return diagonale(coins_.bas_dextre, coins_.haut_sénestre, rang, nombre, pièce, ligne);
    case Pièce::chevron: return chevron(rang, nombre, ligne);
    case Pièce::croix: return croix(ligne);
    case Pièce::sautoir: return sautoir(ligne);
    case Pièce::pairle: return pairle(ligne);
    case Pièce::pile: return pile(ligne);
    case Pièce::pointe: return pointe(ligne);
    case Pièce::franc_canton:
      return rectangle({large_.x, large_.y, c_.l * 0.44 + 2 * u_, c_.h * 0.4 + 2 * u_});
    case Pièce::bordure:
    case Pièce::meuble: break;
  }
  return Path();
}

Path Pièces_honorables::chef(Ligne ligne) const {
  const double y = c_.y + épaisseur(Pièce::chef, 1);
  return ruban({{large_.x, large_.y}, {large_.droite(), large_.y}},
               frontière({large_.x, y}, {large_.droite(), y}, ligne, pas_));
}

Path Pièces_honorables::champagne(Ligne ligne) const {
  const double y = c_.bas() - épaisseur(Pièce::champagne, 1);
  return ruban(frontière({large_.x, y}, {large_.droite(), y}, ligne, pas_),
               {{large_.x, large_.bas()}, {large_.droite(), large_.bas()}});
}

Path Pièces_honorables::terrasse() const {
  const double e = épaisseur(Pièce::terrasse, 1);
  const double y = c_.bas() - e;
  const double x1 = large_.x;
  const double x2 = large_.droite();
  return Path()
      .move_to({x1, y + e * 0.3})
      .curve_to({mix(x1, x2, 0.3), y - e * 0.15}, {mix(x1, x2, 0.6), y - e * 0.1}, {x2, y + e * 0.35})
      .line_to({x2, large_.bas()})
      .line_to({x1, large_.bas()})
      .close();
}

Path Pièces_honorables::diagonale(Point a, Point b, int rang, int nombre, Pièce pièce, Ligne ligne) const {
  const double e = épaisseur(pièce, nombre);
  const double décalage = (rang - (nombre - 1) / 2.0) * e * 2.1;
  const double l = length(b - a);
  const Point d{-(b.y - a.y) / l * décalage, (b.x - a.x) / l * décalage};
  const Point de = entre(b, a, 1.3);
  const Point à = entre(a, b, 1.3);
  return bandeau({de.x + d.x, de.y + d.y}, {à.x + d.x, à.y + d.y}, e, ligne, pas_ * pas_oblique);
}

Path Pièces_honorables::chevron(int rang, int nombre, Ligne ligne) const {
  const double e = épaisseur(Pièce::chevron, nombre);
  const double écart = nombre == 1 ? 0 : (rang - (nombre - 1) / 2.0) * e * 2.4;
  const auto [s, g, d] = pieds_du_chevron(c_, écart);
  // Measured downwards a limb is thicker than across it.
  const double v = e * length(g - s) / (s.x - g.x);
  const auto dessus = suite(frontière(g, s, ligne, pas_), frontière(s, d, ligne, pas_));
  const Point s2{s.x, s.y + v};
  const auto dessous =
      suite(frontière({d.x, d.y + v}, s2, ligne, pas_), frontière(s2, {g.x, g.y + v}, ligne, pas_));
  return polygon(suite(dessus, dessous));
}

Path Pièces_honorables::croix(Ligne ligne) const {
  const double e = épaisseur(Pièce::croix, 1);
  const double x = c_.centre().x;
  const double y = coins_.cœur.y;
  return bandeau({x, large_.y}, {x, large_.bas()}, e, ligne, pas_)
      .add(bandeau({large_.x, y}, {large_.droite(), y}, e, ligne, pas_));
}

Path Pièces_honorables::sautoir(Ligne ligne) const {
  return diagonale(coins_.haut_dextre, coins_.bas_sénestre, 0, 1, Pièce::sautoir, ligne)
      .add(diagonale(coins_.bas_dextre, coins_.haut_sénestre, 0, 1, Pièce::sautoir, ligne));
}

Path Pièces_honorables::pairle(Ligne ligne) const {
  const double e = épaisseur(Pièce::pairle, 1);
  const Point m = coins_.cœur;
  // The two upper limbs mirror each other, wave for wave.
  const Path limbe = bandeau(entre(m, coins_.haut_dextre, 1.1), m, e, ligne, pas_ * pas_oblique);
  std::vector<Point> miroir = limbe.contours().front().points;
  for (Point &p : miroir) p.x = 2 * m.x - p.x;
  // Turned back, so that all limbs turn alike and none cancels another where they meet.
  std::reverse(miroir.begin(), miroir.end());
  return Path(limbe)
      .add_polygon(miroir)
      .add(bandeau(m, {m.x, large_.bas()}, e, ligne, pas_))
      .add_circle(m, e / 2);
}

Path Pièces_honorables::pile(Ligne ligne) const {
  const Point bout{c_.centre().x, c_.y + c_.h * 0.86};
  return ruban(frontière({c_.x + c_.l * 0.16, large_.y}, bout, ligne, pas_),
               frontière({c_.x + c_.l * 0.84, large_.y}, bout, ligne, pas_));
}

Path Pièces_honorables::pointe(Ligne ligne) const {
  const Point bout{c_.centre().x, c_.y + c_.h * 0.3};
  return ruban(frontière({c_.x, large_.bas()}, bout, ligne, pas_),
               frontière({c_.droite(), large_.bas()}, bout, ligne, pas_));
}

std::vector<Cadre> Pièces_honorables::places_autour(Pièce pièce) const {
  const double e = épaisseur(pièce, 1);
  const Point m = c_.centre();
  const Point k = coins_.cœur;
  // A part of the frame, in hundredths of its width and height.
  const auto part = [this](double x, double y, double l, double h) {
    return Cadre{c_.x + c_.l * x / 100, c_.y + c_.h * y / 100, c_.l * l / 100, c_.h * h / 100};
  };
  const double haut_du_bas = k.y - c_.h * 0.1;
  const double haut_des_flancs = k.y - c_.h * 0.28;
  switch (pièce) {
    case Pièce::fasce:
    case Pièce::burelle:
      return {{c_.x, c_.y, c_.l, m.y - e / 2 - c_.y}, {c_.x, m.y + e / 2, c_.l, c_.bas() - m.y - e / 2}};
    case Pièce::pal:
    case Pièce::vergette:
      return {{c_.x, c_.y, m.x - e / 2 - c_.x, c_.h}, {m.x + e / 2, c_.y, c_.droite() - m.x - e / 2, c_.h}};
    case Pièce::bande:
    case Pièce::cotice: return {part(42, 0, 58, 56), {c_.x, haut_du_bas, c_.l * 0.6, c_.h * 0.58}};
    case Pièce::barre: return {part(0, 0, 58, 56), {m.x - c_.l * 0.1, haut_du_bas, c_.l * 0.6, c_.h * 0.58}};
    case Pièce::chevron: return {part(0, 0, 48, 58), part(52, 0, 48, 58), part(20, 44, 60, 56)};
    case Pièce::croix:
      return {{c_.x, c_.y, c_.l / 2, k.y - c_.y},
              {m.x, c_.y, c_.l / 2, k.y - c_.y},
              {c_.x, k.y, c_.l / 2, c_.bas() - k.y},
              {m.x, k.y, c_.l / 2, c_.bas() - k.y}};
    case Pièce::sautoir:
      return {part(20, 0, 60, 42),
              {c_.x, haut_des_flancs, c_.l * 0.44, c_.h * 0.56},
              {c_.x + c_.l * 0.56, haut_des_flancs, c_.l * 0.44, c_.h * 0.56},
              part(20, 54, 60, 46)};
    case Pièce::pairle: return {part(15, 0, 70, 45), part(0, 20, 44, 75), part(56, 20, 44, 75)};
    case Pièce::pile: return {part(0, 20, 45, 70), part(55, 20, 45, 70)};
    case Pièce::pointe: return {part(0, 0, 50, 60), part(50, 0, 50, 60)};
    case Pièce::chef:
    case Pièce::champagne:
    case Pièce::terrasse:
    case Pièce::bordure:
    case Pièce::franc_canton:
    case Pièce::meuble: break;
  }
  return {};
}

std::vector<Place> Pièces_honorables::places_dessus(Pièce pièce, int nombre, double allongement) const {
  const double e = épaisseur(pièce, 1);
  const Point m = c_.centre();
  const Point k = coins_.cœur;
  const auto usuels = [&](const Cadre &cadre) {
    return en_rangs(cadre, rangs_usuels(nombre, cadre, allongement));
  };
  const auto sur_la_diagonale = [&](Point a, Point b) {
    const double angle = arc_tangent(b.y - a.y, b.x - a.x);
    return le_long(entre(a, b, 0.1), entre(a, b, 0.88), nombre, e, a.x < b.x ? angle : angle - pi);
  };
  switch (pièce) {
    case Pièce::chef: return en_rangs({c_.x, c_.y, c_.l, e}, {nombre});
    case Pièce::champagne:
    case Pièce::terrasse: return en_rangs({c_.x, c_.bas() - e, c_.l, e}, {nombre});
    case Pièce::fasce:
    case Pièce::burelle: return en_rangs({c_.x, m.y - e / 2, c_.l, e}, {nombre});
    case Pièce::pal:
    case Pièce::vergette:
      return en_rangs({m.x - e / 2, c_.y, e, c_.h}, std::vector<int>(static_cast<std::size_t>(nombre), 1));
    case Pièce::bande:
    case Pièce::cotice: return sur_la_diagonale(coins_.haut_dextre, coins_.bas_sénestre);
    case Pièce::barre: return sur_la_diagonale(coins_.haut_sénestre, coins_.bas_dextre);
    case Pièce::chevron: return places_du_chevron(nombre);
    case Pièce::croix:
      return places_rayonnantes(nombre, e, e * 1.2,
                                {{k.x, (c_.y + k.y - e / 2) / 2},
                                 {(c_.x + k.x - e / 2) / 2, k.y},
                                 {(c_.droite() + k.x + e / 2) / 2, k.y},
                                 {k.x, (c_.bas() + k.y + e / 2) / 2}});
    case Pièce::sautoir:
      return places_rayonnantes(nombre, e * 1.25, e * 1.2,
                                {entre(k, coins_.haut_dextre, 0.52), entre(k, coins_.haut_sénestre, 0.52),
                                 entre(k, coins_.bas_dextre, 0.52), entre(k, coins_.bas_sénestre, 0.52)});
    case Pièce::pairle:
      return places_rayonnantes(nombre, e * 1.3, e * 1.2,
                                {entre(k, coins_.haut_dextre, 0.55), entre(k, coins_.haut_sénestre, 0.55),
                                 entre(k, {m.x, c_.bas()}, 0.55)});
    case Pièce::pile: return usuels({c_.x + c_.l * 0.2, c_.y, c_.l * 0.6, c_.h * 0.6});
    case Pièce::pointe: return usuels({c_.x + c_.l * 0.25, c_.y + c_.h * 0.5, c_.l * 0.5, c_.h * 0.5});
    case Pièce::franc_canton: return usuels({c_.x, c_.y, c_.l * 0.44, c_.h * 0.4});
    case Pièce::bordure:
    case Pièce::meuble: break;
  }
  return {};
}

/// One in the middle and one on each limb; as many as there are limbs leave the middle free.
std::vector<Place> Pièces_honorables::places_rayonnantes(int nombre, double centre, double bras,
                                                         const std::vector<Point> &bouts) const {
  const int limbes = static_cast<int>(bouts.size());
  std::vector<Place> places;
  if (nombre != limbes) places.push_back({autour_de(coins_.cœur, centre, centre)});
  if (nombre >= limbes)
    for (const Point p : bouts) places.push_back({autour_de(p, bras, bras)});
  return places;
}

std::vector<Place> Pièces_honorables::places_du_chevron(int nombre) const {
  const double e = épaisseur(Pièce::chevron, 1);
  const auto [s, g, d] = pieds_du_chevron(c_, e * 0.72);
  const double pente = arc_tangent(d.y - s.y, d.x - s.x);
  std::vector<Place> places;
  if (nombre % 2 != 0) places.push_back({autour_de({s.x, s.y + e * 0.05}, e, e)});
  const int paires = nombre / 2;
  for (int i = 0; i < paires; ++i) {
    const double t = mix(0.36, 0.8, paires == 1 ? 0.45 : static_cast<double>(i) / (paires - 1));
    places.push_back({autour_de(entre(s, g, t), e, e), -pente});
    places.push_back({autour_de(entre(s, d, t), e, e), pente});
  }
  return places;
}

}  // namespace atelier
