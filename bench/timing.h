// Timing events of the desktop program up to their last damage on the display.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace ardane {

/// Median and 95th percentile.
inline void print_row(const char *what, std::vector<double> values, const char *unit) {
  if (values.empty()) return;
  std::ranges::sort(values);
  std::printf("| %-52s | %8.3f | %8.3f | %s (n=%zu)\n", what, values[values.size() / 2],
              values[values.size() * 95 / 100], unit, values.size());
  std::fflush(stdout);
}

/// Everything that an event has set off is painted and has reached the display.
inline void settle() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
  QGuiApplication::sync();
}

/// Milliseconds.
inline double timed(const std::function<void()> &event) {
  settle();
  QElapsedTimer timer;
  timer.start();
  event();
  settle();
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

}  // namespace ardane
