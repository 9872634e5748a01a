// Text as Windows takes it, for the files named for that system.
#pragma once

#include <string>
#include <string_view>

namespace ardane {

/// What is not UTF-8 becomes the replacement character.
std::wstring texte_large(std::string_view utf8);
/// Half a pair becomes the replacement character.
std::string texte_utf8(std::wstring_view large);

}  // namespace ardane
