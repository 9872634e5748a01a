#include "heraldry_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <optional>
#include <utility>

#include "math.h"

namespace atelier {
namespace {

constexpr Pixel encre{38, 28, 20};

struct Tons {
  Pixel corps;
  Pixel ombre;
  Pixel clair;
};

Tons tons(Pixel corps) {
  const auto vers = [&](Pixel but, double t) {
    const auto canal = [t](std::uint8_t a, std::uint8_t b) {
      return static_cast<std::uint8_t>(std::lround(mix(a, b, t)));
    };
    return Pixel{canal(corps.r, but.r), canal(corps.g, but.g), canal(corps.b, but.b)};
  };
  const int lumière = corps.r * 3 + corps.g * 6 + corps.b;
  // Lines drawn in the shade of black would not be seen: they are drawn in grey.
  const Pixel ombre = lumière < 700 ? Pixel{132, 124, 116} : vers({24, 12, 16}, lumière > 1900 ? 0.42 : 0.5);
  return {corps, ombre, vers({255, 255, 255}, 0.4)};
}

struct Cadre {
  double x = 0;
  double y = 0;
  double l = 0;
  double h = 0;
  Point centre() const { return {x + l / 2, y + h / 2}; }
};

/// A place of an arrangement: the room of one charge, and how far it is turned (radians, clockwise).
struct Place {
  Cadre cadre;
  double angle = 0;
};

/// A part of the picture that can be painted, with its smallest frame.
struct Zone {
  Coverage masque;
  Cadre cadre;
};

Zone zone(Coverage masque) {
  int gauche = masque.width, droite = -1, haut = masque.height, bas = -1;
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

Path rectangle(const Cadre &c) {
  return Path().add_rectangle(c.x, c.y, c.l, c.h);
}

/// The zone's pixels at least `marge` away from its edge, on a grid of the picture's size.
class Intérieur {
 public:
  Intérieur(const Coverage &masque, double marge) : largeur_(masque.width), hauteur_(masque.height) {
    const int r = static_cast<int>(std::lround(marge));
    std::vector<char> lignes(masque.values.size());
    libres_.resize(masque.values.size());
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
  bool contient(Point p) const {
    const int x = static_cast<int>(std::floor(p.x));
    const int y = static_cast<int>(std::floor(p.y));
    return x >= 0 && y >= 0 && x < largeur_ && y < hauteur_ && libres_[indice(x, y)] != 0;
  }

 private:
  std::size_t indice(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(largeur_) + static_cast<std::size_t>(x);
  }
  int largeur_;
  int hauteur_;
  std::vector<char> libres_;
};

/// A line from a to b in the style; its waves, teeth or merlons stand to both sides of the straight line.
std::vector<Point> frontière(Point a, Point b, Ligne ligne, double pas) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double longueur = std::sqrt(dx * dx + dy * dy);
  if (ligne == Ligne::droite || longueur == 0) return {a, b};
  const int n = std::max(1, static_cast<int>(std::lround(longueur / pas)));
  const Point travers{-dy / longueur, dx / longueur};
  const auto point = [&](double t, double écart) {
    return Point{a.x + dx * t + travers.x * écart, a.y + dy * t + travers.y * écart};
  };
  // On a slanted line a wave of the usual height would look like stairs.
  const double onde = pas * (dx != 0 && dy != 0 ? 0.12 : 0.19);
  std::vector<Point> points;
  for (int i = 0; i < n; ++i) {
    const double t = static_cast<double>(i);
    switch (ligne) {
      case Ligne::ondée:
        for (int k = 0; k < 16; ++k)
          points.push_back(point((t + k / 16.0) / n, sine(2 * pi * k / 16.0) * onde));
        break;
      case Ligne::engrêlée:
        for (int k = 0; k < 12; ++k)
          points.push_back(point((t + k / 12.0) / n, (0.5 - sine(pi * k / 12.0)) * pas * 0.34));
        break;
      case Ligne::crénelée:
        points.push_back(point(t / n, pas * 0.2));
        points.push_back(point((t + 0.5) / n, pas * 0.2));
        points.push_back(point((t + 0.5) / n, -pas * 0.2));
        points.push_back(point((t + 1) / n, -pas * 0.2));
        break;
      case Ligne::dentelée:
        points.push_back(point(t / n, pas * 0.24));
        points.push_back(point((t + 0.5) / n, -pas * 0.24));
        break;
      case Ligne::droite:
        break;
    }
  }
  points.push_back(point(1, ligne == Ligne::dentelée ? pas * 0.24 : 0));
  return points;
}

/// Between two lines that run the same way.
Path ruban(std::vector<Point> dessus, const std::vector<Point> &dessous) {
  dessus.insert(dessus.end(), dessous.rbegin(), dessous.rend());
  return Path().add_polygon(dessus);
}

/// A band around the line from a to b. Waves run in step on both edges; other styles point outwards.
Path bandeau(Point a, Point b, double épaisseur, Ligne ligne, double pas) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double longueur = std::sqrt(dx * dx + dy * dy);
  const Point e{-dy / longueur * épaisseur / 2, dx / longueur * épaisseur / 2};
  const auto dessus = frontière({a.x - e.x, a.y - e.y}, {b.x - e.x, b.y - e.y}, ligne, pas);
  if (ligne == Ligne::ondée)
    return ruban(dessus, frontière({a.x + e.x, a.y + e.y}, {b.x + e.x, b.y + e.y}, ligne, pas));
  auto dessous = frontière({b.x + e.x, b.y + e.y}, {a.x + e.x, a.y + e.y}, ligne, pas);
  std::reverse(dessous.begin(), dessous.end());
  return ruban(dessus, dessous);
}

std::vector<Place> en_rangs(const Cadre &c, const std::vector<int> &rangs) {
  std::vector<Place> places;
  const int plus_long = *std::max_element(rangs.begin(), rangs.end());
  const double l = c.l / plus_long;
  const double h = c.h / static_cast<double>(rangs.size());
  for (std::size_t i = 0; i < rangs.size(); ++i)
    for (int k = 0; k < rangs[i]; ++k)
      places.push_back({{c.x + c.l / 2 + (k - rangs[i] / 2.0) * l, c.y + h * static_cast<double>(i), l, h}});
  return places;
}

/// How many in each row, from the top, when the blazon leaves it to custom.
std::vector<int> rangs_usuels(int nombre, const Cadre &c, double allongement) {
  const auto n = static_cast<std::size_t>(nombre);
  if (c.l > c.h * 1.55 && nombre <= 6) return {nombre};
  if (c.h > c.l * 1.9) return std::vector<int>(n, 1);
  switch (nombre) {
    case 1:
      return {1};
    case 2:
      return allongement < 0.8 ? std::vector{2} : std::vector{1, 1};
    case 3:
      return {2, 1};
    case 4:
      return {2, 2};
    case 5:
      return {2, 1, 2};
    case 6:
      return {3, 2, 1};
    case 7:
      return {3, 3, 1};
    case 8:
      return {3, 2, 3};
    case 9:
      return {3, 3, 3};
    case 10:
      return {4, 3, 2, 1};
    default:
      return std::vector<int>(static_cast<std::size_t>((nombre + 3) / 4), 4);
  }
}

Cadre autour_de(Point centre, double l, double h) {
  return {centre.x - l / 2, centre.y - h / 2, l, h};
}

Point entre(Point a, Point b, double t) {
  return {mix(a.x, b.x, t), mix(a.y, b.y, t)};
}

std::vector<Place> le_long(Point a, Point b, int nombre, double largeur, double angle) {
  const double longueur = std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
  std::vector<Place> places;
  for (int i = 0; i < nombre; ++i)
    places.push_back({autour_de(entre(a, b, (i + 0.5) / nombre), longueur / nombre, largeur), angle});
  return places;
}

/// The geometry of ordinaries in a frame.
class Géométrie {
 public:
  Géométrie(const Cadre &cadre, double unité) : c_(cadre), u_(unité) {}

