// What stands around the country on the map picture: frame, compass rose, scale bar and cartouche.
#pragma once

#include <filesystem>
#include <map>

#include "drawing/image.h"
#include "drawing/path.h"

namespace atelier {

/// One character on a body 100 units high.
struct Letter {
  double width = 0;
  Path shape;
};

/// The characters of data/lettering.txt: those that are filled and those that are drawn with a pen.
struct Lettering {
  std::map<char, Letter> filled;
  std::map<char, Letter> drawn;
};

/// Throws std::runtime_error that names the line which has not the expected form.
Lettering lire_lettres(const std::filesystem::path &fichier);

/// Draws the ornaments on a map picture of `scale` pixels a map pixel.
void draw_ornaments(Image &image, const Lettering &lettering, int scale);

}  // namespace atelier
