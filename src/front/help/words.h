// Words of a French text, folded so that they compare as a reader would compare them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ardane {

/// A stretch of a UTF-8 text, in bytes.
struct Span {
  std::size_t begin = 0, end = 0;
  friend bool operator==(const Span &, const Span &) = default;
};

struct Word {
  std::string folded;  ///< small letters without accents, "œ" as "oe", and digits
  Span place;
};

/// The words of a text. Whatever is neither letter nor digit parts them, apostrophes and hyphens too.
std::vector<Word> words_of(std::string_view text);

/// True if it says nothing of what is sought: "comment", "ma", "la", or a letter left over from "l'".
bool is_stop_word(std::string_view folded);

}  // namespace ardane
