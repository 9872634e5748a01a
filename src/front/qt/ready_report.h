// What a start has cost, told once the window is ready for the player.
#pragma once

#include <sys/resource.h>

#include <QCoreApplication>
#include <QWidget>
#include <QWindow>
#include <cstdio>
#include <fstream>
#include <string>

namespace ardane {

/// Returns when the window is on the screen and painted.
inline void await_first_paint(const QWidget &window) {
  while (window.windowHandle() == nullptr || !window.windowHandle()->isExposed())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
}

/// CPU time of the process since its start, in milliseconds.
inline double cpu_milliseconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto ms = [](const timeval &t) {
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
  };
  return ms(usage.ru_utime) + ms(usage.ru_stime);
}

/// Memory of the process that stands in RAM, in KiB; 0 where /proc does not tell.
inline long resident_kib() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;)
    if (long kib = 0; word == "VmRSS:" && status >> kib) return kib;
  return 0;
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
