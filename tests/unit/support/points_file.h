// Writes hit-test files for tests, record by record.
#pragma once

#include <string>

namespace ardane {

class FichierPoints {
 public:
  /// A format record, unless the test wants another first record.
  static FichierPoints au_format() { return FichierPoints().enregistrement(0, 0, 4); }

  FichierPoints &enregistrement(int carte, int abscisse, int code) {
    for (const int octet : {carte, abscisse & 0xFF, (abscisse >> 8) & 0xFF, code})
      octets_.push_back(static_cast<char>(octet));
    return *this;
  }
  FichierPoints &ligne() { return enregistrement(0, 0, 0); }
  FichierPoints &lignes(int nombre) {
    for (int k = 0; k < nombre; ++k) ligne();
    return *this;
  }
  FichierPoints &segment(int abscisse, int code) { return enregistrement(0, abscisse, code); }
  FichierPoints &segments(int nombre) {
    for (int k = 1; k <= nombre; ++k) segment(k % 600 + 1, k % 110 + 1);
    return *this;
  }
  FichierPoints &octet(char valeur) {
    octets_.push_back(valeur);
    return *this;
  }
  const std::string &octets() const { return octets_; }

 private:
  std::string octets_;
};

}  // namespace ardane
