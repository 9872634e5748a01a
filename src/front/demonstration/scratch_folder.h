// A folder of its own for a run that must not touch the player's files.
#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <string>

#include "front/qt/desktop.h"

namespace ardane {

/// A temporary folder that looks like the program's: links to what ships with it, no scores, no saved games
/// and no settings. The current folder, which a run changes, is put back at the end.
class ScratchFolder {
 public:
  /// `programme` is the folder of the real program. Throws std::filesystem::filesystem_error.
  explicit ScratchFolder(const std::filesystem::path &programme);
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder &) = delete;
  ScratchFolder &operator=(const ScratchFolder &) = delete;

  std::filesystem::path path() const;
  DesktopPlaces places() const;

 private:
  QTemporaryDir folder_;
  std::filesystem::path before_;
};

}  // namespace ardane
