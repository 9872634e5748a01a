// Work that nobody waits for.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace ardane {

/// Carries out tasks one after the other in a thread of its own, which begins with the first. A task that has
/// not begun when the next one comes gives way to it: only the latest matters. At its end what was given is
/// done.
class Tâche_de_fond {
 public:
  Tâche_de_fond() = default;
  ~Tâche_de_fond();
  Tâche_de_fond(const Tâche_de_fond &) = delete;
  Tâche_de_fond &operator=(const Tâche_de_fond &) = delete;

  /// `tâche` must not throw. Where no thread can be had it is done at once.
  void confier(std::function<void()> tâche);
  /// Returns when all that was given is done.
  void attendre();
  /// The same, but drops what has not begun.
  void abandonner();

 private:
  void travailler();

  std::mutex verrou_;
  std::condition_variable signal_;
  std::function<void()> suivante_;
  bool au_travail_ = false;
  bool fini_ = false;
  std::thread fil_;
};

}  // namespace ardane
