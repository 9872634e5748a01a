#include "configuration/configuration_mode.h"

#include <algorithm>

#include "configuration/stage_grid.h"
#include "core/announcement.h"
#include "core/chooser_modes.h"
#include "core/current_folder.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "map/configuration_panel.h"
#include "map/layers.h"
#include "map/layout.h"
#include "map/main_window.h"
#include "map/map_reset.h"
#include "map/panel.h"
#include "persistence/folders.h"
#include "persistence/registry.h"
#include "persistence/score_file.h"
#include "play/stage_sequencer.h"

namespace ardane {
namespace {

constexpr int contexte_aide_du_paramétrage = 65;

/// The box of a position and a column in the array of sixteen.
constexpr int indice(int position, int colonne) {
  return (position - 1) * nombre_jeux + colonne;
}

Grille_jeux grille_cochée(Ecran_principal &e) {
  Grille_jeux grille;
  for (int position = 1; position <= nombre_jeux; ++position)
    for (int colonne = 1; colonne <= nombre_jeux; ++colonne)
      grille(position, colonne) = e.Bouton(indice(position, colonne)).coché;
  return grille;
}

void cocher(Ecran_principal &e, const Grille_jeux &grille) {
  for (int position = 1; position <= nombre_jeux; ++position)
    for (int colonne = 1; colonne <= nombre_jeux; ++colonne)
      e.Bouton(indice(position, colonne)).coché = grille(position, colonne);
}

bool lancé_au_démarrage(const Contexte &c) {
  std::string fichier;
  Lire_registre(c.plateforme.registre, clé_du_jeu, réglage_fichier_lancement, fichier);
  return fichier == c.état.Fichier_lancement;
}

void cocher_fichier(Contexte &c) {
  GameState &g = c.état;
  g.Paramétrage_permanent = !paramétrage_temporaire(g);
  c.principale.BTN_Sauvegarde.coché = g.Paramétrage_permanent;
  c.principale.BTN_Démarrage.coché = g.Paramétrage_permanent && lancé_au_démarrage(c);
}

void entrer_dans_le_mode(Contexte &c, Etapes mode) {
  if (!ConfirmerAbandon(c)) return;
  GameState &g = c.état;
  g.Etape = mode;
  c.principale.contexte_aide = contexte_aide_du_paramétrage;
  RemiseAZéroCarte(c);
  g.PartieVierge = true;
  g.Carte_pleine_largeur = false;
  DisposerCarte(c);
  MasquerParamétrage(c);
  ConstruirePanneauParamétrage(c);
  RedessinerCarte(c);
}

void quitter_le_mode(Contexte &c) {
  RevenirAuRepos(c);
  c.état.Carte_pleine_largeur = false;
  DisposerCarte(c);
}

Message raison(Refus_de_case refus) {
  switch (refus) {
    case Refus_de_case::position_précédente_vide: return Message::colonne_précédente_vide;
    case Refus_de_case::jeu_déjà_placé: return Message::jeu_déjà_sélectionné;
    default: return Message::par_quel_jeu_démarrer;
  }
}

bool jouable(const GameState &g) {
  return std::any_of(
      g.TableProvinces.begin() + 1, g.TableProvinces.end(),
      [](const Fiche_province &province) { return !province.trouvée && province.région != 0; });
}

bool provinces_modifiées(const GameState &g) {
  return std::any_of(g.TableProvinces.begin() + 1, g.TableProvinces.end(),
                     [](const Fiche_province &province) { return province.trouvée != province.inhibée; });
}

bool ordre_modifié(const GameState &g) {
  return !std::equal(g.Ordre_jeux.begin(), g.Ordre_jeux.end(), g.Ordre_initial.begin());
}

/// The configuration that no file of the player's keeps. False if he does not want that.
bool prendre_sans_sauvegarder(Contexte &c) {
  GameState &g = c.état;
  const Réponse réponse =
      c.plateforme.boîtes.montrer({Icône::question, message(g, Message::êtes_vous_certain),
                                   message(g, Message::confirmer_scores_non_sauvegardés), Boutons::oui_non});
  if (réponse != Réponse::oui) return false;
  const bool modifié = provinces_modifiées(g);
  g.Fichier_lancement = nom_fichier_temporaire;
  Effacer_scores(c);
  if (modifié) {
    Retenir_exclusions(g);
    Vider_scores(c);
  }
  Ecrire_scores(c, !modifié);
  return true;
}

void choisir_fichier(Contexte &c, Modes_sélection mode) {
  c.état.Démarrage_demandé = c.principale.BTN_Démarrage.coché;
  Faire_choisir_fichier(c, mode, fichier_paramétrage);
}

void prendre_et_sauvegarder(Contexte &c) {
  const GameState &g = c.état;
  if (provinces_modifiées(g) || ordre_modifié(g))
    choisir_fichier(c, choix_nouveau_nom);
  else if (g.Scores_non_sauvés || !g.Paramétrage_permanent)
    choisir_fichier(c, choix_nom_gardant_les_scores);
  else if (c.principale.BTN_Démarrage.coché && !g.Paramétrage_par_défaut)
    Lancer_aux_prochains_démarrages(c, g.Fichier_lancement,
                                    Dossier_de(c.dossier.complet(g.Fichier_lancement)));
}

}  // namespace

void AfficherParamétrage(Contexte &c) {
  entrer_dans_le_mode(c, étape_paramétrage_affiché);
}

void DéfinirParamétrage(Contexte &c) {
  entrer_dans_le_mode(c, étape_paramétrage_défini);
}

void ConstruirePanneauParamétrage(Contexte &c) {
  GameState &g = c.état;
  Ecran_principal &e = c.principale;
  if (!paramétrage_visible(g)) return;
  const bool défini = g.Etape == étape_paramétrage_défini;
  g.Boutons_actifs = false;
  g.PartieClose = g.PartieVierge = true;
  MasquerPanneau(c);
  Légender_paramétrage(c);
  g.Ordre_initial = g.Ordre_jeux;
  cocher(e, Grille_de_l_ordre(g.Ordre_jeux));
  cocher_fichier(c);
  // Editing goes by what the last showing found.
  if (!défini && g.Paramétrage_permanent) g.Paramétrage_par_défaut = e.BTN_Démarrage.coché;
  for (int i = 1; i <= nombre_jeux * nombre_jeux; ++i) e.Bouton(i).actif = défini;
  e.BTN_Sauvegarde.actif = e.BTN_Démarrage.actif = défini;
  AfficherPanneauParamétrage(c);
  g.Boutons_actifs = true;
}

void Clic_bouton(Contexte &c, int i) {
  if (!c.état.Boutons_actifs) return;
  Grille_jeux grille = grille_cochée(c.principale);
  const Refus_de_case refus = Régler_grille(grille, (i - 1) / nombre_jeux + 1, (i - 1) % nombre_jeux + 1);
  if (refus != Refus_de_case::aucun) annoncer(c, Message::erreur, raison(refus));
  cocher(c.principale, grille);
}

void Valider_paramétrage(Contexte &c) {
  GameState &g = c.état;
  if (!jouable(g))
    return annoncer(c, Message::erreur, Message::un_pays_et_une_région_au_moins, Icône::exclamation);
  g.Configuration_acceptée = true;
  g.Ordre_jeux = Ordre_de_la_grille(grille_cochée(c.principale));
  if (c.principale.BTN_Sauvegarde.coché)
    prendre_et_sauvegarder(c);
  else if (!prendre_sans_sauvegarder(c))
    return;
  if (g.Configuration_acceptée) RevenirAuRepos(c);
}

void FinParamétrage(Contexte &c) {
  c.état.Ordre_jeux = c.état.Ordre_initial;
  quitter_le_mode(c);
}

void Recharger(Contexte &c) {
  if (!ConfirmerAbandon(c)) return;
  Faire_choisir_fichier(c, choix_fichier, fichier_paramétrage);
  quitter_le_mode(c);
}

void Utiliser_défaut(Contexte &c) {
  if (!ConfirmerAbandon(c)) return;
  GameState &g = c.état;
  g.Fichier_lancement = Joindre_chemin(g.Répertoire_sauvegarde, nom_fichier_scores);
  Ecrire_registre(c.plateforme.registre, clé_du_jeu, réglage_fichier_lancement, g.Fichier_lancement);
  Charger_scores(c);
  RevenirAuRepos(c);
}

}  // namespace ardane
