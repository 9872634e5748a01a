// Finding the sections of the help that answer a question put in the player's words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "front/help/search_index.h"
#include "front/help/words.h"

namespace ardane {

/// What a player has typed, less the words that say nothing.
class Query {
 public:
  explicit Query(std::string_view typed);

  bool empty() const { return words_.empty(); }
  std::size_t size() const { return words_.size(); }

  /// How well the sought word of that number fits a word of a text: 1 the same, less if it begins so or is
  /// another form of it, 0 not at all.
  double fit(std::size_t number, std::string_view folded) const;
  /// The words of a text that fit any of those sought.
  std::vector<Span> found_in(std::string_view text) const;

 private:
  struct Sought {
    std::string word;
    std::string stem;  ///< without the ending of a plural or a verb
  };
  std::vector<Sought> words_;
};

struct Hit {
  const Section *section = nullptr;
  double score = 0;
  bool whole = false;  ///< it has all the words, not some of them
};

/// Sections with all the words, the best first, then those with some that are worth showing. Equal ones stay
/// in the order of the index.
std::vector<Hit> search(const std::vector<Section> &sections, const Query &query);

/// A piece of a text with the words found.
struct Excerpt {
  std::string text;
  std::vector<Span> found;
};
/// The piece that shows most of them; its beginning where it has none.
Excerpt excerpt(std::string_view text, const Query &query);

}  // namespace ardane
