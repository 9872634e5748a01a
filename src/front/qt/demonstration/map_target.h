// Where on the map's viewport a click reaches a province or a town.
#pragma once

#include <QPoint>
#include <optional>
#include <string>

#include "startup/program.h"

namespace ardane {

/// A province's area, or a town's own dot.
struct MapTarget {
  enum class Kind : std::uint8_t { province, town };
  Kind kind;
  int number;
};
inline MapTarget province(int number) {
  return {MapTarget::Kind::province, number};
}
inline MapTarget town(int number) {
  return {MapTarget::Kind::town, number};
}

/// The place nearest to its middle where a click reaches the target, in pixels of the viewport: in a
/// province, away from its borders and from every mark; on a dot, where no other picture covers it. Nothing
/// if there is none in sight.
std::optional<QPoint> free_place(Programme &programme, MapTarget target);
/// Its middle, which may lie outside the viewport.
QPoint middle(Programme &programme, MapTarget target);

/// "la province 12".
std::string to_text(MapTarget target);

}  // namespace ardane
