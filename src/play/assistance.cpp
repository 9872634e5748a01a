#include "play/assistance.h"

#include "core/game_state.h"
#include "core/sound.h"
#include "map/main_window.h"
#include "map/panel.h"
#include "map/scrolling.h"
#include "map/visibility_rules.h"
#include "play/end_of_game.h"
#include "play/penalty.h"
#include "play/question_selection.h"

namespace ardane {

void AideClignotante(Contexte &c) {
  GameState &g = c.état;
  Centrer_cible(c, g.ProvinceCourante);
  g.ProvinceClignotante = g.ProvinceCourante;
  g.TableClignotement(g.ProvinceCourante) = true;
  g.AssistanceActive = true;
}

void JePasse(Contexte &c) {
  GameState &g = c.état;
  for (int e = g.NbErreurs; e < erreurs_permises; ++e) g.Score = PénalitéErreur(c, g.Score, e);
  if (g.Score <= 0) {
    PartiePerdue(c);
    return;
  }
  AfficherScore(c);
  Jouer_son(c, g.SonPerdu);
  g.NbErreurs = 0;
  QuestionSuivante(c);
  c.principale.BoutonPasse.visible = false;
}

void RéponseAssistée(Contexte &c) {
  GameState &g = c.état;
  g.AssistanceActive = false;
  g.TableClignotement(g.ProvinceClignotante) = false;
  Montrer_province(c, g.ProvinceClignotante, false);
  g.ProvinceClignotante = 0;
  g.Score = SoldeQuestion(c);
  if (g.Score <= 0) {
    PartiePerdue(c);
    QuestionSuivante(c);
    return;
  }
  Jouer_son(c, g.SonJuste);
  QuestionSuivante(c);
  c.principale.Bouton_gruge.visible = false;
  g.NbErreurs = 0;
  // The first draw is dropped, and counts as the previous object of the second.
  QuestionSuivante(c);
}

}  // namespace ardane