  /// Length of one wave or tooth.
  double pas() const { return std::max(6 * u_, std::min(c_.l, c_.h) * 0.17); }
  /// Where diagonals start and end: corner to corner in a banner, at the usual slope in a shield.
  Point haut_dextre() const { return {c_.x, c_.y}; }
  Point haut_sénestre() const { return {c_.x + c_.l, c_.y}; }
  Point bas_dextre() const { return {c_.x, bas_des_diagonales()}; }
  Point bas_sénestre() const { return {c_.x + c_.l, bas_des_diagonales()}; }
  Point cœur() const { return entre(haut_dextre(), bas_sénestre(), 0.5); }

  double épaisseur(Pièce pièce, int nombre) const {
    const double petit = std::min(c_.l, c_.h);
    switch (pièce) {
      case Pièce::chef:
        return c_.h * 0.3;
      case Pièce::champagne:
        return c_.h * 0.3;
      case Pièce::terrasse:
        return c_.h * 0.27;
      case Pièce::bordure:
        return petit * 0.105;
      case Pièce::fasce:
        return nombre == 1 ? c_.h * 0.3 : c_.h / (2 * nombre + 1);
      case Pièce::burelle:
        return c_.h / (3.2 * nombre + 1);
      case Pièce::pal:
        return nombre == 1 ? c_.l * 0.32 : c_.l / (2 * nombre + 1);
      case Pièce::vergette:
        return c_.l / (4 * nombre + 3);
      case Pièce::bande:
      case Pièce::barre:
        return petit * (nombre == 1 ? 0.32 : 0.42 / nombre);
      case Pièce::cotice:
        return petit * (nombre == 1 ? 0.13 : 0.24 / nombre);
      case Pièce::chevron:
        return petit * (nombre == 1 ? 0.2 : 0.3 / nombre);
      case Pièce::croix:
        return petit * 0.24;
      case Pièce::sautoir:
        return petit * 0.22;
      case Pièce::pairle:
        return petit * 0.22;
      default:
        return petit * 0.3;
    }
  }

  /// Slope of diagonals, radians clockwise.
  double pente() const {
    const Point a = haut_dextre();
    const Point b = bas_sénestre();
    return arc_tangent(b.y - a.y, b.x - a.x);
  }

  Point sommet_du_chevron() const { return {c_.x + c_.l / 2, c_.y + c_.h * 0.27}; }
  Point pied_dextre_du_chevron() const { return {c_.x - c_.l * 0.04, c_.y + c_.h * 0.8}; }

  std::vector<Path> formes(Pièce pièce, int nombre, Ligne ligne) const {
    const double e = épaisseur(pièce, nombre);
    const double x1 = c_.x - 2 * u_;
    const double x2 = c_.x + c_.l + 2 * u_;
    const double y1 = c_.y - 2 * u_;
    const double y2 = c_.y + c_.h + 2 * u_;
    const Point milieu = c_.centre();
    std::vector<Path> result;
    switch (pièce) {
      case Pièce::chef:
        result.push_back(
            ruban({{x1, y1}, {x2, y1}}, frontière({x1, c_.y + e}, {x2, c_.y + e}, ligne, pas())));
        break;
      case Pièce::champagne:
        result.push_back(ruban(frontière({x1, c_.y + c_.h - e}, {x2, c_.y + c_.h - e}, ligne, pas()),
                               {{x1, y2}, {x2, y2}}));
        break;
      case Pièce::terrasse: {
        Path path;
        const double y = c_.y + c_.h - e;
        path.move_to({x1, y + e * 0.3});
        path.curve_to({mix(x1, x2, 0.3), y - e * 0.15}, {mix(x1, x2, 0.6), y - e * 0.1}, {x2, y + e * 0.35});
        path.line_to({x2, y2}).line_to({x1, y2}).close();
        result.push_back(path);
        break;
      }
      case Pièce::fasce:
      case Pièce::burelle:
        for (int i = 0; i < nombre; ++i) {
          const double y = c_.y + c_.h * (i + 1.0) / (nombre + 1);
          result.push_back(bandeau({x1, y}, {x2, y}, e, ligne, pas()));
        }
        break;
      case Pièce::pal:
      case Pièce::vergette:
        for (int i = 0; i < nombre; ++i) {
          const double x = c_.x + c_.l * (i + 1.0) / (nombre + 1);
          result.push_back(bandeau({x, y1}, {x, y2}, e, ligne, pas()));
        }
        break;
      case Pièce::bande:
      case Pièce::cotice:
        for (int i = 0; i < nombre; ++i)
          result.push_back(diagonale(haut_dextre(), bas_sénestre(), i, nombre, e, ligne));
        break;
      case Pièce::barre:
        for (int i = 0; i < nombre; ++i)
          result.push_back(diagonale(bas_dextre(), haut_sénestre(), i, nombre, e, ligne));
        break;
      case Pièce::chevron:
        for (int i = 0; i < nombre; ++i) result.push_back(chevron(i, nombre, e, ligne));
        break;
      case Pièce::croix: {
        Path path = bandeau({milieu.x, y1}, {milieu.x, y2}, e, ligne, pas());
        path.add(bandeau({x1, cœur().y}, {x2, cœur().y}, e, ligne, pas()));
        result.push_back(path);
        break;
      }
      case Pièce::sautoir: {
        Path path = diagonale(haut_dextre(), bas_sénestre(), 0, 1, e, ligne);
        path.add(diagonale(bas_dextre(), haut_sénestre(), 0, 1, e, ligne));
        result.push_back(path);
        break;
      }
      case Pièce::pairle: {
        const Point m = cœur();
        Path path = bandeau(prolongé(m, haut_dextre()), m, e, ligne, pas() * 1.35);
        path.add(bandeau(m, prolongé(m, haut_sénestre()), e, ligne, pas() * 1.35));
        path.add(bandeau(m, {m.x, y2}, e, ligne, pas()));
        path.add_circle(m, e / 2);
        result.push_back(path);
        break;
      }
      case Pièce::pile:
        result.push_back(
            ruban(frontière({c_.x + c_.l * 0.16, y1}, {milieu.x, c_.y + c_.h * 0.86}, ligne, pas()),
                  frontière({c_.x + c_.l * 0.84, y1}, {milieu.x, c_.y + c_.h * 0.86}, ligne, pas())));
        break;
      case Pièce::pointe:
        result.push_back(ruban(frontière({c_.x, y2}, {milieu.x, c_.y + c_.h * 0.3}, ligne, pas()),
                               frontière({c_.x + c_.l, y2}, {milieu.x, c_.y + c_.h * 0.3}, ligne, pas())));
        break;
      case Pièce::franc_canton:
        result.push_back(Path().add_rectangle(x1, y1, c_.l * 0.44 + 2 * u_, c_.h * 0.4 + 2 * u_));
        break;
      case Pièce::bordure:
      case Pièce::meuble:
        break;
    }
    return result;
  }

