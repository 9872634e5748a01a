#include "play/saved_game.h"

#include <fstream>
#include <optional>
#include <sstream>

#include "core/announcement.h"
#include "core/chooser_modes.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "map/configuration_panel.h"
#include "map/layers.h"
#include "map/layout.h"
#include "map/map_reset.h"
#include "map/panel.h"
#include "map/visibility_rules.h"
#include "persistence/folders.h"
#include "persistence/lifeline.h"
#include "persistence/score_file.h"
#include "platform/file_replacement.h"
#include "platform/log.h"
#include "play/end_of_game.h"
#include "play/penalty.h"
#include "play/question_selection.h"
#include "play/stage_sequencer.h"

namespace ardane {
namespace {

// --- From the game to the file

template <class Fiches>
std::vector<Paire> relever_trouvées(const Fiches &table, int nombre) {
  std::vector<Paire> paires;
  for (int i = 1; i <= nombre; ++i)
    paires.push_back({static_cast<std::int16_t>(i), static_cast<std::int16_t>(table(i).trouvée ? -1 : 0)});
  return paires;
}

template <class Fiche>
Bilan bilan_de(const Fiche &fiche) {
  return {fiche.points_perdus, fiche.trouvée_étape};
}

}  // namespace

Contenu_partie Relever_partie(const GameState &g, bool interrompue) {
  Contenu_partie contenu;
  contenu.version = g.Version_programme;
  contenu.langue = g.Langue;
  contenu.fichier_lancement = g.Fichier_lancement;
  contenu.en_ligne = {g.Ordre_jeux, Liste_des_scores(g)};
  contenu.étape = g.Etape;
  contenu.nom_joueur = g.Nom_joueur;
  contenu.niveau = g.Niveau;
  contenu.apprentissage = g.ModeApprentissage;
  contenu.score = g.Score;
  const int paires = nombre_de_paires(g.Etape, interrompue);
  contenu.trouvées = g.Etape == étape_villes ? relever_trouvées(g.TableVilles, paires)
                                             : relever_trouvées(g.TableProvinces, paires);
  for (int p = 1; p <= nombre_provinces; ++p) {
    const Fiche_province &province = g.TableProvinces(p);
    for (int k = 0; k <= nombre_jeux; ++k)
      contenu.provinces(p, k) = {province.points_perdus(k), province.trouvée_étape(k)};
  }
  for (int r = 1; r <= nombre_régions; ++r) contenu.régions(r) = bilan_de(g.TableRégions(r));
  for (int v = 1; v <= nombre_villes; ++v) contenu.villes(v) = bilan_de(g.TableVilles(v));
  return contenu;
}

namespace {

/// Nothing if the game is on the disk, otherwise why not.
std::optional<std::string> écrire_fichier(const GameState &g, const std::string &chemin) {
  if (!Tester_ecriture(Dossier_de(chemin))) return "son dossier refuse l'écriture";
  std::ostringstream flux;
  if (const auto défaut = écrire_partie(flux, Relever_partie(g, false))) return décrire_défaut(*défaut);
  const auto échec = remplacer_fichier(chemin_natif(chemin), flux.str());
  return échec ? std::optional(std::string(*échec)) : std::nullopt;
}

// --- From the file to the game

Lecture_partie lire_fichier(const std::string &chemin) {
  // Opening a pipe could wait for ever; what is no plain file reads as an empty one.
  std::ifstream flux;
  if (est_fichier_ordinaire(chemin)) flux.open(chemin_natif(chemin), std::ios::binary);
  return lire_partie(flux);
}

/// Configuration and scores of a game that has them in itself.
void prendre_en_ligne(GameState &g, const Contenu_partie &contenu) {
  g.Ordre_jeux = contenu.en_ligne.ordre;
  Ajouter_scores(g, contenu.en_ligne.scores);
  if (!contenu.interruption) return;
  for (int p = 1; p <= nombre_provinces; ++p) g.TableProvinces(p).inhibée = contenu.interruption->inhibée(p);
}

/// Those of the file itself, or of the score file that it names. A game that was interrupted goes on as it
/// was, with the scores of its file and those that may not have come so far.
void prendre_paramétrage(Contexte &c, const Contenu_partie &contenu) {
  GameState &g = c.état;
  Vider_scores(c);
  const bool connue = contenu.langue >= 1 && contenu.langue <= g.Nombre_langues;
  g.Langue = connue ? contenu.langue : std::int16_t{1};
  g.Fichier_lancement = contenu.fichier_lancement;
  if (!contenu.interruption && !paramétrage_temporaire(g)) return Charger_scores(c);
  prendre_en_ligne(g, contenu);
  if (!paramétrage_temporaire(g)) Reprendre_scores_des_autres(c);
}

bool hors_jeu(const GameState &, const Fiche_province &province) {
  return province.inhibée;
}
bool hors_jeu(const GameState &g, const Fiche_ville &ville) {
  return g.TableProvinces(ville.province).inhibée;
}

/// What the configuration leaves out today counts as found, whatever the file says: no click could answer it.
template <class Fiches>
void marquer_trouvées(const GameState &g, Fiches &table, const std::vector<Paire> &paires) {
  for (const Paire &paire : paires) {
    auto &fiche = table(paire.indice);
    fiche.trouvée = paire.valeur != 0 || hors_jeu(g, fiche);
  }
}

template <class Fiches>
std::int16_t compter_à_trouver(const Fiches &table) {
  std::int16_t nombre = 0;
  for (int i = 1; i <= Fiches::dernier; ++i)
    if (!table(i).trouvée) ++nombre;
  return nombre;
}

void reprendre_villes(GameState &g, const std::vector<Paire> &paires) {
  marquer_trouvées(g, g.TableVilles, paires);
  g.VillesRestantes = compter_à_trouver(g.TableVilles);
  for (int v = 1; v <= nombre_villes; ++v) {
    Fiche_province &province = g.TableProvinces(g.TableVilles(v).province);
    if (!g.TableVilles(v).trouvée || province.inhibée) continue;
    if (--province.villes_restantes == 0) province.trouvée = true;
  }
}

void reprendre_provinces(GameState &g, const std::vector<Paire> &paires) {
  marquer_trouvées(g, g.TableProvinces, paires);
  g.ProvincesRestantes = compter_à_trouver(g.TableProvinces);
}

void reprendre_régions(GameState &g) {
  for (int p = 1; p <= nombre_provinces; ++p) {
    const Fiche_province &province = g.TableProvinces(p);
    if (province.trouvée && !province.inhibée) --g.TableRégions(province.région).provinces_restantes;
  }
  for (int r = 1; r <= nombre_régions; ++r) {
    Fiche_région &région = g.TableRégions(r);
    if (région.provinces_restantes != 0 || région.trouvée) continue;
    région.trouvée = true;
    --g.RégionsRestantes;
  }
}

void reprendre_étape(GameState &g, const Contenu_partie &contenu) {
  const std::vector<Paire> &paires = contenu.trouvées;
  if (!contenu.interruption) g.VillesRestantes = nombre_villes;
  // A stage of flags that was saved begins anew; the reset has counted what it has to find.
  if (paires.empty()) return;
  if (!contenu.interruption) g.ProvincesRestantes = nombre_provinces;
  if (g.Etape == étape_villes) return reprendre_villes(g, paires);
  reprendre_provinces(g, paires);
  if (g.Etape == étape_régions) reprendre_régions(g);
}

template <class Fiche>
void prendre_bilan(Fiche &fiche, const Bilan &bilan) {
  fiche.points_perdus = bilan.points_perdus;
  fiche.trouvée_étape = bilan.trouvée_étape;
}

void prendre_statistiques(GameState &g, const Contenu_partie &contenu) {
  for (int p = 1; p <= nombre_provinces; ++p) {
    for (int k = 0; k <= nombre_jeux; ++k) {
      g.TableProvinces(p).points_perdus(k) = contenu.provinces(p, k).points_perdus;
      g.TableProvinces(p).trouvée_étape(k) = contenu.provinces(p, k).trouvée_étape;
    }
  }
  for (int r = 1; r <= nombre_régions; ++r) prendre_bilan(g.TableRégions(r), contenu.régions(r));
  for (int v = 1; v <= nombre_villes; ++v) prendre_bilan(g.TableVilles(v), contenu.villes(v));
}

void refuser_version(Contexte &c) {
  const GameState &g = c.état;
  c.plateforme.boîtes.montrer({Icône::stop, message(g, Message::pas_possible),
                               message(g, Message::reprise_impossible_avec_le_jeu) + g.Version_programme +
                                   message(g, Message::partie_de_version_antérieure)});
}

}  // namespace

void Demander_enregistrement(Contexte &c) {
  const GameState &g = c.état;
  if (!partie_en_cours(g)) return;
  if (SoldeQuestion(c) > 0)
    Faire_choisir_fichier(c, choix_nouveau_nom, fichier_partie);
  else
    PartiePerdue(c);
}

void Demander_reprise(Contexte &c) {
  Reprendre_par(c, [&] { Faire_choisir_fichier(c, choix_fichier, fichier_partie); });
}

void Reprendre_par(Contexte &c, const std::function<void()> &choix) {
  GameState &g = c.état;
  if (!ConfirmerAbandon(c)) return;
  g.PartieVierge = true;
  choix();
  // What ran before has been dropped; a game taken up is no longer untouched.
  if (g.PartieVierge) RevenirAuRepos(c);
  g.ConseilFicheVu = false;
}

bool Enregistrer_partie(Contexte &c, const std::string &chemin) {
  const auto échec = écrire_fichier(c.état, chemin);
  if (!échec) {
    c.secours.oublier();
    return true;
  }
  consigner("La partie « " + chemin + " » n'est pas écrite : " + *échec);
  annoncer(c, Message::erreur, Message::répertoire_non_inscriptible);
  return false;
}

bool Charger_partie(Contexte &c, const std::string &chemin) {
  GameState &g = c.état;
  const Lecture_partie lecture = lire_fichier(chemin);
  const Contenu_partie &contenu = lecture.contenu;
  const bool version_lue = !lecture.défaut || lecture.défaut->numéro > 1;
  if (version_lue && contenu.version != g.Version_programme) {
    refuser_version(c);
    return false;
  }
  if (lecture.défaut) {
    consigner("La partie « " + chemin + " » est refusée : " + décrire_défaut(*lecture.défaut));
    Refuser_format(c, chemin);
    return false;
  }
  Placer_partie(c, contenu);
  return true;
}

void Placer_partie(Contexte &c, const Contenu_partie &contenu) {
  GameState &g = c.état;
  prendre_paramétrage(c, contenu);
  g.Etape = contenu.étape;
  g.Nom_joueur = contenu.nom_joueur;
  g.Niveau = contenu.niveau;
  g.ModeApprentissage = g.ScoreNonRetenu = contenu.apprentissage;
  RemiseAZéroCarte(c);
  g.Score = contenu.score;
  reprendre_étape(g, contenu);
  prendre_statistiques(g, contenu);
  for (int p = 1; p <= nombre_provinces; ++p) Montrer_province(c, p, false);
}

void Montrer_partie(Contexte &c) {
  GameState &g = c.état;
  g.Carte_pleine_largeur = false;
  MasquerParamétrage(c);
  AfficherPanneau(c);
  DisposerCarte(c);
  RedessinerCarte(c);
  AfficherScore(c);
  Légender_reste(c);
  if (g.Etape != étape_drapeaux) AfficherReste(c, reste_de_l_étape(g));
  g.PartieVierge = g.PartieClose = false;
}

void Reprendre_partie(Contexte &c) {
  Montrer_partie(c);
  // The configuration found today may have left out all that was still to be placed.
  if (reste_de_l_étape(c.état) > 0)
    QuestionSuivante(c);
  else
    EtapeSuivante(c);
}

}  // namespace ardane
