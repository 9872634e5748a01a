// How a field is divided.
#pragma once

#include <vector>

#include "armorial/geometry.h"

namespace atelier {

/// A part of a divided field, and which of the field's tinctures or quarters it has.
struct Part_du_champ {
  Path forme;
  std::size_t numéro = 0;
};

/// The parts cover the frame, but for échiqueté and losangé, which give only the fields of the second
/// tincture. An undivided field has none.
std::vector<Part_du_champ> parts_du_champ(const Champ &champ, const Cadre &cadre, double unité);

}  // namespace atelier
