// What a script can look at. Nothing of this changes anything.
#include "front/pilote/commands.h"
#include "front/pilote/json_boxes.h"
#include "front/pilote/json_controls.h"
#include "front/pilote/json_registry.h"
#include "front/pilote/json_state.h"
#include "front/pilote/numbers.h"
#include "front/pilote/refusal.h"

namespace ardane {
namespace {

Fenêtre &fenêtre_ouverte(const Session &s, std::string_view nom) {
  for (Fenêtre *fenêtre : s.monde.façade.fenêtres())
    if (fenêtre->nom == nom) return *fenêtre;
  throw Refus("La fenêtre « " + std::string(nom) + " » n'est pas ouverte");
}

/// A control of a window, or the window itself by its own name.
Json lire_dans(const Session &s, Fenêtre &fenêtre, std::string_view nom) {
  if (nom == fenêtre.nom) return fenêtre_json(fenêtre);
  const Contrôle *contrôle = fenêtre.chercher(nom);
  if (contrôle == nullptr)
    throw Refus("La fenêtre " + fenêtre.nom + " n'a pas de contrôle « " + std::string(nom) + " »");
  return contrôle_json(fenêtre, *contrôle, s.images);
}

}  // namespace

void lire_état(Session &s, const Arguments &) {
  s.journal.écrire({{"état", état_json(s.programme.état())}});
}

void lire_état_partiel(Session &s, const Arguments &a) {
  s.journal.écrire({{"état", variable_json(s.programme.état(), a[0])}});
}

void lire_contrôle(Session &s, const Arguments &a) {
  const std::string_view nom = a[0];
  const auto marque = nom.find('!');
  Json contrôle = marque == std::string_view::npos
                      ? lire_dans(s, fenêtre_du_dessus(s), nom)
                      : lire_dans(s, fenêtre_ouverte(s, nom.substr(0, marque)), nom.substr(marque + 1));
  s.journal.écrire({{"contrôle", std::move(contrôle)}});
}

void lire_contrôles(Session &s, const Arguments &) {
  s.journal.écrire({{"contrôles", contrôles_json(fenêtre_du_dessus(s), s.images)}});
}

void lire_dessus(Session &s, const Arguments &a) {
  const auto x = lire_nombre<int>(a[0]);
  const auto y = lire_nombre<int>(a[1]);
  if (!x || !y) throw Refus("« " + a[0] + " " + a[1] + " » n'est pas un point de la carte");
  const Contrôle *image = viser(s, *x, *y).image;
  s.journal.écrire({{"dessus", image == nullptr ? Json() : Json(image->nom)}});
}

void lire_registre(Session &s, const Arguments &) {
  s.journal.écrire({{"registre", registre_json(*s.monde.registre)}});
}

void lire_fenêtres(Session &s, const Arguments &) {
  Json noms = Json::array();
  for (const Fenêtre *fenêtre : s.monde.façade.fenêtres()) noms.push_back(fenêtre->nom);
  s.journal.écrire({{"fenêtres", std::move(noms)}});
}

void lire_boîte(Session &s, const Arguments &) {
  const Boîte *boîte = s.monde.boîtes.affichée();
  s.journal.écrire({{"boîte", boîte == nullptr ? Json() : boîte_json(*boîte)}});
}

}  // namespace ardane
