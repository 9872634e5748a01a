// The program-wide variables, in one record under their own names. Every procedure of the game reads and
// writes them; two records are two programs that know nothing of each other.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/gazetteer.h"
#include "core/messages.h"
#include "core/table.h"
#include "platform/services.h"

namespace ardane {

/// Modes of the main window. The first four are also the codes of the stages.
enum Etapes : std::int16_t {
  étape_repos = 0,
  étape_provinces = 1,
  étape_villes = 2,
  étape_drapeaux = 3,
  étape_régions = 4,
  étape_révision = 5,
  étape_paramétrage_affiché = 6,
  étape_paramétrage_défini = 7,
};

/// Levels of play. Learning mode is a flag at the level Facile.
enum Niveaux : std::int16_t {
  aucun_niveau = 0,
  niveau_facile = 1,
  niveau_moyen = 2,
  niveau_difficile = 3,
  niveau_expert = 4,
};

/// Score file of a configuration that the player did not save.
constexpr std::string_view nom_fichier_temporaire = "~tmp.~ci";

/// Stands in `Ordre_jeux` behind the last stage of the game.
constexpr std::int16_t aucun_jeu = 0;

/// One run of pixels of a map row: `code` holds from the pixel right of `abscisse` on.
struct Segment_carte {
  std::uint8_t carte = 0;
  std::int16_t abscisse = 0;
  std::uint8_t code = 0;
};

struct Meilleur_score {
  std::string nom;
  std::int32_t score = 0;
};

struct Fiche_jeu {
  std::string clé;
  std::string libellé;
  std::string version_locale;
  std::string date_locale;  ///< "JJ/MM/AAAA"; "01/01/1900" for unknown
  std::string version_site;
  std::string date_site;
};

struct Fiche_mode {
  std::int32_t largeur = 0;
  std::int32_t hauteur = 0;
  std::int32_t couleurs = 0;
};

constexpr int dernier_segment = 5832;
constexpr int dernière_ligne = 666;
constexpr std::int32_t score_de_départ = 999999;
constexpr int erreurs_permises = 10;

struct GameState {
  // Files and folders
  std::string Répertoire_programme;
  std::string Répertoire_sauvegarde;
  std::string Répertoire_info;
  std::string Fichier_lancement;
  std::string Chemin_points;
  std::string Fin_de_ligne;
  std::string Version_programme;
  std::string SonErreur, SonJuste, SonGagné, SonPerdu, SonSélection, SonFiche;

  // Language and texts
  std::int16_t Langue = 0;
  std::uint8_t Nombre_langues = 0;
  std::int16_t Nombre_messages = 0;
  TableauDynamique<std::string, 0> Messages;
  TableauDynamique<std::string, 0> Fichiers_aide, Fichiers_info_noms, Fichiers_info;

  // Display, in pixels
  std::int32_t Largeur_écran = 0, Hauteur_écran = 0, Couleurs_écran = 0;
  std::int32_t Bas_zone_travail = 0;
  Rect Rect_carte;
  std::int32_t Largeur_fenêtre = 0, Hauteur_fenêtre = 0;
  bool Carte_pleine_largeur = false;
  double Hauteur_image_cible = 0, Largeur_image_cible = 0;
  TableauDynamique<Fiche_mode, 0> Modes_écran;
  std::int16_t Nombre_modes = 0;

  // Gazetteer and hit test
  Provinces TableProvinces;
  Régions TableRégions;
  Villes TableVilles;
  Table2<std::int16_t, 0, 0, 0, dernière_ligne> Points_lignes;
  Table2<Segment_carte, 0, 0, 0, dernier_segment> Points_segments;

  // Game in progress
  std::int16_t Etape = étape_repos;
  std::int16_t Niveau = 0;
  Ordre_de_jeu Ordre_jeux;
  std::int32_t Score = 0;
  std::string Nom_joueur;
  std::int16_t ProvinceCourante = 0, VilleCourante = 0, RégionCourante = 0;
  std::int16_t ProvincesRestantes = 0, VillesRestantes = 0, RégionsRestantes = 0;
  std::int16_t ProvincesEnJeu = 0, VillesEnJeu = 0, RégionsEnJeu = 0;
  std::int16_t ResteRégion = 0, TailleRégion = 0;
  TableauDynamique<std::int16_t, 0> SélectionRégion;
  std::int16_t NbErreurs = 0;
  bool AssistanceActive = false;
  std::int16_t ProvinceClignotante = 0;
  Table<bool, 0, nombre_provinces> TableClignotement;
  bool PhaseClignotement = false;
  std::int16_t ProvinceFiche = 0;
  bool PartieVierge = false;
  bool PartieClose = false;
  bool ConseilFicheVu = false;
  bool ModeApprentissage = false;
  bool ScoreNonRetenu = false;

  // Scores and statistics
  Table2<Meilleur_score, 0, plus_haut_niveau, 0, nombre_rangs> Meilleurs_scores;
  Table<std::int16_t, 0, plus_haut_niveau> Nombre_scores;
  std::int16_t Niveau_affiché = 0;
  bool AprèsPartie = false;
  bool Scores_non_sauvés = false;
  Table<std::int16_t, 0, nombre_villes> OrdreTableau;

  // Dialogs and configuration
  std::int16_t Mode_sélection = 0, Type_fichier = 0;
  Ordre_de_jeu Ordre_initial;
  bool Boutons_actifs = false;
  bool Paramétrage_permanent = false, Paramétrage_par_défaut = false;
  bool Démarrage_demandé = false, Configuration_acceptée = false;
  std::int16_t Palette_cible = 0;

  // Games of the publisher
  TableauDynamique<Fiche_jeu, 1> TableJeux;
  std::int16_t NombreJeux = 0;

  // Sound
  bool SonActif = false;
  std::string Son_système_exclamation, Son_système_astérisque, Son_système_main, Son_système_question;

  /// Worked out from `TableVilles`; no variable of its own.
  Villes_par_province VillesParProvince;
};

/// A message in the language in use; one that the texts loaded do not have is a fatal error.
inline const std::string &message(const GameState &g, Message m, Lieu lieu = Lieu::ici()) {
  return g.Messages(static_cast<int>(m), lieu);
}

/// True for a level that can be played.
constexpr bool est_niveau(int niveau) {
  return niveau >= niveau_facile && niveau <= niveau_expert;
}

/// True for a stage of the game.
constexpr bool est_un_jeu(int étape) {
  return étape >= étape_provinces && étape <= étape_régions;
}

/// There is a game to lose: it has begun, and its score has not been dealt with.
inline bool partie_en_cours(const GameState &g) {
  return !g.PartieVierge && !g.PartieClose && g.Etape != étape_paramétrage_affiché;
}

/// The levels that show on the map what has been found.
inline bool bas_niveau(const GameState &g) {
  return g.Niveau == niveau_facile || g.Niveau == niveau_moyen;
}

/// The levels that keep what has been found to themselves, so that the player must remember it.
inline bool haut_niveau(const GameState &g) {
  return g.Niveau == niveau_difficile || g.Niveau == niveau_expert;
}

/// True for a configuration that no file of the player's keeps.
inline bool paramétrage_temporaire(const GameState &g) {
  return g.Fichier_lancement == nom_fichier_temporaire;
}

/// True if the stage code stands in the order of play.
inline bool Jeu_utilisé(const GameState &g, int code) {
  for (const std::int16_t jeu : g.Ordre_jeux)
    if (jeu == code) return true;
  return false;
}

}  // namespace ardane
