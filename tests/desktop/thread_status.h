// What the system tells of a thread of this process.
#pragma once

#include <sys/types.h>

#include <fstream>
#include <sstream>
#include <string>

namespace ardane {

/// Whether it has that line, or one that begins so: "State:\tS" of a thread that waits in a call.
inline bool status_says(pid_t thread, const std::string &line) {
  std::ostringstream status;
  status << std::ifstream("/proc/self/task/" + std::to_string(thread) + "/status").rdbuf();
  return status.str().find("\n" + line) != std::string::npos;
}
inline bool waits_in_a_call(pid_t thread) {
  return status_says(thread, "State:\tS");
}

}  // namespace ardane
