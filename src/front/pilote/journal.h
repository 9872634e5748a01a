// What the pilot writes: one JSON object a line.
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

namespace ardane {

using Json = nlohmann::ordered_json;

/// A measure without needless decimals: 606, 103.2.
Json nombre_json(double mesure);

class Journal {
 public:
  explicit Journal(std::ostream &sortie) : sortie_(sortie) {}

  /// Writes one line, UTF-8; bytes that are not UTF-8 become U+FFFD.
  void écrire(const Json &ligne);
  /// Hands on what has been written.
  void vider() { sortie_.flush(); }

 private:
  std::ostream &sortie_;
};

}  // namespace ardane
