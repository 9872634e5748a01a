#include "configuration/player_file.h"

#include "core/game_state.h"
#include "core/paths.h"
#include "map/layout.h"
#include "persistence/folders.h"
#include "persistence/lifeline.h"
#include "persistence/saved_game_format.h"
#include "persistence/score_file.h"
#include "platform/log.h"
#include "platform/text.h"
#include "play/interrupted_game.h"
#include "play/saved_game.h"
#include "play/stage_sequencer.h"

namespace ardane {
namespace {

bool est_nommé(std::string_view chemin, std::string_view extension) {
  return en_majuscules(chemin).ends_with(extension);
}

std::string dossier_du_fichier(const std::string &chemin) {
  return texte_du_chemin(chemin_natif(chemin).parent_path());
}

void ouvrir_paramétrage(Contexte &c, const std::string &chemin) {
  if (const auto défaut = Défaut_du_fichier_de_scores(c, chemin)) {
    consigner("Le paramétrage « " + chemin + " » est refusé : " + *défaut);
    return Refuser_format(c, chemin);
  }
  if (ConfirmerAbandon(c)) Prendre_fichier_paramétrage(c, chemin);
}

}  // namespace

bool est_nom_de_fichier_du_jeu(std::string_view nom) {
  return est_nommé(nom, extension_parties) || est_nommé(nom, extension_scores);
}

bool Reprendre_fichier(Contexte &c, const std::string &chemin) {
  if (!Charger_partie(c, chemin)) return false;
  Proposer_répertoire(c, dossier_du_fichier(chemin));
  Reprendre_partie(c);
  Tenir_partie(c);
  c.secours.attendre();
  // Last of all: until the game stands on the screen it stands on the disk.
  if (!Effacer_fichier(chemin)) consigner("La partie « " + chemin + " » ne peut pas être effacée");
  return true;
}

void Prendre_fichier_paramétrage(Contexte &c, const std::string &chemin) {
  GameState &g = c.état;
  const Réponse réponse = c.plateforme.boîtes.montrer(
      {Icône::question, message(g, Message::chargement_du_paramétrage),
       message(g, Message::utiliser_ce_paramétrage_par_défaut), Boutons::oui_non});
  if (réponse == Réponse::oui) Lancer_aux_prochains_démarrages(c, chemin, dossier_du_fichier(chemin));
  g.Fichier_lancement = chemin;
  Charger_scores(c);
  RevenirAuRepos(c);
  g.Carte_pleine_largeur = false;
  DisposerCarte(c);
}

void Ouvrir_fichier(Contexte &c, const std::string &chemin) {
  if (est_nommé(chemin, extension_scores)) return ouvrir_paramétrage(c, chemin);
  Reprendre_par(c, [&] { Reprendre_fichier(c, chemin); });
}

}  // namespace ardane