  /// Frames beside the piece, for what accompanies it, in the order of their naming.
  std::vector<Cadre> places_autour(Pièce pièce) const {
    const double e = épaisseur(pièce, 1);
    const Point m = c_.centre();
    switch (pièce) {
      case Pièce::fasce:
      case Pièce::burelle:
        return {{c_.x, c_.y, c_.l, m.y - e / 2 - c_.y}, {c_.x, m.y + e / 2, c_.l, c_.y + c_.h - m.y - e / 2}};
      case Pièce::pal:
      case Pièce::vergette:
        return {{c_.x, c_.y, m.x - e / 2 - c_.x, c_.h}, {m.x + e / 2, c_.y, c_.x + c_.l - m.x - e / 2, c_.h}};
      case Pièce::bande:
      case Pièce::cotice:
        return {{m.x - c_.l * 0.08, c_.y, c_.l * 0.58, c_.h * 0.56},
                {c_.x, cœur().y - c_.h * 0.1, c_.l * 0.6, c_.h * 0.58}};
      case Pièce::barre:
        return {{c_.x, c_.y, c_.l * 0.58, c_.h * 0.56},
                {m.x - c_.l * 0.1, cœur().y - c_.h * 0.1, c_.l * 0.6, c_.h * 0.58}};
      case Pièce::chevron:
        return {{c_.x, c_.y, c_.l / 2, c_.h * 0.52},
                {m.x, c_.y, c_.l / 2, c_.h * 0.52},
                {c_.x + c_.l * 0.22, c_.y + c_.h * 0.46, c_.l * 0.56, c_.h * 0.54}};
      case Pièce::croix:
        return {{c_.x, c_.y, c_.l / 2, cœur().y - c_.y},
                {m.x, c_.y, c_.l / 2, cœur().y - c_.y},
                {c_.x, cœur().y, c_.l / 2, c_.y + c_.h - cœur().y},
                {m.x, cœur().y, c_.l / 2, c_.y + c_.h - cœur().y}};
      case Pièce::sautoir:
        return {{c_.x + c_.l * 0.2, c_.y, c_.l * 0.6, c_.h * 0.42},
                {c_.x, cœur().y - c_.h * 0.28, c_.l * 0.44, c_.h * 0.56},
                {c_.x + c_.l * 0.56, cœur().y - c_.h * 0.28, c_.l * 0.44, c_.h * 0.56},
                {c_.x + c_.l * 0.2, c_.y + c_.h * 0.54, c_.l * 0.6, c_.h * 0.46}};
      case Pièce::pairle:
        return {{c_.x + c_.l * 0.15, c_.y, c_.l * 0.7, c_.h * 0.45},
                {c_.x, c_.y + c_.h * 0.2, c_.l * 0.44, c_.h * 0.75},
                {c_.x + c_.l * 0.56, c_.y + c_.h * 0.2, c_.l * 0.44, c_.h * 0.75}};
      case Pièce::pile:
        return {{c_.x, c_.y + c_.h * 0.2, c_.l * 0.45, c_.h * 0.7},
                {c_.x + c_.l * 0.55, c_.y + c_.h * 0.2, c_.l * 0.45, c_.h * 0.7}};
      case Pièce::pointe:
        return {{c_.x, c_.y, c_.l * 0.5, c_.h * 0.6}, {c_.x + c_.l * 0.5, c_.y, c_.l * 0.5, c_.h * 0.6}};
      default:
        return {};
    }
  }

  /// Places on the piece itself, for what it is charged with.
  std::vector<Place> places_dessus(Pièce pièce, int nombre, double allongement) const {
    const double e = épaisseur(pièce, 1);
    const Point m = c_.centre();
    switch (pièce) {
      case Pièce::chef:
        return en_rangs({c_.x, c_.y, c_.l, e}, {nombre});
      case Pièce::champagne:
      case Pièce::terrasse:
        return en_rangs({c_.x, c_.y + c_.h - e, c_.l, e}, {nombre});
      case Pièce::fasce:
      case Pièce::burelle:
        return en_rangs({c_.x, m.y - e / 2, c_.l, e}, {nombre});
      case Pièce::pal:
      case Pièce::vergette:
        return en_rangs({m.x - e / 2, c_.y, e, c_.h}, std::vector<int>(static_cast<std::size_t>(nombre), 1));
      case Pièce::bande:
      case Pièce::cotice:
        return le_long(entre(haut_dextre(), bas_sénestre(), 0.1), entre(haut_dextre(), bas_sénestre(), 0.88),
                       nombre, e, pente());
      case Pièce::barre:
        return le_long(entre(haut_sénestre(), bas_dextre(), 0.1), entre(haut_sénestre(), bas_dextre(), 0.88),
                       nombre, e, -pente());
      case Pièce::chevron:
        return places_du_chevron(nombre, e);
      case Pièce::croix: {
        const Point k = cœur();
        std::vector<Place> places;
        if (nombre != 4) places.push_back({autour_de(k, e, e)});
        if (nombre >= 4)
          for (const Point p :
               {Point{k.x, (c_.y + k.y - e / 2) / 2}, Point{(c_.x + k.x - e / 2) / 2, k.y},
                Point{(c_.x + c_.l + k.x + e / 2) / 2, k.y}, Point{k.x, (c_.y + c_.h + k.y + e / 2) / 2}})
            places.push_back({autour_de(p, e * 1.2, e * 1.2)});
        return places;
      }
      case Pièce::sautoir: {
        std::vector<Place> places;
        if (nombre != 4) places.push_back({autour_de(cœur(), e * 1.25, e * 1.25)});
        if (nombre >= 4)
          for (const Point p : {haut_dextre(), haut_sénestre(), bas_dextre(), bas_sénestre()})
            places.push_back({autour_de(entre(cœur(), p, 0.52), e * 1.2, e * 1.2)});
        return places;
      }
      case Pièce::pairle: {
        std::vector<Place> places;
        if (nombre != 3) places.push_back({autour_de(cœur(), e * 1.3, e * 1.3)});
        if (nombre >= 3)
          for (const Point p : {haut_dextre(), haut_sénestre(), Point{m.x, c_.y + c_.h}})
            places.push_back({autour_de(entre(cœur(), p, 0.55), e * 1.2, e * 1.2)});
        return places;
      }
      case Pièce::pile:
        return en_rangs({c_.x + c_.l * 0.2, c_.y, c_.l * 0.6, c_.h * 0.6},
                        rangs_usuels(nombre, c_, allongement));
      case Pièce::pointe:
        return en_rangs({c_.x + c_.l * 0.25, c_.y + c_.h * 0.5, c_.l * 0.5, c_.h * 0.5},
                        rangs_usuels(nombre, c_, allongement));
      case Pièce::franc_canton:
        return en_rangs({c_.x, c_.y, c_.l * 0.44, c_.h * 0.4},
                        rangs_usuels(nombre, {0, 0, 1, 1}, allongement));
      case Pièce::bordure:
      case Pièce::meuble:
        return {};
    }
    return {};
  }

 private:
  double bas_des_diagonales() const { return c_.l > c_.h * 1.2 ? c_.y + c_.h : c_.y + c_.h * 0.94; }

  Point prolongé(Point depuis, Point vers) const { return entre(depuis, vers, 1.1); }

  /// A band along the diagonal; several stand side by side across it.
  Path diagonale(Point a, Point b, int i, int nombre, double e, Ligne ligne) const {
    const double décalage = (i - (nombre - 1) / 2.0) * e * 2.1;
    const double longueur = std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
    const Point d{-(b.y - a.y) / longueur * décalage, (b.x - a.x) / longueur * décalage};
    const Point de = entre(b, a, 1.3);
    const Point à = entre(a, b, 1.3);
    return bandeau({de.x + d.x, de.y + d.y}, {à.x + d.x, à.y + d.y}, e, ligne, pas() * 1.35);
  }

  Path chevron(int i, int nombre, double e, Ligne ligne) const {
    const double écart = nombre == 1 ? 0 : (i - (nombre - 1) / 2.0) * e * 2.4;
    const Point s{sommet_du_chevron().x, sommet_du_chevron().y + écart};
    const Point g{pied_dextre_du_chevron().x, pied_dextre_du_chevron().y + écart};
    const Point d{2 * s.x - g.x, g.y};
    // Vertical thickness that gives a limb the thickness e.
    const double longueur = std::sqrt((s.x - g.x) * (s.x - g.x) + (s.y - g.y) * (s.y - g.y));
    const double v = e * longueur / (s.x - g.x);
    const auto bord = [&](double y, bool vers_le_bas) {
      std::vector<Point> gauche = vers_le_bas ? frontière({s.x, s.y + y}, {g.x, g.y + y}, ligne, pas())
                                              : frontière({g.x, g.y + y}, {s.x, s.y + y}, ligne, pas());
      std::vector<Point> droite = vers_le_bas ? frontière({d.x, d.y + y}, {s.x, s.y + y}, ligne, pas())
                                              : frontière({s.x, s.y + y}, {d.x, d.y + y}, ligne, pas());
      if (vers_le_bas) std::swap(gauche, droite);
      gauche.insert(gauche.end(), droite.begin(), droite.end());
      return gauche;
    };
    auto points = bord(0, false);
    const auto dessous = bord(v, true);
    points.insert(points.end(), dessous.begin(), dessous.end());
    return Path().add_polygon(points);
  }

