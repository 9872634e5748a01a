// Score files of any bytes: the reader ends with a whole configuration or with a fault, and what it accepts
// is written back to a file that reads the same.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

#include "persistence/score_format.h"

namespace ardane {
namespace {

void exiger(bool vrai, const char *règle) {
  if (vrai) return;
  std::fprintf(stderr, "broken rule: %s\n", règle);
  std::abort();
}

Lecture_scores lire(const std::string &octets) {
  std::istringstream flux(octets);
  return lire_scores(flux);
}

bool même_contenu(const Contenu_scores &a, const Contenu_scores &b) {
  return a.version == b.version && std::equal(a.ordre.begin(), a.ordre.end(), b.ordre.begin()) &&
         std::equal(a.inhibée.begin(), a.inhibée.end(), b.inhibée.begin()) && a.langue == b.langue &&
         a.scores == b.scores;
}

void vérifier_scores(const Contenu_scores &contenu) {
  Table<int, 0, plus_haut_niveau> rangs;
  for (const Enregistrement_score &score : contenu.scores) ++rangs(score.niveau);
  for (const int rang : rangs) exiger(rang <= nombre_rangs, "at most ten scores a level");
}

void vérifier_configuration(const Contenu_scores &contenu) {
  exiger(contenu.ordre(1) != 0, "an order begins with a stage");
  for (const std::int16_t code : contenu.ordre) {
    exiger(code >= 0 && code <= nombre_jeux, "an order holds stages");
    exiger(code == 0 || std::count(contenu.ordre.begin(), contenu.ordre.end(), code) == 1,
           "no stage comes twice");
  }
  exiger(std::count(contenu.inhibée.begin(), contenu.inhibée.end(), false) > 0, "a province is in play");
}

void vérifier_retour(const Contenu_scores &contenu) {
  std::ostringstream flux;
  exiger(!écrire_scores(flux, contenu), "what was read can be written");
  const Lecture_scores relue = lire(flux.str());
  exiger(!relue.défaut && même_contenu(relue.contenu, contenu), "what was written reads the same");
}

}  // namespace
}  // namespace ardane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille) {
  using namespace ardane;
  const Lecture_scores lecture = lire(std::string(reinterpret_cast<const char *>(octets), taille));
  vérifier_scores(lecture.contenu);
  if (lecture.défaut) {
    exiger(lecture.défaut->numéro >= 1, "a fault names its slot");
    exiger(!décrire_défaut(*lecture.défaut).empty(), "a fault can be told");
    return 0;
  }
  vérifier_configuration(lecture.contenu);
  vérifier_retour(lecture.contenu);
  return 0;
}
