#include "front/pilote/session.h"

#include "front/pilote/refusal.h"
#include "map/pointing.h"

namespace ardane {
namespace {

bool est_dans(double place, double longueur) {
  return place >= 0 && place < longueur;
}

}  // namespace

Fenêtre &fenêtre_du_dessus(const Session &s) {
  Fenêtre *fenêtre = s.monde.façade.dessus();
  if (fenêtre == nullptr) throw Refus("Aucune fenêtre n'est ouverte");
  return *fenêtre;
}

Contrôle &contrôle_du_dessus(const Session &s, std::string_view nom) {
  Fenêtre &fenêtre = fenêtre_du_dessus(s);
  Contrôle *contrôle = fenêtre.chercher(nom);
  if (contrôle == nullptr)
    throw Refus("La fenêtre " + fenêtre.nom + " n'a pas de contrôle « " + std::string(nom) + " »");
  return *contrôle;
}

Visée viser(const Session &s, int x, int y) {
  Ecran_principal &principale = s.programme.principale();
  const Contrôle &carte = principale.image_région;
  const double vue_x = carte.gauche + x;
  const double vue_y = carte.haut + y;
  const bool en_vue = principale.ouverte && est_dans(x, carte.largeur) && est_dans(y, carte.hauteur) &&
                      est_dans(vue_x, principale.Carte.largeur) && est_dans(vue_y, principale.Carte.hauteur);
  if (!en_vue || !est_utilisable(principale.Carte)) return {};
  const Rect &origine = s.programme.état().Rect_carte;
  return {image_sous(principale, vue_x, vue_y),
          {origine.gauche + static_cast<int>(vue_x), origine.haut + static_cast<int>(vue_y)}};
}

}  // namespace ardane
