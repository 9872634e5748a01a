#include "screens/card_editor.h"

#include <array>
#include <cmath>

#include "core/game_state.h"
#include "core/resources.h"
#include "map/configuration_panel.h"
#include "map/layers.h"
#include "map/layout.h"
#include "map/panel.h"
#include "persistence/information_file.h"
#include "platform/window_layout.h"
#include "play/stage_sequencer.h"
#include "screens/card_look.h"

namespace ardane {
namespace {

constexpr Place place_de_la_saisie = {"TXT_INFOS", Genre::texte, 32, 56, 337, 233, 0};
constexpr std::array places_de_l_éditeur = std::to_array<Place>({
    {"LBL_Pays", Genre::texte, 16, 16, 369, 25, 6},
    {"BTN_Up", Genre::bouton, 32, 344, 33, 33, 1},
    {"BTN_Left", Genre::bouton, 168, 344, 33, 33, 2},
    {"BTN_Right", Genre::bouton, 216, 344, 33, 33, 3},
    {"BTN_Down", Genre::bouton, 336, 344, 33, 33, 4},
    {"BTN_quit", Genre::bouton, 192, 392, 41, 41, 5},
});

struct Bouton_image {
  std::string_view nom, image, infobulle;
};

constexpr std::array boutons = std::to_array<Bouton_image>({
    {"BTN_Up", "Edition.BTN_Up", "Première fiche"},
    {"BTN_Left", "Edition.BTN_Left", "Fiche précédente"},
    {"BTN_Right", "Edition.BTN_Right", "Fiche suivante"},
    {"BTN_Down", "Edition.BTN_Down", "Dernière fiche"},
    {"BTN_quit", "Edition.BTN_quit", "Quitter"},
});

Contrôle &placer_texte(Fenêtre &fenêtre) {
  Contrôle &texte = placer(fenêtre, place_de_la_saisie);
  texte.multiligne = true;
  return texte;
}

}  // namespace

void Editer_fiches(Contexte &c) {
  if (ConfirmerAbandon(c)) {
    RevenirAuRepos(c);
    c.état.Carte_pleine_largeur = false;
    DisposerCarte(c);
    RedessinerCarte(c);
  }
  c.plateforme.fenêtres.ouvrir_modale("Edition");
  Disposer_écran(c);
  AfficherPanneau(c);
}

Edition::Edition(Contexte &c)
    : Fenêtre("Edition"),
      c_(c),
      titre_fiche_(contrôle(placer_tout(*this, places_de_l_éditeur), "LBL_Pays")),
      texte_(placer_texte(*this)) {
  largeur = 401;
  hauteur = 449;
  const Rect zone = c.plateforme.écran.zone_de_travail();
  gauche = zone.gauche + std::trunc((zone.droite - zone.gauche - largeur) / 2);
  haut = zone.haut + std::trunc((zone.bas - zone.haut - hauteur) / 2);
  titre = message(c.état, Message::modification_de_la_description);
  Habiller_fiche(*this, titre_fiche_, texte_);
  titre_fiche_.nom_parlé = "Titre de la fiche";
  texte_.nom_parlé = "Texte de la fiche";
  for (const Bouton_image &bouton : boutons) {
    Contrôle &placé = contrôle(*this, bouton.nom);
    placé.image = c.ressources.images.chercher(bouton.image);
    placé.infobulle = bouton.infobulle;
  }
  contrôle(*this, "BTN_Up").clic = [this] { aller(1); };
  contrôle(*this, "BTN_Left").clic = [this] { aller(fiche_courante_ == 1 ? 1 : fiche_courante_ - 1); };
  contrôle(*this, "BTN_Right").clic = [this] {
    aller(fiche_courante_ == nombre_provinces ? nombre_provinces : fiche_courante_ + 1);
  };
  contrôle(*this, "BTN_Down").clic = [this] { aller(nombre_provinces); };
  const auto quitter = [this] {
    if (quitter_fiche()) fermer();
  };
  contrôle(*this, "BTN_quit").clic = quitter;
  demande_de_fermeture = quitter;
  lire_fiche(1);
}

void Edition::lire_fiche(int n) {
  fiche_courante_ = n;
  const GameState &g = c_.état;
  const auto lue = Lire_fiche_information(c_, n);
  if (!lue)
    c_.plateforme.boîtes.montrer(
        {Icône::exclamation, message(g, Message::erreur_de_format),
         g.Fichiers_info(g.Langue) + " : " + message(g, Message::fichier_non_interprétable)});
  const Fiche_information fiche = lue ? *lue : Lire_restes_de_fiche(c_, n);
  titre_fiche_.texte = fiche.titre;
  texte_.texte = texte_lu_ = fiche.texte;
}

bool Edition::écrire_fiche() {
  const Fiche_information fiche{titre_fiche_.texte, texte_.texte};
  if (Ecrire_fiche_information(c_, fiche_courante_, fiche)) return true;
  c_.plateforme.boîtes.montrer(
      {Icône::information, "Erreur...",
       "Erreur à l'enregistrement de cette fiche ; la longueur de l'enregistrement est de " +
           std::to_string(Longueur_de_fiche(fiche)) + " pour un maximum autorisé de " +
           std::to_string(taille_de_fiche)});
  return false;
}

/// What must be done before another card is shown; false if this one must stay.
bool Edition::quitter_fiche() {
  return texte_.texte == texte_lu_ || écrire_fiche();
}

void Edition::aller(int n) {
  if (quitter_fiche()) lire_fiche(n);
}

}  // namespace ardane
