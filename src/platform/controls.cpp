#include "platform/controls.h"

#include <algorithm>

#include "platform/fatal_error.h"

namespace ardane {

std::string_view nom_genre(Genre genre) {
  switch (genre) {
    case Genre::image: return "image";
    case Genre::étiquette: return "étiquette";
    case Genre::cadre: return "cadre";
    case Genre::texte: return "texte";
    case Genre::bouton: return "bouton";
    case Genre::case_à_cocher: return "case";
    case Genre::option: return "option";
    case Genre::liste: return "liste";
    case Genre::barre: return "barre";
    case Genre::menu: return "menu";
    case Genre::boîte_image: return "boîte_image";
    case Genre::vue: return "vue";
  }
  return "";
}

Contrôle &Fenêtre::ajouter(Contrôle contrôle) {
  contrôles_.push_back(std::move(contrôle));
  au_premier_plan(contrôles_.back());
  return contrôles_.back();
}

Contrôle *Fenêtre::chercher(std::string_view nom_contrôle) {
  const auto trouvé = std::find_if(contrôles_.begin(), contrôles_.end(),
                                   [&](const Contrôle &c) { return c.nom == nom_contrôle; });
  return trouvé == contrôles_.end() ? nullptr : &*trouvé;
}

bool est_visible(const Contrôle &contrôle) {
  return contrôle.visible && (contrôle.conteneur == nullptr || est_visible(*contrôle.conteneur));
}

bool est_utilisable(const Contrôle &contrôle) {
  return contrôle.visible && contrôle.actif &&
         (contrôle.conteneur == nullptr || est_utilisable(*contrôle.conteneur));
}

void fixer_valeur(Contrôle &barre, int valeur) {
  const int retenue = std::clamp(valeur, barre.min, std::max(barre.min, barre.max));
  if (retenue == barre.valeur) return;
  barre.valeur = retenue;
  if (barre.changement) barre.changement();
}

void fixer_bornes(Contrôle &barre, int min, int max) {
  barre.min = min;
  barre.max = max;
  fixer_valeur(barre, barre.valeur);
}

void poser_image(Contrôle &contrôle, Image image) {
  contrôle.image = image;
  if (contrôle.étirée) return;
  contrôle.largeur = image.largeur;
  contrôle.hauteur = image.hauteur;
}

void cliquer(Fenêtre &fenêtre, Contrôle &contrôle) {
  if (contrôle.genre == Genre::case_à_cocher) {
    contrôle.coché = !contrôle.coché;
  } else if (contrôle.genre == Genre::option) {
    for (Contrôle &autre : fenêtre.contrôles())
      if (autre.genre == Genre::option && autre.conteneur == contrôle.conteneur) autre.coché = false;
    contrôle.coché = true;
  }
  if (contrôle.genre != Genre::image && contrôle.genre != Genre::menu) fenêtre.focus = &contrôle;
  if (contrôle.clic) contrôle.clic();
}

void saisir(Contrôle &contrôle, std::string texte) {
  contrôle.texte = std::move(texte);
  if (contrôle.changement) contrôle.changement();
}

void choisir(Contrôle &liste, int choix) {
  liste.choix = choix;
  if (liste.changement) liste.changement();
}

const std::string &élément_choisi(const Contrôle &liste) {
  const auto nombre = static_cast<int>(liste.éléments.size());
  if (liste.choix < 1 || liste.choix > nombre) signaler_indice(liste.choix, 1, nombre, Lieu::ici());
  return liste.éléments[static_cast<std::size_t>(liste.choix - 1)];
}

}  // namespace ardane
