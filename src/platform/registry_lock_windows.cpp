// Windows only: a lock of the file's first byte, which the system takes back by itself when the program ends,
// however it ends.

#include <thread>

#include "platform/registry_lock.h"
#include "platform/windows_headers.h"

namespace ardane {

constexpr std::chrono::milliseconds entre_deux_essais{1};  // the time that another one's writing takes

struct VerrouRegistre::Prise {
  explicit Prise(HANDLE ouverte) : poignée(ouverte) {}
  ~Prise() { CloseHandle(poignée); }  // which gives the lock back
  Prise(const Prise &) = delete;
  Prise &operator=(const Prise &) = delete;

  HANDLE poignée;
};

VerrouRegistre::VerrouRegistre(const std::filesystem::path &fichier, std::chrono::milliseconds patience) {
  using Chronomètre = std::chrono::steady_clock;
  const HANDLE poignée =
      CreateFileW(fichier.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  if (poignée == INVALID_HANDLE_VALUE) return;
  prise_ = std::make_unique<Prise>(poignée);
  const auto fin = Chronomètre::now() + patience;
  OVERLAPPED début{};
  while (!LockFileEx(poignée, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &début)) {
    const bool tenu = GetLastError() == ERROR_LOCK_VIOLATION || GetLastError() == ERROR_IO_PENDING;
    refusé_ = tenu && Chronomètre::now() >= fin;
    if (refusé_ || !tenu) return;
    std::this_thread::sleep_for(entre_deux_essais);
  }
}

VerrouRegistre::~VerrouRegistre() = default;

}  // namespace ardane
