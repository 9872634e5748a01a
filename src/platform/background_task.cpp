#include "platform/background_task.h"

#include <system_error>
#include <utility>

namespace ardane {

Tâche_de_fond::~Tâche_de_fond() {
  {
    const std::lock_guard tenu(verrou_);
    fini_ = true;
  }
  signal_.notify_all();
  if (fil_.joinable()) fil_.join();
}

void Tâche_de_fond::confier(std::function<void()> tâche) {
  if (!fil_.joinable()) {
    try {
      fil_ = std::thread([this] { travailler(); });
    } catch (const std::system_error &) {
      return tâche();
    }
  }
  {
    const std::lock_guard tenu(verrou_);
    suivante_ = std::move(tâche);
  }
  signal_.notify_all();
}

void Tâche_de_fond::attendre() {
  std::unique_lock tenu(verrou_);
  signal_.wait(tenu, [this] { return !suivante_ && !au_travail_; });
}

void Tâche_de_fond::abandonner() {
  {
    const std::lock_guard tenu(verrou_);
    suivante_ = nullptr;
  }
  attendre();
}

void Tâche_de_fond::travailler() {
  std::unique_lock tenu(verrou_);
  for (;;) {
    signal_.wait(tenu, [this] { return suivante_ || fini_; });
    if (!suivante_) return;
    const std::function<void()> tâche = std::exchange(suivante_, nullptr);
    au_travail_ = true;
    tenu.unlock();
    tâche();
    tenu.lock();
    au_travail_ = false;
    signal_.notify_all();
  }
}

}  // namespace ardane
