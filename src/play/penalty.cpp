#include "play/penalty.h"

#include <cmath>
#include <limits>

#include "core/game_state.h"
#include "map/panel.h"

namespace ardane {
namespace {

/// A sum outside 32 bits ends the program, like any number that does not fit its variable.
std::int32_t entier_32_bits(double valeur) {
  if (valeur < std::numeric_limits<std::int32_t>::min() || valeur > std::numeric_limits<std::int32_t>::max())
    throw ErreurFatale("Dépassement de capacité", Lieu::ici());
  return static_cast<std::int32_t>(valeur);
}

void charger(std::int32_t &points_perdus, double coût) {
  points_perdus = entier_32_bits(points_perdus + coût);
}

void charger_objet(GameState &g, double coût) {
  switch (g.Etape) {
    case étape_provinces:
    case étape_drapeaux:
    case étape_villes: {
      Fiche_province &province = g.TableProvinces(g.ProvinceCourante);
      charger(province.points_perdus(g.Etape), coût);
      charger(province.points_perdus(0), coût);
      if (g.Etape == étape_villes) charger(g.TableVilles(g.VilleCourante).points_perdus, coût);
      break;
    }
    case étape_régions: charger(g.TableRégions(g.RégionCourante).points_perdus, coût); break;
    default: break;
  }
}

}  // namespace

std::int32_t PénalitéErreur(Contexte &c, std::int32_t score, int exposant) {
  const double coût = std::ldexp(1.0, exposant);
  charger_objet(c.état, coût);
  return c.état.ModeApprentissage ? score : entier_32_bits(score - coût);
}

std::int32_t SoldeQuestion(Contexte &c) {
  GameState &g = c.état;
  if (g.NbErreurs != 0)
    for (int e = g.NbErreurs; e < erreurs_permises; ++e) g.Score = PénalitéErreur(c, g.Score, e);
  AfficherScore(c);
  return g.Score;
}

}  // namespace ardane
