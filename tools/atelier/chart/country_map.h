// The map of the country: everything that comes out of the one raster of terrain and provinces.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "files/catalogue.h"
#include "files/data.h"

namespace atelier {

/// Draws the map picture, the layers of provinces and regions in both sizes into `images`, writes the
/// hit-test file and what tells the picture to who does not see it into `dossier`, and adds the gazetteer's
/// rows to `textes` by their numbers.
void dessiner_carte(const Données &données, const std::filesystem::path &images, Catalogue &catalogue,
                    const std::filesystem::path &dossier, std::map<int, std::string> &textes);

}  // namespace atelier
