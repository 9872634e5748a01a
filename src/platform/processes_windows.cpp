// Windows only: a process is alive for as long as nobody can wait for its end with success.

#include "platform/processes.h"
#include "platform/windows_headers.h"

namespace ardane {

long numéro_du_processus() {
  return static_cast<long>(GetCurrentProcessId());
}

bool peut_être_en_vie(long processus) {
  const HANDLE poignée = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(processus));
  if (poignée == nullptr) return GetLastError() != ERROR_INVALID_PARAMETER;
  const bool terminé = WaitForSingleObject(poignée, 0) == WAIT_OBJECT_0;
  CloseHandle(poignée);
  return !terminé;
}

}  // namespace ardane
