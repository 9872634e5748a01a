#include "play/map_clicks.h"

#include "core/announcement.h"
#include "core/game_state.h"
#include "core/hit_test_table.h"
#include "core/sound.h"
#include "map/main_window.h"
#include "map/visibility_rules.h"
#include "play/card.h"
#include "play/judgement.h"
#include "play/region_stage.h"

namespace ardane {
namespace {

/// In the town stage of the high levels a town must be hit on its own dot.
bool repère_exigé(const GameState &g) {
  return g.Etape == étape_villes && haut_niveau(g);
}

/// Where the map does not show what has been found, to click on it again is an error.
bool oubli_payant(const GameState &g) {
  return haut_niveau(g) || (g.Niveau == niveau_moyen && g.Etape == étape_villes);
}

void répéter_bonne_réponse(Contexte &c) {
  Jouer_son(c, c.état.SonJuste);
  annoncer(c, Message::tour_gratuit, Message::réponse_déjà_donnée);
}

void juger(Contexte &c, int p) {
  const GameState &g = c.état;
  const Fiche_province &province = g.TableProvinces(p);
  const bool demandée = p == g.ProvinceCourante;
  if (!province.trouvée && !province.inhibée) {
    if (demandée)
      BonneRéponse(c);
    else
      MauvaiseRéponse(c);
  } else if (g.ModeApprentissage) {
    Ouvrir_fiche(c, p, true);
  } else if (oubli_payant(g) && !province.inhibée) {
    if (demandée)
      répéter_bonne_réponse(c);
    else
      MauvaiseRéponse(c);
  }
}

/// A town's marker may have been meant, which is no province.
void basculer_province(Contexte &c, int p) {
  if (p > nombre_provinces) return;
  Jouer_son(c, c.état.SonJuste);
  bool &écartée = c.état.TableProvinces(p).trouvée;
  écartée = !écartée;
  Montrer_province(c, p, false);
}

}  // namespace

void Clic_carte(Contexte &c, int carte) {
  const GameState &g = c.état;
  if (g.Etape == étape_repos) return;
  const Point curseur = c.plateforme.écran.curseur();
  const int x = curseur.x - g.Rect_carte.gauche + c.principale.barre_h.valeur;
  const int y = curseur.y - g.Rect_carte.haut + c.principale.barre_v.valeur;
  const int province = repère_exigé(g) ? 0 : code_du_pixel(g, carte, x, y);
  if (province != 0) ClicProvince(c, province);
}

void Clic_repère(Contexte &c, int i) {
  const GameState &g = c.état;
  if (g.Etape == étape_villes && !est_niveau(g.Niveau)) return;
  // Another town's dot designates province 0, which is found nowhere: a wrong answer.
  ClicProvince(c, repère_exigé(g) && i != g.VilleCourante ? 0 : g.TableVilles(i).province);
}

void ClicProvince(Contexte &c, int p) {
  GameState &g = c.état;
  if (g.Etape != étape_révision && g.Etape != étape_paramétrage_défini) g.PartieVierge = false;
  switch (g.Etape) {
    case étape_provinces:
    case étape_villes:
    case étape_drapeaux: juger(c, p); break;
    case étape_régions: ClicRégion(c, p); break;
    case étape_révision: Ouvrir_fiche(c, p, false); break;
    case étape_paramétrage_défini: basculer_province(c, p); break;
    default: break;
  }
}

}  // namespace ardane
