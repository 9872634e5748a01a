#include "marks/figure.h"

#include <cmath>
#include <utility>

#include "drawing/raster.h"
#include "numbers/math.h"

namespace atelier {
namespace {

Pixel entre(Pixel a, Pixel b, double t) {
  const auto composante = [t](std::uint8_t de, std::uint8_t à) {
    return static_cast<std::uint8_t>(std::lround(mix(de, à, t)));
  };
  return {composante(a.r, b.r), composante(a.g, b.g), composante(a.b, b.b), composante(a.a, b.a)};
}

void remplir(Image &image, const Path &forme, const Aplat &aplat) {
  const auto [bas, haut] = forme.bounds();
  const double début = bas.y;
  const double étendue = haut.y > bas.y ? haut.y - bas.y : 1.0;
  fill(image, forme,
       [&](int, int y) { return entre(aplat.haut, aplat.bas, clamp01((y + 0.5 - début) / étendue)); });
}

/// The shape together with a seam of `marge` pixels around it. Filled in two steps: contours that turn
/// against each other would cancel out in one.
void remplir_élargie(Image &image, const Path &forme, double marge, Pixel couleur) {
  fill(image, stroked(forme, 2 * marge), couleur);
  fill(image, forme, couleur);
}

/// The white edge under the whole figure, of one opacity all over.
Image liseré(const std::vector<Path> &formes, const Figure &figure, const Rendu &rendu) {
  Image image(rendu.largeur, rendu.hauteur);
  for (std::size_t i = 0; i < figure.size(); ++i) {
    if (figure[i].cerné) remplir_élargie(image, formes[i], rendu.cerne + rendu.liseré, teinte::blanc);
  }
  for (Pixel &pixel : image.pixels()) {
    pixel.a = static_cast<std::uint8_t>(pixel.a * opacité_du_liseré / 255);
  }
  return image;
}

}  // namespace

Aplat cerné(Path forme, Pixel couleur) {
  return {std::move(forme), couleur, couleur, true};
}
Aplat cerné(Path forme, Pixel haut, Pixel bas) {
  return {std::move(forme), haut, bas, true};
}
Aplat détail(Path forme, Pixel couleur) {
  return {std::move(forme), couleur, couleur, false};
}
Aplat détail(Path forme, Pixel haut, Pixel bas) {
  return {std::move(forme), haut, bas, false};
}

Path trait(std::string_view d, double largeur, Cap bout) {
  return stroked(path_from_svg(d), largeur, bout, Join::round);
}

Path disque(Point centre, double rayon) {
  return Path().add_circle(centre, rayon);
}

Path anneau(Point centre, double rayon, double largeur) {
  return stroked(disque(centre, rayon), largeur, Cap::butt, Join::round);
}

Path arc(Point centre, double rayon, double de, double à, double largeur) {
  constexpr int pas = 32;
  Path ligne;
  for (int i = 0; i <= pas; ++i) {
    const double angle = mix(de, à, static_cast<double>(i) / pas) * pi / 180;
    const Point p{centre.x + rayon * cosine(angle), centre.y + rayon * sine(angle)};
    if (i == 0) {
      ligne.move_to(p);
    } else {
      ligne.line_to(p);
    }
  }
  return stroked(ligne, largeur, Cap::butt, Join::round);
}

Path étoile(Point centre, double rayon, double rayon_intérieur, int pointes) {
  std::vector<Point> sommets;
  for (int i = 0; i < 2 * pointes; ++i) {
    const double angle = pi * i / pointes - pi / 2;
    const double r = i % 2 == 0 ? rayon : rayon_intérieur;
    sommets.push_back({centre.x + r * cosine(angle), centre.y + r * sine(angle)});
  }
  return polygon(sommets);
}

Path rectangle_arrondi(double x, double y, double largeur, double hauteur, double rayon) {
  const double droite = x + largeur;
  const double bas = y + hauteur;
  Path forme;
  forme.move_to({x + rayon, y}).line_to({droite - rayon, y}).quad_to({droite, y}, {droite, y + rayon});
  forme.line_to({droite, bas - rayon}).quad_to({droite, bas}, {droite - rayon, bas});
  forme.line_to({x + rayon, bas}).quad_to({x, bas}, {x, bas - rayon});
  forme.line_to({x, y + rayon}).quad_to({x, y}, {x + rayon, y});
  return forme.close();
}

Image dessiner(const Figure &figure, const Rendu &rendu) {
  const Affine agrandissement = Affine::scaling(rendu.échelle, rendu.échelle);
  std::vector<Path> formes;
  for (const Aplat &aplat : figure) formes.push_back(aplat.forme.transformed(agrandissement));
  Image image = rendu.liseré > 0 ? liseré(formes, figure, rendu) : Image(rendu.largeur, rendu.hauteur);
  for (std::size_t i = 0; i < figure.size(); ++i) {
    if (figure[i].cerné) remplir_élargie(image, formes[i], rendu.cerne, teinte::encre);
    remplir(image, formes[i], figure[i]);
  }
  return image;
}

}  // namespace atelier
