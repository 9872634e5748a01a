// Where the gazetteer's provinces and towns come to lie.
#pragma once

#include <string>
#include <vector>

#include "country/provinces.h"
#include "files/data.h"

namespace atelier {

/// The dot of a town is 7 x 8 pixels; its top-left corner lies 4 pixels left of and above the centre.
inline constexpr int dot_width = 7;
inline constexpr int dot_height = 8;
inline constexpr int dot_offset = 4;
/// Free pixels between two dots at the least.
inline constexpr int dot_gap = 3;

struct Sites {
  /// Centres of the dots: element p holds the capital and the two other cities of province p, in the
  /// gazetteer's order; element 0 is empty.
  std::vector<std::vector<Cell>> centres;
  /// One sentence for each hint that the land could not meet.
  std::vector<std::string> unmet;
};

/// Gives the grown provinces of each region to the gazetteer's by what these want (a coast, a river...),
/// renumbers `provinces` accordingly, and finds a place for every town: wholly inside its province, clear of
/// every other dot. Throws std::runtime_error when a town finds none.
Sites settle(const Données &données, Provinces &provinces, const Shores &shores, const Terrain &terrain,
             const std::vector<River> &rivers, std::size_t delta_arms);

}  // namespace atelier
