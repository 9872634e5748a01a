// Pictures as GIF files: at most 256 colours, one of them transparent.
#pragma once

#include <filesystem>

#include "drawing/image.h"

namespace atelier {

enum class Dithering {
  none,
  /// Error diffusion after Floyd and Steinberg, for shaded pictures.
  diffused,
};

/// Writes the picture, not interlaced. Pixels of an opacity under 128 become the transparent colour, the
/// others opaque. Up to 256 colours (255 beside transparency) are kept exactly; more are reduced by giflib's
/// median cut, whose palette is then improved by a few rounds of Lloyd's iteration. Throws std::runtime_error
/// when the file cannot be written.
void écrire_gif(const std::filesystem::path &fichier, const Image &image,
                Dithering dithering = Dithering::none);

/// Reads the first picture of a GIF file; transparent pixels become `transparent`.
/// Throws std::runtime_error when there is none.
Image lire_gif(const std::filesystem::path &fichier);

}  // namespace atelier
