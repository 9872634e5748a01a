#include "play/region_stage.h"

#include "core/game_state.h"
#include "core/sound.h"
#include "map/main_window.h"
#include "map/panel.h"
#include "map/visibility_rules.h"
#include "play/card.h"
#include "play/judgement.h"

namespace ardane {
namespace {

void afficher_nombre(Contexte &c) {
  AfficherNombreProvinces(c, c.état.ResteRégion);
}

/// The selection without `province`, again from the top down without a hole. The working list holds 8: taking
/// one out of more than 9 ends the program.
void retirer(Contexte &c, int province) {
  GameState &g = c.état;
  Table<std::int16_t, 0, 8> gardées;
  int nombre = 0;
  for (int k = g.ResteRégion + 1; k <= g.TailleRégion; ++k)
    if (g.SélectionRégion(k) != province) gardées(++nombre) = g.SélectionRégion(k);
  for (int k = 1; k <= nombre; ++k) g.SélectionRégion(g.TailleRégion - nombre + k) = gardées(k);
  ++g.ResteRégion;
  afficher_nombre(c);
  Montrer_province(c, province, true);
  Jouer_son(c, g.SonSélection);
}

bool peut_être_choisie(const GameState &g, const Fiche_province &province) {
  if (province.inhibée || province.région == 0) return false;
  if (!province.trouvée) return true;
  // A province placed earlier can be picked again at the high levels, which can only lead to an error.
  if (g.Niveau == niveau_difficile) return province.région != g.RégionCourante;
  return g.Niveau == niveau_expert;
}

void inscrire_dans_la_sélection(Contexte &c, int province) {
  GameState &g = c.état;
  g.SélectionRégion(g.ResteRégion) = static_cast<std::int16_t>(province);
  --g.ResteRégion;
  afficher_nombre(c);
}

void choisir_province(Contexte &c, int province) {
  const GameState &g = c.état;
  Jouer_son(c, g.SonSélection);
  inscrire_dans_la_sélection(c, province);
  if (g.ResteRégion != 0)
    Montrer_province(c, province, false);
  else
    ValiderSélectionRégion(c);
}

bool est_de_la_région(const GameState &g, int province) {
  return g.TableProvinces(province).région == g.RégionCourante;
}

bool tout_juste(const GameState &g) {
  for (int k = 1; k <= g.TailleRégion; ++k)
    if (!est_de_la_région(g, g.SélectionRégion(k))) return false;
  return true;
}

/// Places the selected provinces that belong to the region; true if there was one.
bool placer_les_justes(GameState &g) {
  bool une_juste = false;
  for (int k = 1; k <= g.TailleRégion; ++k) {
    Fiche_province &province = g.TableProvinces(g.SélectionRégion(k));
    if (province.région != g.RégionCourante) continue;
    province.trouvée = true;
    --g.TableRégions(g.RégionCourante).provinces_restantes;
    --g.ProvincesRestantes;
    une_juste = true;
  }
  return une_juste;
}

void redessiner_sélection(Contexte &c) {
  const GameState &g = c.état;
  for (int k = 1; k <= g.TailleRégion; ++k) Montrer_province(c, g.SélectionRégion(k), true);
  const Fiche_région &région = g.TableRégions(g.RégionCourante);
  for (int k = 1; k <= région.nombre_provinces; ++k) Montrer_province(c, région.membres(k), true);
}

/// Grows with what is missing, and steps down for regions of ten provinces or more.
int exposant_de_la_peine(const Fiche_région &région) {
  return (9 / région.nombre_provinces + 1) * région.provinces_restantes;
}

std::int16_t membres_en_jeu(const GameState &g, const Fiche_région &région) {
  std::int16_t nombre = 0;
  for (int k = 1; k <= région.nombre_provinces; ++k)
    if (!g.TableProvinces(région.membres(k)).inhibée) ++nombre;
  return nombre;
}

void refuser_sélection(Contexte &c) {
  GameState &g = c.état;
  Fiche_région &région = g.TableRégions(g.RégionCourante);
  g.NbErreurs = static_cast<std::int16_t>(exposant_de_la_peine(région));
  if (g.Niveau == niveau_expert) région.provinces_restantes = membres_en_jeu(g, région);
  MauvaiseRéponse(c);
}

}  // namespace

void ClicRégion(Contexte &c, int p) {
  GameState &g = c.état;
  const Fiche_province &province = g.TableProvinces(p);
  if (est_sélectionnée(g, p))
    retirer(c, p);
  else if (peut_être_choisie(g, province))
    choisir_province(c, p);
  else if (g.ModeApprentissage && province.région != g.RégionCourante)
    Ouvrir_fiche(c, p, true);
}

void Sélectionner_province(Contexte &c, int province) {
  inscrire_dans_la_sélection(c, province);
  Montrer_province(c, province, false);
}

void ValiderSélectionRégion(Contexte &c) {
  GameState &g = c.état;
  const bool juste = tout_juste(g);
  const bool gardées = bas_niveau(g) || juste;
  const bool une_juste = gardées && placer_les_justes(g);
  redessiner_sélection(c);
  if (g.TableRégions(g.RégionCourante).provinces_restantes == 0) {
    BonneRéponse(c);
    if (!g.ModeApprentissage || g.ConseilFicheVu || g.RégionsRestantes == 1) return;
  } else {
    refuser_sélection(c);
    if (!une_juste || !g.ModeApprentissage || g.ConseilFicheVu) return;
  }
  Conseiller_fiches(c);
}

}  // namespace ardane
