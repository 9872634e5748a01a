// The pages of the help, read into sections for the search.
#pragma once

#include <filesystem>
#include <vector>

#include "front/help/search_index.h"

namespace ardane {

/// The page whose entries name other pages and are searched in their stead, as keywords of where they lead.
inline constexpr const char *page_of_entries = "mots.html";

/// All sections of all pages of a folder, page by page in the order of their names. A page has one h1, each
/// of its h2 an id. What else a player may ask for stands in its meta element of keywords, which go to its
/// first section. Throws std::runtime_error, with the page's name, where a page is not made so.
std::vector<Section> sections_of(const std::filesystem::path &folder);

}  // namespace ardane
