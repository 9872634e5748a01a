// Systems other than Windows: getrusage, and /proc where there is one.
#include <sys/resource.h>

#include <fstream>
#include <string>

#include "front/qt/process_cost.h"

namespace ardane {

double cpu_milliseconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto ms = [](const timeval &t) {
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
  };
  return ms(usage.ru_utime) + ms(usage.ru_stime);
}

long resident_kib() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;)
    if (long kib = 0; word == "VmRSS:" && status >> kib) return kib;
  return 0;
}

}  // namespace ardane
