// Keeps two instances of the program from rewriting the settings at the same moment.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

namespace ardane {

/// Held from its making to its end by one instance at a time; the others wait in its constructor, but no
/// longer than `patience`: an instance may have been stopped that holds it. Where the system or the file
/// system has no such locks nothing is held, and the later writer wins.
class VerrouRegistre {
 public:
  /// `fichier` is made if absent and stays behind, empty; a link of that name is not followed. Its folder
  /// must exist.
  VerrouRegistre(const std::filesystem::path &fichier, std::chrono::milliseconds patience);
  ~VerrouRegistre();
  VerrouRegistre(const VerrouRegistre &) = delete;
  VerrouRegistre &operator=(const VerrouRegistre &) = delete;

  /// True if another instance kept it for longer than the patience.
  bool refusé() const { return refusé_; }

 private:
  struct Prise;
  std::unique_ptr<Prise> prise_;
  bool refusé_ = false;
};

}  // namespace ardane
