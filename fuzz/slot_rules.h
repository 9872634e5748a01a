// What must hold of both files of slots, the score file and the saved game.
#pragma once

#include <algorithm>
#include <vector>

#include "persistence/score_items.h"
#include "rules.h"

namespace ardane {

inline bool même_table(const auto &a, const auto &b) {
  return std::equal(a.begin(), a.end(), b.begin());
}

inline void vérifier_défaut(const Défaut_de_case &défaut) {
  exiger(défaut.numéro >= 1, "a fault names its slot");
  exiger(!décrire_défaut(défaut).empty(), "a fault can be told");
}

inline void vérifier_scores(const std::vector<Enregistrement_score> &scores) {
  Table<int, 0, plus_haut_niveau> rangs;
  for (const Enregistrement_score &score : scores) ++rangs(score.niveau);
  for (const int rang : rangs) exiger(rang <= nombre_rangs, "at most ten scores a level");
}

inline void vérifier_ordre(const Ordre_de_jeu &ordre) {
  exiger(ordre(1) != 0, "an order begins with a stage");
  for (const std::int16_t code : ordre) {
    exiger(code >= 0 && code <= nombre_jeux, "an order holds stages");
    exiger(code == 0 || std::count(ordre.begin(), ordre.end(), code) == 1, "no stage comes twice");
  }
}

}  // namespace ardane
