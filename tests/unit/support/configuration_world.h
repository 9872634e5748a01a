// A started program for tests of configurations and their files: the player's hand on menus and map, what he
// is told, what is in force and what lies on the disk.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/hit_test_table.h"
#include "map/layout.h"
#include "persistence/registry.h"
#include "persistence/score_file.h"
#include "persistence/score_format.h"
#include "support/fake_world.h"
#include "support/state_snapshot.h"
#include "support/table_values.h"

namespace ardane {

/// A box in one line: "exclamation | Erreur | Texte", or "question ? | Titre | Texte" if it asks.
inline std::string décrire_boîte(const Boîte &boîte) {
  constexpr std::array<std::string_view, 5> icônes = {"aucune", "information", "exclamation", "stop",
                                                      "question"};
  return std::string(icônes.at(static_cast<std::size_t>(boîte.icône))) +
         (boîte.boutons == Boutons::oui_non ? " ? | " : " | ") + boîte.titre + " | " + boîte.texte;
}

/// Scores in short, each "level name points".
inline std::vector<std::string> décrire_scores(const std::vector<Enregistrement_score> &scores) {
  std::vector<std::string> lignes;
  for (const Enregistrement_score &s : scores)
    lignes.push_back(std::to_string(s.niveau) + " " + s.nom + " " + std::to_string(s.score));
  return lignes;
}

class AvecParamétrage : public testing::Test {
 protected:
  AvecParamétrage() { m.démarrer(); }

  GameState &g() { return m.g(); }
  Ecran_principal &e() { return m.e(); }

  // --- The player's hand

  void menu(std::string_view nom) {
    Contrôle &entrée = e().menu(nom);
    ASSERT_TRUE(est_utilisable(entrée)) << nom;
    cliquer(e(), entrée);
  }
  /// A click on a province as it is shown.
  void cliquer_province(int p) {
    m.écran.placer_curseur(pixel_de(p));
    Contrôle &couche = e().Pays(p).visible ? e().Pays(p) : e().Inv(p);
    ASSERT_TRUE(est_utilisable(couche)) << p;
    cliquer(e(), couche);
  }
  /// A game in which a click has been made.
  void commencer_une_partie(int niveau = 1) {
    m.nouvelle_partie(niveau);
    m.répondre_faux();
    m.oublier();
  }

  /// The map takes the panel's place, on a screen where that makes a difference.
  void élargir_carte() {
    g().Largeur_écran = 800;
    g().Carte_pleine_largeur = false;
    DisposerCarte(m.c());
    largeur_habituelle = e().Carte.largeur;
    g().Carte_pleine_largeur = true;
    DisposerCarte(m.c());
    ASSERT_NE(e().Carte.largeur, largeur_habituelle);
  }

  // --- What he is told

  /// The boxes since this was asked last.
  std::vector<std::string> boîtes() {
    std::vector<std::string> lignes;
    for (const Boîte &boîte : std::exchange(m.boîtes.montrées, {})) lignes.push_back(décrire_boîte(boîte));
    return lignes;
  }

  void attendre_carte_et_panneau() {
    EXPECT_FALSE(g().Carte_pleine_largeur);
    EXPECT_EQ(e().Carte.largeur, largeur_habituelle);
  }

  // --- What is in force

  std::vector<int> ordre() { return valeurs(g().Ordre_jeux); }
  std::vector<int> exclues() {
    std::vector<int> provinces;
    for (int p = 1; p <= nombre_provinces; ++p)
      if (g().TableProvinces(p).inhibée) provinces.push_back(p);
    return provinces;
  }
  std::vector<std::string> scores() { return décrire_scores(Liste_des_scores(g())); }
  void donner_scores() {
    Vider_scores(m.c());
    Ajouter_scores(g(), {{"Zoé", 999000, 1}, {"Ann", 12, 1}, {"Lou", 5, 4}});
  }
  const std::vector<std::string> scores_donnés = {"1 Zoé 999000", "1 Ann 12", "4 Lou 5"};
  std::string réglage(std::string_view nom) { return m.registre.lire(clé_du_jeu, nom).value_or("absent"); }

  // --- What lies on the disk

  struct Fichier {
    std::vector<int> ordre, exclues;
    std::vector<std::string> scores;
  };
  static Fichier lire(const std::string &chemin) {
    std::ifstream flux(chemin_natif(chemin), std::ios::binary);
    const Lecture_scores lecture = lire_scores(flux);
    if (lecture.défaut) throw std::runtime_error(chemin + ": " + décrire_défaut(*lecture.défaut));
    Fichier fichier{valeurs(lecture.contenu.ordre), {}, décrire_scores(lecture.contenu.scores)};
    for (int p = 1; p <= nombre_provinces; ++p)
      if (lecture.contenu.inhibée(p)) fichier.exclues.push_back(p);
    return fichier;
  }
  /// Writes the configuration and the scores in force to a file that is then in use.
  void utiliser(const std::string &chemin) {
    g().Fichier_lancement = chemin;
    ASSERT_TRUE(Ecrire_scores(m.c(), true));
  }

  MondeFactice m;

 private:
  double largeur_habituelle = 0;  ///< of the map beside the panel

