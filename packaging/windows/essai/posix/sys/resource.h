// In the place of POSIX's: no file's size can be limited.
#pragma once

#define RLIMIT_FSIZE 1
#define SIGXFSZ 25

using rlim_t = unsigned long long;
struct rlimit {
  rlim_t rlim_cur, rlim_max;
};

inline int getrlimit(int, rlimit *) {
  return -1;
}

inline int setrlimit(int, const rlimit *) {
  return -1;
}
