#include "marks/icons.h"

#include <fstream>
#include <string>

#include "drawing/raster.h"
#include "files/image_file.h"
#include "marks/figure.h"
#include "marks/sign.h"

namespace atelier {
namespace {

namespace fs = std::filesystem;
using namespace teinte;

// All the figures of this file live in a frame of 32 x 32 units unless their comment says otherwise, and
// leave two units free all around for outline and edge.

Figure ampoule(bool allumée) {
  const Pixel haut = allumée ? Pixel{255, 240, 150} : Pixel{236, 239, 243};
  const Pixel bas = allumée ? Pixel{255, 196, 40} : Pixel{176, 183, 196};
  Figure figure;
  if (allumée) {
    const char *rayons = "M2.4 12 H5 M27 12 H29.6 M5.4 2.6 L7.4 4.6 M26.6 2.6 L24.6 4.6";
    figure.push_back(cerné(trait(rayons, 1.6, Cap::butt), {255, 232, 96}, jaune));
  }
  figure.push_back(cerné(path_from_svg("M16 3.4 C21 3.4 24.4 7.1 24.4 11.6 C24.4 15.6 21.4 17.2 20.6 21.4 "
                                       "L11.4 21.4 C10.6 17.2 7.6 15.6 7.6 11.6 C7.6 7.1 11 3.4 16 3.4 Z"),
                         haut, bas));
  figure.push_back(
      cerné(path_from_svg("M11.8 22 H20.2 V26.2 C20.2 28 18.4 28.8 16 28.8 C13.6 28.8 11.8 28 11.8 26.2 Z"),
            perle, gris));
  figure.push_back(détail(trait("M12 24.1 H20 M12.2 26.2 H19.8", 0.9, Cap::butt), encre));
  figure.push_back(détail(trait("M14 21 L12.8 14.6 L16 16.4 L19.2 14.6 L18 21", 1.1),
                          allumée ? Pixel{190, 104, 16} : Pixel{110, 118, 134}));
  figure.push_back(détail(trait("M11 11.2 C11.1 8.8 12.4 7.2 14.6 6.7", 1.6), blanc));
  return figure;
}

/// A leap over the object that could not be found.
Figure saut() {
  return {
      cerné(disque({15.4, 23.4}, 4.4), {240, 92, 78}, rouge),
      cerné(path_from_svg("M2.6 23.6 C2.6 11 11 4.4 19 6.8 C21.6 7.6 23.4 9.2 24.6 11.2 L28.6 8.8 L28.8 20.6 "
                          "L18.4 15.2 L21.4 13.2 C20.6 11.8 19.4 11 17.8 10.6 C12.2 9.4 7.4 14.2 7 23.6 Z"),
            {132, 200, 104}, vert)};
}

Figure bouée() {
  constexpr Point centre{16, 16};
  Figure figure{cerné(anneau(centre, 9, 7), blanc, perle)};
  for (const double angle : {0.0, 90.0, 180.0, 270.0}) {
    figure.push_back(détail(arc(centre, 9, angle + 24, angle + 66, 7), {226, 62, 54}));
  }
  figure.push_back(détail(arc(centre, 10.6, 200, 290, 1.1), {255, 255, 255, 170}));
  return figure;
}

Figure coche() {
  return {cerné(path_from_svg("M3 17.4 L7.2 13 L12.8 18.4 L24.6 5 L29 9 L13 27 Z"), {138, 206, 110},
                {56, 138, 62})};
}

Figure disquette() {
  return {cerné(path_from_svg("M4 6 Q4 4 6 4 H24.4 L28 7.6 V26 Q28 28 26 28 H6 Q4 28 4 26 Z"),
                {104, 158, 220}, bleu),
          détail(rectangle_arrondi(9.4, 4.4, 12.6, 8, 0.8), perle, gris),
          détail(rectangle_arrondi(17, 5.6, 3, 5.4, 0.5), {46, 84, 140}),
          détail(rectangle_arrondi(7.4, 15.6, 17.2, 12, 0.8), ivoire),
          détail(trait("M10 19 H22 M10 22 H22 M10 25 H18", 1.1, Cap::butt), gris)};
}

Figure histogramme() {
  return {cerné(path_from_svg("M3 3.4 H5.4 V26.4 H29 V28.8 H3 Z"), perle, gris),
          cerné(rectangle_arrondi(8, 6.6, 5, 17.4, 0.6), {240, 92, 78}, rouge),
          cerné(rectangle_arrondi(15, 12.6, 5, 11.4, 0.6), jaune, ocre),
          cerné(rectangle_arrondi(22, 17.6, 5, 6.4, 0.6), {138, 206, 110}, vert)};
}

Figure porte_de_sortie() {
  return {cerné(rectangle_arrondi(3.4, 3.4, 17, 25.2, 1), {186, 134, 82}, bois),
          détail(path_from_svg("M6.6 6.4 H17.2 V28 H6.6 Z"), {70, 48, 38}),
          cerné(path_from_svg("M6.6 6.4 L13 8.8 V28.4 L6.6 28 Z"), {226, 178, 122}, {190, 138, 84}),
          détail(disque({11.3, 18.6}, 0.9), encre),
          cerné(path_from_svg("M15.4 14 H21.6 V10 L29 16.6 L21.6 23.2 V19.2 H15.4 Z"), {240, 92, 78}, rouge)};
}

/// An arrow to the right, turned by quarters clockwise; with a bar at its point when it leads to the very
/// end.
Figure flèche(int quarts, bool butée) {
  const Affine tour = Affine::translation(-16, -16)
                          .then(Affine::rotation(quarts * 1.57079632679489661923))
                          .then(Affine::translation(16, 16));
  const auto tournée = [&](std::string_view d) { return path_from_svg(d).transformed(tour); };
  const Pixel clair{122, 176, 230};
  if (!butée) return {cerné(tournée("M3.6 11.6 H14.4 V4.6 L28.4 16 L14.4 27.4 V20.4 H3.6 Z"), clair, bleu)};
  return {cerné(tournée("M3.4 11.8 H12 V5 L23.6 16 L12 27 V20.2 H3.4 Z"), clair, bleu),
          cerné(tournée("M25 4.6 H28.6 V27.4 H25 Z"), clair, bleu)};
}

Figure coupe() {
  return {
      cerné(trait("M9.4 7 C4.4 6.4 4 13.4 10.8 14.6 M22.6 7 C27.6 6.4 28 13.4 21.2 14.6", 2.2), jaune, ocre),
      cerné(path_from_svg("M14.2 17 H17.8 V23 H14.2 Z"), ocre),
      cerné(path_from_svg("M8.4 3.6 H23.6 V9 C23.6 15.2 20.6 19.2 16 19.2 C11.4 19.2 8.4 15.2 8.4 9 Z"),
            {255, 226, 110}, {238, 170, 36}),
      cerné(path_from_svg("M9.6 24 H22.4 L23.6 28.6 H8.4 Z"), {166, 96, 50}, {110, 58, 32}),
      détail(étoile({16, 11}, 4.2, 1.8, 5), {255, 250, 224})};
}

Figure dossier() {
  return {
      cerné(
          path_from_svg(
              "M3 8 Q3 6 5 6 H11.6 L14.6 9.2 H27 Q29 9.2 29 11.2 V24.6 Q29 26.6 27 26.6 H5 Q3 26.6 3 24.6 Z"),
          {240, 178, 62}, ocre),
      détail(path_from_svg("M3 13 H29 V24.6 Q29 26.6 27 26.6 H5 Q3 26.6 3 24.6 Z"), {255, 224, 126},
             {248, 190, 70})};
}

Figure dossier_ouvert() {
  return {cerné(path_from_svg("M3 7 Q3 5 5 5 H11 L14 8 H24 Q26 8 26 10 V26.6 H5 Q3 26.6 3 24.6 Z"),
                {230, 164, 50}, {200, 132, 34}),
          cerné(path_from_svg("M8.4 3.6 H20.6 L24 7 V20 H8.4 Z"), blanc, ivoire),
          détail(trait("M11 8 H20 M11 11 H21", 1.1, Cap::butt), gris),
          cerné(path_from_svg("M7.4 13.6 H29.4 L26 26.6 H4 Z"), {255, 226, 132}, {248, 188, 66})};
}

Figure drapeau_de_départ() {
  return {
      cerné(path_from_svg("M2.8 28.8 C5 23 12 21 17 22.4 C22 20.8 27.4 24 29.2 28.8 Z"), {255, 244, 150},
            {236, 206, 76}),
      cerné(rectangle_arrondi(9, 3, 2.6, 22, 1.2), {206, 160, 106}, bois),
      cerné(path_from_svg("M11.8 4.6 C16 2.6 20 8 27.4 5 L25 10.6 L27.6 15.6 C20.4 18.6 16 13 11.8 15.2 Z"),
            {240, 92, 78}, rouge)};
}

Figure fiche() {
  return {cerné(rectangle_arrondi(4.6, 3, 22.8, 26, 1.6), {150, 34, 34}, bordeaux),
          détail(disque({16, 9.8}, 2.3), blanc),
          détail(path_from_svg("M12.6 14 H17.8 V23 H20 V25.4 H12.2 V23 H14.4 V16.4 H12.6 Z"), blanc)};
}

Figure fiche_et_crayon() {
  return {cerné(rectangle_arrondi(3, 4, 20, 25, 1.4), blanc, ivoire),
          détail(path_from_svg("M3 5.4 Q3 4 4.4 4 H21.6 Q23 4 23 5.4 V9.4 H3 Z"), bordeaux),
          détail(trait("M6 13.6 H18 M6 17.2 H15 M6 20.8 H12", 1.2, Cap::butt), gris),
          cerné(path_from_svg("M25.4 6.6 L29.2 10.4 L17.4 22.4 L12.2 24.2 L13.8 18.8 Z"), jaune, ocre),
          détail(path_from_svg("M25.4 6.6 L29.2 10.4 L27 12.6 L23.2 8.8 Z"), {226, 104, 112}),
          détail(path_from_svg("M12.2 24.2 L12.9 21.8 L14.7 23.4 Z"), encre)};
}

/// In a frame of 25 x 26.
Figure nouveau_dossier() {
  return {cerné(path_from_svg("M2.4 6.4 Q2.4 5 3.8 5 H8.6 L10.8 7.4 H19.6 Q21 7.4 21 8.8 V19.6 Q21 21 19.6 "
                              "21 H3.8 Q2.4 21 2.4 19.6 Z"),
                {240, 178, 62}, ocre),
          détail(path_from_svg("M2.4 10.4 H21 V19.6 Q21 21 19.6 21 H3.8 Q2.4 21 2.4 19.6 Z"), {255, 224, 126},
                 {248, 190, 70}),
          cerné(path_from_svg("M16 13.4 H19.4 V16.6 H22.6 V20 H19.4 V23.2 H16 V20 H12.8 V16.6 H16 Z"),
                {138, 206, 110}, {56, 138, 62})};
}

/// A small town: 38 x 37.
Figure bourg() {
  const Pixel tuile{226, 92, 62};
  const Pixel tuile_sombre{178, 56, 40};
  Figure figure{cerné(path_from_svg("M2.6 34.4 C8 29 30 29 35.4 34.4 Z"), {168, 206, 118}, vert),
                cerné(path_from_svg("M15.4 13 H22.6 V32 H15.4 Z"), ivoire, {226, 214, 190}),
                cerné(path_from_svg("M13.8 13.4 L19 2.8 L24.2 13.4 Z"), {112, 128, 160}, {74, 88, 122}),
                cerné(path_from_svg("M4.4 21.6 H16 V33 H4.4 Z"), {255, 250, 236}, {238, 226, 200}),
                cerné(path_from_svg("M2.6 22.4 L7 15.4 H13.6 L18 22.4 Z"), tuile, tuile_sombre),
                cerné(path_from_svg("M21.4 23.6 H33.6 V33 H21.4 Z"), {255, 250, 236}, {238, 226, 200}),
                cerné(path_from_svg("M19.6 24.4 L27.5 16.8 L35.4 24.4 Z"), tuile, tuile_sombre)};
  figure.push_back(détail(disque({19, 16.6}, 1.7), encre));
  for (const char *fenêtre :
       {"M6.6 25 H9 V28 H6.6 Z", "M11.4 25 H13.8 V28 H11.4 Z", "M29.4 26 H31.6 V29 H29.4 Z"}) {
    figure.push_back(détail(path_from_svg(fenêtre), {96, 130, 168}));
  }
  figure.push_back(détail(path_from_svg("M24 27 H27 V33 H24 Z"), bois));
  return figure;
}

/// Six provinces, one of them found: 38 x 37.
Figure mosaïque_de_provinces() {
  const Pixel herbe{196, 218, 158};
  const Pixel pré{176, 204, 140};
  return {cerné(path_from_svg("M3 9 L8 3.4 L18 5 L16.6 14 L9.4 17 L3 14 Z"), herbe),
          cerné(path_from_svg("M18 5 L29 3 L34.6 9 L31 16 L23.4 17.4 L16.6 14 Z"), pré),
          cerné(path_from_svg("M3 14 L9.4 17 L12 24.6 L7.6 30.6 L3.4 25 Z"), pré),
          cerné(path_from_svg("M23.4 17.4 L31 16 L34.8 22 L32 30 L24.6 27.6 Z"), herbe),
          cerné(path_from_svg("M12 24.6 L24.6 27.6 L32 30 L25 34.4 L13 33.6 L7.6 30.6 Z"), {208, 226, 172}),
          cerné(path_from_svg("M9.4 17 L16.6 14 L23.4 17.4 L24.6 27.6 L12 24.6 Z"), {255, 255, 127},
                {255, 236, 90})};
}

/// Three regions of a few provinces each, thin borders inside and strong ones between: 40 x 27.
Figure mosaïque_de_régions() {
  const Pixel rose{240, 184, 168};
  const Pixel bleuté{170, 204, 232};
  const Pixel doré{252, 226, 130};
  return {cerné(path_from_svg("M2.6 7 L8 2.8 L15.6 4 L17 12 L13.6 17 L15 24 L7 22.6 L3 15 Z"), rose),
          cerné(path_from_svg("M15.6 4 L27 2.6 L30 9.6 L25.6 14.4 L17 12 Z"), doré),
          cerné(path_from_svg(
                    "M27 2.6 L35 4.4 L37.4 12 L34.6 21 L25 24.4 L15 24 L13.6 17 L17 12 L25.6 14.4 L30 9.6 Z"),
                bleuté),
          détail(trait("M3 15 L9 12.4 L17 12 M9 12.4 L8 2.8 M9 12.4 L9.4 18 L7 22.6", 0.8, Cap::butt), encre),
          détail(trait("M21 3.4 L22 13.4", 0.8, Cap::butt), encre),
          détail(trait("M30 9.6 L37 11 M25.6 14.4 L27.4 19 L25 24.4 M27.4 19 L34.6 21 M20.4 13 L19.4 24", 0.8,
                       Cap::butt),
                 encre)};
}

class Atelier_des_boutons {
 public:
  Atelier_des_boutons(const fs::path &images, Catalogue &catalogue)
      : images_(images), catalogue_(catalogue) {}

