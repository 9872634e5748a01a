#include "play/question_selection.h"

#include <cmath>

#include "core/game_state.h"
#include "map/layers.h"
#include "map/main_window.h"
#include "map/panel.h"
#include "map/visibility_rules.h"

namespace ardane {
namespace {

/// Index of the k-th row that is not found, from 1.
template <class Fiches>
int k_ième_candidat(const Fiches &table, int k) {
  int indice = 0;
  while (k > 0)
    if (!table(++indice).trouvée) --k;
  return indice;
}

/// One uniform draw over the `n` candidates; the object asked last gives way to its neighbour among them.
template <class Fiches>
int tirer(const Fiches &table, int n, float tirage, int précédent) {
  const int k = static_cast<int>(std::floor(n * static_cast<double>(tirage) + 1));
  const int choix = k_ième_candidat(table, k);
  if (choix != précédent || n < 2) return choix;
  return k_ième_candidat(table, k > 1 ? k - 1 : 2);
}

void poser_province(Contexte &c, int choix) {
  GameState &g = c.état;
  Ecran_principal &e = c.principale;
  g.ProvinceCourante = static_cast<std::int16_t>(choix);
  e.Texte_à_chercher.texte = g.TableProvinces(choix).nom;
  if (g.Niveau == niveau_facile) {
    const Image forme = e.Pays(choix).image;
    poser_image(e.Image_recherchée, forme);
    e.Image_recherchée.nom_parlé = "Forme de la province";
    e.Image_recherchée.largeur = forme.largeur;
    e.Image_recherchée.hauteur = forme.hauteur;
    e.Image_recherchée.gauche = std::trunc((g.Largeur_image_cible - forme.largeur) / 2);
    e.Image_recherchée.haut = std::trunc((g.Hauteur_image_cible - forme.hauteur) / 2);
  } else if (g.Niveau == niveau_moyen) {
    AfficherDrapeau(c, choix);
  }
}

void poser_ville(Contexte &c, int choix) {
  GameState &g = c.état;
  g.VilleCourante = static_cast<std::int16_t>(choix);
  g.ProvinceCourante = g.TableVilles(choix).province;
  c.principale.Texte_à_chercher.texte = g.TableVilles(choix).nom;
  if (bas_niveau(g)) AfficherDrapeau(c, g.ProvinceCourante);
}

void poser_drapeau(Contexte &c, int choix) {
  c.état.ProvinceCourante = static_cast<std::int16_t>(choix);
  AfficherDrapeau(c, choix);
}

void poser_région(Contexte &c, int choix) {
  GameState &g = c.état;
  const Fiche_région &région = g.TableRégions(choix);
  g.RégionCourante = static_cast<std::int16_t>(choix);
  c.principale.Texte_à_chercher.texte = région.nom;
  g.ResteRégion = g.TailleRégion = région.provinces_restantes;
  g.SélectionRégion.dimensionner(g.TailleRégion);
  AfficherNombreProvinces(c, g.TailleRégion);
  c.principale.au_premier_plan(c.principale.NombreProvinces);
  for (int k = 1; k <= région.nombre_provinces; ++k) Montrer_province(c, région.membres(k), false);
  AfficherDrapeauRégion(c, choix);
}

}  // namespace

void QuestionSuivante(Contexte &c) {
  const GameState &g = c.état;
  const int n = reste_de_l_étape(g);
  if (n < 1) return;
  const float tirage = c.plateforme.hasard.tirer();
  switch (g.Etape) {
    case étape_provinces:
    case étape_drapeaux: Poser_question(c, tirer(g.TableProvinces, n, tirage, g.ProvinceCourante)); break;
    case étape_villes: Poser_question(c, tirer(g.TableVilles, n, tirage, g.VilleCourante)); break;
    case étape_régions: Poser_question(c, tirer(g.TableRégions, n, tirage, g.RégionCourante)); break;
    default: break;
  }
}

void Poser_question(Contexte &c, int choix) {
  switch (c.état.Etape) {
    case étape_provinces: poser_province(c, choix); break;
    case étape_villes: poser_ville(c, choix); break;
    case étape_drapeaux: poser_drapeau(c, choix); break;
    case étape_régions: poser_région(c, choix); break;
    default: break;
  }
}

}  // namespace ardane
