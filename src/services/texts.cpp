#include "services/texts.h"

#include <array>

#include "core/announcement.h"
#include "core/captions.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "map/configuration_panel.h"
#include "map/main_window.h"
#include "map/panel.h"
#include "persistence/registry.h"

namespace ardane {
namespace {

constexpr std::array légendes = std::to_array<Légende>({
    {"Menu_langue", Message::langue},
    {"Boîte_restants", Message::reste_à_placer},
    {"Boîte_score", Message::cadre_score},
    {"que_faire", Message::trouver},
    {"score_en_cours", Message::niveau_en_cours},
    {"score_facile", Message::niveau_facile},
    {"score_moyen", Message::niveau_moyen},
    {"score_expert", Message::menu_niveau_expert},
    {"score_difficile", Message::niveau_difficile},
    {"menu_fichier", Message::menu_fichier},
    {"fichier_nouveau", Message::nouvelle_partie},
    {"Fichier_enregistrer", Message::enregistrer_la_partie},
    {"Fichier_lire", Message::reprendre_une_partie},
    {"fichier_quitter", Message::quitter},
    {"menu_scores", Message::menu_score},
    {"menu_Scoresraz", Message::remise_à_zéro},
    {"Menu_réviser", Message::révision},
    {"menu_paramétrer", Message::menu_paramétrer},
    {"Menu_affiche_paramètres", Message::afficher_le_paramétrage},
    {"menu_recharger", Message::recharger_un_paramétrage},
    {"menu_définir", Message::paramétrer_le_jeu},
    {"Menu_aide", Message::menu_aide},
    {"Menu_à_propos", Message::à_propos},
    {"Menu_défaut", Message::utiliser_le_paramétrage_par_défaut},
    {"menu_inf", Message::définir_le_dossier_d_information},
    {"Menu_liste", Message::liste_par_provinces},
    {"Menu_liste_souspréf", Message::liste_par_villes},
    {"Menu_révision", Message::révision},
    {"FichierVersion", Message::rechercher_les_versions},
    {"MenuCouleurPréfectures", Message::couleur_des_capitales},
    {"MenuCouleurSousPréfectures", Message::couleur_des_autres_villes},
});

}  // namespace

void Poser_textes(Contexte &c) {
  const GameState &g = c.état;
  c.principale.titre = message(g, Message::titre_du_jeu);
  Poser_légendes(g, c.principale, légendes);
  c.principale.BoutonPasse.infobulle = message(g, Message::je_passe);
  c.principale.menu("MenuSon").texte =
      message(g, g.SonActif ? Message::couper_le_son_au_départ : Message::mettre_le_son_au_départ);
}

void Changer_langue(Contexte &c) {
  GameState &g = c.état;
  if (g.Nombre_langues == 1) {
    annoncer(c, Message::besoin_d_aide, Message::jeu_en_français_seulement, Icône::exclamation);
    return;
  }
  g.Langue = g.Langue == 1 ? 2 : 1;
  Charger_textes(c);
  Poser_textes(c);
  AfficherPanneau(c);
  AfficherReste(c, reste_de_l_étape(g));
  if (paramétrage_visible(g)) Légender_paramétrage(c);
  Ecrire_registre(c.plateforme.registre, clé_du_jeu, réglage_langue, std::to_string(g.Langue));
}

void Aide_du_menu(Contexte &c) {
  c.principale.contexte_aide = 10;
  Ouvrir_aide(c, c.principale.contexte_aide);
}

void Ouvrir_aide(Contexte &c, int contexte) {
  const GameState &g = c.état;
  c.plateforme.aide.ouvrir(Joindre_chemin(g.Répertoire_programme, g.Fichiers_aide(g.Langue)), contexte);
}

void A_propos(Contexte &c) {
  const GameState &g = c.état;
  c.plateforme.boîtes.montrer({Icône::information, message(g, Message::à_propos),
                               message(g, Message::titre_du_jeu) + message(g, Message::version) + "\n" +
                                   message(g, Message::auteur_et_site)});
}

void Basculer_son(Contexte &c) {
  GameState &g = c.état;
  g.SonActif = !g.SonActif;
  c.principale.menu("MenuSon").texte =
      message(g, g.SonActif ? Message::couper_le_son : Message::mettre_le_son);
}

}  // namespace ardane