  std::vector<Place> places_du_chevron(int nombre, double e) const {
    const Point s{sommet_du_chevron().x, sommet_du_chevron().y + e * 0.72};
    const Point g{pied_dextre_du_chevron().x, pied_dextre_du_chevron().y + e * 0.72};
    const Point d{2 * s.x - g.x, g.y};
    const double pente = arc_tangent(d.y - s.y, d.x - s.x);
    std::vector<Place> places;
    if (nombre % 2 != 0) places.push_back({autour_de({s.x, s.y + e * 0.05}, e, e)});
    for (int k = 0; k < nombre / 2; ++k) {
      const double t = mix(0.36, 0.8, nombre < 4 ? 0.45 : static_cast<double>(k) / (nombre / 2 - 1.0));
      places.push_back({autour_de(entre(s, g, t), e, e), -pente});
      places.push_back({autour_de(entre(s, d, t), e, e), pente});
    }
    return places;
  }

  Cadre c_;
  double u_;
};

/// Number of charges in each of the frames around a piece.
std::vector<int> répartis(int nombre, std::size_t cadres, Pièce pièce, Lieu lieu) {
  std::vector<int> result(cadres, 0);
  if (cadres == 0) return result;
  const bool chevron = pièce == Pièce::chevron;
  if (lieu == Lieu::en_pointe) {
    result.back() = nombre;
  } else if (lieu == Lieu::en_chef && chevron) {
    result[0] = (nombre + 1) / 2;
    result[1] = nombre / 2;
  } else if (lieu == Lieu::en_chef) {
    result[0] = nombre;
  } else if (chevron && nombre == 1) {
    result[2] = 1;
  } else {
    for (int i = 0; i < nombre; ++i) ++result[static_cast<std::size_t>(i) % cadres];
  }
  return result;
}

class Peintre {
 public:
  Peintre(Image &image, const Meubles &meubles, double unité) : image_(image), meubles_(meubles), u_(unité) {}

  void peindre(const Blason &blason, const Zone &entière) {
    peindre_champ(blason.champ, entière);
    const Partition partition = blason.champ.partition;
    const bool encadré = partition == Partition::chapé || partition == Partition::chaussé;
    // Pieces on the edge take their room first; the rest of the field is what the others are set in.
    Zone reste = encadré ? dans(entière, parts_du_champ(blason.champ, entière.cadre).front().first) : entière;
    for (const Objet &objet : blason.objets)
      if (est_de_bord(objet.pièce)) reste = hors_de(reste, chemin_de_bord(objet, entière));
    for (const Objet &objet : blason.objets)
      if (!est_de_bord(objet.pièce)) peindre_objet(objet, reste);
    for (const Objet &objet : blason.objets)
      if (est_de_bord(objet.pièce)) peindre_pièce(objet, entière, {chemin_de_bord(objet, entière)});
  }

  void peindre_meuble(const Meuble &meuble, const Objet &objet, const Affine &affine,
                      const Coverage &pochoir) {
    const auto [haut, bas] = bornes(meuble.silhouette().transformed(affine));
    const double échelle = std::sqrt(std::abs(affine.xx * affine.yy - affine.xy * affine.yx));
    const double contour = 0.85 * u_;
    for (std::size_t i = 0; i < meuble.traits.size();) {
      std::size_t fin = i + 1;
      while (fin < meuble.traits.size() && meuble.traits[fin].joint) ++fin;
      for (std::size_t k = i; k < fin; ++k)
        if (meuble.traits[k].contour)
          remplir(contour_de(meuble.traits[k], affine, échelle, contour), pochoir, encre, haut, bas);
      for (std::size_t k = i; k < fin; ++k)
        remplir(surface_de(meuble.traits[k], affine, échelle), pochoir,
                peinture(meuble, objet, meuble.traits[k]), haut, bas);
      i = fin;
    }
  }

 private:
  static bool est_de_bord(Pièce pièce) {
    return pièce == Pièce::chef || pièce == Pièce::champagne || pièce == Pièce::terrasse ||
           pièce == Pièce::bordure || pièce == Pièce::franc_canton;
  }

  static std::pair<double, double> bornes(const Path &path) {
    const auto [low, high] = path.bounds();
    return {low.y, high.y};
  }

  static Path surface_de(const Trait_de_meuble &trait, const Affine &affine, double échelle) {
    const Path forme = trait.forme.transformed(affine);
    return trait.plume > 0 ? stroked(forme, trait.plume * échelle) : forme;
  }

  static Path contour_de(const Trait_de_meuble &trait, const Affine &affine, double échelle, double contour) {
    const Path forme = trait.forme.transformed(affine);
    return stroked(forme, trait.plume * échelle + 2 * contour);
  }

  void remplir(const Path &path, const Coverage &pochoir, Pixel couleur_, double haut, double bas) {
    fill_within(image_, path, pochoir, [&](int, int y) {
      // Light falls from above: a little more of it at the head than at the foot.
      const double t = clamp01((y - haut) / std::max(1.0, bas - haut));
      return éclairé(couleur_, mix(1.07, 0.9, t));
    });
  }

  static Pixel éclairé(Pixel p, double facteur) {
    const auto canal = [facteur](std::uint8_t v) {
      return static_cast<std::uint8_t>(std::lround(std::min(255.0, v * facteur)));
    };
    return {canal(p.r), canal(p.g), canal(p.b), p.a};
  }

  Pixel peinture(const Meuble &meuble, const Objet &objet, const Trait_de_meuble &trait) const {
    std::string nom_ = trait.peinture;
    if (const auto détail = meuble.détails.find(nom_); détail != meuble.détails.end()) {
      if (const auto choisi = objet.détails.find(nom_); choisi != objet.détails.end())
        return couleur(choisi->second);
      nom_ = détail->second;
    }
    const Tons t = tons(objet.émail == Émail::naturel ? meuble.naturel : couleur(objet.émail));
    if (nom_ == "corps") return t.corps;
    if (nom_ == "ombre") return t.ombre;
    if (nom_ == "clair") return t.clair;
    if (nom_ == "encre") return encre;
    if (nom_.starts_with('#')) return lire_couleur(nom_);
    for (int i = 0; i <= static_cast<int>(Émail::pourpre); ++i)
      if (nom(static_cast<Émail>(i)) == nom_) return couleur(static_cast<Émail>(i));
    throw Erreur_de_blason("charge \"" + meuble.nom + "\": no paint named " + nom_);
  }

  void peindre_émail(const Zone &zone_, Émail émail) {
    const Path tout =
        rectangle({0, 0, static_cast<double>(image_.width()), static_cast<double>(image_.height())});
    const Pixel fond =
        émail == Émail::hermine || émail == Émail::vair ? couleur(Émail::argent) : couleur(émail);
    fill_within(image_, tout, zone_.masque, [fond](int, int) { return fond; });
    if (émail == Émail::hermine) semer(zone_, meubles_.chercher("moucheture"), Émail::sable);
    if (émail == Émail::vair) peindre_vair(zone_);
  }

  void peindre_vair(const Zone &zone_) {
    const Cadre &c = zone_.cadre;
    const double l = std::max(10 * u_, std::min(c.l, c.h) / 4.5);
    const double h = l * 1.1;
    Path cloches;
    int rang = 0;
    for (double y = c.y; y < c.y + c.h; y += h, ++rang)
      for (double x = c.x - l + (rang % 2) * l / 2; x < c.x + c.l + l; x += l) {
        const std::array<Point, 8> points{{{x, y + h},
                                           {x, y + h * 0.8},
                                           {x + l * 0.25, y + h * 0.55},
                                           {x + l * 0.25, y + h * 0.25},
                                           {x + l * 0.5, y},
                                           {x + l * 0.75, y + h * 0.25},
                                           {x + l * 0.75, y + h * 0.55},
                                           {x + l, y + h * 0.8}}};
        std::vector<Point> contour(points.begin(), points.end());
        contour.push_back({x + l, y + h});
        cloches.add_polygon(contour);
      }
    fill_within(image_, cloches, zone_.masque, [](int, int) { return couleur(Émail::azur); });
  }