  /// A picture with soft edges, from a figure of 32 units.
  void adouci(const std::string &nom, const std::string &fichier, int côté, const Figure &figure) {
    écrire_png(images_ / fichier, rendu(figure, côté));
    écrire_png(images_ / fichier_double(fichier), rendu(figure, 2 * côté));
    catalogue_.ajouter(nom, fichier, côté, côté);
  }

  /// A picture with a transparent colour, from a figure of its own size.
  void net(const std::string &nom, const std::string &fichier, int largeur, int hauteur,
           const Figure &figure) {
    catalogue_.écrire(images_, nom, fichier,
                      with_hard_edges(dessiner(figure, {largeur, hauteur, 1.0, 0.6, 0.0})));
    écrire_gif(images_ / fichier_double(fichier),
               with_hard_edges(dessiner(figure, {2 * largeur, 2 * hauteur, 2.0, 1.2, 0.0})));
  }

 private:
  static Image rendu(const Figure &figure, int côté) {
    const double échelle = côté / 32.0;
    const double trait = échelle < 1 ? 0.7 : 0.9 * échelle;
    return dessiner(figure, {côté, côté, échelle, trait, trait});
  }

  const fs::path &images_;
  Catalogue &catalogue_;
};

}  // namespace

void dessiner_boutons(const fs::path &images, Catalogue &catalogue) {
  Atelier_des_boutons atelier(images, catalogue);
  atelier.adouci("Ampoule_allumée", "buttons/ampoule-allumee.png", 32, ampoule(true));
  atelier.adouci("Ampoule_éteinte", "buttons/ampoule-eteinte.png", 32, ampoule(false));
  atelier.adouci("BoutonPasse", "buttons/passe.png", 32, saut());
  atelier.adouci("Bouton_gruge", "buttons/gruge.png", 32, bouée());
  atelier.adouci("Stats.Command1", "buttons/fermer.png", 32, coche());
  atelier.adouci("Stats.BoutonSauvegarde", "buttons/sauvegarde.png", 32, disquette());
  atelier.adouci("Affichage_scores.BoutonStatistiques", "buttons/statistiques.png", 32, histogramme());
  atelier.adouci("Edition.BTN_quit", "buttons/quitter.png", 32, porte_de_sortie());
  atelier.adouci("Edition.BTN_Up", "buttons/premiere.png", 32, flèche(3, true));
  atelier.adouci("Edition.BTN_Down", "buttons/derniere.png", 32, flèche(1, true));
  atelier.adouci("Edition.BTN_Left", "buttons/precedente.png", 32, flèche(2, false));
  atelier.adouci("Edition.BTN_Right", "buttons/suivante.png", 32, flèche(0, false));
  atelier.net("Stats.BoutonVilles", "buttons/villes.gif", 38, 37, bourg());
  atelier.net("Stats.BoutonProvinces", "buttons/provinces.gif", 38, 37, mosaïque_de_provinces());
  atelier.net("Stats.BoutonRégions", "buttons/regions.gif", 40, 27, mosaïque_de_régions());
  atelier.net("Paramétrage_répertoires.Command1", "buttons/nouveau-dossier.gif", 25, 26, nouveau_dossier());
}

void dessiner_icônes(const fs::path &images, Catalogue &catalogue) {
  struct Fenêtre {
    const char *nom;
    const char *fichier;
    Figure figure;
  };
  const Fenêtre fenêtres[] = {
      {"nouvelle_partie", "nouvelle-partie", drapeau_de_départ()},
      {"Affichage_scores", "scores", coupe()},
      {"Sélection_partie", "selection-partie", dossier_ouvert()},
      {"Paramétrage_répertoires", "repertoires", dossier()},
      {"Stats", "statistiques", histogramme()},
      {"Pompe", "fiche", fiche()},
      {"Edition", "edition", fiche_et_crayon()},
  };
  Atelier_des_boutons atelier(images, catalogue);
  for (const Fenêtre &fenêtre : fenêtres) {
    const std::string nom = std::string("icône.") + fenêtre.nom;
    const std::string fichier = std::string("icons/") + fenêtre.fichier;
    atelier.adouci(nom, fichier + "-32.png", 32, fenêtre.figure);
    atelier.adouci(nom + ".16", fichier + "-16.png", 16, fenêtre.figure);
  }
  for (const int côté : {16, 24, 32, 48, 64, 128, 256}) {
    const std::string fichier = "icons/ardane-" + std::to_string(côté) + ".png";
    écrire_png(images / fichier, enseigne(côté, côté > 24));
    catalogue.ajouter("icône.programme." + std::to_string(côté), fichier, côté, côté);
  }
  std::ofstream(images / "icons/ardane.svg", std::ios::binary) << enseigne_svg();
  for (const int côté : {16, 32}) {
    const std::string nom = côté == 32 ? "icône.Ecran_principal" : "icône.Ecran_principal.16";
    const std::string fichier = "icons/ecran-principal-" + std::to_string(côté) + ".png";
    écrire_png(images / fichier, enseigne(côté, côté > 24));
    écrire_png(images / fichier_double(fichier), enseigne(2 * côté, true));
    catalogue.ajouter(nom, fichier, côté, côté);
  }
}

}  // namespace atelier
