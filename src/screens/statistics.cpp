#include "screens/statistics.h"

#include <span>
#include <string_view>

#include "core/game_state.h"
#include "core/resources.h"
#include "core/window_placing.h"
#include "platform/window_layout.h"
#include "screens/statistics_file.h"

namespace ardane {
namespace {

using Colonne = Stats::Colonne;

constexpr double hauteur_de_ligne = 16.8;
constexpr double haut_du_tableau = 120;

constexpr std::array places_des_statistiques = std::to_array<Place>({
    {"Baratin", Genre::étiquette, 8, 8, 465, 73},
    {"EntêteColonne1", Genre::étiquette, 8, 90, 149, 30},
    {"EntêteVilles", Genre::étiquette, 160, 90, 77, 30},
    {"EntêteDrapeaux", Genre::étiquette, 240, 90, 77, 30},
    {"EntêteProvinces", Genre::étiquette, 320, 90, 77, 30},
    {"EntêtePerteColonne1", Genre::étiquette, 160, 90, 77, 30},
    {"BarreVerticale", Genre::barre, 389, haut_du_tableau, 17, 305, 4},
    {"BoutonSauvegarde", Genre::bouton, 8, 432, 41, 41, 5},
    {"BoutonProvinces", Genre::bouton, 112, 432, 41, 41, 0},
    {"BoutonRégions", Genre::bouton, 160, 432, 41, 41, 1},
    {"BoutonVilles", Genre::bouton, 208, 432, 41, 41, 2},
    {"Command1", Genre::bouton, 320, 432, 41, 41, 3},
});

struct Place_de_colonne {
  std::string_view nom;
  double gauche, largeur;
};

/// By column.
constexpr std::array<Place_de_colonne, Stats::nombre_de_colonnes> places_des_colonnes = {{
    {"NomProvince", 8, 161},
    {"PerteVilles", 176, 69},
    {"PerteDrapeaux", 248, 69},
    {"PerteProvinces", 320, 69},
    {"NomColonne1", 8, 161},
    {"PerteColonne1", 176, 69},
}};

constexpr std::array colonnes_des_provinces = {Colonne::nom_province, Colonne::perte_villes,
                                               Colonne::perte_drapeaux, Colonne::perte_provinces};
constexpr std::array colonnes_des_autres = {Colonne::nom, Colonne::perte};

std::span<const Colonne> colonnes(Tableau tableau) {
  if (tableau == Tableau::aucun) return {};
  if (tableau == Tableau::provinces) return colonnes_des_provinces;
  return colonnes_des_autres;
}

const Place_de_colonne &place_de(Colonne colonne) {
  return places_des_colonnes.at(static_cast<std::size_t>(colonne));
}

void trier(GameState &g, Tableau tableau) {
  switch (tableau) {
    case Tableau::provinces: return Trier_provinces(g);
    case Tableau::régions: return Trier_régions(g);
    case Tableau::villes: return Trier_villes(g);
    case Tableau::aucun: break;
  }
}

double bas(const Contrôle &contrôle) {
  return contrôle.haut + contrôle.hauteur;
}

}  // namespace

Stats::Stats(Contexte &c) : Fenêtre("Stats"), c_(c) {
  const GameState &g = c.état;
  largeur = 487;
  hauteur = 475;
  redimensionnable = true;
  titre = message(g, Message::statistiques);
  contexte_aide = 90;
  Centrer_fenêtre(g, *this);
  placer_tout(*this, places_des_statistiques);
  contrôle(*this, "Baratin").texte = message(g, Message::explication_des_statistiques);
  for (const char *entête :
       {"EntêteColonne1", "EntêteVilles", "EntêteDrapeaux", "EntêteProvinces", "EntêtePerteColonne1"}) {
    contrôle(*this, entête).alignement = Alignement::centre;
    contrôle(*this, entête).cellule = true;
  }
  Contrôle &barre = contrôle(*this, "BarreVerticale");
  barre.visible = false;
  barre.changement = [this, &barre] { remplir(barre.valeur); };
  for (std::size_t i = 0; i < nombre_de_colonnes; ++i) ajouter_cellule(static_cast<Colonne>(i), 1);
  placer_boutons();
  montrer(Tableau::provinces);
}

void Stats::placer_boutons() {
  const GameState &g = c_.état;
  for (const char *nom_bouton :
       {"BoutonSauvegarde", "BoutonProvinces", "BoutonRégions", "BoutonVilles", "Command1"})
    contrôle(*this, nom_bouton).image = c_.ressources.images.chercher(std::string("Stats.") + nom_bouton);
  contrôle(*this, "BoutonProvinces").infobulle = message(g, Message::provinces);
  contrôle(*this, "BoutonRégions").infobulle = message(g, Message::régions);
  contrôle(*this, "BoutonVilles").infobulle = "Villes";
  contrôle(*this, "BoutonSauvegarde").nom_parlé = "Enregistrer dans un fichier";
  contrôle(*this, "Command1").nom_parlé = "Fermer";
  contrôle(*this, "BarreVerticale").nom_parlé = "Tableau, de haut en bas";
  contrôle(*this, "BoutonProvinces").clic = [this] { montrer(Tableau::provinces); };
  contrôle(*this, "BoutonRégions").clic = [this] { montrer(Tableau::régions); };
  contrôle(*this, "BoutonVilles").clic = [this] { montrer(Tableau::villes); };
  contrôle(*this, "BoutonSauvegarde").clic = [this] { Ecrire_statistiques(c_); };
  contrôle(*this, "Command1").clic = [this] { fermer(); };
}

void Stats::montrer(Tableau tableau) {
  Contrôle &barre = contrôle(*this, "BarreVerticale");
  // Coming back to the provinces leaves the bar of a longer table where it is.
  if (tableau != Tableau::provinces) barre.visible = false;
  quitter_tableau();
  tableau_ = tableau;
  montrer_entêtes();
  const Place_de_colonne &dernière = place_de(colonnes(tableau).back());
  barre.gauche = dernière.gauche + dernière.largeur;
  trier(c_.état, tableau);
  créer_lignes();
  barre.valeur = 0;
  remplir(0);
  contrôle(*this, "BoutonProvinces").actif = tableau != Tableau::provinces;
  contrôle(*this, "BoutonRégions").actif = tableau != Tableau::régions;
  contrôle(*this, "BoutonVilles").actif = tableau != Tableau::villes;
}

void Stats::quitter_tableau() {
  std::vector<Contrôle *> partants;
  for (const Colonne colonne : colonnes(tableau_)) {
    std::vector<Contrôle *> &lignes = cellules(colonne);
    partants.insert(partants.end(), lignes.begin() + 1, lignes.end());
    lignes.resize(1);
    lignes.front()->visible = false;
  }
  retirer(partants);
}

void Stats::montrer_entêtes() {
  const GameState &g = c_.état;
  const bool provinces = tableau_ == Tableau::provinces;
  const auto montrer_entête = [this](const char *entête, bool visible, const std::string &texte) {
    contrôle(*this, entête).visible = visible;
    contrôle(*this, entête).texte = texte;
  };
  montrer_entête("EntêteColonne1", true,
                 provinces                      ? message(g, Message::province)
                 : tableau_ == Tableau::régions ? message(g, Message::régions)
                                                : "Ville");
  montrer_entête("EntêteVilles", provinces, message(g, Message::recherche_des_villes));
  montrer_entête("EntêteDrapeaux", provinces, message(g, Message::recherche_des_drapeaux));
  montrer_entête("EntêteProvinces", provinces, message(g, Message::recherche_des_provinces));
  montrer_entête("EntêtePerteColonne1", !provinces, message(g, Message::points_perdus));
}

void Stats::créer_lignes() {
  Contrôle &barre = contrôle(*this, "BarreVerticale");
  const int nombre = nombre_de_lignes(c_.état, tableau_);
  bool débordé = false;
  for (int ligne = 1; ligne <= nombre; ++ligne) {
    for (const Colonne colonne : colonnes(tableau_)) {
      Contrôle &boîte = ligne == 1 ? cellule(colonne, 1) : ajouter_cellule(colonne, ligne);
      boîte.visible = bas(boîte) <= bas(barre);
      if (boîte.visible || débordé) continue;
      débordé = true;
      barre.visible = true;
      fixer_bornes(barre, 0, nombre - ligne + 1);
      barre.petit_pas = 1;
      barre.grand_pas = 3;
    }
  }
}

void Stats::remplir(int décalage) {
  const GameState &g = c_.état;
  const int nombre = nombre_de_lignes(g, tableau_) - décalage;
  for (int ligne = 1; ligne <= nombre; ++ligne) remplir_ligne(ligne, g.OrdreTableau(décalage + ligne));
}

void Stats::remplir_ligne(int ligne, int objet) {
  const GameState &g = c_.état;
  switch (tableau_) {
    case Tableau::provinces:
      cellule(Colonne::nom_province, ligne).texte = g.TableProvinces(objet).nom;
      écrire_coût(Colonne::perte_villes, ligne, coût_de_province(g, objet, étape_villes), étape_villes);
      écrire_coût(Colonne::perte_drapeaux, ligne, coût_de_province(g, objet, étape_drapeaux), étape_drapeaux);
      écrire_coût(Colonne::perte_provinces, ligne, coût_de_province(g, objet, étape_provinces),
                  étape_provinces);
      break;
    case Tableau::régions:
      cellule(Colonne::nom, ligne).texte = g.TableRégions(objet).nom;
      écrire_coût(Colonne::perte, ligne, coût_de_région(g, objet), étape_régions);
      break;
    case Tableau::villes: {
      const Fiche_ville &ville = g.TableVilles(objet);
      cellule(Colonne::nom, ligne).texte = ville.nom + " (" + g.TableProvinces(ville.province).nom + ")";
      écrire_coût(Colonne::perte, ligne, coût_de_ville(g, objet), étape_villes);
      break;
    }
    case Tableau::aucun: break;
  }
}

void Stats::écrire_coût(Colonne colonne, int ligne, const Coût &coût, int étape) {
  Contrôle &boîte = cellule(colonne, ligne);
  boîte.texte = std::to_string(coût.points);
  boîte.fond = couleur_de_cellule(c_.état, coût, étape);
  boîte.nom_parlé = boîte.texte + ", " + mots_de_cellule(c_.état, coût, étape);
}

Contrôle &Stats::ajouter_cellule(Colonne colonne, int ligne) {
  const Place_de_colonne &place = place_de(colonne);
  Contrôle &boîte =
      placer(*this, {indexé(place.nom, ligne), Genre::étiquette, place.gauche,
                     haut_du_tableau + hauteur_de_ligne * (ligne - 1), place.largeur, hauteur_de_ligne});
  boîte.cellule = true;
  boîte.bord = Bord::avec;
  boîte.visible = false;
  cellules(colonne).push_back(&boîte);
  return boîte;
}

Contrôle &Stats::cellule(Colonne colonne, int ligne) {
  return *cellules(colonne).at(static_cast<std::size_t>(ligne - 1));
}

}  // namespace ardane
