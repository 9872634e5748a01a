// Text in memory is UTF-8: its characters, counted, cut and compared.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ardane {

/// Takes the first character off `reste`, which is not empty. Nothing if its first byte begins no character;
/// that byte alone is then taken off.
std::optional<char32_t> prendre_caractère(std::string_view &reste);
void ajouter_caractère(std::string &utf8, char32_t caractère);

bool est_utf8(std::string_view texte);

// A byte that is not UTF-8 counts as a character of its own.

std::size_t nombre_de_caractères(std::string_view utf8);
/// The first `nombre` characters.
std::string premiers_caractères(std::string_view utf8, std::size_t nombre);
/// Upper case of the letters that Windows-1252 has, for comparing names without regard to case.
std::string en_majuscules(std::string_view utf8);

/// Without the blanks at both ends.
std::string_view sans_blancs(std::string_view texte);
/// Takes off `reste` what stands before its first `séparateur`, and that too; all of it where there is none.
std::string_view couper(std::string_view &reste, char séparateur);

}  // namespace ardane
