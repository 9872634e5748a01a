// What the help's search reads: the sections of all pages in one file, made from them when they change.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace ardane {

/// A heading of a page and what stands below it up to the next. The first one is the page's title.
struct Section {
  std::string page;      ///< its file
  std::string anchor;    ///< empty for the first, which is the page's top
  std::string title;     ///< the page's
  std::string heading;   ///< its own
  std::string keywords;  ///< what a player may ask for in other words
  std::string text;
  friend bool operator==(const Section &, const Section &) = default;
};

/// Its name in the folder of the pages.
inline constexpr const char *index_file = "recherche.txt";

struct SearchIndex {
  std::vector<Section> sections;
  std::string trouble;  ///< why there are none, as the end of a French sentence; empty if all is well
};

/// One line that tells how many sections follow, then a line each, its fields parted by tabs. Texts have
/// neither tabs nor line ends.
std::string index_text(const std::vector<Section> &sections);

/// All of it or nothing: what is cut short or is no index is refused.
SearchIndex parse_index(std::string_view text);
SearchIndex read_index(const std::filesystem::path &file);

}  // namespace ardane
