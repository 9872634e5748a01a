#include "marks/sign.h"

#include <array>
#include <cstdio>
#include <vector>

#include "drawing/raster.h"
#include "marks/figure.h"

namespace atelier {
namespace {

using namespace teinte;

constexpr double unités = 64;
constexpr const char *contour_de_l_écu = "M7 6 H57 V31 C57 45.5 46 54.5 32 60 C18 54.5 7 45.5 7 31 Z";
constexpr Pixel haut_du_ciel{196, 226, 246}, bas_du_ciel{120, 178, 226};

/// What lies on the shield: a surface or, with a pen, a line; a circle if it has a radius.
struct Pan {
  const char *d = "";
  Point centre{};
  double rayon = 0;
  double plume = 0;
  Pixel couleur{};
};

Pan surface(const char *d, Pixel couleur) {
  return {d, {}, 0, 0, couleur};
}
Pan rond(Point centre, double rayon, Pixel couleur, double plume = 0) {
  return {"", centre, rayon, plume, couleur};
}

/// From the hindmost to the foremost, in a frame of 64 x 64.
std::vector<Pan> pans(bool fin) {
  const Pan montagnes = surface("M2 36 L14 20 L20 27 L31 10 L42 27 L47 22 L62 38 V44 H2 Z", {112, 134, 166});
  const Pan neige = surface("M31 10 L37.2 19.4 L33.4 17.8 L31 21.6 L28 18 L24.8 19.8 Z", blanc);
  const Pan plaine = surface("M2 35 C14 30 22 37 34 34 C46 31 52 34 62 32 V64 H2 Z", {134, 186, 98});
  const Pan champs = surface("M2 45 C16 40 26 46 38 43 C48 40.4 56 42 62 40 V64 H2 Z", {252, 226, 96});
  constexpr Pixel eau{58, 126, 196};
  if (!fin) {
    constexpr Point lieu{45, 44};
    return {
        montagnes,
        neige,
        plaine,
        champs,
        surface("M32 33 C27 38 36 41 29 46 C23 51 29 55 28 62 H37 C38 55 32 51 36 47 C42 41 33 38 37 33 Z",
                eau),
        rond(lieu, 10.5, blanc),
        rond(lieu, 7.4, rouge, 4.4),
        rond(lieu, 2.6, rouge)};
  }
  constexpr Point lieu{44, 45};
  return {rond({46, 15}, 5.5, {255, 244, 190}),
          montagnes,
          neige,
          surface("M14 20 L17.4 24 L14.6 23.2 L12.6 25 L10.6 24.6 Z", blanc),
          surface("M31 10 L42 27 L47 22 L62 38 V44 H36 L33 28 Z", {84, 104, 140, 120}),
          plaine,
          champs,
          {"M2 45 C16 40 26 46 38 43 C48 40.4 56 42 62 40", {}, 0, 1.1, {120, 96, 20}},
          surface("M33.4 33.4 C29 38 37 40 30.6 45.4 C24 50.4 31 54 29 62 H37 C37.4 55 30.8 51.4 35.4 46.6 "
                  "C40.6 41 32.6 38.4 34.6 33.6 Z",
                  eau),
          rond(lieu, 7.0, blanc),
          rond(lieu, 5.2, rouge, 2.6),
          rond(lieu, 1.9, rouge)};
}

Path forme(const Pan &pan) {
  if (pan.rayon > 0)
    return pan.plume > 0 ? anneau(pan.centre, pan.rayon, pan.plume) : disque(pan.centre, pan.rayon);
  return pan.plume > 0 ? trait(pan.d, pan.plume, Cap::butt) : path_from_svg(pan.d);
}

// --- As text

template <class... Valeurs>
std::string écrit(const char *modèle, Valeurs... valeurs) {
  std::array<char, 512> texte{};
  std::snprintf(texte.data(), texte.size(), modèle, valeurs...);
  return texte.data();
}

std::string couleur_svg(Pixel p) {
  return écrit("#%02x%02x%02x", p.r, p.g, p.b);
}

std::string pan_svg(const Pan &pan) {
  std::string texte =
      pan.rayon > 0 ? écrit("<circle cx=\"%g\" cy=\"%g\" r=\"%g\"", pan.centre.x, pan.centre.y, pan.rayon)
                    : écrit("<path d=\"%s\"", pan.d);
  texte += pan.plume > 0 ? écrit(" fill=\"none\" stroke-width=\"%g\" stroke=\"", pan.plume) : " fill=\"";
  texte += couleur_svg(pan.couleur) + "\"";
  if (pan.couleur.a < 255) texte += écrit(" fill-opacity=\"%.3f\"", pan.couleur.a / 255.0);
  return "    " + texte + "/>\n";
}

std::string bord_svg(Pixel couleur, double largeur, double opacité) {
  return écrit(
      "  <path d=\"%s\" fill=\"none\" stroke-linejoin=\"round\" stroke=\"%s\" stroke-width=\"%g\" "
      "stroke-opacity=\"%.3f\"/>\n",
      contour_de_l_écu, couleur_svg(couleur).c_str(), largeur, opacité);
}

/// Of the outline in a picture of a size, pixels.
double cerne_de(int côté) {
  return côté < 32 ? 1.0 : 0.6 + côté / unités;
}
constexpr double liseré_par_cerne = 0.8;

}  // namespace

Image enseigne(int côté, bool fin) {
  const double échelle = côté / unités;
  const Affine agrandissement = Affine::scaling(échelle, échelle);
  const Path écu = path_from_svg(contour_de_l_écu);
  const double cerne = cerne_de(côté);
  Image image = dessiner({cerné(écu, haut_du_ciel, bas_du_ciel)},
                         {côté, côté, échelle, cerne, côté < 32 ? 0.0 : cerne * liseré_par_cerne});
  const Coverage pochoir = coverage(écu.transformed(agrandissement), côté, côté);
  for (const Pan &pan : pans(fin))
    fill_within(image, forme(pan).transformed(agrandissement), pochoir,
                [&](int, int) { return pan.couleur; });
  return image;
}

std::string enseigne_svg() {
  constexpr int plus_grande = 256;  // of the pictures: nothing smaller is drawn from this
  const double cerne = cerne_de(plus_grande) * unités / plus_grande;
  std::string texte =
      "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 64 64\" width=\"64\" height=\"64\">\n";
  texte += "  <linearGradient id=\"ciel\" x2=\"0\" y2=\"1\"><stop stop-color=\"" + couleur_svg(haut_du_ciel) +
           "\"/><stop offset=\"1\" stop-color=\"" + couleur_svg(bas_du_ciel) + "\"/></linearGradient>\n";
  texte += écrit("  <clipPath id=\"ecu\"><path d=\"%s\"/></clipPath>\n", contour_de_l_écu);
  texte += bord_svg(blanc, 2 * cerne * (1 + liseré_par_cerne), opacité_du_liseré / 255.0);
  texte += bord_svg(encre, 2 * cerne, 1);
  texte += "  <g clip-path=\"url(#ecu)\">\n";
  texte += écrit("    <path d=\"%s\" fill=\"url(#ciel)\"/>\n", contour_de_l_écu);
  for (const Pan &pan : pans(true)) texte += pan_svg(pan);
  return texte + "  </g>\n</svg>\n";
}

}  // namespace atelier
