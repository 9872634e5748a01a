// The pictures of buttons, and the icons of the windows and of the program.
#pragma once

#include <filesystem>

#include "files/catalogue.h"

namespace atelier {

/// The picture buttons of all windows: with a transparent colour where the window lays them flat, else with
/// soft edges.
void dessiner_boutons(const std::filesystem::path &images, Catalogue &catalogue);

/// The windows' icons in 32 and 16 pixels, and the program's in 16 to 256.
void dessiner_icônes(const std::filesystem::path &images, Catalogue &catalogue);

}  // namespace atelier
