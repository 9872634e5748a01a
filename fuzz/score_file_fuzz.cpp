// Score files of any bytes: the reader ends with a whole configuration or with a fault, and what it accepts
// is written back to a file that reads the same.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "persistence/score_format.h"
#include "slot_rules.h"

namespace ardane {
namespace {

Lecture_scores lire(const std::string &octets) {
  std::istringstream flux(octets);
  return lire_scores(flux);
}

bool même_contenu(const Contenu_scores &a, const Contenu_scores &b) {
  return a.version == b.version && même_table(a.ordre, b.ordre) && même_table(a.inhibée, b.inhibée) &&
         a.langue == b.langue && a.scores == b.scores;
}

void vérifier_configuration(const Contenu_scores &contenu) {
  vérifier_ordre(contenu.ordre);
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
  const Lecture_scores lecture = lire(en_fichier(octets, taille));
  vérifier_scores(lecture.contenu.scores);
  if (lecture.défaut) {
    vérifier_défaut(*lecture.défaut);
    return 0;
  }
  vérifier_configuration(lecture.contenu);
  vérifier_retour(lecture.contenu);
  return 0;
}