  void semer(const Zone &zone_, const Meuble &meuble, Émail émail) {
    const Cadre &c = zone_.cadre;
    const double pas = std::max(11 * u_, std::min(c.l, c.h) / 3.9);
    const double taille = pas * 0.76;
    const double k = taille / std::max(meuble.largeur, meuble.hauteur);
    Objet objet;
    objet.émail = émail;
    int rang = 0;
    for (double y = c.y + pas * 0.5; y < c.y + c.h + pas / 2; y += pas * 0.86, ++rang)
      for (double x = c.x + c.l / 2 - 6 * pas + (rang % 2) * pas / 2; x < c.x + c.l + pas; x += pas) {
        if (x < c.x - pas) continue;
        peindre_meuble(meuble, objet,
                       Affine::translation(-meuble.largeur / 2, -meuble.hauteur / 2)
                           .then(Affine::scaling(k, k))
                           .then(Affine::translation(x, y)),
                       zone_.masque);
      }
  }

  void tracer(const Path &path, const Zone &zone_) {
    const Pixel ligne{encre.r, encre.g, encre.b, 190};
    fill_within(image_, stroked(path, 0.9 * u_), zone_.masque, [ligne](int, int) { return ligne; });
  }

  void peindre_champ(const Champ &champ, const Zone &zone_) {
    if (champ.partition == Partition::plein) {
      peindre_émail(zone_, champ.émaux[0]);
      if (!champ.semé.empty()) semer(zone_, meubles_.chercher(champ.semé), champ.émail_du_semé);
      return;
    }
    const auto parts = parts_du_champ(champ, zone_.cadre);
    if (champ.quartiers.empty()) peindre_émail(zone_, champ.émaux[0]);
    for (const auto &[path, part] : parts) {
      const Zone zone_de_la_part = dans(zone_, path);
      if (zone_de_la_part.cadre.l == 0) continue;
      if (champ.quartiers.empty())
        peindre_émail(zone_de_la_part, champ.émaux[part % champ.émaux.size()]);
      else
        peindre(champ.quartiers[part], zone_de_la_part);
    }
    for (const auto &[path, part] : parts) tracer(path, zone_);
  }

  /// The parts of a divided field and which tincture or quarter each has.
  std::vector<std::pair<Path, std::size_t>> parts_du_champ(const Champ &champ, const Cadre &c) const {
    const double m = 3 * u_;
    const double x1 = c.x - m, x2 = c.x + c.l + m, y1 = c.y - m, y2 = c.y + c.h + m;
    const Point k = c.centre();
    const double pas = Géométrie(c, u_).pas();
    const double bas = c.l > c.h * 1.2 ? c.y + c.h : c.y + c.h * 0.94;
    const Point hd{c.x, c.y}, hs{c.x + c.l, c.y}, bd{c.x, bas}, bs{c.x + c.l, bas};
    const auto loin = [](Point a, Point b) { return entre(a, b, 1.4); };
    const int n = champ.pièces;
    std::vector<std::pair<Path, std::size_t>> parts;
    const auto ajouter = [&](const Path &path, std::size_t part) { parts.emplace_back(path, part); };
    const auto polygone = [](std::initializer_list<Point> points) {
      return Path().add_polygon(std::vector<Point>(points));
    };
    switch (champ.partition) {
      case Partition::plein:
        break;
      case Partition::parti: {
        const auto ligne = frontière({k.x, y1}, {k.x, y2}, champ.ligne, pas);
        ajouter(ruban({{x1, y1}, {x1, y2}}, ligne), 0);
        ajouter(ruban(ligne, {{x2, y1}, {x2, y2}}), 1);
        break;
      }
      case Partition::coupé: {
        const auto ligne = frontière({x1, k.y}, {x2, k.y}, champ.ligne, pas);
        ajouter(ruban({{x1, y1}, {x2, y1}}, ligne), 0);
        ajouter(ruban(ligne, {{x1, y2}, {x2, y2}}), 1);
        break;
      }
      case Partition::tranché: {
        const auto ligne = frontière(loin(bs, hd), loin(hd, bs), champ.ligne, pas);
        ajouter(ruban(ligne, {{x1, y1 - c.h}, {x2 + c.l, y1 - c.h}, {x2 + c.l, y2 + c.h}}), 0);
        ajouter(ruban(ligne, {{x1 - c.l, y1}, {x1 - c.l, y2 + c.h}, {x2, y2 + c.h}}), 1);
        break;
      }
      case Partition::taillé: {
        const auto ligne = frontière(loin(hs, bd), loin(bd, hs), champ.ligne, pas);
        ajouter(ruban(ligne, {{x1 - c.l, y2}, {x1 - c.l, y1 - c.h}, {x2, y1 - c.h}}), 0);
        ajouter(ruban(ligne, {{x1, y2 + c.h}, {x2 + c.l, y2 + c.h}, {x2 + c.l, y1}}), 1);
        break;
      }
      case Partition::écartelé: {
        const bool émaux = champ.quartiers.empty();
        ajouter(polygone({{x1, y1}, {k.x, y1}, k, {x1, k.y}}), 0);
        ajouter(polygone({{k.x, y1}, {x2, y1}, {x2, k.y}, k}), 1);
        ajouter(polygone({{x1, k.y}, k, {k.x, y2}, {x1, y2}}), émaux ? 1 : 2);
        ajouter(polygone({k, {x2, k.y}, {x2, y2}, {k.x, y2}}), émaux ? 0 : 3);
        break;
      }
      case Partition::écartelé_en_sautoir: {
        const Point o = entre(hd, bs, 0.5);
        ajouter(polygone({loin(o, hd), loin(o, hs), o}), 0);
        ajouter(polygone({loin(o, hs), loin(o, bs), o}), 1);
        ajouter(polygone({loin(o, bs), {k.x, y2 + c.h}, loin(o, bd), o}), 0);
        ajouter(polygone({loin(o, bd), loin(o, hd), o}), 1);
        break;
      }
      case Partition::gironné: {
        const Point o = entre(hd, bs, 0.5);
        for (int i = 0; i < n; ++i) {
          const auto rayon = [&](int j) {
            const double angle = 2 * pi * j / n - pi / 2;
            return Point{o.x + cosine(angle) * 2 * c.l, o.y + sine(angle) * 2 * c.h * (bas - c.y) / c.h};
          };
          ajouter(polygone({o, rayon(i), rayon(i + 1)}), static_cast<std::size_t>(i % 2));
        }
        break;
      }
      case Partition::tiercé_en_fasce:
      case Partition::fascé: {
        const int bandes = champ.partition == Partition::fascé ? n : 3;
        for (int i = 0; i < bandes; ++i) {
          const double haut = c.y + c.h * i / bandes;
          const double dessous = c.y + c.h * (i + 1) / bandes;
          const auto bord = [&](double y) { return frontière({x1, y}, {x2, y}, champ.ligne, pas); };
          ajouter(ruban(i == 0 ? std::vector<Point>{{x1, y1}, {x2, y1}} : bord(haut),
                        i + 1 == bandes ? std::vector<Point>{{x1, y2}, {x2, y2}} : bord(dessous)),
                  static_cast<std::size_t>(i));
        }
        break;
      }
      case Partition::tiercé_en_pal:
      case Partition::palé: {
        const int bandes = champ.partition == Partition::palé ? n : 3;
        for (int i = 0; i < bandes; ++i) {
          const auto bord = [&](int j) {
            const double x = c.x + c.l * j / bandes;
            return frontière({x, y1}, {x, y2}, champ.ligne, pas);
          };
          ajouter(ruban(i == 0 ? std::vector<Point>{{x1, y1}, {x1, y2}} : bord(i),
                        i + 1 == bandes ? std::vector<Point>{{x2, y1}, {x2, y2}} : bord(i + 1)),
                  static_cast<std::size_t>(i));
        }
        break;
      }
      case Partition::bandé:
      case Partition::barré: {
        const bool bandé = champ.partition == Partition::bandé;
        const Point de = bandé ? hs : hd;
        const Point à = bandé ? bd : bs;
        const Point le_long_a = bandé ? hd : bd;
        const Point le_long_b = bandé ? bs : hs;
        const Point d{(le_long_b.x - le_long_a.x) * 1.2, (le_long_b.y - le_long_a.y) * 1.2};
        for (int i = 0; i < n; ++i) {
          const auto bord = [&](int j) {
            const double t = j == 0 ? -0.5 : j == n ? 1.5 : static_cast<double>(j) / n;
            const Point p = entre(de, à, t);
            return frontière({p.x - d.x, p.y - d.y}, {p.x + d.x, p.y + d.y}, champ.ligne, pas);
          };
          ajouter(ruban(bord(i), bord(i + 1)), static_cast<std::size_t>(i));
        }
        break;
      }
      case Partition::chevronné:
        for (int i = 0; i < n; ++i) {
          const auto bord = [&](int j) {
            const double y = j == 0   ? y1 - c.h
                             : j == n ? y2 + c.h
                                      : c.y + c.h * (j - 0.6) / (n - 1.0) - c.h * 0.12;
            return std::vector<Point>{{x1, y + c.l * 0.45}, {k.x, y}, {x2, y + c.l * 0.45}};
          };
          ajouter(ruban(bord(i), bord(i + 1)), static_cast<std::size_t>(i));
        }
        break;
      case Partition::échiqueté: {
        const double carreau = c.l / n;
        int rang = 0;
        for (double y = c.y; y < c.y + c.h; y += carreau, ++rang)
          for (int i = 0; i < n; ++i)
            if ((rang + i) % 2 != 0) ajouter(Path().add_rectangle(c.x + carreau * i, y, carreau, carreau), 1);
        break;
      }
      case Partition::losangé: {
        const double l = c.l / n;
        const double h = l * 1.35;
        int rang = 0;
        for (double y = c.y; y < c.y + c.h + h; y += h, ++rang)
          for (int i = 0; i <= n; ++i) {
            const double x = c.x + l * i;
            ajouter(polygone({{x, y - h / 2}, {x + l / 2, y}, {x, y + h / 2}, {x - l / 2, y}}), 1);
          }
        break;
      }
      case Partition::chapé:
        ajouter(polygone({{k.x, y1}, {x2, bas}, {x2, y2}, {x1, y2}, {x1, bas}}), 0);
        ajouter(polygone({{x1, y1}, {k.x, y1}, {x1, bas}}), 1);
        ajouter(polygone({{x2, y1}, {k.x, y1}, {x2, bas}}), 1);
        break;
      case Partition::chaussé:
        ajouter(polygone({{x1, y1}, {x2, y1}, {k.x, y2}}), 0);
        ajouter(polygone({{x1, y1}, {k.x, y2}, {x1, y2}}), 1);
        ajouter(polygone({{x2, y1}, {k.x, y2}, {x2, y2}}), 1);
        break;
    }
    return parts;
  }

