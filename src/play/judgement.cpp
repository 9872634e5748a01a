#include "play/judgement.h"

#include "core/announcement.h"
#include "core/game_state.h"
#include "core/sound.h"
#include "map/main_window.h"
#include "map/panel.h"
#include "map/visibility_rules.h"
#include "play/assistance.h"
#include "play/card.h"
#include "play/end_of_game.h"
#include "play/penalty.h"
#include "play/question_selection.h"
#include "play/stage_sequencer.h"

namespace ardane {
namespace {

void placer_province(Contexte &c) {
  GameState &g = c.état;
  --g.ProvincesRestantes;
  Montrer_province(c, g.ProvinceCourante, false);
  AfficherReste(c, g.ProvincesRestantes);
  g.TableProvinces(g.ProvinceCourante).trouvée_étape(g.Etape) = true;
}

void placer_ville(Contexte &c) {
  GameState &g = c.état;
  Fiche_province &province = g.TableProvinces(g.ProvinceCourante);
  Fiche_ville &ville = g.TableVilles(g.VilleCourante);
  --province.villes_restantes;
  province.trouvée = province.villes_restantes == 0;
  province.trouvée_étape(étape_villes) = province.trouvée;
  --g.VillesRestantes;
  ville.trouvée = ville.trouvée_étape = true;
  Montrer_repère(c, g.VilleCourante);
  Montrer_province(c, g.ProvinceCourante, false);
  AfficherReste(c, g.VillesRestantes);
}

void placer_région(Contexte &c) {
  GameState &g = c.état;
  Fiche_région &région = g.TableRégions(g.RégionCourante);
  région.trouvée = région.trouvée_étape = true;
  for (int v = 1; v <= nombre_villes; ++v) Montrer_repère(c, v);
  Montrer_région(c, g.RégionCourante);
  --g.RégionsRestantes;
  AfficherReste(c, g.RégionsRestantes);
}

void placer(Contexte &c) {
  switch (c.état.Etape) {
    case étape_provinces:
    case étape_drapeaux: placer_province(c); break;
    case étape_villes: placer_ville(c); break;
    case étape_régions: placer_région(c); break;
    default: break;
  }
}

/// The first thing placed has just made a card reachable.
bool conseil_à_donner(const GameState &g) {
  const bool première_province = g.ProvincesRestantes == g.ProvincesEnJeu - 1;
  const bool province_complète =
      g.Etape == étape_villes && g.TableProvinces(g.ProvinceCourante).villes_restantes == 0;
  return g.ModeApprentissage && !g.ConseilFicheVu && (première_province || province_complète);
}

void retirer_aide(Contexte &c) {
  c.principale.BoutonPasse.visible = false;
  c.principale.Bouton_gruge.visible = false;
}

void abandonner_question(Contexte &c) {
  GameState &g = c.état;
  Jouer_son(c, g.SonPerdu);
  annoncer(c, Message::se_ressaisir,
           g.AssistanceActive ? Message::réponse_indiquée_par_le_clignotement : Message::essayer_autre_chose,
           Icône::exclamation);
  g.AssistanceActive = false;
  g.TableClignotement(g.ProvinceCourante) = false;
  Montrer_province(c, g.ProvinceCourante, false);
  g.NbErreurs = 0;
  QuestionSuivante(c);
  retirer_aide(c);
}

}  // namespace

void Offrir_aide(Contexte &c) {
  if (c.état.ModeApprentissage)
    c.principale.Bouton_gruge.visible = true;
  else if (c.état.Niveau == niveau_facile)
    c.principale.BoutonPasse.visible = true;
}

void BonneRéponse(Contexte &c) {
  GameState &g = c.état;
  if (g.Niveau == niveau_facile) c.principale.BoutonPasse.visible = false;
  if (g.Etape == étape_provinces || g.Etape == étape_drapeaux)
    g.TableProvinces(g.ProvinceCourante).trouvée = !(g.Niveau == niveau_facile && g.AssistanceActive);
  if (g.AssistanceActive) {
    RéponseAssistée(c);
    return;
  }
  placer(c);
  if (reste_de_l_étape(g) == 0) {
    EtapeSuivante(c);
    return;
  }
  Jouer_son(c, g.SonJuste);
  if (conseil_à_donner(g)) Conseiller_fiches(c);
  g.AssistanceActive = false;
  QuestionSuivante(c);
  c.principale.Bouton_gruge.visible = false;
  g.NbErreurs = 0;
}

void MauvaiseRéponse(Contexte &c) {
  GameState &g = c.état;
  g.Score = PénalitéErreur(c, g.Score, g.NbErreurs);
  if (g.Score > 0) {
    AfficherScore(c);
    if (g.Etape != étape_régions) ++g.NbErreurs;
  } else {
    // The game is over after this, mode idle and no error counted; the sound of the error still comes.
    PartiePerdue(c);
  }
  if (g.Etape == étape_régions) {
    Jouer_son(c, g.SonErreur);
    g.NbErreurs = 0;
    QuestionSuivante(c);
    retirer_aide(c);
    g.AssistanceActive = false;
    return;
  }
  if (g.NbErreurs < erreurs_permises) {
    Jouer_son(c, g.SonErreur);
    if (g.NbErreurs == 1) Offrir_aide(c);
    return;
  }
  abandonner_question(c);
}

}  // namespace ardane
