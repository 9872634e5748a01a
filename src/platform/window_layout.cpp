#include "platform/window_layout.h"

#include "platform/fatal_error.h"

namespace ardane {

Contrôle &placer(Fenêtre &fenêtre, const Place &place) {
  Contrôle nouveau;
  nouveau.nom = place.nom;
  nouveau.genre = place.genre;
  nouveau.gauche = place.gauche;
  nouveau.haut = place.haut;
  nouveau.largeur = place.largeur;
  nouveau.hauteur = place.hauteur;
  nouveau.ordre_tabulation = place.ordre_tabulation;
  nouveau.texte = place.texte;
  if (!place.conteneur.empty()) nouveau.conteneur = &contrôle(fenêtre, place.conteneur);
  return fenêtre.ajouter(std::move(nouveau));
}

Contrôle &contrôle(Fenêtre &fenêtre, std::string_view nom) {
  Contrôle *trouvé = fenêtre.chercher(nom);
  if (trouvé == nullptr) throw ErreurFatale("Contrôle inconnu : " + std::string(nom), Lieu::ici());
  return *trouvé;
}

std::string indexé(std::string_view nom, int i) {
  return std::string(nom).append("(").append(std::to_string(i)).append(")");
}

}  // namespace ardane