  Path chemin_de_bord(const Objet &objet, const Zone &entière) const {
    if (objet.pièce == Pièce::bordure) return bordure(objet, entière);
    return Géométrie(entière.cadre, u_).formes(objet.pièce, 1, objet.ligne).front();
  }

  /// All that lies outside the zone moved inwards.
  Path bordure(const Objet &objet, const Zone &entière) const {
    const double e = Géométrie(entière.cadre, u_).épaisseur(Pièce::bordure, 1);
    std::vector<Point> bord = lieu_intérieur(entière, e);
    if (objet.ligne != Ligne::droite)
      bord = bord_travaillé(bord, objet.ligne, Géométrie(entière.cadre, u_).pas() * 0.75);
    const Cadre &c = entière.cadre;
    const double m = 4 * u_;
    Path path;
    path.add_rectangle(c.x - m, c.y - m, c.l + 2 * m, c.h + 2 * m);
    // The hole turns the other way, so that both rules of filling leave it open.
    std::reverse(bord.begin(), bord.end());
    return path.add_polygon(bord);
  }

  static std::vector<Point> bord_travaillé(const std::vector<Point> &bord, Ligne ligne, double pas) {
    std::vector<Point> result;
    double reste = 0;
    std::size_t depuis = 0;
    for (std::size_t i = 0; i < bord.size(); ++i) {
      const Point a = bord[i];
      const Point b = bord[(i + 1) % bord.size()];
      reste += std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
      if (reste < pas && i + 1 < bord.size()) continue;
      const auto morceau = frontière(bord[depuis], b, ligne, pas);
      result.insert(result.end(), morceau.begin(), morceau.end() - 1);
      depuis = (i + 1) % bord.size();
      reste = 0;
    }
    return result;
  }

  /// The outline of the zone at `écart` from its edge, clockwise, as seen from its middle.
  std::vector<Point> lieu_intérieur(const Zone &zone_, double écart) const {
    const Intérieur intérieur(zone_.masque, écart);
    const Point centre{zone_.cadre.centre().x, zone_.cadre.y + zone_.cadre.h * 0.45};
    std::vector<Point> points;
    constexpr int n = 180;
    for (int i = 0; i < n; ++i) {
      const double angle = 2 * pi * i / n;
      const Point d{cosine(angle), sine(angle)};
      double t = 0;
      while (intérieur.contient({centre.x + d.x * (t + 0.25), centre.y + d.y * (t + 0.25)})) t += 0.25;
      points.push_back({centre.x + d.x * t, centre.y + d.y * t});
    }
    return points;
  }

  void peindre_objet(const Objet &objet, const Zone &zone_) {
    if (objet.pièce == Pièce::meuble)
      peindre_meubles_accompagnés(objet, zone_);
    else
      peindre_pièce(objet, zone_, Géométrie(zone_.cadre, u_).formes(objet.pièce, objet.nombre, objet.ligne));
  }

  void peindre_pièce(const Objet &objet, const Zone &zone_, const std::vector<Path> &formes) {
    Zone autour = zone_;
    for (const Path &forme : formes) {
      const Pixel ombre{20, 12, 8, 70};
      fill_within(image_, forme.transformed(Affine::translation(0.9 * u_, 1.1 * u_)), zone_.masque,
                  [ombre](int, int) { return ombre; });
    }
    for (const Path &forme : formes) {
      const Zone pièce = dans(zone_, forme);
      const Pixel ligne{encre.r, encre.g, encre.b, 220};
      // Where bands cross, an outline inside the piece is covered again by its paint.
      fill_within(image_, stroked(forme, 1.7 * u_), zone_.masque, [ligne](int, int) { return ligne; });
      peindre_émail(pièce, objet.émail);
      autour = hors_de(autour, forme);
    }
    for (const Annexe &annexe : objet.annexes) {
      if (annexe.relation == Relation::chargé)
        charger(objet, annexe.objet, zone_, formes);
      else
        accompagner(objet, annexe, zone_, autour);
    }
  }

  void charger(const Objet &dessous, const Objet &dessus, const Zone &zone_,
               const std::vector<Path> &formes) {
    Path tout;
    for (const Path &forme : formes) tout.add(forme);
    const Zone pièce = dans(zone_, tout);
    if (dessus.pièce != Pièce::meuble) {
      peindre_objet(dessus, pièce);
      return;
    }
    const Meuble &meuble = meubles_.chercher(dessus.meuble);
    std::vector<Place> places;
    if (dessous.pièce == Pièce::bordure) {
      const double e = Géométrie(zone_.cadre, u_).épaisseur(Pièce::bordure, 1);
      places = sur_le_tour(zone_, e * 0.52, dessus.nombre, e * 0.95);
    } else if (dessous.nombre > 1) {
      const int chacun = dessus.nombre / dessous.nombre;
      for (const Path &forme : formes) {
        const Cadre c = dans(zone_, forme).cadre;
        const auto rangs = en_rangs(c, rangs_usuels(chacun, c, meuble.largeur / meuble.hauteur));
        places.insert(places.end(), rangs.begin(), rangs.end());
      }
    } else {
      places = Géométrie(zone_.cadre, u_)
                   .places_dessus(dessous.pièce, dessus.nombre, meuble.largeur / meuble.hauteur);
    }
    poser(meuble, dessus, places, pièce, 1.6 * u_);
  }

