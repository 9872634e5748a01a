#include "switch.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdlib>

namespace ardane_faute {
namespace {

constexpr int most = 65536;
unsigned char nowhere[most];

/// Children of a test share the file with it. No function of the C library: a test takes those for itself.
unsigned char *shared(const char *path) {
  const long file = syscall(SYS_openat, AT_FDCWD, path, O_RDWR | O_CLOEXEC);
  if (file < 0) return nowhere;
  const long memory =
      syscall(SYS_mmap, 0L, static_cast<long>(most), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0L);
  syscall(SYS_close, file);
  return memory < 0 && memory > -4096 ? nowhere : reinterpret_cast<unsigned char *>(memory);
}

/// Before any static object, whose making may be at fault too.
__attribute__((constructor(101))) void choose() {
  if (const char *number = std::getenv("ARDANE_FAUTE")) chosen = std::atoi(number);
  if (const char *path = std::getenv("ARDANE_FAUTES_ATTEINTES")) reached = shared(path);
}

}  // namespace

constinit int chosen = -1;
constinit unsigned char *reached = nowhere;

}  // namespace ardane_faute
