#include "persistence/score_file.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <sstream>

#include "core/current_folder.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "core/text_encoding.h"
#include "persistence/folders.h"
#include "persistence/lifeline.h"
#include "persistence/registry.h"
#include "persistence/score_format.h"
#include "platform/durable_file.h"
#include "platform/log.h"

namespace ardane {
namespace {

constexpr Ordre_de_jeu ordre_par_défaut({étape_provinces, étape_régions, étape_villes, étape_drapeaux});

/// Where the file lies whose name the settings or the player may have given bare.
std::string fichier_en_usage(const Contexte &c) {
  return c.dossier.complet(c.état.Fichier_lancement);
}

Contenu_scores contenu_à_écrire(const GameState &g, bool avec_scores) {
  Contenu_scores contenu;
  contenu.version = g.Version_programme;
  contenu.ordre = g.Ordre_jeux;
  for (int p = 1; p <= nombre_provinces; ++p) contenu.inhibée(p) = g.TableProvinces(p).inhibée;
  contenu.langue = g.Langue;
  if (avec_scores) contenu.scores = Liste_des_scores(g);
  return contenu;
}

/// Nothing if the file is written whole, otherwise why not.
std::optional<std::string> écrire_fichier(const std::string &chemin, const Contenu_scores &contenu) {
  if (fichier_existe(chemin) && !Effacer_fichier(chemin)) return "l'ancien ne peut pas être effacé";
  std::ostringstream flux;
  const auto défaut = écrire_scores(flux, contenu);
  const std::filesystem::path fichier = chemin_natif(chemin);
  const Ecriture écriture = écrire_octets(fichier, flux.str(), Nom_de_fichier::quelconque, Disque::attendu);
  if (écriture == Ecriture::sans_fichier) return "il ne peut pas être créé";
  if (écriture == Ecriture::incomplète) return "le disque est plein ou en panne";
  fixer_dossier(fichier.parent_path());
  return défaut ? std::optional(décrire_défaut(*défaut)) : std::nullopt;
}

/// Nothing if the file was written by this version of the program, otherwise what it says instead.
std::optional<std::string> défaut_de_version(const Contexte &c, const std::string &chemin) {
  std::ifstream flux(chemin_natif(chemin), std::ios::binary);
  if (!flux) return "il ne peut pas être ouvert";
  Lecteur_de_cases cases(flux);
  const auto version = cases.texte();
  if (!version) return décrire_défaut(*cases.défaut());
  if (*version != c.état.Version_programme) return "il est de la version « " + *version + " »";
  return std::nullopt;
}

/// The file's bytes; none if they cannot be written.
std::optional<std::string> octets_à_écrire(const Contenu_scores &contenu) {
  std::ostringstream flux;
  if (écrire_scores(flux, contenu)) return std::nullopt;
  return flux.str();
}

void annoncer(Contexte &c, const Contenu_scores &contenu, bool fin_de_partie) {
  if (const auto octets = octets_à_écrire(contenu))
    c.secours.annoncer_écriture(fichier_en_usage(c), *octets, fin_de_partie);
}

void consigner_refus(const GameState &g, const std::string &raison) {
  consigner("Le fichier de scores « " + g.Fichier_lancement + " » est refusé : " + raison);
}

/// Takes the default file and configuration, the file in use deleted. Failures change nothing more.
void réparer(Contexte &c) {
  GameState &g = c.état;
  Effacer_scores(c);
  g.Fichier_lancement = Joindre_chemin(g.Répertoire_sauvegarde, nom_fichier_scores);
  Ecrire_registre(c.plateforme.registre, clé_du_jeu, réglage_fichier_lancement, g.Fichier_lancement);
  g.Ordre_jeux = ordre_par_défaut;
  for (int p = 1; p <= nombre_provinces; ++p) g.TableProvinces(p).inhibée = false;
}

std::vector<Meilleur_score> liste_du_niveau(const GameState &g, int niveau) {
  std::vector<Meilleur_score> liste;
  for (int rang = 1; rang <= g.Nombre_scores(niveau); ++rang)
    liste.push_back(g.Meilleurs_scores(niveau, rang));
  return liste;
}

/// One score twice counts twice. Names are compared as a file has them.
void fusionner_niveau(GameState &g, int niveau, const std::vector<Enregistrement_score> &scores) {
  std::vector<Meilleur_score> liste = liste_du_niveau(g, niveau), connus = liste;
  for (const Enregistrement_score &autre : scores) {
    if (autre.niveau != niveau) continue;
    const auto connu = std::ranges::find_if(connus, [&](const Meilleur_score &s) {
      return s.score == autre.score &&
             vers_windows_1252_au_mieux(s.nom) == vers_windows_1252_au_mieux(autre.nom);
    });
    if (connu != connus.end()) {
      connus.erase(connu);
      continue;
    }
    const auto place =
        std::ranges::find_if(liste, [&](const Meilleur_score &s) { return s.score < autre.score; });
    liste.insert(place, {autre.nom, autre.score});
  }
  if (liste.size() > nombre_rangs) liste.resize(nombre_rangs);
  g.Nombre_scores(niveau) = static_cast<std::int16_t>(liste.size());
  for (std::size_t i = 0; i < liste.size(); ++i)
    g.Meilleurs_scores(niveau, static_cast<int>(i) + 1) = liste[i];
}

}  // namespace

void Vider_scores(Contexte &c) {
  GameState &g = c.état;
  for (int niveau = niveau_facile; niveau <= plus_haut_niveau; ++niveau) {
    g.Nombre_scores(niveau) = 0;
    for (int rang = 1; rang <= nombre_rangs; ++rang) g.Meilleurs_scores(niveau, rang) = {};
  }
}

std::vector<Enregistrement_score> Liste_des_scores(const GameState &g) {
  std::vector<Enregistrement_score> liste;
  for (int niveau = niveau_facile; niveau <= plus_haut_niveau; ++niveau) {
    for (int rang = 1; rang <= g.Nombre_scores(niveau); ++rang) {
      const Meilleur_score &score = g.Meilleurs_scores(niveau, rang);
      liste.push_back({score.nom, score.score, static_cast<std::int16_t>(niveau)});
    }
  }
  return liste;
}

void Ajouter_scores(GameState &g, const std::vector<Enregistrement_score> &scores) {
  // Level 0 is never emptied nor shown: its count starts again with each file.
  g.Nombre_scores(aucun_niveau) = 0;
  for (const Enregistrement_score &score : scores)
    g.Meilleurs_scores(score.niveau, ++g.Nombre_scores(score.niveau)) = {score.nom, score.score};
}

bool Ecrire_scores(Contexte &c, bool avec_scores) {
  GameState &g = c.état;
  const Contenu_scores contenu = contenu_à_écrire(g, avec_scores);
  c.secours.garder_scores(fichier_en_usage(c), c.plateforme.horloge);
  annoncer(c, contenu, false);
  const auto échec = écrire_fichier(fichier_en_usage(c), contenu);
  if (échec) {
    consigner("Le fichier de scores « " + g.Fichier_lancement + " » n'est pas écrit : " + *échec);
    c.plateforme.boîtes.montrer({Icône::information, message(g, Message::erreur),
                                 message(g, Message::fichier_impossible_à_écrire) + g.Fichier_lancement +
                                     " ! " + g.Fin_de_ligne +
                                     message(g, Message::fichier_peut_être_protégé)});
  }
  // One that has failed is tried again at the next start.
  if (!échec) c.secours.écriture_faite();
  g.Scores_non_sauvés = échec.has_value();
  return !échec;
}

void Annoncer_scores(Contexte &c) {
  annoncer(c, contenu_à_écrire(c.état, true), true);
}

bool Effacer_scores(Contexte &c) {
  c.secours.garder_scores(fichier_en_usage(c), c.plateforme.horloge);
  return Effacer_fichier(fichier_en_usage(c));
}

bool Lire_fichier_scores(Contexte &c) {
  GameState &g = c.état;
  std::ifstream flux(chemin_natif(fichier_en_usage(c)), std::ios::binary);
  const Lecture_scores lecture = lire_scores(flux);
  Ajouter_scores(g, lecture.contenu.scores);
  if (lecture.défaut) {
    consigner_refus(g, décrire_défaut(*lecture.défaut));
    return false;
  }
  g.Ordre_jeux = lecture.contenu.ordre;
  for (int p = 1; p <= nombre_provinces; ++p) g.TableProvinces(p).inhibée = lecture.contenu.inhibée(p);
  return true;
}

void Charger_scores(Contexte &c) {
  GameState &g = c.état;
  Vider_scores(c);
  if (est_fichier_ordinaire(fichier_en_usage(c))) {
    // A file of any other version is refused, even where its form is the same.
    const auto autre_version = défaut_de_version(c, fichier_en_usage(c));
    if (autre_version) consigner_refus(g, *autre_version);
    if (!autre_version && Lire_fichier_scores(c)) return;
    Refuser_format(c, g.Fichier_lancement);
  }
  réparer(c);
}

std::optional<std::string> Défaut_du_fichier_de_scores(const Contexte &c, const std::string &chemin) {
  if (!est_fichier_ordinaire(chemin)) return "il n'y en a pas";
  if (auto autre_version = défaut_de_version(c, chemin)) return autre_version;
  std::ifstream flux(chemin_natif(chemin), std::ios::binary);
  const auto défaut = lire_scores(flux).défaut;
  return défaut ? std::optional(décrire_défaut(*défaut)) : std::nullopt;
}

void Refuser_format(Contexte &c, const std::string &fichier) {
  const GameState &g = c.état;
  c.plateforme.boîtes.montrer({Icône::exclamation, message(g, Message::erreur_de_format),
                               fichier + " : " + message(g, Message::fichier_non_interprétable)});
}

void Reprendre_scores_des_autres(Contexte &c) {
  if (!est_fichier_ordinaire(fichier_en_usage(c)) || défaut_de_version(c, fichier_en_usage(c))) return;
  std::ifstream flux(chemin_natif(fichier_en_usage(c)), std::ios::binary);
  const Lecture_scores lecture = lire_scores(flux);
  if (lecture.défaut) return;
  for (int niveau = niveau_facile; niveau <= plus_haut_niveau; ++niveau)
    fusionner_niveau(c.état, niveau, lecture.contenu.scores);
}

void Remise_à_zéro(Contexte &c) {
  const GameState &g = c.état;
  const Réponse réponse = c.plateforme.boîtes.montrer(
      {Icône::question, message(g, Message::remise_à_zéro_des_scores),
       message(g, Message::confirmer_perte_des_performances), Boutons::oui_non, true});
  if (réponse != Réponse::oui) return;
  Vider_scores(c);
  Ecrire_scores(c, false);
}

}  // namespace ardane
