// Keeps two instances of the program from rewriting the settings at the same moment.
#pragma once

#include <filesystem>
#include <memory>

namespace ardane {

/// Held from its making to its end by one instance at a time; the others wait in its constructor. Where the
/// system or the file system has no such locks nothing is held, and the later writer wins.
class VerrouRegistre {
 public:
  /// `fichier` is made if absent and stays behind, empty. Its folder must exist.
  explicit VerrouRegistre(const std::filesystem::path &fichier);
  ~VerrouRegistre();
  VerrouRegistre(const VerrouRegistre &) = delete;
  VerrouRegistre &operator=(const VerrouRegistre &) = delete;

 private:
  struct Prise;
  std::unique_ptr<Prise> prise_;
};

}  // namespace ardane