  /// A place on the screen where the map shows that province.
  Point pixel_de(int p) {
    for (int y = 0; y < e().image_région.hauteur; ++y)
      for (int x = 0; x < e().image_région.largeur; ++x)
        if (code_du_pixel(g(), 0, x, y) == p)
          return {g().Rect_carte.gauche + x - e().barre_h.valeur,
                  g().Rect_carte.haut + y - e().barre_v.valeur};
    throw std::runtime_error("province " + std::to_string(p) + " is nowhere on the map");
  }
};

inline constexpr std::array menus_fermés = {"menu_fichier", "menu_scores", "Menu_réviser", "menu_paramétrer"};
inline constexpr const char *question_sans_sauvegarde =
    "question ? | Etes-vous certain ? | Les scores que vous allez réaliser avec ce paramétrage ne seront pas "
    "sauvegardés ; confirmez-vous ce choix ?";
inline constexpr const char *question_d_abandon =
    "question ? | Partie en cours... | Confirmez-vous l'abandon de la partie en cours ?";

/// The same, with the panel at hand.
class AvecPanneau : public AvecParamétrage {
 protected:
  AvecPanneau() {
    // The chooser, where one comes up, is only looked at, and left by its close control.
    m.façade.joueur = [this](Fenêtre &f) {
      if (f.nom != "Sélection_partie") return;
      choix = {g().Mode_sélection, g().Type_fichier, g().Démarrage_demandé ? 1 : 0};
      demander_fermeture(f);
    };
  }

  void définir() { menu("menu_définir"); }
  void afficher() { menu("Menu_affiche_paramètres"); }
  void ok() { appuyer(e().BTN(1)); }
  void annuler() { appuyer(e().BTN(2)); }
  void cocher(int position, int jeu) { appuyer(e().Bouton((position - 1) * nombre_jeux + jeu)); }
  void appuyer(Contrôle &contrôle) {
    ASSERT_TRUE(est_utilisable(contrôle)) << contrôle.nom;
    cliquer(e(), contrôle);
  }
  /// Brings a box into a state, by a click if that takes one.
  void mettre(Contrôle &boîte, bool coché) {
    if (boîte.coché != coché) appuyer(boîte);
  }

  /// The grid as it is seen: a row a stage (Provinces, Régions, Villes, Drapeaux), a column a position.
  std::string grille() {
    std::string dessin;
    for (int jeu = 1; jeu <= nombre_jeux; ++jeu) {
      for (int position = 1; position <= nombre_jeux; ++position)
        dessin += e().Bouton((position - 1) * nombre_jeux + jeu).coché ? 'x' : '.';
      if (jeu < nombre_jeux) dessin += ' ';
    }
    return dessin;
  }
  /// True if the four menus that editing closes are all open, false if none is.
  bool menus_ouverts() {
    const auto ouverts = std::count_if(menus_fermés.begin(), menus_fermés.end(),
                                       [this](const char *nom) { return e().menu(nom).actif; });
    EXPECT_TRUE(ouverts == 0 || static_cast<std::size_t>(ouverts) == menus_fermés.size()) << ouverts;
    return ouverts > 0;
  }
  std::vector<Contrôle *> contrôles_du_panneau() {
    std::vector<Contrôle *> contrôles = {&e().BTN_Sauvegarde, &e().BTN_Démarrage};
    for (int i = 1; i <= 13; ++i) contrôles.push_back(&e().LBL_param(i));
    for (int i = 1; i <= 16; ++i) contrôles.push_back(&e().Bouton(i));
    return contrôles;
  }
  /// True if all of the panel is seen but the buttons, false if nothing of it is.
  bool panneau_visible() {
    const auto contrôles = contrôles_du_panneau();
    const auto vus = std::count_if(contrôles.begin(), contrôles.end(), [](auto *c) { return c->visible; });
    EXPECT_TRUE(vus == 0 || static_cast<std::size_t>(vus) == contrôles.size()) << vus;
    return vus > 0;
  }
  void attendre_mode(int mode) {
    EXPECT_EQ(g().Etape, mode);
    EXPECT_TRUE(panneau_visible());
    EXPECT_EQ(menus_ouverts(), mode == étape_paramétrage_affiché);
    for (int i = 1; i <= 2; ++i) EXPECT_EQ(e().BTN(i).visible, mode == étape_paramétrage_défini) << i;
  }
  void attendre_repos() {
    EXPECT_EQ(g().Etape, étape_repos);
    EXPECT_FALSE(panneau_visible());
    EXPECT_TRUE(menus_ouverts());
    for (int i = 1; i <= 2; ++i) EXPECT_FALSE(e().BTN(i).visible) << i;
    EXPECT_FALSE(e().que_faire.visible);
    EXPECT_FALSE(e().Pays(1).visible);
    EXPECT_TRUE(g().PartieVierge);
  }

  /// What the chooser was opened for: `Mode_sélection`, `Type_fichier`, `Démarrage_demandé`. Empty if it was
  /// not.
  std::vector<int> choix;
  const std::string défaut = m.dossier.fichier("ARDANE.SCI");
};

}  // namespace ardane
