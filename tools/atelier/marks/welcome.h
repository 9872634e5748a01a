// The small landscape that greets the player while the game loads.
#pragma once

#include <filesystem>

#include "files/catalogue.h"

namespace atelier {

/// Draws the picture, 120 x 132, and its 2x drawing.
void dessiner_accueil(const std::filesystem::path &images, Catalogue &catalogue);

}  // namespace atelier
