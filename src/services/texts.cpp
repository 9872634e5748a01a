#include "services/texts.h"

#include <array>

#include "core/captions.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "map/main_window.h"
#include "map/panel.h"
#include "persistence/registry.h"

namespace ardane {
namespace {

constexpr std::array légendes = std::to_array<Légende>({
    {"Menu_langue", 116},
    {"Boîte_restants", 111},
    {"Boîte_score", 112},
    {"que_faire", 113},
    {"score_en_cours", 51},
    {"score_facile", 52},
    {"score_moyen", 53},
    {"score_expert", 141},
    {"score_difficile", 54},
    {"menu_fichier", 55},
    {"fichier_nouveau", 56},
    {"Fichier_enregistrer", 57},
    {"Fichier_lire", 58},
    {"fichier_quitter", 59},
    {"menu_scores", 60},
    {"menu_Scoresraz", 61},
    {"Menu_réviser", 62},
    {"menu_paramétrer", 63},
    {"Menu_affiche_paramètres", 64},
    {"menu_recharger", 65},
    {"menu_définir", 66},
    {"Menu_aide", 67},
    {"Menu_à_propos", 17},
    {"Menu_défaut", 139},
    {"menu_inf", 140},
    {"Menu_liste", 147},
    {"Menu_liste_souspréf", 148},
    {"Menu_révision", 62},
    {"FichierVersion", 182},
    {"MenuCouleurPréfectures", 183},
    {"MenuCouleurSousPréfectures", 184},
});

}  // namespace

void Poser_textes(Contexte &c) {
  const GameState &g = c.état;
  c.principale.titre = message(g, 110);
  Poser_légendes(g, c.principale, légendes);
  c.principale.BoutonPasse.infobulle = message(g, 142);
  c.principale.menu("MenuSon").texte = message(g, g.SonActif ? 170 : 171);
}

void Changer_langue(Contexte &c) {
  GameState &g = c.état;
  if (g.Nombre_langues == 1) {
    c.plateforme.boîtes.montrer({Icône::exclamation, message(g, 127), message(g, 126)});
    return;
  }
  g.Langue = g.Langue == 1 ? 2 : 1;
  Charger_textes(c);
  Poser_textes(c);
  AfficherPanneau(c);
  AfficherReste(c, reste_de_l_étape(g));
  Ecrire_registre(c.plateforme.registre, clé_du_jeu, "langue", std::to_string(g.Langue));
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
  c.plateforme.boîtes.montrer(
      {Icône::information, message(g, 17), message(g, 110) + message(g, 0) + "\n" + message(g, 16)});
}

void Basculer_son(Contexte &c) {
  GameState &g = c.état;
  g.SonActif = !g.SonActif;
  c.principale.menu("MenuSon").texte = message(g, g.SonActif ? 180 : 181);
}

}  // namespace ardane
