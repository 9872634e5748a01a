// Saved games of any bytes: the reader ends with a whole game or with a fault, and what it accepts is written
// back to a file that reads the same.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "core/game_state.h"
#include "persistence/saved_game_format.h"
#include "slot_rules.h"

namespace ardane {
namespace {

Lecture_partie lire(const std::string &octets) {
  std::istringstream flux(octets);
  return lire_partie(flux);
}

bool mêmes_bilans(const Contenu_partie &a, const Contenu_partie &b) {
  for (int p = 1; p <= nombre_provinces; ++p)
    if (!même_table(a.provinces.ligne(p), b.provinces.ligne(p))) return false;
  return même_table(a.régions, b.régions) && même_table(a.villes, b.villes);
}

bool même_contenu(const Contenu_partie &a, const Contenu_partie &b) {
  return a.version == b.version && a.langue == b.langue && a.fichier_lancement == b.fichier_lancement &&
         même_table(a.en_ligne.ordre, b.en_ligne.ordre) && a.en_ligne.scores == b.en_ligne.scores &&
         a.étape == b.étape && a.nom_joueur == b.nom_joueur && a.niveau == b.niveau &&
         a.apprentissage == b.apprentissage && a.score == b.score && a.trouvées == b.trouvées &&
         mêmes_bilans(a, b);
}

void vérifier_bilan(const Bilan &bilan) {
  exiger(bilan.points_perdus >= 0 && bilan.points_perdus <= 1'000'000'000, "points lost leave room for more");
}

void vérifier_partie(const Contenu_partie &partie) {
  exiger(partie.étape >= étape_provinces && partie.étape <= étape_régions, "a game stands in a stage");
  exiger(est_niveau(partie.niveau), "a game has a level");
  exiger(!partie.apprentissage || partie.niveau == niveau_facile, "learning mode is of the level Facile");
  exiger(partie.score > 0 && partie.score <= score_de_départ, "a game goes on with points only");
  exiger(partie.trouvées.size() == static_cast<std::size_t>(nombre_de_paires(partie.étape, false)),
         "every object of the stage has its pair");
  const int dernier = partie.étape == étape_villes ? nombre_villes : nombre_provinces;
  for (const Paire &paire : partie.trouvées)
    exiger(paire.indice >= 0 && paire.indice <= dernier, "an index is one of the table");
  for (int p = 1; p <= nombre_provinces; ++p)
    for (const Bilan &bilan : partie.provinces.ligne(p)) vérifier_bilan(bilan);
  for (const Bilan &bilan : partie.régions) vérifier_bilan(bilan);
  for (const Bilan &bilan : partie.villes) vérifier_bilan(bilan);
}

void vérifier_configuration(const Contenu_partie &partie) {
  const Paramétrage_en_ligne &configuration = partie.en_ligne;
  if (partie.fichier_lancement != nom_fichier_temporaire) {
    exiger(configuration.scores.empty() && configuration.ordre(1) == 0,
           "a score file keeps its own configuration");
    return;
  }
  vérifier_ordre(configuration.ordre);
  exiger(std::ranges::count(configuration.ordre, partie.étape) == 1, "the stage is one of the order");
  vérifier_scores(configuration.scores);
}

void vérifier_retour(const Contenu_partie &partie) {
  std::ostringstream flux;
  exiger(!écrire_partie(flux, partie), "what was read can be written");
  const Lecture_partie relue = lire(flux.str());
  exiger(!relue.défaut && même_contenu(relue.contenu, partie), "what was written reads the same");
}

}  // namespace
}  // namespace ardane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille) {
  using namespace ardane;
  const Lecture_partie lecture = lire(en_fichier(octets, taille));
  if (lecture.défaut) {
    vérifier_défaut(*lecture.défaut);
    return 0;
  }
  vérifier_partie(lecture.contenu);
  vérifier_configuration(lecture.contenu);
  vérifier_retour(lecture.contenu);
  return 0;
}

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *octets, std::size_t taille, std::size_t place);

/// Nearly all of a file is padding: most changes are made to the items, half of them to those before the long
/// lists.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *octets, std::size_t taille, std::size_t place,
                                               unsigned hasard) {
  using ardane::taille_de_case;
  const std::size_t cases = taille / taille_de_case;
  if (cases == 0 || hasard % 8 == 0) return LLVMFuzzerMutate(octets, taille, place);
  constexpr std::size_t premières = 20;
  const std::size_t parmi = hasard / 8 % 2 == 0 ? std::min(cases, premières) : cases;
  std::uint8_t *const item = octets + hasard / 16 % parmi * taille_de_case;
  const std::size_t longueur = hasard / 16 % 5 == 0 ? taille_de_case : 4;
  const std::size_t gardés = LLVMFuzzerMutate(item, longueur, longueur);
  std::fill(item + gardés, item + longueur, std::uint8_t{0});
  return taille;
}
