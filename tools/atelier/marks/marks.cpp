#include "marks/marks.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "marks/figure.h"
#include "marks/icons.h"
#include "marks/welcome.h"

namespace atelier {
namespace {

namespace fs = std::filesystem;

/// A drawing that is given pixel by pixel: '#' the colour, 'o' the rim, anything else transparent.
using Grille = std::span<const std::string_view>;

/// A town's dot: 16 pixels of colour, and 5 of rim on the side of the light.
constexpr std::string_view point_de_ville[] = {
    ".......", "...oo..", "..o##..", ".o####.", ".o####.", "..####.", "...##..", ".......",
};

constexpr std::string_view point_de_ville_double[] = {
    "..............", "..............", "......oooo....", "....oooooo....",
    "...ooo####....", "..ooo######...", "..ooo######...", "..oo########..",
    "..oo########..", "..oo########..", "...o########..", ".....######...",
    ".....######...", "......####....", "..............", "..............",
};

Image pixel_par_pixel(Grille grille, Pixel couleur, Pixel bord) {
  Image image(static_cast<int>(grille.front().size()), static_cast<int>(grille.size()));
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const char signe = grille[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
      if (signe == '#') image.at(x, y) = couleur;
      if (signe == 'o') image.at(x, y) = bord;
    }
  }
  return image;
}

/// The forty swatches, in their order.
constexpr std::array<Pixel, 40> nuancier = {{
    {0, 0, 0},       {153, 51, 0},    {51, 51, 0},     {0, 51, 0},      {0, 51, 102},    {0, 0, 128},
    {51, 51, 153},   {51, 51, 51},    {128, 0, 0},     {255, 102, 0},   {128, 128, 0},   {0, 128, 0},
    {0, 128, 128},   {0, 0, 255},     {102, 102, 153}, {128, 128, 128}, {255, 0, 0},     {255, 153, 0},
    {153, 204, 0},   {51, 153, 102},  {51, 204, 204},  {51, 102, 255},  {128, 0, 128},   {153, 153, 153},
    {255, 0, 255},   {255, 204, 0},   {255, 255, 0},   {0, 255, 0},     {0, 255, 255},   {0, 204, 255},
    {153, 51, 102},  {192, 192, 192}, {255, 153, 204}, {255, 204, 153}, {255, 255, 153}, {204, 255, 204},
    {204, 255, 255}, {153, 204, 255}, {204, 153, 255}, {255, 255, 255},
}};

/// The colours that towns have until the player picks others. They differ in hue for every kind of colour
/// vision.
constexpr Pixel couleur_des_capitales{255, 0, 0};
constexpr Pixel couleur_des_autres_villes{0, 0, 255};

class Planche {
 public:
  Planche(const fs::path &images, Catalogue &catalogue) : images_(images), catalogue_(catalogue) {}

  void point(const std::string &nom, const std::string &fichier, Pixel couleur) {
    const Pixel bord = couleur == teinte::blanc ? Pixel{0, 0, 0} : teinte::blanc;
    catalogue_.écrire(images_, nom, fichier, pixel_par_pixel(point_de_ville, couleur, bord));
    écrire_gif(images_ / fichier_double(fichier), pixel_par_pixel(point_de_ville_double, couleur, bord));
  }

  void figure(const std::string &nom, const std::string &fichier, int largeur, int hauteur, double cerne,
              double liseré, const Figure &figure) {
    catalogue_.écrire(images_, nom, fichier,
                      with_hard_edges(dessiner(figure, {largeur, hauteur, 1.0, cerne, liseré})));
    écrire_gif(images_ / fichier_double(fichier),
               with_hard_edges(dessiner(figure, {2 * largeur, 2 * hauteur, 2.0, 2 * cerne, 2 * liseré})));
  }

 private:
  const fs::path &images_;
  Catalogue &catalogue_;
};

Figure bague(double côté, double rayon, double largeur, Pixel couleur) {
  return {cerné(anneau({côté / 2, côté / 2}, rayon, largeur), couleur)};
}

Figure cible() {
  constexpr Point centre{11.5, 11.5};
  return {cerné(anneau(centre, 8.4, 3.6), {226, 40, 36}, teinte::rouge)};
}

Figure disque_rouge() {
  constexpr Point centre{8, 8};
  return {cerné(disque(centre, 5.8), {232, 72, 62}, {190, 30, 30}),
          détail(rectangle_arrondi(4.5, 6.8, 7, 2.4, 0.6), teinte::blanc)};
}

Figure étoile_de(Pixel haut, Pixel bas) {
  return {cerné(étoile({8, 8.5}, 6.6, 3.0, 5), haut, bas)};
}

Figure bouton_étoile() {
  return {cerné(rectangle_arrondi(1.5, 1.5, 16, 16, 3), teinte::blanc, teinte::perle),
          cerné(étoile({9.5, 9.9}, 5.2, 2.3, 5), teinte::jaune, teinte::ocre)};
}

Figure bouton_fermeture() {
  return {cerné(rectangle_arrondi(1.5, 1.5, 16, 16, 3), {226, 84, 76}, {184, 36, 34}),
          détail(trait("M6 6 L13 13 M13 6 L6 13", 2.4), teinte::blanc)};
}

void dessiner_marques(Planche &planche) {
  planche.figure("rond", "marks/rond.gif", 20, 20, 1.0, 0.0, bague(20, 7.2, 3.2, teinte::bleu));
  planche.figure("rondjaune", "marks/rondjaune.gif", 20, 20, 1.0, 0.0, bague(20, 7.2, 3.4, {255, 226, 40}));
  planche.figure("rondnoir", "marks/rondnoir.gif", 20, 20, 0.0, 1.2, bague(20, 7.0, 3.2, {0, 0, 0}));
  planche.figure("Rondcible", "marks/rondcible.gif", 23, 23, 0.0, 1.2, cible());
  planche.figure("RondRouge", "marks/rondrouge.gif", 16, 16, 1.0, 0.0, disque_rouge());
  planche.figure("étoilejaune", "marks/etoile-jaune.gif", 16, 16, 0.9, 0.0,
                 étoile_de({255, 236, 110}, {250, 190, 30}));
  planche.figure("étoilerouge", "marks/etoile-rouge.gif", 16, 16, 0.9, 0.0,
                 étoile_de({240, 90, 76}, {186, 26, 28}));
  planche.figure("BoutonEtoile", "buttons/etoile.gif", 19, 19, 1.0, 0.0, bouton_étoile());
  planche.figure("BoutonFermeture", "buttons/fermeture.gif", 19, 19, 1.0, 0.0, bouton_fermeture());
}

void dessiner_points(Planche &planche) {
  planche.point("RondPref(0)", "marks/rondpref.gif", couleur_des_capitales);
  planche.point("RondVille(0)", "marks/rondville.gif", couleur_des_autres_villes);
  for (std::size_t i = 0; i < nuancier.size(); ++i) {
    const int numéro = static_cast<int>(i) + 1;
    planche.point("ChoixCouleur(" + std::to_string(numéro) + ")", fichier_numéroté("marks/choix", numéro, 2),
                  nuancier[i]);
  }
}

}  // namespace

void dessiner_repères(const fs::path &images, Catalogue &catalogue) {
  fs::create_directories(images / "marks" / "choix");
  fs::create_directories(images / "buttons");
  fs::create_directories(images / "icons");
  Planche planche(images, catalogue);
  dessiner_points(planche);
  dessiner_marques(planche);
  dessiner_boutons(images, catalogue);
  dessiner_icônes(images, catalogue);
  dessiner_accueil(images, catalogue);
}

}  // namespace atelier
