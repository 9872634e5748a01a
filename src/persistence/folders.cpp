#include "persistence/folders.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include "core/current_folder.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "persistence/registry.h"
#include "persistence/slot_file.h"
#include "platform/durable_file.h"
#include "platform/text.h"

namespace ardane {
namespace {

constexpr std::string_view nom_de_la_sonde = "~zut.tmp";
/// The installation puts a file of this name beside the program: it tells a player where his files are.
constexpr std::string_view signe_d_installation = "installation.txt";

bool écrire_sonde(const std::string &chemin) {
  std::ostringstream octets;
  Scripteur_de_cases cases(octets);
  cases.texte(chemin);
  if (!cases.terminer()) return false;
  return écrire_octets(chemin_natif(chemin), octets.str(), Nom_de_fichier::libre, Disque::non_attendu) ==
         Ecriture::faite;
}

/// A link is its own file here: what it leads to is not the folder's.
void effacer_lien(const std::string &chemin) {
  std::error_code erreur;
  const std::filesystem::path lien = chemin_natif(chemin);
  if (std::filesystem::is_symlink(lien, erreur)) std::filesystem::remove(lien, erreur);
}

std::string pour_comparer(std::string_view dossier) {
  return en_majuscules(sans_blancs(dossier));
}

}  // namespace

bool Tester_ecriture(std::string_view dossier) {
  const std::string sonde = Joindre_chemin(dossier, nom_de_la_sonde);
  effacer_lien(sonde);
  const bool écrite = fichier_existe(sonde) || écrire_sonde(sonde);
  // A probe whose writing failed half-way must not stay behind either.
  const bool effacée = Effacer_fichier(sonde);
  return écrite && effacée;
}

bool est_installé(const GameState &g) {
  return fichier_existe(Joindre_chemin(g.Répertoire_programme, signe_d_installation));
}

const std::string &Dossier_à_côté_du_programme(const GameState &g) {
  return est_installé(g) ? g.Répertoire_sauvegarde : g.Répertoire_programme;
}

void Proposer_répertoire(Contexte &c, const std::string &dossier) {
  GameState &g = c.état;
  if (pour_comparer(dossier) == pour_comparer(g.Répertoire_sauvegarde)) return;
  const Réponse réponse = c.plateforme.boîtes.montrer(
      {Icône::question, message(g, Message::choix_du_répertoire),
       message(g, Message::utiliser_ce_répertoire_par_défaut) + dossier, Boutons::oui_non});
  if (réponse != Réponse::oui) return;
  Ecrire_registre(c.plateforme.registre, clé_du_jeu, réglage_répertoire, dossier);
  // A folder that has gone meanwhile is found out by the probe of the next start.
  c.dossier.changer(dossier);
  g.Répertoire_sauvegarde = dossier;
}

void Lancer_aux_prochains_démarrages(Contexte &c, const std::string &fichier, const std::string &dossier) {
  Ecrire_registre(c.plateforme.registre, clé_du_jeu, réglage_fichier_lancement, fichier);
  Proposer_répertoire(c, dossier);
}

bool Effacer_fichier(std::string_view chemin) {
  if (!est_fichier_ordinaire(chemin)) return false;
  const std::filesystem::path fichier = chemin_natif(chemin);
  if (!std::ofstream(fichier, std::ios::binary | std::ios::app).is_open()) return false;
  std::error_code erreur;
  return std::filesystem::remove(fichier, erreur);
}

}  // namespace ardane
