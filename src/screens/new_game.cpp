#include "screens/new_game.h"

#include <array>

#include "core/announcement.h"
#include "core/captions.h"
#include "core/game_state.h"
#include "core/window_placing.h"
#include "map/main_window.h"
#include "persistence/registry.h"
#include "platform/text.h"
#include "platform/window_layout.h"

namespace ardane {
namespace {

constexpr std::size_t longueur_du_nom = 20;

constexpr std::array places_de_la_partie = std::to_array<Place>({
    {"Label1", Genre::étiquette, 31, 29, 226, 21, 1},
    {"boîte_nom_joueur", Genre::texte, 33, 56, 224, 24, 0},
    {"Frame1", Genre::cadre, 31, 109, 140, 129, 2},
    {"Niveau_apprentissage", Genre::option, 16, 24, 105, 13, 7, "", "Frame1"},
    {"niveau_facile", Genre::option, 16, 44, 108, 13, 3, "", "Frame1"},
    {"niveau_moyen", Genre::option, 16, 63, 118, 14, 4, "", "Frame1"},
    {"niveau_difficile", Genre::option, 16, 84, 114, 13, 5, "", "Frame1"},
    {"niveau_expert", Genre::option, 16, 104, 105, 13, 9, "Expert", "Frame1"},
    {"bouton_sortie", Genre::bouton, 56, 264, 66, 31, 6, "OK"},
    {"Bouton_annuler", Genre::bouton, 184, 264, 66, 31, 8},
});

constexpr std::array légendes = std::to_array<Légende>({
    {"Label1", Message::entrer_votre_nom},
    {"Frame1", Message::difficulté},
    {"Niveau_apprentissage", Message::apprentissage},
    {"niveau_facile", Message::facile},
    {"niveau_moyen", Message::moyen},
    {"niveau_difficile", Message::difficile},
    {"Bouton_annuler", Message::annuler},
});

constexpr std::array<std::string_view, 4> options_de_niveau = {"niveau_facile", "niveau_moyen",
                                                               "niveau_difficile", "niveau_expert"};

/// Option of a level; learning mode and no level yet offer Facile.
std::string_view option_du_niveau(int niveau) {
  return options_de_niveau[est_niveau(niveau) ? static_cast<std::size_t>(niveau - niveau_facile) : 0];
}

}  // namespace

Nouvelle_partie::Nouvelle_partie(Contexte &c) : Fenêtre("nouvelle_partie"), c_(c) {
  const GameState &g = c.état;
  largeur = 312;
  hauteur = 303;
  fermable = false;
  contexte_aide = 20;
  titre = message(g, Message::nouvelle_partie);
  placer_tout(*this, places_de_la_partie);
  contrôle(*this, "Label1").police = {Famille_police::times, 12, true};
  contrôle(*this, "Label1").alignement = Alignement::centre;
  contrôle(*this, "boîte_nom_joueur").pour_fichier = true;
  contrôle(*this, "boîte_nom_joueur").étiquette = &contrôle(*this, "Label1");
  Poser_légendes(g, *this, légendes);
  Centrer_fenêtre(g, *this);
  contrôle(*this, option_du_niveau(g.Niveau)).coché = true;
  contrôle(*this, "boîte_nom_joueur").texte = g.Nom_joueur;

  activation = [this] {
    focus = &contrôle(*this, c_.état.Nom_joueur.empty() ? "boîte_nom_joueur" : "bouton_sortie");
  };
  contrôle(*this, "bouton_sortie").clic = [this] { accepter(); };
  contrôle(*this, "Bouton_annuler").clic = [this] { annuler(); };
}

void Nouvelle_partie::accepter() {
  GameState &g = c_.état;
  const std::string &nom_saisi = contrôle(*this, "boîte_nom_joueur").texte;
  if (sans_blancs(nom_saisi).empty()) {
    annoncer(c_, Message::saisie_incomplète, Message::indiquer_votre_nom, Icône::exclamation);
    return;
  }
  g.Nom_joueur = premiers_caractères(nom_saisi, longueur_du_nom);
  g.ModeApprentissage = g.ScoreNonRetenu = false;
  c_.principale.Bouton_gruge.image = c_.principale.Ampoule_allumée.image;
  lire_niveau();
  Ecrire_registre(c_.plateforme.registre, clé_du_jeu, réglage_joueur, g.Nom_joueur);
  g.Etape = g.Ordre_jeux(1);
  fermer();
}

void Nouvelle_partie::lire_niveau() {
  GameState &g = c_.état;
  for (std::size_t i = 0; i < options_de_niveau.size(); ++i)
    if (contrôle(*this, options_de_niveau[i]).coché) g.Niveau = static_cast<std::int16_t>(niveau_facile + i);
  if (contrôle(*this, "Niveau_apprentissage").coché) {
    g.Niveau = niveau_facile;
    g.ModeApprentissage = g.ScoreNonRetenu = true;
  }
}

void Nouvelle_partie::annuler() {
  c_.état.Etape = étape_repos;
  fermer();
}

}  // namespace ardane
