#include "services/spoken_game.h"

#include "core/game_state.h"
#include "map/main_window.h"
#include "map/panel.h"

namespace ardane {
namespace {

void dire(std::string &annonce, const std::string &phrase) {
  if (!annonce.empty()) annonce += " ";
  annonce += phrase;
}

std::string consigne(const Contexte &c) {
  const Ecran_principal &e = c.principale;
  if (!est_en_jeu(c.état.Etape) || !e.que_faire.visible) return {};
  const std::string question =
      e.Texte_à_chercher.visible ? e.Texte_à_chercher.texte : e.Image_recherchée.nom_parlé;
  return question.empty() ? e.que_faire.texte : e.que_faire.texte + " " + question;
}

}  // namespace

Partie_entendue Ecouter(const Contexte &c) {
  const GameState &g = c.état;
  const Ecran_principal &e = c.principale;
  Partie_entendue partie;
  partie.étape = g.Etape;
  partie.consigne = consigne(c);
  if (partie.consigne.empty()) return partie;
  partie.score = g.Score;
  partie.compté = e.Boîte_score.visible;
  partie.reste = reste_de_l_étape(g);
  partie.erreurs = g.NbErreurs;
  if (g.Etape == étape_régions) partie.choisies = g.TailleRégion - g.ResteRégion;
  return partie;
}

std::string Annoncer_partie(const Partie_entendue &avant, const Partie_entendue &après) {
  std::string annonce;
  const bool même_étape = avant.étape == après.étape && !avant.consigne.empty() && !après.consigne.empty();
  const bool faux =
      même_étape && (après.erreurs > avant.erreurs || (après.compté && après.score < avant.score));
  if (faux)
    dire(annonce, "Faux.");
  else if (même_étape && après.reste < avant.reste)
    dire(annonce, "Juste.");
  if (après.compté && avant.compté && après.score != avant.score)
    dire(annonce, "Score : " + En_milliers(après.score) + ".");
  if (même_étape && après.choisies != avant.choisies && après.consigne == avant.consigne)
    dire(annonce, après.choisies > avant.choisies ? "Choisie." : "Retirée.");
  if (après.consigne.empty() || après.consigne == avant.consigne) return annonce;
  dire(annonce, après.consigne + ".");
  if (après.reste != avant.reste || !même_étape) dire(annonce, "Reste " + std::to_string(après.reste) + ".");
  return annonce;
}

}  // namespace ardane
