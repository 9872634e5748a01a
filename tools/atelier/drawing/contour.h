// Lines of equal height over a field of values.
#pragma once

#include "drawing/path.h"
#include "numbers/grid.h"

namespace atelier {

/// The closed lines between the values above `level` and the others, in cells, where cell (i, j) has its
/// centre at (i + 0.5, j + 0.5). Beyond its edge the field counts as below the level. Marching squares (W. E.
/// Lorensen and H. E. Cline, "Marching cubes", 1987, in the plane).
Path contour(const Field &field, double level);

}  // namespace atelier
