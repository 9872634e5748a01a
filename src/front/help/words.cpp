#include "front/help/words.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace ardane {
namespace {

// U+00C0 to U+00FF, as a reader who cannot be bothered with accents writes them; "" parts words.
constexpr std::array<std::string_view, 64> latin_1 = {
    "a", "a", "a", "a", "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i", "i",
    "d", "n", "o", "o", "o", "o", "o",  "",  "o", "u", "u", "u", "u", "y", "t", "ss",
    "a", "a", "a", "a", "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i", "i",
    "d", "n", "o", "o", "o", "o", "o",  "",  "o", "u", "u", "u", "u", "y", "t", "y"};

// In alphabetical order, folded.
constexpr std::array<std::string_view, 113> stop_words = {
    "ai",      "aller",   "alors",    "apres",    "as",    "au",   "aussi", "autre", "aux",  "avec",
    "avez",    "avoir",   "avons",    "bien",     "ca",    "ce",   "cela",  "ces",   "cet",  "cette",
    "chez",    "comme",   "comment",  "dans",     "de",    "des",  "dois",  "donc",  "dont", "du",
    "elle",    "elles",   "en",       "encore",   "entre", "est",  "et",    "etait", "ete",  "etre",
    "faire",   "fais",    "fait",     "faut",     "ici",   "il",   "ils",   "je",    "la",   "le",
    "les",     "leur",    "lui",      "ma",       "mais",  "me",   "mes",   "moi",   "mon",  "ne",
    "nos",     "notre",   "nous",     "on",       "ont",   "ou",   "par",   "pas",   "peu",  "peut",
    "peux",    "plus",    "pour",     "pourquoi", "puis",  "qu",   "quand", "que",   "quel", "quelle",
    "quelles", "quelque", "quelques", "quels",    "qui",   "quoi", "sa",    "sans",  "se",   "ses",
    "si",      "sont",    "suis",     "sur",      "ta",    "te",   "tes",   "toi",   "ton",  "toujours",
    "tous",    "tout",    "toute",    "tres",     "trop",  "tu",   "un",    "une",   "va",   "veux",
    "voir",    "vos",     "vous"};
static_assert(std::ranges::is_sorted(stop_words));

void append_folded(std::string &folded, char32_t c) {
  if (c >= U'A' && c <= U'Z') c += U'a' - U'A';
  if ((c >= U'a' && c <= U'z') || (c >= U'0' && c <= U'9')) folded += static_cast<char>(c);
  if (c >= 0xC0 && c <= 0xFF) folded += latin_1[c - 0xC0];
  if (c == 0x152 || c == 0x153) folded += "oe";
  if (c == 0x178) folded += "y";
}

/// An accent that follows its letter as a character of its own, as some keyboards and clipboards have it.
bool is_combining(char32_t c) {
  return c >= 0x300 && c <= 0x36F;
}

}  // namespace

std::vector<Word> words_of(std::string_view text) {
  std::vector<Word> words;
  Word word;
  const auto finish = [&] {
    if (!word.folded.empty()) words.push_back(std::move(word));
    word = {};
  };
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t begin = text.size() - rest.size();
    const char32_t c = prendre_caractère(rest).value_or(U' ');
    const std::size_t before = word.folded.size();
    append_folded(word.folded, c);
    if (word.folded.size() == before && !(before > 0 && is_combining(c))) {
      finish();
      continue;
    }
    if (before == 0) word.place.begin = begin;
    word.place.end = text.size() - rest.size();
  }
  finish();
  return words;
}

bool is_stop_word(std::string_view folded) {
  const bool letter_left_over = folded.size() == 1 && (folded[0] < '0' || folded[0] > '9');
  return letter_left_over || std::ranges::binary_search(stop_words, folded);
}

}  // namespace ardane
