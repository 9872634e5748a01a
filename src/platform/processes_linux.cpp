// Linux only: a signal that is none tells whether there is someone to take it.

#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "platform/processes.h"

namespace ardane {

long numéro_du_processus() {
  return getpid();
}

bool peut_être_en_vie(long processus) {
  return kill(static_cast<pid_t>(processus), 0) == 0 || errno != ESRCH;
}

}  // namespace ardane
