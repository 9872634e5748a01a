#include "persistence/information_file.h"

#include <string>
#include <string_view>

#include "core/announcement.h"
#include "core/chooser_modes.h"
#include "core/current_folder.h"
#include "core/game_state.h"
#include "core/gazetteer_facts.h"
#include "core/paths.h"
#include "persistence/folders.h"
#include "platform/file_replacement.h"
#include "platform/log.h"
#include "platform/whole_file.h"

namespace ardane {
namespace {

std::string chemin_du_fichier(const Contexte &c, int langue) {
  return c.dossier.complet(c.état.Fichiers_info(langue));
}

/// The bytes of the file, of which none are there if it is not; nothing if it cannot be read.
std::optional<std::string> lire_octets(const std::string &chemin) {
  if (!est_fichier_ordinaire(chemin))
    return fichier_peut_exister(chemin) ? std::nullopt : std::optional(std::string{});
  return octets_du_fichier(chemin_natif(chemin));
}

std::string octets_lisibles(const Contexte &c) {
  return lire_octets(chemin_du_fichier(c, c.état.Langue)).value_or(std::string{});
}

/// What the gazetteer knows of a province, ready to be completed. The words are those that such files have
/// always had, whatever the country calls its divisions.
Fiche_information première_fiche(const GameState &g, int province) {
  const std::string &fin = g.Fin_de_ligne;
  const Fiche_province &fiche = g.TableProvinces(province);
  std::string texte;
  const auto ligne = [&](const std::string &contenu) { texte.append(contenu).append(fin); };
  for (int i = 0; i < 3; ++i) ligne("");
  ligne("Préfecture : ");
  ligne("* " + Nom_de_capitale(g, province));
  ligne("");
  const std::vector<std::string> villes = Noms_des_villes(g, province);
  ligne(villes.empty() ? "Pas de sous préfecture dans ce département" : "Ville principale :");
  for (const std::string &ville : villes) ligne("* " + ville);
  ligne("");
  ligne("Région : " + g.TableRégions(fiche.région).nom);
  ligne("");
  return {"Département : " + fiche.nom, texte};
}

/// The bytes of a new file; nothing if a province has too much to tell for its slot.
std::optional<std::string> premières_fiches(const GameState &g) {
  std::string octets;
  for (int p = 1; p <= nombre_provinces; ++p) {
    const Fiche_information fiche = première_fiche(g, p);
    if (Longueur_de_fiche(fiche) > taille_de_fiche) return std::nullopt;
    Placer_fiche(octets, p, fiche);
  }
  return octets;
}

/// Nothing, or why the file could not be made.
std::optional<std::string_view> écrire_premières_fiches(const GameState &g, const std::string &chemin) {
  const auto octets = premières_fiches(g);
  if (!octets) return "une fiche dépasse sa case";
  return remplacer_fichier(chemin_natif(chemin), *octets);
}

void faire_choisir_un_autre_dossier(Contexte &c) {
  const GameState &g = c.état;
  c.plateforme.boîtes.montrer(
      {Icône::information, message(g, Message::erreur),
       message(g, Message::répertoire_non_inscriptible) + " (" + g.Répertoire_info + ")"});
  annoncer(c, Message::choix_du_répertoire, Message::fichier_peut_être_protégé);
  Faire_choisir_dossier(c, choix_dossier_information);
}

void créer_fichier_info(Contexte &c, int langue) {
  const GameState &g = c.état;
  if (langue == g.Langue)
    annoncer(c, Message::création_du_fichier_info, Message::fichier_d_information_recréé);
  if (!Tester_ecriture(c.dossier.complet(g.Répertoire_info))) faire_choisir_un_autre_dossier(c);
  if (fichier_peut_exister(chemin_du_fichier(c, langue))) return;
  const auto échec = écrire_premières_fiches(g, chemin_du_fichier(c, langue));
  if (!échec) return;
  consigner("Le fichier d'information n'est pas écrit : " + std::string(*échec));
  c.plateforme.boîtes.montrer({Icône::exclamation, message(g, Message::erreur),
                               message(g, Message::fichier_impossible_à_écrire) + g.Fichiers_info(langue)});
}

}  // namespace

void Préparer_fichiers_info(Contexte &c) {
  GameState &g = c.état;
  for (int langue = 1; langue <= g.Nombre_langues; ++langue) {
    g.Fichiers_info(langue) = Joindre_chemin(g.Répertoire_info, g.Fichiers_info_noms(langue));
    if (!fichier_existe(chemin_du_fichier(c, langue))) créer_fichier_info(c, langue);
  }
}

std::optional<Fiche_information> Lire_fiche_information(const Contexte &c, int province) {
  return Fiche_du_fichier(octets_lisibles(c), province);
}

Fiche_information Lire_restes_de_fiche(const Contexte &c, int province) {
  return Restes_de_fiche(octets_lisibles(c), province);
}

bool Ecrire_fiche_information(const Contexte &c, int province, const Fiche_information &fiche) {
  if (Longueur_de_fiche(fiche) > taille_de_fiche) return false;
  const std::string chemin = chemin_du_fichier(c, c.état.Langue);
  std::optional<std::string> octets = lire_octets(chemin);
  if (octets) Placer_fiche(*octets, province, fiche);
  const auto échec = octets ? remplacer_fichier(chemin_natif(chemin), *octets)
                            : std::optional<std::string_view>("il ne peut pas être lu");
  if (échec) consigner("La fiche n'est pas écrite dans « " + chemin + " » : " + std::string(*échec));
  return !échec;
}

}  // namespace ardane
