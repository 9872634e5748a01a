// What a start has cost, told once the window is ready for the player.
#pragma once

#include <QCoreApplication>
#include <QWidget>
#include <QWindow>
#include <cstdio>

#include "front/qt/process_cost.h"

namespace ardane {

/// Returns when the window is on the screen and painted.
inline void await_first_paint(const QWidget &window) {
  while (window.windowHandle() == nullptr || !window.windowHandle()->isExposed())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
}

/// Writes "fenêtre WIDTH HEIGHT" on standard output, in pixels.
inline void report_size(const QWidget &window) {
  std::printf("fenêtre %d %d\n", window.width(), window.height());
}

/// Writes "STATE cpu_ms=N mémoire_kio=N" on standard output.
inline void report(const char *state) {
  std::printf("%s cpu_ms=%.2f mémoire_kio=%ld\n", state, cpu_milliseconds(), resident_kib());
  std::fflush(stdout);
}

}  // namespace ardane
