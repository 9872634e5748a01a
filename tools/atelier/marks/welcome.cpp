#include "marks/welcome.h"

#include <cmath>

#include "drawing/raster.h"
#include "files/catalogue.h"
#include "files/gif_file.h"
#include "files/image_file.h"
#include "marks/figure.h"
#include "numbers/math.h"

namespace atelier {
namespace {

namespace fs = std::filesystem;

constexpr int largeur = 120;
constexpr int hauteur = 132;
constexpr const char *fichier = "icons/accueil.gif";

/// A shade that runs from 0 to 1 in a few steps, the pixels of two neighbouring steps mixed by Bayer's
/// ordered 4 x 4 pattern: a GIF has too few colours for every step of every shade, and a regular pattern is
/// quieter to the eye than the dots of error diffusion.
double en_marches(double t, int x, int y) {
  constexpr int marches = 12;
  constexpr int motif[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
  const double seuil = (motif[y & 3][x & 3] + 0.5) / 16;
  return clamp01(std::floor(t * marches + seuil) / marches);
}

/// Draws shapes into one picture, clipped to its frame.
class Toile {
 public:
  Toile(double échelle, const Path &cadre)
      : image(static_cast<int>(largeur * échelle), static_cast<int>(hauteur * échelle)),
        agrandissement_(Affine::scaling(échelle, échelle)),
        pochoir_(coverage(cadre.transformed(agrandissement_), image.width(), image.height())),
        échelle_(échelle) {}

  void poser(const Path &forme, Pixel couleur) { poser(forme, couleur, couleur, 0, hauteur); }

  /// Filled from `haut` at height y0 to `bas` at height y1.
  void poser(const Path &forme, Pixel haut, Pixel bas, double y0, double y1) {
    fill_within(image, forme.transformed(agrandissement_), pochoir_, [=, this](int x, int y) {
      const double t = en_marches(clamp01(((y + 0.5) / échelle_ - y0) / (y1 - y0)), x, y);
      const auto ton = [t](std::uint8_t a, std::uint8_t b) {
        return static_cast<std::uint8_t>(std::lround(mix(a, b, t)));
      };
      return Pixel{ton(haut.r, bas.r), ton(haut.g, bas.g), ton(haut.b, bas.b), ton(haut.a, bas.a)};
    });
  }

  void poser(const char *d, Pixel haut, Pixel bas, double y0, double y1) {
    poser(path_from_svg(d), haut, bas, y0, y1);
  }
  void poser(const char *d, Pixel couleur) { poser(path_from_svg(d), couleur); }
  void tracer(const char *d, double épaisseur, Pixel couleur) { poser(trait(d, épaisseur), couleur); }

  Image image;

 private:
  Affine agrandissement_;
  Coverage pochoir_;
  double échelle_;
};

void ciel(Toile &toile) {
  toile.poser("M0 0 H120 V132 H0 Z", {92, 150, 206}, {255, 236, 196}, 4, 62);
  toile.poser(disque({84, 33}, 21), {255, 248, 214, 60});
  toile.poser(disque({84, 33}, 15), {255, 248, 214, 90});
  toile.poser(disque({84, 33}, 9.5), {255, 250, 226});
  toile.poser("M8 27 C12 22 18 23 20 25 C23 19 33 20 34 26 C38 24 43 26 44 29 H6 C6 28 7 27 8 27 Z",
              {255, 255, 255, 190});
  toile.poser("M62 16 C65 13 69 14 70 15.6 C73 12 79 13 80 17 C83 16 86 17 86 19 H61 Z",
              {255, 255, 255, 150});
}

void montagnes(Toile &toile) {
  toile.poser("M0 56 L12 44 L20 50 L32 36 L44 49 L54 42 L66 52 L78 41 L90 51 L104 40 L120 54 V80 H0 Z",
              {156, 182, 212}, {214, 222, 222}, 38, 66);
  toile.poser("M-6 72 L16 50 L24 57 L42 29 L58 53 L66 48 L88 72 Z", {92, 118, 158}, {150, 172, 178}, 30, 70);
  toile.poser("M42 29 L58 53 L66 48 L88 72 H50 L44 50 Z", {62, 86, 130, 130}, {96, 124, 150, 90}, 30, 72);
  toile.poser("M42 29 L50 41 L46.6 40 L44.6 45.4 L41.6 41 L38.4 44.6 L34.8 40.2 Z", {255, 255, 255});
  toile.poser("M44.6 45.4 L42 29 L50 41 L46.6 40 Z", {196, 212, 234});
  toile.poser("M16 50 L20.4 54 L17.4 54.6 L15 57.4 L11.2 54.8 Z", {244, 248, 252});
  toile.poser("M80 70 L98 46 L108 57 L112 53 L126 70 Z", {104, 130, 162}, {158, 178, 178}, 46, 70);
  toile.poser("M98 46 L108 57 L112 53 L126 70 H102 Z", {70, 96, 138, 120}, {100, 128, 150, 80}, 46, 70);
  toile.poser("M98 46 L102.6 51 L99.4 51.4 L97 54.8 L93.2 52.6 Z", {250, 252, 255});
}

void plaine(Toile &toile) {
  toile.poser("M0 67 C20 60 34 68 54 64 C76 60 96 67 120 61 V132 H0 Z", {134, 176, 124}, {104, 156, 84}, 62,
              84);
  toile.poser("M0 76 C22 70 44 79 66 73 C88 68 104 75 120 71 V132 H0 Z", {168, 196, 108}, {128, 176, 82}, 70,
              96);
  toile.poser("M72 77 L96 73 L120 77 V88 L92 90 Z", {236, 212, 104});
  toile.poser("M0 82 L20 78 L36 82 L22 92 L0 94 Z", {222, 200, 96});
  toile.poser("M20 78 L40 75.6 L52 78 L36 82 Z", {150, 186, 88});
  toile.poser("M92 90 L120 88 V100 L100 100 Z", {184, 200, 96});
}

void fleuve(Toile &toile) {
  toile.poser(
      "M57 65.4 C50 69 75 71.6 66 76.4 C53 82 34 83 40 91 C46 99 78 99 76 111 C75 119 62 122 58 133 H20 "
      "C24 121 52 118 53 109 C54 101 22 99 24 89 C26 81 50 79 57 74.6 C62 71.4 46 69.6 56 65 Z",
      {206, 228, 240}, {52, 120, 188}, 66, 120);
  toile.tracer("M33 91 C36 98 60 101 64 107 M46 120 C42 123 40 126 39 129", 0.8, {232, 244, 250, 190});
}

void colline_et_tour(Toile &toile) {
  toile.poser("M62 132 C70 112 84 103 98 101 C108 100 116 103 122 107 V134 Z", {104, 152, 74}, {54, 104, 58},
              101, 132);
  toile.poser("M0 108 C12 104 24 111 31 122 L34 134 H0 Z", {92, 142, 70}, {48, 96, 56}, 106, 132);
  toile.poser("M92 103 L93.4 68 H106.6 L108 103 Z", {244, 230, 202}, {214, 190, 152}, 68, 103);
  toile.poser("M100 68 H106.6 L108 103 H100.6 Z", {150, 116, 92, 130});
  toile.poser("M91 69 V61 H94.2 V64 H97.2 V61 H102.8 V64 H105.8 V61 H109 V69 Z", {236, 220, 190},
              {204, 180, 144}, 61, 69);
  toile.poser("M102.8 64 H105.8 V61 H109 V69 H100.4 V64 Z", {150, 116, 92, 110});
  toile.poser("M97.6 103 V94.6 C97.6 91 102.4 91 102.4 94.6 V103 Z", {92, 58, 40});
  toile.poser("M98.8 76 H101.2 V82 H98.8 Z", {74, 60, 66});
  toile.tracer("M100 61 V44", 1.1, {92, 66, 48});
  toile.poser("M100.4 44.6 C105 42.6 108 47 114.6 44.4 L112.8 48.4 L114.8 52 C108 54.4 105 50.4 100.4 52.2 Z",
              {232, 70, 60}, {182, 30, 34}, 44, 53);
}

void arbres(Toile &toile) {
  struct Sapin {
    double x, pied, taille;
  };
  constexpr Sapin sapins[] = {{6, 117, 15},  {15, 122, 17},  {25, 129, 15}, {80, 120, 12},
                              {88, 114, 10}, {114, 118, 13}, {73, 129, 14}, {105, 127, 15}};
  for (const Sapin &sapin : sapins) {
    const double demi = sapin.taille * 0.28;
    for (int étage = 0; étage < 3; ++étage) {
      const double bas = sapin.pied - étage * sapin.taille * 0.27;
      const double l = demi * (1 - 0.22 * étage);
      const Path branche =
          polygon({{sapin.x - l, bas}, {sapin.x, bas - sapin.taille * 0.46}, {sapin.x + l, bas}});
      const Path ombre = polygon({{sapin.x, bas}, {sapin.x, bas - sapin.taille * 0.46}, {sapin.x + l, bas}});
      toile.poser(branche, {50, 110, 68});
      toile.poser(ombre, {26, 76, 52});
    }
  }
}

Image paysage(double échelle) {
  const Path cadre = rectangle_arrondi(3, 3, largeur - 6, hauteur - 6, 6);
  Toile toile(échelle, cadre);
  ciel(toile);
  montagnes(toile);
  plaine(toile);
  fleuve(toile);
  colline_et_tour(toile);
  arbres(toile);
  // The passe-partout: paper, then a thin gold line between paper and picture.
  Image image(toile.image.width(), toile.image.height());
  const Affine agrandissement = Affine::scaling(échelle, échelle);
  const auto poser = [&](const Path &forme, Pixel couleur) {
    fill(image, forme.transformed(agrandissement), couleur);
  };
  poser(rectangle_arrondi(0, 0, largeur, hauteur, 0), teinte::ivoire);
  poser(rectangle_arrondi(2.2, 2.2, largeur - 4.4, hauteur - 4.4, 6.6), {176, 136, 62});
  draw(image, toile.image, 0, 0);
  return image;
}

}  // namespace

void dessiner_accueil(const fs::path &images, Catalogue &catalogue) {
  catalogue.écrire(images, "Patience.Image1", fichier, paysage(1));
  écrire_gif(images / fichier_double(fichier), paysage(2));
  écrire_ppm(images / fichier_sans_compression(fichier), lire_gif(images / fichier));
  écrire_ppm(images / fichier_double_sans_compression(fichier), lire_gif(images / fichier_double(fichier)));
}

}  // namespace atelier
