#include "front/pilote/json_controls.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <vector>

namespace ardane {
namespace {

/// What a kind of control has besides its name, place and state.
struct Propriétés {
  Genre genre;
  bool texte, infobulle, image, couleurs, coché, barre, liste, focus;
};

constexpr bool oui = true;
constexpr bool non = false;

// clang-format off
constexpr std::array propriétés = std::to_array<Propriétés>({
    // genre               texte bulle image coul coché barre liste focus
    {Genre::image,         non,  oui,  oui,  non,  non,  non,  non,  non},
    {Genre::étiquette,     oui,  oui,  non,  oui,  non,  non,  non,  non},
    {Genre::cadre,         oui,  oui,  non,  oui,  non,  non,  non,  non},
    {Genre::texte,         oui,  oui,  non,  oui,  non,  non,  non,  oui},
    {Genre::bouton,        oui,  oui,  oui,  oui,  non,  non,  non,  oui},
    {Genre::case_à_cocher, oui,  oui,  non,  oui,  oui,  non,  non,  oui},
    {Genre::option,        oui,  oui,  non,  oui,  oui,  non,  non,  oui},
    {Genre::liste,         non,  oui,  non,  oui,  non,  non,  oui,  oui},
    {Genre::barre,         non,  non,  non,  non,  non,  oui,  non,  oui},
    {Genre::menu,          oui,  non,  non,  non,  non,  non,  non,  non},
    {Genre::boîte_image,   non,  oui,  oui,  oui,  non,  non,  non,  non},
    {Genre::vue,           non,  non,  non,  oui,  non,  non,  non,  non},
});
// clang-format on

constexpr bool dans_l_ordre_des_genres() {
  for (std::size_t i = 0; i < propriétés.size(); ++i)
    if (static_cast<std::size_t>(propriétés[i].genre) != i) return false;
  return true;
}
static_assert(dans_l_ordre_des_genres(), "the table is read by the number of the kind");

const Propriétés &propriétés_de(Genre genre) {
  return propriétés.at(static_cast<std::size_t>(genre));
}

/// A colour that the desktop decides is told like one that is not set: no script can know it.
std::string couleur_json(const std::optional<Teinte> &teinte) {
  const auto *couleur = teinte ? std::get_if<Couleur>(&*teinte) : nullptr;
  if (couleur == nullptr) return "système";
  constexpr std::string_view chiffres = "0123456789ABCDEF";
  std::string texte = "#";
  for (const unsigned part : {unsigned{couleur->rouge}, unsigned{couleur->vert}, unsigned{couleur->bleu}}) {
    texte += chiffres[part / 16];
    texte += chiffres[part % 16];
  }
  return texte;
}

Json image_json(const Image &image, const CatalogueImages &images) {
  return image ? Json(images.nom(image)) : Json();
}

bool est_menu(const Contrôle &contrôle) {
  return contrôle.genre == Genre::menu;
}

/// True if both lie in the same stack. Menu entries have theirs apart from the controls of the window.
bool même_pile(const Contrôle &a, const Contrôle &b) {
  return a.conteneur == b.conteneur && est_menu(a) == est_menu(b);
}

Json fiche(const Fenêtre &fenêtre, const Contrôle &c, std::ptrdiff_t plan, const CatalogueImages &images) {
  const Propriétés &p = propriétés_de(c.genre);
  Json json = {{"nom", c.nom},
               {"genre", nom_genre(c.genre)},
               {"visible", c.visible},
               {"actif", c.actif},
               {"gauche", nombre_json(c.gauche)},
               {"haut", nombre_json(c.haut)},
               {"largeur", nombre_json(c.largeur)},
               {"hauteur", nombre_json(c.hauteur)},
               {"plan", plan}};
  if (est_menu(c)) json["parent"] = c.conteneur == nullptr ? Json() : Json(c.conteneur->nom);
  if (p.texte) json["texte"] = c.texte;
  if (p.infobulle) json["infobulle"] = c.infobulle;
  if (p.image) json["image"] = image_json(c.image, images);
  if (p.couleurs) {
    json["fond"] = couleur_json(c.fond);
    json["couleur"] = couleur_json(c.couleur);
  }
  if (p.coché) json["coché"] = c.coché;
  if (p.barre) {
    json["valeur"] = c.valeur;
    json["min"] = c.min;
    json["max"] = c.max;
    json["petit_pas"] = c.petit_pas;
    json["grand_pas"] = c.grand_pas;
  }
  if (p.liste) {
    json["éléments"] = Eléments::Textes(c.éléments);
    json["choix"] = c.choix;
  }
  if (p.focus) json["focus"] = fenêtre.focus == &c;
  return json;
}

/// The controls of a window by container, each pile from bottom to top.
class Piles {
 public:
  Piles(const Fenêtre &fenêtre, bool menus) {
    for (const Contrôle &c : fenêtre.contrôles())
      if (est_menu(c) == menus) piles_[c.conteneur].push_back(&c);
    for (auto &[conteneur, pile] : piles_)
      std::sort(pile.begin(), pile.end(),
                [](const Contrôle *a, const Contrôle *b) { return a->plan < b->plan; });
  }

  /// Calls `action` with each control of a container and its rank, each followed by what lies in it.
  template <class Action>
  void parcourir(const Action &action, const Contrôle *conteneur = nullptr) const {
    const auto pile = piles_.find(conteneur);
    if (pile == piles_.end()) return;
    std::ptrdiff_t rang = 0;
    for (const Contrôle *c : pile->second) {
      action(*c, rang++);
      parcourir(action, c);
    }
  }

 private:
  std::map<const Contrôle *, std::vector<const Contrôle *>> piles_;
};

}  // namespace

Json fenêtre_json(const Fenêtre &fenêtre) {
  return {{"nom", fenêtre.nom},
          {"titre", fenêtre.titre},
          {"gauche", nombre_json(fenêtre.gauche)},
          {"haut", nombre_json(fenêtre.haut)},
          {"largeur", nombre_json(fenêtre.largeur)},
          {"hauteur", nombre_json(fenêtre.hauteur)},
          {"contexte_aide", fenêtre.contexte_aide}};
}

Json contrôle_json(const Fenêtre &fenêtre, const Contrôle &contrôle, const CatalogueImages &images) {
  const auto dessous = [&](const Contrôle &autre) {
    return même_pile(autre, contrôle) && autre.plan < contrôle.plan;
  };
  const auto plan = std::count_if(fenêtre.contrôles().begin(), fenêtre.contrôles().end(), dessous);
  return fiche(fenêtre, contrôle, plan, images);
}

Json contrôles_json(const Fenêtre &fenêtre, const CatalogueImages &images) {
  Json liste = Json::array();
  for (const bool menus : {true, false})
    Piles(fenêtre, menus).parcourir([&](const Contrôle &c, std::ptrdiff_t rang) {
      liste.push_back(fiche(fenêtre, c, rang, images));
    });
  return liste;
}

}  // namespace ardane
