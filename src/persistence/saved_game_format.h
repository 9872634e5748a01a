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
//
// A game that was interrupted is kept in the same slots, as one whose configuration no score file keeps, and
// with pairs in the stage Drapeaux too; in front of them and behind them stands what lets it go on at the
// very question:
//
//     1 slot       text, "Partie interrompue, forme 1"
//     ...
//     110 slots    16-bit boolean a province: left out of the game
//     1 slot       32-bit, when it was kept, in seconds since midnight
//     1 slot       16-bit, the province, town or region asked
//     2 slots      16-bit, wrong clicks on the question; boolean, its target blinks
//     1 slot       16-bit boolean, the tip about the cards has been given
//     1 slot       16-bit, number of the provinces selected in the stage Régions; then so many slots
//     bytes        the score file in use, UTF-8
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
  friend bool operator==(const Paramétrage_en_ligne &, const Paramétrage_en_ligne &) = default;
};

/// What a game has that was not saved but interrupted.
struct Interruption {
  std::int32_t heure = 0;  ///< when it was kept, in seconds since midnight
  Table<bool, 1, nombre_provinces> inhibée;
  std::int16_t question = 0;  ///< the province, town or region asked
  std::int16_t erreurs = 0;
  bool assistance = false;
  bool conseil_vu = false;
  std::vector<std::int16_t> sélection;  ///< in the order of the clicks
  friend bool operator==(const Interruption &, const Interruption &) = default;
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
  std::optional<Interruption> interruption;
  friend bool operator==(const Contenu_partie &, const Contenu_partie &) = default;
};

struct Lecture_partie {
  Contenu_partie contenu;  ///< with a fault of no use but for the version, if slot 1 was whole
  std::optional<Défaut_de_case> défaut;
};

/// How many pairs a game left in that stage has.
int nombre_de_paires(int étape, bool interrompue);

/// Reads a saved game whatever its version.
///
/// A fault is an item that is not there whole; what `lire_ordre` and `lire_liste` refuse; a stage or a level
/// outside 1..4; a stage that the order of play in the file does not have; a name of more than 120 bytes,
/// which no score file takes; an index outside 0..110 (provinces) or 0..330 (towns). A fault is also what no
/// game can have been left with: learning mode at another level than Facile, a score outside 1..999999,
/// points lost below 0 or beyond a thousand million.
Lecture_partie lire_partie(std::istream &flux);

/// Reads an interrupted game whatever its version. A fault is what is one in a saved game; another first
/// slot; a pair that is not its place's; a question that the stage cannot ask; more errors than a question
/// allows, errors or a blinking target where there can be none; a selection of the same province twice, of
/// more than a region holds, or in another stage; a time that is none.
Lecture_partie lire_partie_interrompue(std::istream &flux);

/// Writes a saved game, or an interrupted one. Nothing if it is whole, otherwise what failed; what was
/// written then stays.
std::optional<Défaut_de_case> écrire_partie(std::ostream &flux, const Contenu_partie &contenu);

}  // namespace ardane
