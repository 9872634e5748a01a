// What the tests take from POSIX, as far as Windows has it; included before each of them. What it has not
// fails, and essai leaves those tests out by name.
#pragma once

#include <direct.h>
#include <stdlib.h>
#include <sys/types.h>

#include <cstring>
#include <random>

#define S_IRGRP 0
#define S_IWGRP 0
#define S_IXGRP 0
#define S_IROTH 0
#define S_IWOTH 0
#define S_IXOTH 0

inline char *mkdtemp(char *template_) {
  char *unknown = template_ + std::strlen(template_) - 6;
  for (std::random_device random; true;) {
    for (int i = 0; i < 6; ++i) unknown[i] = static_cast<char>('a' + random() % 26);
    if (_mkdir(template_) == 0) return template_;
    if (errno != EEXIST) return nullptr;
  }
}

inline int mkfifo(const void *, int) {
  return -1;
}

inline int setenv(const char *name, const char *value, int) {
  return _putenv_s(name, value);
}

inline int unsetenv(const char *name) {
  return _putenv_s(name, "");
}

/// Nobody is a superuser here.
using uid_t = unsigned;

inline uid_t geteuid() {
  return 1;
}

inline int seteuid(uid_t) {
  return 0;
}