  std::vector<Place> sur_le_tour(const Zone &zone_, double écart, int nombre, double taille) const {
    const auto tour = lieu_intérieur(zone_, écart);
    std::vector<double> cumul{0};
    for (std::size_t i = 0; i < tour.size(); ++i) {
      const Point a = tour[i];
      const Point b = tour[(i + 1) % tour.size()];
      cumul.push_back(cumul.back() + std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y)));
    }
    // The first stands at the top: three quarters of a turn from where the outline begins.
    const std::size_t haut = tour.size() * 3 / 4;
    std::vector<Place> places;
    for (int i = 0; i < nombre; ++i) {
      double but = cumul[haut] + cumul.back() * i / nombre;
      if (but >= cumul.back()) but -= cumul.back();
      const auto après = std::upper_bound(cumul.begin() + 1, cumul.end() - 1, but);
      places.push_back(
          {autour_de(tour[static_cast<std::size_t>(après - cumul.begin()) - 1], taille, taille)});
    }
    return places;
  }

  void accompagner(const Objet &principal, const Annexe &annexe, const Zone &zone_, const Zone &autour) {
    const Objet &objet = annexe.objet;
    const Meuble &meuble = meubles_.chercher(objet.meuble);
    const auto cadres = Géométrie(zone_.cadre, u_).places_autour(principal.pièce);
    const auto nombres = répartis(objet.nombre, cadres.size(), principal.pièce, annexe.lieu);
    std::vector<Place> places;
    for (std::size_t i = 0; i < cadres.size(); ++i) {
      if (nombres[i] == 0) continue;
      const auto rangs = disposés(objet, nombres[i], cadres[i], meuble);
      places.insert(places.end(), rangs.begin(), rangs.end());
    }
    poser(meuble, objet, places, autour, marge(autour));
  }

  double marge(const Zone &zone_) const {
    return std::clamp(std::min(zone_.cadre.l, zone_.cadre.h) * 0.05, 1.8 * u_, 4.4 * u_);
  }

  /// A banner leaves a single charge more air than a shield, whose shape already holds it off the edge.
  double marge_du_principal(const Objet &objet, const Zone &zone_) const {
    const bool bannière = zone_.cadre.l > zone_.cadre.h * 1.2;
    return marge(zone_) * (bannière && objet.nombre == 1 ? 2 : 1);
  }

  /// A charge with what surrounds it: strips of the field are given to the others, the rest to it.
  void peindre_meubles_accompagnés(const Objet &objet, const Zone &zone_) {
    const Meuble &meuble = meubles_.chercher(objet.meuble);
    Cadre c = zone_.cadre;
    struct Groupe {
      const Objet *objet;
      std::vector<Place> places;
    };
    std::vector<Groupe> groupes;
    bool sur_un_sol = false;
    Zone libre = zone_;
    for (const Annexe &annexe : objet.annexes) {
      const Objet &autre = annexe.objet;
      if (annexe.relation == Relation::soutenu) {
        const auto formes = Géométrie(zone_.cadre, u_).formes(autre.pièce, autre.nombre, autre.ligne);
        peindre_pièce(autre, zone_, formes);
        // The charge stands a little inside the ground, as feet do.
        const double y =
            zone_.cadre.y + zone_.cadre.h - Géométrie(zone_.cadre, u_).épaisseur(autre.pièce, 1) * 0.72;
        c.h = y - c.y;
        sur_un_sol = true;
        continue;
      }
      const Meuble &autre_meuble = meubles_.chercher(autre.meuble);
      if (annexe.relation == Relation::accosté) {
        const double l = c.l * 0.27;
        const int gauche = (autre.nombre + 1) / 2;
        auto places = en_rangs({c.x, c.y + c.h * 0.08, l, c.h * 0.6},
                               std::vector<int>(static_cast<std::size_t>(gauche), 1));
        const auto droite = en_rangs({c.x + c.l - l, c.y + c.h * 0.08, l, c.h * 0.6},
                                     std::vector<int>(static_cast<std::size_t>(autre.nombre / 2), 1));
        places.insert(places.end(), droite.begin(), droite.end());
        groupes.push_back({&autre, places});
        c = {c.x + l, c.y, c.l - 2 * l, c.h};
      } else if (annexe.relation == Relation::cantonné || autre.nombre == 4) {
        const double l = c.l * 0.3, h = c.h * 0.3;
        std::vector<Place> places;
        for (const double y : {c.y, c.y + c.h * 0.62})
          for (const double x : {c.x, c.x + c.l - l}) places.push_back({{x, y, l, h}});
        groupes.push_back({&autre, places});
        c = {c.x + l * 0.72, c.y + h * 0.35, c.l - l * 1.44, c.h - h * 0.8};
      } else if (annexe.lieu == Lieu::en_pointe) {
        const double h = c.h * 0.27;
        groupes.push_back(
            {&autre, disposés(autre, autre.nombre, {c.x, c.y + c.h - h, c.l, h}, autre_meuble)});
        c.h -= h;
      } else if (annexe.lieu == Lieu::partout && autre.nombre == 3 &&
                 annexe.relation == Relation::accompagné) {
        const double l = c.l * 0.3, h = c.h * 0.26;
        groupes.push_back({&autre,
                           {{{c.x, c.y, l, h}},
                            {{c.x + c.l - l, c.y, l, h}},
                            {{c.x + c.l / 2 - l / 2, c.y + c.h - h, l, h}}}});
        c = {c.x + c.l * 0.1, c.y + h * 0.6, c.l * 0.8, c.h - h * 1.55};
      } else {
        const double h = c.h * 0.26;
        groupes.push_back({&autre, disposés(autre, autre.nombre, {c.x, c.y, c.l, h}, autre_meuble)});
        c.y += h;
        c.h -= h;
      }
    }
    const double m = marge(zone_);
    for (const Groupe &groupe : groupes)
      poser(meubles_.chercher(groupe.objet->meuble), *groupe.objet, groupe.places, libre, m);
    if (objet.disposition == Disposition::mouvant_de_la_pointe)
      poser_mouvant(meuble, objet, zone_);
    else if (sur_un_sol)
      poser(meuble, objet, disposés(objet, objet.nombre, c, meuble), libre, m, true);
    else
      poser(meuble, objet, disposés(objet, objet.nombre, c, meuble), libre, marge_du_principal(objet, zone_));
  }

  std::vector<Place> disposés(const Objet &objet, int nombre, const Cadre &c, const Meuble &meuble) const {
    const double allongement = meuble.largeur / meuble.hauteur;
    const auto n = static_cast<std::size_t>(nombre);
    const double quart = pi / 4;
    switch (objet.disposition) {
      case Disposition::en_rangs:
        if (nombre == objet.nombre) return en_rangs(c, objet.rangs);
        break;
      case Disposition::en_fasce:
        if (nombre == 1) return {{c, allongement < 1 ? pi / 2 : 0}};
        return en_rangs(c, {nombre});
      case Disposition::en_pal:
        if (nombre == 1) return {{c, allongement > 1 ? -pi / 2 : 0}};
        return en_rangs(c, std::vector<int>(n, 1));
      case Disposition::en_bande:
      case Disposition::en_barre: {
        const bool bande = objet.disposition == Disposition::en_bande;
        if (nombre == 1) return {{c, (allongement < 1) == bande ? -quart : quart}};
        const Point a = bande ? Point{c.x, c.y} : Point{c.x + c.l, c.y};
        const Point b = bande ? Point{c.x + c.l, c.y + c.h * 0.9} : Point{c.x, c.y + c.h * 0.9};
        return le_long(entre(a, b, 0.06), entre(a, b, 0.94), nombre, std::min(c.l, c.h) * 0.42, 0);
      }
      case Disposition::en_sautoir:
        if (nombre == 2)
          return {{c, allongement < 1 ? -quart : quart}, {c, allongement < 1 ? quart : -quart}};
        if (nombre == 5) return en_rangs(c, {2, 1, 2});
        break;
      case Disposition::en_croix:
        if (nombre == 5) return en_rangs(c, {1, 3, 1});
        break;
      case Disposition::en_orle: {
        const Path cadre = rectangle(c);
        const Zone zone_ = zone(coverage(cadre, image_.width(), image_.height()));
        return sur_le_tour(zone_, std::min(c.l, c.h) * 0.15, nombre, std::min(c.l, c.h) * 0.2);
      }
      case Disposition::mouvant_de_la_pointe:
      case Disposition::usuelle:
        break;
    }
    return en_rangs(c, rangs_usuels(nombre, c, allongement));
  }

