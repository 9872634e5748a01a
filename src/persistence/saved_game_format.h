// What stands in a saved game (".CAI"): where a game was left. Apart from the game, so that it can be read
// and written with nothing else there.
//
//     slot 1       text, the version line of the program that wrote it
//     slot 2       16-bit, language
//     slot 3       text, the score file in use, or "~tmp.~ci" for a configuration that has none
//     only with "~tmp.~ci":
//       4 slots    16-bit, the order of play
//       1 slot     16-bit, number of the scores that follow
//       so many    scores, level by level
//     1 slot       16-bit, stage in play, 1 to 4
//     1 slot       text, the player's name
//     1 slot       16-bit, level, 1 to 4
//     1 slot       16-bit boolean, learning mode
//     1 slot       32-bit, score
//     330 slots    in the stage Villes: pairs (town, found); none in the stage Drapeaux;
//     or 110       in the others: pairs (province, found)
//     1100 slots   each province's total and its four stages: 32-bit points lost, 16-bit boolean found
//     40 slots     each region: the same two
//     660 slots    each town: the same two
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/gazetteer.h"
#include "core/table.h"
#include "persistence/score_items.h"
#include "persistence/slot_file.h"

namespace ardane {

constexpr std::string_view extension_parties = ".CAI";

/// What an object has cost.
struct Bilan {
  std::int32_t points_perdus = 0;
  bool trouvée_étape = false;
  friend bool operator==(const Bilan &, const Bilan &) = default;
};

/// What stands in the file itself where no score file keeps it.
struct Paramétrage_en_ligne {
  Ordre_de_jeu ordre;
  std::vector<Enregistrement_score> scores;
};

struct Contenu_partie {
  std::string version;
  std::int16_t langue = 0;
  std::string fichier_lancement;
  Paramétrage_en_ligne en_ligne;  ///< of the configuration that was not saved; of no other
  std::int16_t étape = 0;
  std::string nom_joueur;
  std::int16_t niveau = 0;
  bool apprentissage = false;
  std::int32_t score = 0;
  std::vector<Paire> trouvées;  ///< index of a province or a town; any value but 0 is true
  Table2<Bilan, 1, nombre_provinces, 0, nombre_jeux> provinces;
  Table<Bilan, 1, nombre_régions> régions;
  Table<Bilan, 1, nombre_villes> villes;
};

struct Lecture_partie {
  Contenu_partie contenu;  ///< with a fault of no use but for the version, if slot 1 was whole
  std::optional<Défaut_de_case> défaut;
};

/// How many pairs a game saved in that stage has.
int nombre_de_paires(int étape);

/// Reads a saved game whatever its version.
///
/// A fault is an item that is not there whole; what `lire_ordre` and `lire_liste` refuse; a stage or a level
/// outside 1..4; a stage that the order of play in the file does not have; a name of more than 120 bytes,
/// which no score file takes; an index outside 0..110 (provinces) or 0..330 (towns). A fault is also what no
/// game can have been left with: learning mode at another level than Facile, a score outside 1..999999,
/// points lost below 0 or beyond a thousand million.
Lecture_partie lire_partie(std::istream &flux);

/// Writes a saved game. Nothing if it is whole, otherwise what failed; what was written then stays.
std::optional<Défaut_de_case> écrire_partie(std::ostream &flux, const Contenu_partie &contenu);

}  // namespace ardane
