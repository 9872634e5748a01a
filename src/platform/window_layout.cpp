#include "platform/window_layout.h"

#include "platform/fatal_error.h"

namespace ardane {

Contrôle &placer(Fenêtre &fenêtre, const Place &place) {
  Contrôle *const conteneur = place.conteneur.empty() ? nullptr : &contrôle(fenêtre, place.conteneur);
  Contrôle &nouveau = fenêtre.ajouter({});
  nouveau.nom = place.nom;
  nouveau.genre = place.genre;
  nouveau.gauche = place.gauche;
  nouveau.haut = place.haut;
  nouveau.largeur = place.largeur;
  nouveau.hauteur = place.hauteur;
  nouveau.ordre_tabulation = place.ordre_tabulation;
  nouveau.texte = place.texte;
  nouveau.conteneur = conteneur;
  return nouveau;
}

Contrôle &contrôle(Fenêtre &fenêtre, std::string_view nom) {
  Contrôle *trouvé = fenêtre.chercher(nom);
  if (trouvé == nullptr) throw ErreurFatale("Contrôle inconnu : " + std::string(nom), Lieu::ici());
  return *trouvé;
}

std::string indexé(std::string_view nom, int i) {
  std::string indexé;
  indexé.reserve(nom.size() + sizeof "(330)");
  return indexé.append(nom).append("(").append(std::to_string(i)).append(")");
}

}  // namespace ardane
