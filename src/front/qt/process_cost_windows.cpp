// Windows only: times in hundreds of nanoseconds, and the working set.

#include "front/qt/process_cost.h"
#include "platform/windows_headers.h"

namespace ardane {

double cpu_milliseconds() {
  FILETIME made{}, ended{}, kernel{}, user{};
  GetProcessTimes(GetCurrentProcess(), &made, &ended, &kernel, &user);
  const auto ms = [](const FILETIME &t) { return t.dwHighDateTime * 4294967296e-4 + t.dwLowDateTime * 1e-4; };
  return ms(kernel) + ms(user);
}

long resident_kib() {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters)) return 0;
  return static_cast<long>(counters.WorkingSetSize / 1024);
}

}  // namespace ardane
