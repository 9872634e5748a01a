/// What a planted fault asks whether it is the one chosen. Goes into a copy of src/ that mutation.py makes.
#pragma once

#include <type_traits>

namespace ardane_faute {

// Hidden, for the modules that are loaded: each has its own.
extern int chosen __attribute__((visibility("hidden")));
extern unsigned char *reached __attribute__((visibility("hidden")));

}  // namespace ardane_faute

/// True where fault `n` is to show. That it was asked is noted, so that one knows which tests come by.
constexpr bool faute(int n) {
  if (std::is_constant_evaluated()) return false;
  ardane_faute::reached[n] = 1;
  return ardane_faute::chosen == n;
}
