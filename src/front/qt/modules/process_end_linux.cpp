// Linux only: a handler of exit() that is told its code.

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "front/qt/modules/process_end.h"

namespace ardane {

void abréger_la_fin() {
  on_exit(
      [](int code, void *) {
        std::fflush(nullptr);
        _exit(code);
      },
      nullptr);
}

}  // namespace ardane
