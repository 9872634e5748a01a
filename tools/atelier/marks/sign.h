// The program's own sign: a shield of the country's land, mountain to sea, with the ring that marks a place
// found.
#pragma once

#include <string>

#include "drawing/image.h"

namespace atelier {

/// A square picture. `fin` adds what only the larger sizes can carry.
Image enseigne(int côté, bool fin);
/// The larger sign as an SVG file, for sizes that nobody knows yet.
std::string enseigne_svg();

}  // namespace atelier
