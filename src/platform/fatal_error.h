// The error that ends the program: a failure for which no rule of the game has an answer.
#pragma once

#include <stdexcept>
#include <string>

namespace ardane {

/// Place in the source, captured at the call.
/// std::source_location is not offered by clang 14; the builtins behind it are.
struct Lieu {
  const char *fichier;
  int ligne;
  static constexpr Lieu ici(const char *fichier = __builtin_FILE(), int ligne = __builtin_LINE()) {
    return {fichier, ligne};
  }
};

/// Thrown where the program cannot go on. Nobody below the front end catches it: the front end tells the
/// player once and ends the program with code 1. `what()` is a French sentence that names the place.
class ErreurFatale : public std::runtime_error {
 public:
  ErreurFatale(const std::string &cause, Lieu lieu);
};

/// Throws ErreurFatale for `indice` outside `premier`..`dernier`.
[[noreturn]] void signaler_indice(long indice, long premier, long dernier, Lieu lieu);

}  // namespace ardane
