#include "play/stage_sequencer.h"

#include "core/announcement.h"
#include "core/game_state.h"
#include "core/sound.h"
#include "map/configuration_panel.h"
#include "map/layers.h"
#include "map/layout.h"
#include "map/main_window.h"
#include "map/map_reset.h"
#include "map/panel.h"
#include "play/end_of_game.h"
#include "play/question_selection.h"

namespace ardane {
namespace {

/// What is said when a stage ends, and when it comes next: by stage code.
struct Annonces {
  Message fin, suite;
};

Annonces annonces(int jeu) {
  switch (jeu) {
    case étape_provinces: return {Message::après_les_provinces, Message::aux_provinces};
    case étape_villes: return {Message::après_les_villes, Message::aux_villes};
    case étape_drapeaux: return {Message::après_les_drapeaux, Message::aux_drapeaux};
    case étape_régions: return {Message::après_les_régions, Message::aux_régions};
    default: throw ErreurFatale("Jeu inconnu : " + std::to_string(jeu), Lieu::ici());
  }
}

/// A game taken up may stand in a stage that its configuration no longer has: none follows then.
std::int16_t jeu_suivant(const GameState &g) {
  for (int rang = 1; rang < nombre_jeux; ++rang)
    if (g.Ordre_jeux(rang) == g.Etape) return g.Ordre_jeux(rang + 1);
  return aucun_jeu;
}

void effacer_statistiques(GameState &g) {
  for (int i = 1; i <= nombre_provinces; ++i) {
    g.TableProvinces(i).points_perdus.remplir(0);
    g.TableProvinces(i).trouvée_étape.remplir(false);
  }
  for (int r = 1; r <= nombre_régions; ++r) {
    g.TableRégions(r).points_perdus = 0;
    g.TableRégions(r).trouvée_étape = false;
  }
  for (int v = 1; v <= nombre_villes; ++v) {
    g.TableVilles(v).points_perdus = 0;
    g.TableVilles(v).trouvée_étape = false;
  }
}

}  // namespace

void NouvellePartie(Contexte &c) {
  GameState &g = c.état;
  if (!ConfirmerAbandon(c)) return;
  c.principale.contexte_aide = 10;
  c.plateforme.fenêtres.ouvrir_modale("nouvelle_partie");
  RemiseAZéroCarte(c);
  MasquerCarte(c);
  MasquerParamétrage(c);
  effacer_statistiques(g);
  g.PartieVierge = true;
  g.Carte_pleine_largeur = false;
  g.ConseilFicheVu = false;
  DisposerCarte(c);
  if (g.Etape == étape_repos) {
    MasquerPanneau(c);
    MasquerCarte(c);
    return;
  }
  g.Score = score_de_départ;
  AfficherPanneau(c);
  RedessinerCarte(c);
  AfficherScore(c);
  AfficherReste(c, reste_de_l_étape(g));
  QuestionSuivante(c);
}

void EtapeSuivante(Contexte &c) {
  GameState &g = c.état;
  const std::int16_t suivant = jeu_suivant(g);
  if (suivant == aucun_jeu) {
    g.Etape = étape_repos;
    EntréeTopTen(c);
    TerminerPartie(c);
    return;
  }
  Jouer_son(c, g.SonGagné);
  c.plateforme.boîtes.montrer({Icône::information, message(g, Message::étape_suivante),
                               message(g, annonces(g.Etape).fin) + message(g, annonces(suivant).suite)});
  g.Etape = suivant;
  RemiseAZéroCarte(c);
  RedessinerCarte(c);
  AfficherScore(c);
  AfficherPanneau(c);
  AfficherReste(c, reste_de_l_étape(g));
  QuestionSuivante(c);
}

void RevenirAuRepos(Contexte &c) {
  c.état.Etape = étape_repos;
  RemiseAZéroCarte(c);
  c.état.PartieVierge = true;
  MasquerCarte(c);
  MasquerPanneau(c);
  MasquerParamétrage(c);
}

void Révision(Contexte &c) {
  if (!ConfirmerAbandon(c)) return;
  GameState &g = c.état;
  g.Etape = étape_révision;
  g.Niveau = niveau_facile;
  RemiseAZéroCarte(c);
  g.PartieVierge = true;
  MasquerPanneau(c);
  MasquerParamétrage(c);
  g.Carte_pleine_largeur = true;
  DisposerCarte(c);
  RedessinerCarte(c);
  annoncer(c, Message::à_propos, Message::conseil_fiches_des_pays);
}

bool ConfirmerAbandon(Contexte &c) {
  GameState &g = c.état;
  if (partie_en_cours(g) &&
      c.plateforme.boîtes.montrer({Icône::question, message(g, Message::partie_en_cours),
                                   message(g, Message::confirmer_abandon), Boutons::oui_non, true}) !=
          Réponse::oui)
    return false;
  if (partie_en_cours(g)) {
    ScoreDeProgression(c);
    if (g.Score != 0) {
      AfficherScore(c);
      EntréeTopTen(c);
    }
  }
  MasquerCarte(c);
  MasquerPanneau(c);
  return true;
}

}  // namespace ardane
