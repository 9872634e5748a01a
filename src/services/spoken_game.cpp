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

std::string question(const Ecran_principal &e) {
  return e.Texte_à_chercher.visible ? e.Texte_à_chercher.texte : "drapeau " + e.Image_recherchée.nom_parlé;
}

std::string consigne(const Contexte &c) {
  const Ecran_principal &e = c.principale;
  if (!est_en_jeu(c.état.Etape) || !e.que_faire.visible) return {};
  return e.que_faire.texte + " " + question(e);
}

std::string reste(const Partie_entendue &partie) {
  return "Reste " + std::to_string(partie.reste) + ".";
}

std::string score(const Partie_entendue &partie) {
  return "Score : " + En_milliers(partie.score) + ".";
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
  if (après.compté && avant.compté && après.score != avant.score) dire(annonce, score(après));
  if (même_étape && après.choisies != avant.choisies && après.consigne == avant.consigne)
    dire(annonce, après.choisies > avant.choisies ? "Choisie." : "Retirée.");
  if (après.consigne.empty() || après.consigne == avant.consigne) return annonce;
  dire(annonce, après.consigne + ".");
  if (après.reste != avant.reste || !même_étape) dire(annonce, reste(après));
  return annonce;
}

std::string Redire_partie(const Partie_entendue &partie) {
  if (partie.consigne.empty()) return "Aucune question.";
  std::string phrase = partie.consigne + ".";
  dire(phrase, reste(partie));
  if (partie.compté) dire(phrase, score(partie));
  return phrase;
}

}  // namespace ardane
