// The place, the size and the scale of the main window from one start to the next.
#pragma once

#include <QWidget>
#include <filesystem>
#include <optional>

namespace ardane {

/// A file of the desktop's own, which the program knows nothing of. One that is absent, damaged or cannot be
/// written costs the player his window's place and no more.
class WindowMemory {
 public:
  explicit WindowMemory(const std::filesystem::path &file) : file_(file) {}

  /// Gives the window the size and the place that it was left with, where the monitors still hold it. False
  /// if nothing is known of it.
  bool restore(QWidget &window) const;
  /// The scale that the player had set; none for the one that fits.
  std::optional<double> scale() const;

  void keep(const QWidget &window, std::optional<double> scale) const;

 private:
  std::filesystem::path file_;
};

/// Gives a window that was never seen the middle of its monitor, as large as its contents make good use of.
/// `needed` is what they take at scale 1.
void place_for_the_first_time(QWidget &window, QSize needed);

}  // namespace ardane
