// The program's own table of strings: every text and the whole gazetteer, asked for by number.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ardane {

class TableChaînes {
 public:
  TableChaînes() = default;
  /// Reads "number TAB text" lines in UTF-8; in a text "\n" stands for a line feed and "\\" for a
  /// backslash. Lines that do not have this form are passed over; of two with one number the last counts.
  explicit TableChaînes(std::string_view source);

  /// String number `numéro`; a number that the table does not have gives the empty string.
  const std::string &chaîne(int numéro) const;

 private:
  struct Entrée {
    int numéro;
    std::string texte;
  };
  std::vector<Entrée> entrées_;  ///< ascending by number
};

/// The n-th "#"-separated field of a row, from 1; the last runs to the end of the row, and a field that the
/// row does not have is empty.
std::string_view Champ_ligne(std::string_view ligne, int n);

/// The leading digits of a field as a number: blanks are skipped, the first other character ends it, no digit
/// gives 0. What is beyond 32767, the largest that a field's 16 bits hold, counts as that.
int nombre_en_tête(std::string_view champ);

}  // namespace ardane
