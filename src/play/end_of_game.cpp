#include "play/end_of_game.h"

#include <algorithm>
#include <utility>

#include "core/announcement.h"
#include "core/game_state.h"
#include "core/sound.h"
#include "map/layers.h"
#include "map/map_reset.h"
#include "map/panel.h"
#include "persistence/lifeline.h"
#include "persistence/score_file.h"

namespace ardane {
namespace {

/// Weight of each stage in the progress score, by stage code.
constexpr int poids(int jeu) {
  switch (jeu) {
    case étape_provinces: return 3;
    case étape_villes: return 6;
    case étape_régions: return 1;
    default: return 0;
  }
}

int objets_en_jeu(const GameState &g, int jeu) {
  return jeu == étape_villes ? g.VillesEnJeu : g.ProvincesEnJeu;
}

int objets_placés(const GameState &g, int jeu) {
  return jeu == étape_villes ? g.VillesEnJeu - g.VillesRestantes : g.ProvincesEnJeu - g.ProvincesRestantes;
}

/// Rank that `score` takes: above the first entry strictly below it, so that a tie leaves the older ahead.
int rang_du_score(const GameState &g, std::int32_t score) {
  int rang = 1;
  while (rang <= g.Nombre_scores(g.Niveau) && g.Meilleurs_scores(g.Niveau, rang).score >= score) ++rang;
  return rang;
}

/// Opens a place at `rang`, the tenth of a full table falling out; false if the rank lies below the table.
bool faire_place(GameState &g, int rang) {
  std::int16_t &nombre = g.Nombre_scores(g.Niveau);
  if (nombre != nombre_rangs) ++nombre;
  for (int k = nombre; k > rang; --k) g.Meilleurs_scores(g.Niveau, k) = g.Meilleurs_scores(g.Niveau, k - 1);
  return rang <= nombre;
}

/// Whatever happens before the file is written, the player will not have been praised for nothing. The list
/// takes the score only when he has read so.
void mettre_le_score_de_côté(Contexte &c, int rang) {
  Meilleur_score &place = c.état.Meilleurs_scores(c.état.Niveau, rang);
  const Meilleur_score avant = std::exchange(place, {c.état.Nom_joueur, c.état.Score});
  Annoncer_scores(c);
  place = avant;
}

void inscrire(Contexte &c) {
  GameState &g = c.état;
  const int rang = rang_du_score(g, g.Score);
  const bool classé = faire_place(g, rang);
  if (classé) mettre_le_score_de_côté(c, rang);
  c.secours.oublier();
  if (!classé) {
    Jouer_son(c, g.SonPerdu);
    annoncer(c, Message::tour_gratuit, Message::hors_du_top_ten);
    return;
  }
  Jouer_son(c, g.SonGagné);
  if (g.Score < 1)
    annoncer(c, Message::meilleur_score, Message::top_ten_mais_peut_mieux_faire);
  else
    annoncer(c, Message::joli_score, Message::bravo_top_ten);
  g.Meilleurs_scores(g.Niveau, rang) = {g.Nom_joueur, g.Score};
  Ecrire_scores(c, true);
}

}  // namespace

void ScoreDeProgression(Contexte &c) {
  GameState &g = c.état;
  // With nothing in play nothing can be placed: the unit does not matter then.
  const int unités = std::max(1, 10 * g.ProvincesEnJeu + 6 * g.VillesEnJeu);
  const int unité = score_de_départ / unités;
  g.Score = -score_de_départ;
  for (const std::int16_t jeu : g.Ordre_jeux) {
    if (jeu == g.Etape) {
      g.Score += unité * poids(jeu) * objets_placés(g, jeu);
      return;
    }
    if (jeu == aucun_jeu) return;
    g.Score += unité * poids(jeu) * objets_en_jeu(g, jeu);
  }
}

void EntréeTopTen(Contexte &c) {
  GameState &g = c.état;
  if (g.ScoreNonRetenu) {
    c.secours.oublier();
    Jouer_son(c, g.SonPerdu);
    annoncer(c, Message::tour_gratuit, Message::score_d_apprentissage_non_enregistré);
  } else {
    inscrire(c);
  }
  g.Niveau_affiché = g.Niveau;
  g.AprèsPartie = true;
  c.plateforme.fenêtres.ouvrir_modale("Affichage_scores");
  g.PartieClose = true;
}

void PartiePerdue(Contexte &c) {
  GameState &g = c.état;
  ScoreDeProgression(c);
  AfficherScore(c);
  Jouer_son(c, g.SonPerdu);
  annoncer(c, Message::tour_gratuit, Message::partie_terminée, Icône::stop);
  EntréeTopTen(c);
  g.Etape = étape_repos;
  TerminerPartie(c);
}

void TerminerPartie(Contexte &c) {
  GameState &g = c.état;
  // The statistics stay within reach from the top ten until the next game is set up.
  const bool après_partie = g.AprèsPartie;
  RemiseAZéroCarte(c);
  g.AprèsPartie = après_partie;
  g.PartieVierge = true;
  MasquerCarte(c);
  MasquerPanneau(c);
  g.PartieClose = true;
}

}  // namespace ardane
