#include "front/help/search.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/text.h"

namespace ardane {
namespace {

/// Nobody asks for so many words, but a book may have been pasted.
constexpr std::size_t most_words = 32;

constexpr double same = 1, begins_so = 0.7, other_form = 0.5;
/// What is left of a word without its ending still tells it from others.
constexpr std::size_t shortest_stem = 4;
constexpr std::array<std::string_view, 10> endings = {"ees", "ent", "ons", "ee", "er",
                                                      "es",  "ez",  "e",   "s",  "x"};

std::string stem_of(std::string_view word) {
  for (const std::string_view ending : endings)
    if (word.ends_with(ending) && word.size() - ending.size() >= shortest_stem)
      return std::string(word.substr(0, word.size() - ending.size()));
  return std::string(word);
}

// What a word is worth in each field of a section. The page's own title and its keywords say what all its
// sections are about, but the first section stands for them.
constexpr double in_heading = 8, in_first_heading = 12, in_keywords = 10, in_text = 2, in_title_above = 1;
/// A word said often is said by the way less often.
constexpr double said_again = 0.5;
constexpr std::size_t most_counted = 4;

/// What has some of the words is an answer if it is worth so much of the best one.
constexpr double share_of_the_best = 0.4;

/// The words of a section, taken apart once for all those sought.
struct SectionWords {
  std::vector<Word> heading, keywords, text, title;
  bool first = false;
};

double best_fit(const Query &query, std::size_t number, const std::vector<Word> &words) {
  double best = 0;
  for (const Word &word : words) best = std::max(best, query.fit(number, word.folded));
  return best;
}

double worth_in_text(const Query &query, std::size_t number, const std::vector<Word> &text) {
  const auto times = static_cast<std::size_t>(
      std::ranges::count_if(text, [&](const Word &word) { return query.fit(number, word.folded) > 0; }));
  if (times == 0) return 0;
  return best_fit(query, number, text) * in_text +
         said_again * static_cast<double>(std::min(times - 1, most_counted));
}

/// What a sought word is worth to a section by its own fields.
double worth(const Query &query, std::size_t number, const SectionWords &section) {
  const double heading = section.first ? in_first_heading : in_heading;
  return std::max({best_fit(query, number, section.heading) * heading,
                   best_fit(query, number, section.keywords) * in_keywords,
                   worth_in_text(query, number, section.text)});
}

/// The worth of each sought word to a section, by its page's title where it lacks one; none if it has none at
/// all.
std::vector<double> row_of(const Section &section, const Query &query) {
  const SectionWords words{words_of(section.heading), words_of(section.keywords), words_of(section.text),
                           words_of(section.title), section.anchor.empty()};
  std::vector<double> row(query.size());
  for (std::size_t i = 0; i < row.size(); ++i) row[i] = worth(query, i, words);
  if (std::ranges::max(row) == 0) return row;
  for (std::size_t i = 0; i < row.size(); ++i)
    if (row[i] == 0) row[i] = best_fit(query, i, words.title) * in_title_above;
  return row;
}

/// The worth of each sought word in each section; rare words weigh more than those found everywhere.
std::vector<std::vector<double>> worths(const std::vector<Section> &sections, const Query &query) {
  std::vector<std::vector<double>> table;
  std::vector<double> sections_with(query.size());
  for (const Section &section : sections) {
    table.push_back(row_of(section, query));
    for (std::size_t i = 0; i < query.size(); ++i) sections_with[i] += table.back()[i] > 0 ? 1 : 0;
  }
  for (std::vector<double> &row : table)
    for (std::size_t i = 0; i < row.size(); ++i)
      if (row[i] > 0) row[i] *= std::log(1 + static_cast<double>(sections.size()) / sections_with[i]);
  return table;
}

constexpr std::size_t excerpt_size = 180;
/// So much of it stands before the first word found.
constexpr std::size_t lead = 50;

/// The next place from there on that begins a word.
std::size_t start_of_word(const std::vector<Word> &words, std::size_t from) {
  for (const Word &word : words)
    if (word.place.begin >= from) return word.place.begin;
  return from;
}

std::size_t end_of_word(const std::vector<Word> &words, std::size_t upto, std::size_t otherwise) {
  std::size_t end = otherwise;
  for (const Word &word : words)
    if (word.place.end <= upto) end = word.place.end;
  return end;
}

}  // namespace

Query::Query(std::string_view typed) {
  for (const Word &word : words_of(typed)) {
    if (words_.size() == most_words) return;
    const auto same_word = [&](const Sought &known) { return known.word == word.folded; };
    if (!is_stop_word(word.folded) && std::ranges::none_of(words_, same_word))
      words_.push_back({word.folded, stem_of(word.folded)});
  }
}

double Query::fit(std::size_t number, std::string_view folded) const {
  const auto &[word, stem] = words_[number];
  if (folded == word) return same;
  if (!folded.starts_with(stem) || is_stop_word(folded)) return 0;
  return folded.starts_with(word) ? begins_so : other_form;
}

std::vector<Span> Query::found_in(std::string_view text) const {
  std::vector<Span> found;
  for (const Word &word : words_of(text))
    for (std::size_t i = 0; i < size(); ++i)
      if (fit(i, word.folded) > 0) {
        found.push_back(word.place);
        break;
      }
  return found;
}

std::vector<Hit> search(const std::vector<Section> &sections, const Query &query) {
  if (query.empty()) return {};
  std::vector<Hit> hits;
  const auto table = worths(sections, query);
  for (std::size_t s = 0; s < sections.size(); ++s) {
    Hit hit{&sections[s], 0, true};
    for (const double value : table[s]) {
      hit.score += value;
      hit.whole = hit.whole && value > 0;
    }
    if (hit.score > 0) hits.push_back(hit);
  }
  const auto best = std::ranges::max_element(hits, {}, &Hit::score);
  const double worth_showing = best == hits.end() ? 0 : best->score * share_of_the_best;
  std::erase_if(hits, [&](const Hit &hit) { return !hit.whole && hit.score < worth_showing; });
  std::ranges::stable_sort(hits, std::greater{},
                           [](const Hit &hit) { return std::pair(hit.whole, hit.score); });
  return hits;
}

Excerpt excerpt(std::string_view text, const Query &query) {
  const std::vector<Word> words = words_of(text);
  const std::vector<Span> found = query.found_in(text);
  // The window that begins with a word found and holds most.
  std::size_t best = 0, most = 0;
  for (const Span &first : found) {
    const auto held = static_cast<std::size_t>(std::ranges::count_if(found, [&](const Span &span) {
      return span.begin >= first.begin && span.end <= first.begin + excerpt_size - lead;
    }));
    if (held > most) {
      most = held;
      best = first.begin;
    }
  }
  const std::size_t begin = best <= lead ? 0 : start_of_word(words, best - lead);
  const bool to_the_end = text.size() - begin <= excerpt_size;
  const std::size_t end = to_the_end ? text.size() : end_of_word(words, begin + excerpt_size, text.size());
  Excerpt piece;
  if (begin > 0) piece.text = "… ";
  const std::size_t shift = piece.text.size();
  piece.text += text.substr(begin, end - begin);
  if (end < text.size()) piece.text += " …";
  for (const Span &span : found)
    if (span.begin >= begin && span.end <= end)
      piece.found.push_back({span.begin - begin + shift, span.end - begin + shift});
  return piece;
}

}  // namespace ardane
