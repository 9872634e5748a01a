// What stands around the country on the map picture: frame, compass rose, scale bar and cartouche.
#pragma once

#include "raster.h"

namespace atelier {

/// Draws them on a map picture of `scale` pixels a map pixel.
void draw_ornaments(Image &image, int scale);

}  // namespace atelier
