// Pictures of what stands on the screen, kept in a folder.
#pragma once

#include <QDir>
#include <set>
#include <string>

namespace ardane {

/// Numbered PNG files, one of each kind of screen. Says on standard output what it keeps.
class Album {
 public:
  explicit Album(const QDir &folder) : folder_(folder) {}

  /// Keeps a picture of everything on the screen, as the player sees it, unless it has one by that name.
  void add(const std::string &screen);
  /// False if a picture could not be written.
  bool complete() const { return complete_; }

 private:
  const QDir folder_;
  std::set<std::string> known_;
  bool complete_ = true;
};

}  // namespace ardane
