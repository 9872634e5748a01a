#include "map/configuration_panel.h"

#include <array>
#include <string_view>

#include "core/game_state.h"
#include "map/main_window.h"

namespace ardane {
namespace {

struct Légende_param {
  int label;
  Message message;
};

constexpr std::array légendes = std::to_array<Légende_param>({
    {1, Message::jeux_utilisés_et_ordre},
    {4, Message::provinces},
    {12, Message::régions},
    {5, Message::villes},
    {6, Message::drapeaux},
    {7, Message::premier},
    {8, Message::deuxième},
    {9, Message::troisième},
    {13, Message::quatrième},
    {10, Message::sauvegarder_ce_paramétrage},
    {11, Message::utiliser_aux_prochains_démarrages},
});

// The labels at the head of the grid's columns and rows, from which its boxes take what is spoken of them.
constexpr std::array labels_des_positions = {7, 8, 9, 13};
constexpr std::array labels_des_jeux = {4, 12, 5, 6};

void légender_fichier(Contexte &c) {
  const GameState &g = c.état;
  Contrôle &label = c.principale.LBL_param(3);
  const bool temporaire = paramétrage_temporaire(g);
  label.texte = temporaire ? message(g, Message::paramétrage_non_sauvegardé)
                           : message(g, Message::nom_du_fichier_paramétrage) + "\n" + g.Fichier_lancement;
  label.infobulle = temporaire ? "" : g.Fichier_lancement;
}

void nommer_cases(Ecran_principal &e) {
  for (std::size_t position = 0; position < labels_des_positions.size(); ++position) {
    for (std::size_t jeu = 0; jeu < labels_des_jeux.size(); ++jeu) {
      Contrôle &boîte = e.Bouton(static_cast<int>(position * labels_des_jeux.size() + jeu) + 1);
      boîte.nom_parlé =
          e.LBL_param(labels_des_positions[position]).texte + ", " + e.LBL_param(labels_des_jeux[jeu]).texte;
    }
  }
}

void montrer_panneau(Ecran_principal &e, bool visible) {
  for (int i = 1; i <= 13; ++i) e.LBL_param(i).visible = visible;
  for (int i = 1; i <= 16; ++i) e.Bouton(i).visible = visible;
  e.BTN_Sauvegarde.visible = e.BTN_Démarrage.visible = visible;
}

void ouvrir_menus(Ecran_principal &e, bool ouverts) {
  for (const std::string_view nom : {"menu_fichier", "menu_scores", "Menu_réviser", "menu_paramétrer"})
    e.menu(nom).actif = ouverts;
}

void montrer_boutons(Ecran_principal &e, bool visibles) {
  for (int i = 1; i <= 2; ++i) e.BTN(i).visible = visibles;
}

}  // namespace

bool paramétrage_visible(const GameState &g) {
  return g.Etape == étape_paramétrage_affiché || g.Etape == étape_paramétrage_défini;
}

void Légender_paramétrage(Contexte &c) {
  const GameState &g = c.état;
  Ecran_principal &e = c.principale;
  for (const Légende_param &légende : légendes)
    e.LBL_param(légende.label).texte = message(g, légende.message);
  e.LBL_param(2).texte =
      message(g, g.Etape == étape_paramétrage_défini ? Message::cliquer_les_provinces_à_jouer
                                                     : Message::provinces_surlignées_en_jeu);
  légender_fichier(c);
  nommer_cases(e);
  e.BTN(2).texte = message(g, Message::annuler);
}

void AfficherPanneauParamétrage(Contexte &c) {
  const bool défini = c.état.Etape == étape_paramétrage_défini;
  montrer_panneau(c.principale, true);
  montrer_boutons(c.principale, défini);
  if (défini) ouvrir_menus(c.principale, false);
}

void MasquerParamétrage(Contexte &c) {
  montrer_panneau(c.principale, false);
  montrer_boutons(c.principale, false);
  ouvrir_menus(c.principale, true);
}

}  // namespace ardane
