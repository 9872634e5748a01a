// Text is UTF-8 in memory and Windows-1252 in the files of the game: the one pair of functions between them,
// and the counting and cutting of UTF-8 text by characters.
#pragma once

#include <cstddef>
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

/// UTF-8 to code points; a byte that is not UTF-8 becomes U+FFFD.
std::u32string points_de_code(std::string_view utf8);
std::size_t nombre_de_caractères(std::string_view utf8);
/// The first `nombre` characters.
std::string premiers_caractères(std::string_view utf8, std::size_t nombre);
/// Without the blanks at both ends.
std::string_view sans_blancs(std::string_view texte);
/// Upper case of the letters that Windows-1252 has, for comparing names without regard to case.
std::string en_majuscules(std::string_view utf8);

}  // namespace ardane
