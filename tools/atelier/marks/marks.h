// The small pictures that lie on the map or choose what lies there: rings, dots, stars, swatches; and
// everything else that is neither map nor flag: buttons, icons, the welcome picture.
#pragma once

#include <filesystem>

#include "files/catalogue.h"

namespace atelier {

/// Writes the pictures to `images` with their 2x drawings, and lists them in the catalogue.
void dessiner_repères(const std::filesystem::path &images, Catalogue &catalogue);

}  // namespace atelier
