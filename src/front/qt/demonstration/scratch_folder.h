// A folder of its own for a run that must not touch the player's files.
#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <string>

#include "front/qt/desktop.h"

namespace ardane {

/// A temporary folder that looks like the program's: links to what ships with it, no scores, no saved games
/// and no settings.
class ScratchFolder {
 public:
  /// `programme` is the folder of the real program. Throws std::filesystem::filesystem_error.
  explicit ScratchFolder(const std::filesystem::path &programme);

  std::filesystem::path path() const;
  DesktopPlaces places() const;

 private:
  QTemporaryDir folder_;
};

}  // namespace ardane
