// What stands in a score file (".SCI"): a configuration and the best scores made under it. Apart from the
// game, so that it can be read and written with nothing else there.
//
//     slot 1           text, the version line of the program that wrote it
//     slot 2           16-bit, number of places in the order of play that follow; written as 4
//     slots 3 to 6     16-bit, stage code of each place, 0 for an unused one
//     slots 7 to 116   16-bit boolean a province: left out of the game
//     slot 117         16-bit, language
//     from slot 118    scores, level by level, each level from its best, to the end of the file
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "core/gazetteer.h"
#include "core/table.h"
#include "persistence/score_items.h"

namespace ardane {

struct Contenu_scores {
  std::string version;
  Ordre_de_jeu ordre;
  Table<bool, 1, nombre_provinces> inhibée;
  std::int16_t langue = 0;
  std::vector<Enregistrement_score> scores;
};

struct Lecture_scores {
  /// With a fault: the version if slot 1 was whole, and the scores above the faulty one; the configuration is
  /// then not to be used.
  Contenu_scores contenu;
  std::optional<Défaut_de_case> défaut;
};

/// Reads a score file whatever its version.
///
/// A fault is an item before the scores that is not there whole; what `lire_ordre` and `lire_liste` refuse; a
/// name of more than 120 bytes; all provinces left out, which nothing can be played with. A score that the
/// end of the file cuts is no fault: it ends the list.
Lecture_scores lire_scores(std::istream &flux);

/// Writes a score file. Nothing if it is whole, otherwise what failed; what was written then stays.
std::optional<Défaut_de_case> écrire_scores(std::ostream &flux, const Contenu_scores &contenu);

}  // namespace ardane
