// A rule that every input must keep: a broken one ends the run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace ardane {

[[noreturn]] inline void faute(const char *règle) {
  std::fprintf(stderr, "broken rule: %s\n", règle);
  std::abort();
}

inline void exiger(bool vrai, const char *règle) {
  if (!vrai) faute(règle);
}

/// The input as the bytes of a file.
inline std::string en_fichier(const std::uint8_t *octets, std::size_t taille) {
  return {reinterpret_cast<const char *>(octets), taille};
}

}  // namespace ardane
