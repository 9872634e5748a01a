// "ardane.pts": which province every pixel of the map belongs to, as runs.
#pragma once

#include <filesystem>

#include "country/provinces.h"

namespace atelier {

/// Writes records of four bytes, little-endian: map number, x as signed 16 bits, province. First comes a
/// format record (x 0, province 4); then for each row a mark (x 0, province 0) and a run for each change of
/// province, whose x is that of the last pixel before the change; at the end one more mark. Throws
/// std::runtime_error when the file cannot be written, when column 0 holds land, or when there are more runs
/// than the game's table has room for.
void écrire_points(const std::filesystem::path &fichier, const Provinces &provinces);

}  // namespace atelier
