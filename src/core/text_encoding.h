// Text is UTF-8 in memory and Windows-1252 in the files of the game: the one pair of functions between them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ardane {

/// UTF-8 to Windows-1252; nothing if a character has no place there or the text is not UTF-8.
std::optional<std::string> vers_windows_1252(std::string_view utf8);
/// The same, with "?" for what has no place.
std::string vers_windows_1252_au_mieux(std::string_view utf8);
/// Windows-1252 to UTF-8. The five bytes that the code page leaves free become the control characters of the
/// same number, so that every file reads and writes back unchanged.
std::string depuis_windows_1252(std::string_view octets);

}  // namespace ardane
