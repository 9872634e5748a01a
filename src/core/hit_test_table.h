// The run-length table of the map: which province each pixel belongs to.
//
// "ardane.pts" is a sequence of 4-byte records, little-endian: map number (8 bits), abscissa (signed 16
// bits), province code (8 bits). The first record must be {0, 0, 4}, the version of the format; a later {-,
// 0, 0} opens the next pixel row; every other record is a run of the current row. Map number 255 means the
// same map as before. One row mark more than there are rows closes the file.
#pragma once

#include "core/context.h"

namespace ardane {

/// Builds `Chemin_points` and fills `Points_lignes` and `Points_segments` from that file. False, after a box
/// that tells the player, when the file is absent or of another version; a file that overflows the tables or
/// names another map is a fatal error.
bool Charger_points(Contexte &c);

/// Code of the pixel (x, y) of a map: that of the last run of row y that begins strictly left of x; 0 outside
/// the map.
int code_du_pixel(const GameState &g, int carte, int x, int y);

}  // namespace ardane
