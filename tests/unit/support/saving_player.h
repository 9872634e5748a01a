// A player who stops games and takes them up again, through the menu and the chooser of files.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>

#include "platform/window_layout.h"
#include "support/fake_world.h"

namespace ardane {

/// Chooses a menu entry and plays in the chooser that it opens; false if it opens none.
inline bool dans_le_choix_de_fichier(MondeFactice &m, std::string_view entrée,
                                     const std::function<void(Fenêtre &)> &joueur) {
  bool ouverte = false;
  const auto avant = m.façade.joueur;
  m.façade.joueur = [&](Fenêtre &f) {
    if (f.nom != "Sélection_partie") return;
    ouverte = true;
    joueur(f);
  };
  cliquer(m.e(), m.e().menu(entrée));
  m.façade.joueur = avant;
  return ouverte;
}

/// Types a name and presses OK; true if that has closed the window.
inline bool nommer_le_fichier(Fenêtre &f, const std::string &nom) {
  saisir(contrôle(f, "Nom_fichier"), nom);
  cliquer(f, contrôle(f, "Bouton_OK"));
  return !f.ouverte;
}

/// Selects a file of the list and presses OK; true if that has closed the window.
inline bool choisir_le_fichier(Fenêtre &f, const std::string &nom) {
  Contrôle &liste = contrôle(f, "Fichier");
  const auto place = std::find(liste.éléments.begin(), liste.éléments.end(), nom);
  if (place == liste.éléments.end()) throw std::runtime_error("no file of that name in the list: " + nom);
  choisir(liste, static_cast<int>(place - liste.éléments.begin()) + 1);
  cliquer(f, contrôle(f, "Bouton_OK"));
  return !f.ouverte;
}

/// `nom` without its extension. True if the chooser has come up and closed.
inline bool enregistrer_la_partie(MondeFactice &m, const std::string &nom) {
  bool enregistrée = false;
  dans_le_choix_de_fichier(m, "Fichier_enregistrer",
                           [&](Fenêtre &f) { enregistrée = nommer_le_fichier(f, nom); });
  return enregistrée;
}

/// `nom` with its extension. True if the chooser has come up and closed.
inline bool reprendre_la_partie(MondeFactice &m, const std::string &nom) {
  bool reprise = false;
  dans_le_choix_de_fichier(m, "Fichier_lire", [&](Fenêtre &f) { reprise = choisir_le_fichier(f, nom); });
  return reprise;
}

}  // namespace ardane
