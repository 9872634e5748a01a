#include "screens/palette.h"

#include <array>
#include <string_view>

#include "core/game_state.h"
#include "core/resources.h"
#include "core/window_placing.h"
#include "map/main_window.h"
#include "platform/window_layout.h"

namespace ardane {
namespace {

constexpr int par_rangée = 8;
constexpr double pas = 16;

// Row by row from the left.
constexpr std::array<std::string_view, 40> noms_des_couleurs = {"Noir",
                                                                "Marron",
                                                                "Vert olive",
                                                                "Vert foncé",
                                                                "Bleu-vert foncé",
                                                                "Bleu foncé",
                                                                "Indigo",
                                                                "Gris - 80%",
                                                                "Rouge foncé",
                                                                "Orange",
                                                                "Marron clair",
                                                                "Vert",
                                                                "Bleu vert",
                                                                "Bleu",
                                                                "Bleu gris",
                                                                "Gris 50%",
                                                                "Rouge",
                                                                "Orange clair",
                                                                "Citron vert",
                                                                "Vert marin",
                                                                "Vert d'eau",
                                                                "Bleu clair",
                                                                "Violet",
                                                                "Gris - 40%",
                                                                "Rose",
                                                                "Or",
                                                                "Jaune",
                                                                "Vert brillant",
                                                                "Turquoise",
                                                                "Bleu ciel",
                                                                "Prune",
                                                                "Gris - 25%",
                                                                "Rose saumon",
                                                                "Brun",
                                                                "Jaune clair",
                                                                "Vert clair",
                                                                "Turquoise clair",
                                                                "Bleu moyen",
                                                                "Lavande",
                                                                "Blanc"};

}  // namespace

void Choisir_couleur(Contexte &c, Cibles_de_palette cible) {
  c.état.Palette_cible = cible;
  c.plateforme.fenêtres.ouvrir_modale("Palette");
}

Palette::Palette(Contexte &c) : Fenêtre("Palette"), c_(c) {
  largeur = 132;
  hauteur = 99;
  avec_titre = false;
  fermable = false;
  nom_parlé = c.état.Palette_cible == repères_des_capitales ? "Couleur du repère des capitales"
                                                            : "Couleur du repère des autres villes";
  Centrer_fenêtre(c.état, *this);
  for (int n = 1; n <= static_cast<int>(noms_des_couleurs.size()); ++n) {
    const int colonne = (n - 1) % par_rangée;
    const int rangée = (n - 1) / par_rangée;
    const double x = 8 + pas * colonne;
    const double y = 24 + pas * rangée;
    const Image image = c.ressources.images.chercher("ChoixCouleur", n);
    Contrôle &pastille = placer(*this, {indexé("ChoixCouleur", n), Genre::image, x, y, 7, 8, n - 1});
    poser_image(pastille, image);
    pastille.infobulle = noms_des_couleurs[static_cast<std::size_t>(n - 1)];
    pastille.clic = [this, image] { peindre(image); };
  }
  Contrôle &fermeture = placer(*this, {"BoutonFermeture", Genre::image, 112, 0, 19, 19, 40});
  poser_image(fermeture, c.ressources.images.chercher("BoutonFermeture"));
  fermeture.nom_parlé = "Fermer";
  fermeture.clic = [this] { fermer(); };
  bouton_annulation = &fermeture;
}

void Palette::peindre(Image image) {
  Ecran_principal &e = c_.principale;
  const bool capitales = c_.état.Palette_cible == repères_des_capitales;
  if (capitales || c_.état.Palette_cible == repères_des_autres_villes) {
    poser_image(capitales ? e.RondPref(0) : e.RondVille(0), image);
    for (int v = 1; v <= nombre_villes; ++v)
      if (c_.état.TableVilles(v).capitale == capitales) poser_image(repère(e, v), image);
  }
  fermer();
}

}  // namespace ardane
