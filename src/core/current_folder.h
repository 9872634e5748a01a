// The folder that a run resolves bare names against. It is the run's own and not the process's, so that two
// runs of one process do not move each other's files.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace ardane {

class Dossier_courant {
 public:
  /// `départ` is an absolute path, or empty: then only absolute names lead anywhere until a folder is chosen.
  explicit Dossier_courant(std::string départ) : chemin_(std::move(départ)) {}

  /// Makes a folder the current one; false, and the current one stays, if there is no such folder or it may
  /// not be entered.
  bool changer(std::string_view dossier);
  /// The current folder, absolute; empty if it is gone.
  std::string chemin() const;
  /// The name as the file functions take it: whatever opens a file by a name that may be bare asks here
  /// first. An empty name stays empty.
  std::string complet(std::string_view nom) const;

 private:
  std::string chemin_;
};

/// The process's own current folder, which a front end starts a run in; empty if it is gone.
std::string dossier_du_processus();
/// A path that a front end was started with, made absolute by that folder, without "." and "..".
std::string chemin_absolu(std::string_view chemin);

}  // namespace ardane