  static Affine pose(const Meuble &meuble, const Objet &objet, double échelle, double angle, Point centre) {
    const double sx = objet.contourné ? -échelle : échelle;
    const double sy = objet.renversé ? -échelle : échelle;
    return Affine::translation(-meuble.largeur / 2, -meuble.hauteur / 2)
        .then(Affine::scaling(sx, sy))
        .then(Affine::rotation(angle))
        .then(Affine::translation(centre.x, centre.y));
  }

  static std::vector<Point> points_de(const Path &path) {
    std::vector<Point> points;
    for (const Contour &contour : path.contours()) {
      const std::size_t n = contour.points.size();
      for (std::size_t i = 0; i < n; ++i) {
        // Long straight edges count between their ends too.
        const Point a = contour.points[i];
        const Point b = contour.points[(i + 1) % n];
        const int parts = 1 + static_cast<int>(std::max(std::abs(b.x - a.x), std::abs(b.y - a.y)) / 6);
        for (int k = 0; k < parts; ++k) points.push_back(entre(a, b, static_cast<double>(k) / parts));
      }
    }
    return points;
  }

  /// Where the charge fits at this scale, as near as can be to the middle of its place.
  std::optional<Point> centre_libre(const std::vector<Point> &points, const Meuble &meuble,
                                    const Objet &objet, double échelle, const Place &place,
                                    const Intérieur &intérieur, bool au_sol) const {
    const Affine base = pose(meuble, objet, échelle, place.angle, {0, 0});
    std::vector<Point> tournés;
    Point low{1e9, 1e9}, high{-1e9, -1e9};
    for (const Point p : points) {
      const Point q = base.apply(p);
      low = {std::min(low.x, q.x), std::min(low.y, q.y)};
      high = {std::max(high.x, q.x), std::max(high.y, q.y)};
      tournés.push_back(q);
    }
    const Cadre &c = place.cadre;
    const bool droit = place.angle == 0;
    if (droit && (high.x - low.x > c.l || high.y - low.y > c.h)) return {};
    Point milieu{c.centre().x - (low.x + high.x) / 2, c.centre().y - (low.y + high.y) / 2};
    if (au_sol) milieu.y = c.y + c.h - high.y;
    const double jeu_x =
        droit ? std::min(std::max(0.0, (c.l - (high.x - low.x)) / 2), c.l * 0.2) : c.l * 0.12;
    const double jeu_y = au_sol ? 0 : droit ? (c.h - (high.y - low.y)) / 2 : c.h * 0.16;
    const auto libre = [&](Point centre) {
      return std::all_of(tournés.begin(), tournés.end(), [&](Point p) {
        if (au_sol && p.y > high.y * 0.75) return true;
        return intérieur.contient({p.x + centre.x, p.y + centre.y});
      });
    };
    constexpr int essais = 12;
    for (int rayon = 0; rayon <= essais; ++rayon)
      for (int dy = -rayon; dy <= rayon; ++dy)
        for (const int dx : {0, -(rayon - std::abs(dy)), rayon - std::abs(dy)}) {
          if (dx == 0 && std::abs(dy) != rayon) continue;
          const Point centre{milieu.x + jeu_x * dx / essais, milieu.y + jeu_y * dy / essais};
          if (libre(centre)) return centre;
        }
    return {};
  }

  /// As large as all places allow. Throws Erreur_de_blason when that is too small to be known again.
  void poser(const Meuble &meuble, const Objet &objet, const std::vector<Place> &places, const Zone &zone_,
             double marge_, bool au_sol = false) {
    const Intérieur intérieur(zone_.masque, marge_);
    const auto points = points_de(meuble.silhouette());
    // One scale for all: that of the narrowest place.
    std::vector<Point> centres;
    double échelle = 4 * std::max(image_.width(), image_.height()) / std::max(meuble.largeur, meuble.hauteur);
    for (const Place &place : places) {
      const double côté = std::max(place.cadre.l, place.cadre.h);
      échelle = std::min(échelle, côté * 1.5 / std::max(meuble.largeur, meuble.hauteur));
    }
    // Below five pixels of the plain drawing nobody knows a tower from a tree.
    const double la_moindre = 5 * u_ / std::max(meuble.largeur, meuble.hauteur);
    for (; échelle >= la_moindre; échelle *= 0.97) {
      // A little air between neighbours.
      const double avec_air = places.size() > 1 ? échelle * 1.08 : échelle;
      centres.clear();
      for (const Place &place : places) {
        const auto centre = centre_libre(points, meuble, objet, avec_air, place, intérieur, au_sol);
        if (!centre) break;
        centres.push_back(*centre);
      }
      if (centres.size() == places.size()) break;
    }
    if (centres.size() != places.size()) throw Erreur_de_blason("no room for \"" + meuble.nom + "\"");
    for (std::size_t i = 0; i < places.size(); ++i) {
      Objet tourné = objet;
      if (objet.disposition == Disposition::en_sautoir && objet.nombre == 2 && i == 1)
        tourné.contourné = !objet.contourné;
      peindre_meuble(meuble, tourné, pose(meuble, tourné, échelle, places[i].angle, centres[i]),
                     zone_.masque);
    }
  }

  /// Over the full width, its foot below the field's lower edge so that nothing shows under it.
  void poser_mouvant(const Meuble &meuble, const Objet &objet, const Zone &zone_) {
    const Cadre &c = zone_.cadre;
    const auto [low, high] = meuble.silhouette().bounds();
    const double k = c.l * 1.02 / (high.x - low.x);
    const Affine affine = Affine::translation(-(low.x + high.x) / 2, -high.y)
                              .then(Affine::scaling(k, k))
                              .then(Affine::translation(c.centre().x, c.y + c.h + 1 * u_));
    peindre_meuble(meuble, objet, affine, zone_.masque);
  }

  Image &image_;
  const Meubles &meubles_;
  double u_;
};

}  // namespace

Pixel couleur(Émail émail) {
  switch (émail) {
    case Émail::or_:
      return {243, 192, 54};
    case Émail::argent:
    case Émail::hermine:
      return {246, 243, 234};
    case Émail::gueules:
      return {196, 32, 44};
    case Émail::azur:
    case Émail::vair:
      return {34, 88, 168};
    case Émail::sable:
      return {44, 40, 38};
    case Émail::sinople:
      return {38, 122, 66};
    case Émail::pourpre:
      return {122, 56, 130};
    case Émail::naturel:
      return {150, 106, 62};
  }
  return encre;
}

void dessiner_blason(Image &image, const Blason &blason, const Meubles &meubles, const Path &contour,
                     double unité) {
  Peintre(image, meubles, unité).peindre(blason, zone(coverage(contour, image.width(), image.height())));
}

void dessiner_meuble(Image &image, const Meuble &meuble, Émail émail, Point coin, double largeur,
                     double hauteur, double unité) {
  const auto [low, high] = meuble.silhouette().bounds();
  const double k = std::min(largeur / (high.x - low.x), hauteur / (high.y - low.y));
  const Affine affine = Affine::translation(-(low.x + high.x) / 2, -high.y)
                            .then(Affine::scaling(k, k))
                            .then(Affine::translation(coin.x + largeur / 2, coin.y + hauteur));
  Objet objet;
  objet.émail = émail;
  const Path tout =
      rectangle({0, 0, static_cast<double>(image.width()), static_cast<double>(image.height())});
  const Meubles aucun;
  Peintre(image, aucun, unité)
      .peindre_meuble(meuble, objet, affine, coverage(tout, image.width(), image.height()));
}

}  // namespace atelier
