// The records of the country's objects, the tables that hold them, and the loaders of texts and rows.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "core/table.h"

namespace ardane {

struct Contexte;

/// Where the messages begin in the string table: with the version line.
constexpr int id_messages = 1000;

constexpr int nombre_provinces = 110;
constexpr int nombre_régions = 20;
constexpr int nombre_villes = 330;
constexpr int nombre_jeux = 4;
constexpr int plus_haut_niveau = 4;
constexpr int nombre_rangs = 10;
constexpr int plus_grande_région = 12;

/// Stage codes by their position in the order of play; 0 for an unused one.
using Ordre_de_jeu = Table<std::int16_t, 1, nombre_jeux>;

struct Fiche_province {
  std::int16_t haut = 0;
  std::int16_t gauche = 0;
  bool trouvée = false;               ///< found in the stage being played, or out of the game
  std::int16_t villes_restantes = 0;  ///< its cities still to place in the town stage
  std::int16_t région = 0;
  std::int16_t encart = 0;  ///< number of the map picture that it lies on
  std::string nom;
  bool inhibée = false;                               ///< left out of play by the configuration
  Table<std::int32_t, 0, nombre_jeux> points_perdus;  ///< 0 the total, 1..4 by stage code
  Table<bool, 0, nombre_jeux> trouvée_étape;          ///< placed in the stage of that code
};

struct Fiche_région {
  std::string nom;
  std::int16_t nombre_provinces = 0;     ///< of all its provinces
  std::int16_t provinces_restantes = 0;  ///< in play and not found
  bool trouvée = false;
  Table<std::int16_t, 0, plus_grande_région> membres;  ///< province numbers, ascending, from index 1
  std::int16_t gauche = 0;
  std::int16_t haut = 0;
  std::uint8_t encart = 0;
  std::int32_t points_perdus = 0;
  bool trouvée_étape = false;
  bool inhibée = false;  ///< none of its provinces is in play
};

struct Fiche_ville {
  std::string nom;
  bool capitale = false;
  std::int16_t province = 0;
  bool trouvée = false;  ///< not to be asked: placed, or its province is left out
  bool trouvée_étape = false;
  std::int16_t x = 0;  ///< left and top of its dot on the map, in pixels
  std::int16_t y = 0;
  std::int32_t points_perdus = 0;
};

using Provinces = Table<Fiche_province, 0, nombre_provinces>;
using Régions = Table<Fiche_région, 0, nombre_régions>;
using Villes = Table<Fiche_ville, 0, nombre_villes>;

/// The towns of each province, so that nobody has to look through all towns for the three of one.
class Villes_par_province {
 public:
  /// Takes them from the towns' own `province`. To be called when that has changed.
  void relever(const Villes &villes);
  /// Numbers of the towns of a province, ascending.
  std::span<const std::int16_t> operator()(int province) const;

 private:
  std::array<std::int16_t, nombre_villes> villes_{};     ///< by province, then by number
  Table<std::int16_t, 0, nombre_provinces + 1> débuts_;  ///< where each province begins; the last one ends
};

/// Fills `Messages`, the names of the help and information files and their counts for `Langue`, which it
/// brings back to 1 if the table has no such language.
void Charger_textes(Contexte &c);

void Lire_régions(Contexte &c);
void Lire_provinces(Contexte &c);
void Lire_capitales(Contexte &c);
void Lire_villes(Contexte &c);

}  // namespace ardane
