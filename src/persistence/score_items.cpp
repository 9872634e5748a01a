#include "persistence/score_items.h"

#include <algorithm>

namespace ardane {
namespace {

bool jouable(const Ordre_de_jeu &ordre) {
  if (ordre(1) == 0) return false;
  for (const std::int16_t code : ordre) {
    if (code < 0 || code > nombre_jeux) return false;
    if (code != 0 && std::count(ordre.begin(), ordre.end(), code) > 1) return false;
  }
  return true;
}

}  // namespace

void lire_ordre(Lecteur_de_cases &cases, int places, Ordre_de_jeu &ordre) {
  if (places < 0 || places > nombre_jeux) return cases.refuser();
  for (int i = 1; i <= places; ++i) ordre(i) = cases.entier16().value_or(0);
  if (!jouable(ordre)) cases.refuser();
}

void écrire_ordre(Scripteur_de_cases &cases, const Ordre_de_jeu &ordre) {
  for (const std::int16_t code : ordre) cases.entier16(code);
}

void lire_liste(Lecteur_de_cases &cases, std::optional<int> nombre,
                std::vector<Enregistrement_score> &scores) {
  if (nombre && (*nombre < 0 || *nombre > (plus_haut_niveau + 1) * nombre_rangs)) return cases.refuser();
  Table<int, 0, plus_haut_niveau> rangs;
  for (int lus = 0; lus != nombre; ++lus) {
    const auto score = cases.score();
    if (!score) return;
    const bool permis = score->niveau >= 0 && score->niveau <= plus_haut_niveau;
    if (!permis || ++rangs(score->niveau) > nombre_rangs) return cases.refuser();
    scores.push_back(*score);
  }
}

void écrire_liste(Scripteur_de_cases &cases, const std::vector<Enregistrement_score> &scores) {
  for (const Enregistrement_score &score : scores) cases.score(score);
}

}  // namespace ardane
