// How the contents of the main window lie in a window of any size.
#pragma once

#include <QRect>
#include <QSize>
#include <optional>

namespace ardane {

/// The smallest scale that is chosen by itself: letters can still be read.
constexpr double smallest_scale = 0.75;
/// The smallest screen that the program is told of, in its own pixels: the panel whole, some of the map.
constexpr QSize smallest_screen{600, 470};

/// Sizes of the data are "logical", those of the client area the toolkit's.
struct WindowFit {
  QSize needed;                  ///< what map and panel take to be seen whole, logical
  std::optional<double> chosen;  ///< the scale that the player has set; none for the one that fits

  /// The largest scale at which map and panel fit, or the one that was set, within what the area can take.
  double scale(QSize client) const;
  /// The screen that the program is told of, logical.
  QSize screen(QSize client) const;
  /// Where it lies in the client area: in its middle, where there is more room than it needs.
  QRect area(QSize client) const;
};

/// The scale one step of the wheel or of a key away, up for positive steps.
double next_scale(double scale, int steps);

}  // namespace ardane
