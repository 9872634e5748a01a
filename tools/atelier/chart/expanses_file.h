// "etendues.txt": sea, lakes and land around the provinces, as the map picture shows them.
#pragma once

#include <filesystem>

#include "country/provinces.h"
#include "terrain/coast.h"

namespace atelier {

/// Writes a line for each row of the map: runs from its left to its right edge, each a letter and how many
/// pixels have it. The letters: m sea, l lake, v the neighbours' land, i land of the country without a
/// province, p a province. Throws std::runtime_error when the file cannot be written.
void écrire_étendues(const std::filesystem::path &fichier, const Provinces &provinces, const Shores &shores);

}  // namespace atelier
