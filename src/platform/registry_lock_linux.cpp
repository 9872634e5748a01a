// Linux only: an advisory lock of the whole file (flock), which the kernel takes back by itself when the
// program ends, however it ends.
#if defined(__linux__)

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "platform/registry_lock.h"

namespace ardane {

struct VerrouRegistre::Prise {
  explicit Prise(int ouvert) : descripteur(ouvert) {}
  ~Prise() { close(descripteur); }  // which gives the lock back
  Prise(const Prise &) = delete;
  Prise &operator=(const Prise &) = delete;

  int descripteur;
};

VerrouRegistre::VerrouRegistre(const std::filesystem::path &fichier) {
  const int descripteur = open(fichier.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descripteur < 0) return;
  prise_ = std::make_unique<Prise>(descripteur);
  while (flock(descripteur, LOCK_EX) != 0 && errno == EINTR) {
  }
}

VerrouRegistre::~VerrouRegistre() = default;

}  // namespace ardane

#endif
