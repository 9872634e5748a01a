#include "screens/card.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/game_state.h"
#include "core/resources.h"
#include "map/main_window.h"
#include "persistence/information_file.h"
#include "platform/window_layout.h"
#include "screens/card_look.h"

namespace ardane {
namespace {

constexpr double marge = 8;
constexpr double gauche_à_défaut = 10;

constexpr std::array places_de_la_fiche = std::to_array<Place>({
    {"LBL_Pays", Genre::étiquette, 8, 8, 369, 25},
    {"IMG_Drapeau", Genre::image, 0, 0, 64.8, 32.8},
    {"BTN_OK", Genre::bouton, 168, 464, 49, 25, 0, "OK"},
});

// In a table of its own, as a text of several lines is made so.
constexpr Place place_de_son_texte = {"TXT_INFOS", Genre::texte, 8, 56, 369, 313, 1};

}  // namespace

Pompe::Pompe(Contexte &c)
    : Fenêtre("Pompe"),
      c_(c),
      marqueur_(c.principale.rond(c.état.ProvinceFiche)),
      marqueur_visible_(marqueur_.visible) {
  const GameState &g = c.état;
  largeur = 382;
  hauteur = 493;
  titre = message(g, Message::fiche_de_renseignements);
  placer_tout(*this, places_de_la_fiche);
  Contrôle &texte = placer(*this, place_de_son_texte);
  texte.multiligne = true;
  texte.lecture_seule = true;
  texte.hauteur = contrôle(*this, "BTN_OK").haut - marge - texte.haut;
  Contrôle &nom_pays = contrôle(*this, "LBL_Pays");
  Habiller_fiche(*this, nom_pays, texte);
  marqueur_.visible = true;
  placer_près_du_marqueur();
  nom_pays.texte = g.TableProvinces(g.ProvinceFiche).nom;
  texte.étiquette = &nom_pays;
  montrer_drapeau();
  if (const auto fiche = Lire_fiche_information(c, g.ProvinceFiche)) texte.texte = fiche->texte;
  contrôle(*this, "BTN_OK").clic = [this] { fermer(); };
}

Pompe::~Pompe() {
  marqueur_.visible = marqueur_visible_;
}

void Pompe::placer_près_du_marqueur() {
  const GameState &g = c_.état;
  const Rect marqueur = c_.plateforme.façade.rectangle(c_.principale, marqueur_);
  if (marqueur.droite + largeur <= g.Largeur_écran)
    gauche = marqueur.droite;
  else if (marqueur.gauche - largeur >= 0)
    gauche = marqueur.gauche - largeur;
  else
    gauche = gauche_à_défaut;
  haut = std::trunc((g.Bas_zone_travail - hauteur) / 2);
}

/// The flag beside the name, as large as its place lets it be without being pulled out of shape.
void Pompe::montrer_drapeau() {
  Contrôle &drapeau = contrôle(*this, "IMG_Drapeau");
  const Image image = c_.principale.stock.Drapeau(c_.état.ProvinceFiche);
  const double échelle = std::min(drapeau.largeur / image.largeur, drapeau.hauteur / image.hauteur);
  drapeau.étirée = true;
  drapeau.image = image;
  drapeau.largeur = image.largeur * échelle;
  drapeau.hauteur = image.hauteur * échelle;
  drapeau.gauche = drapeau.haut = marge;
}

}  // namespace ardane
