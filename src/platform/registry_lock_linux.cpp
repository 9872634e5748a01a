// Linux only: an advisory lock of the whole file (flock), which the kernel takes back by itself when the
// program ends, however it ends.

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

#include "platform/registry_lock.h"

namespace ardane {

constexpr std::chrono::milliseconds entre_deux_essais{1};  // the time that another one's writing takes

struct VerrouRegistre::Prise {
  explicit Prise(int ouvert) : descripteur(ouvert) {}
  ~Prise() { close(descripteur); }  // which gives the lock back
  Prise(const Prise &) = delete;
  Prise &operator=(const Prise &) = delete;

  int descripteur;
};

VerrouRegistre::VerrouRegistre(const std::filesystem::path &fichier, std::chrono::milliseconds patience) {
  using Chronomètre = std::chrono::steady_clock;
  const int descripteur =
      open(fichier.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR);
  if (descripteur < 0) return;
  prise_ = std::make_unique<Prise>(descripteur);
  const auto fin = Chronomètre::now() + patience;
  while (flock(descripteur, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EINTR) continue;
    refusé_ = errno == EWOULDBLOCK && Chronomètre::now() >= fin;
    if (refusé_ || errno != EWOULDBLOCK) return;
    std::this_thread::sleep_for(entre_deux_essais);
  }
}

VerrouRegistre::~VerrouRegistre() = default;

}  // namespace ardane
