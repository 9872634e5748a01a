// Pictures as JPEG, PNG and PPM files, through Qt's image writers.
#pragma once

#include <filesystem>

#include "drawing/image.h"

namespace atelier {

/// All three throw std::runtime_error when the file cannot be written.
void écrire_png(const std::filesystem::path &fichier, const Image &image);
/// Quality 0 to 100; opacity is dropped.
void écrire_jpeg(const std::filesystem::path &fichier, const Image &image, int quality = 92);
/// Three bytes a pixel; opacity is dropped.
void écrire_ppm(const std::filesystem::path &fichier, const Image &image);

/// Reads a picture of any form that Qt knows. Throws std::runtime_error when it cannot be read.
Image lire_image(const std::filesystem::path &fichier);

}  // namespace atelier
