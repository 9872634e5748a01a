#include "core/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace ardane {
namespace {

constexpr char32_t inconnu = 0xFFFD;

// Windows-1252 differs from Latin-1 in 0x80..0x9F only (table of the WHATWG Encoding Standard).
constexpr std::array<char32_t, 32> haut_de_page = {
    0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021, 0x2C6,  0x2030, 0x160,
    0x2039, 0x152,  0x8D,   0x17D,  0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};

void ajouter_utf8(std::string &texte, char32_t c) {
  const auto octet = [&](char32_t o) { texte.push_back(static_cast<char>(static_cast<unsigned char>(o))); };
  if (c < 0x80) {
    octet(c);
  } else if (c < 0x800) {
    octet(0xC0 | (c >> 6));
    octet(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    octet(0xE0 | (c >> 12));
    octet(0x80 | ((c >> 6) & 0x3F));
    octet(0x80 | (c & 0x3F));
  } else {
    octet(0xF0 | (c >> 18));
    octet(0x80 | ((c >> 12) & 0x3F));
    octet(0x80 | ((c >> 6) & 0x3F));
    octet(0x80 | (c & 0x3F));
  }
}

/// Reads one code point at `i` and moves behind it.
char32_t lire_point(std::string_view texte, std::size_t &i) {
  const auto octet = [&](std::size_t k) { return static_cast<unsigned char>(texte[k]); };
  const unsigned char premier = octet(i);
  const int suite = premier < 0x80   ? 0
                    : premier < 0xC2 ? -1
                    : premier < 0xE0 ? 1
                    : premier < 0xF0 ? 2
                    : premier < 0xF5 ? 3
                                     : -1;
  if (suite == 0) {
    ++i;
    return premier;
  }
  if (suite < 0 || i + static_cast<std::size_t>(suite) >= texte.size()) {
    ++i;
    return inconnu;
  }
  char32_t c = premier & (0x3F >> suite);
  for (int k = 1; k <= suite; ++k) {
    const unsigned char o = octet(i + static_cast<std::size_t>(k));
    if ((o & 0xC0) != 0x80) {
      ++i;
      return inconnu;
    }
    c = (c << 6) | (o & 0x3F);
  }
  constexpr std::array<char32_t, 4> plus_petit = {0, 0x80, 0x800, 0x10000};
  const bool permis =
      c >= plus_petit[static_cast<std::size_t>(suite)] && c <= 0x10FFFF && !(c >= 0xD800 && c <= 0xDFFF);
  i += permis ? static_cast<std::size_t>(suite) + 1 : 1;
  return permis ? c : inconnu;
}

std::optional<unsigned char> octet_de(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<unsigned char>(c);
  const auto trouvé = std::find(haut_de_page.begin(), haut_de_page.end(), c);
  if (trouvé == haut_de_page.end()) return std::nullopt;
  return static_cast<unsigned char>(0x80 + (trouvé - haut_de_page.begin()));
}

}  // namespace

std::optional<std::string> vers_windows_1252(std::string_view utf8) {
  std::string octets;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto octet = octet_de(lire_point(utf8, i));
    if (!octet) return std::nullopt;
    octets.push_back(static_cast<char>(*octet));
  }
  return octets;
}

std::string vers_windows_1252_au_mieux(std::string_view utf8) {
  std::string octets;
  for (std::size_t i = 0; i < utf8.size();)
    octets.push_back(static_cast<char>(octet_de(lire_point(utf8, i)).value_or('?')));
  return octets;
}

std::string depuis_windows_1252(std::string_view octets) {
  std::string utf8;
  utf8.reserve(octets.size());
  for (const char o : octets) {
    const auto octet = static_cast<unsigned char>(o);
    ajouter_utf8(utf8, octet >= 0x80 && octet < 0xA0 ? haut_de_page[octet - 0x80U] : octet);
  }
  return utf8;
}

std::u32string points_de_code(std::string_view utf8) {
  std::u32string points;
  for (std::size_t i = 0; i < utf8.size();) points.push_back(lire_point(utf8, i));
  return points;
}

std::size_t nombre_de_caractères(std::string_view utf8) {
  std::size_t nombre = 0;
  for (std::size_t i = 0; i < utf8.size(); ++nombre) lire_point(utf8, i);
  return nombre;
}

std::string premiers_caractères(std::string_view utf8, std::size_t nombre) {
  std::size_t i = 0;
  for (; nombre > 0 && i < utf8.size(); --nombre) lire_point(utf8, i);
  return std::string(utf8.substr(0, i));
}

std::string_view sans_blancs(std::string_view texte) {
  const auto premier = texte.find_first_not_of(' ');
  if (premier == std::string_view::npos) return {};
  return texte.substr(premier, texte.find_last_not_of(' ') - premier + 1);
}

std::string en_majuscules(std::string_view utf8) {
  std::string majuscules;
  for (std::size_t i = 0; i < utf8.size();) {
    char32_t c = lire_point(utf8, i);
    if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) c -= 0x20;
    if (c == 0x153 || c == 0x161 || c == 0x17E) c -= 1;
    if (c == 0xFF) c = 0x178;
    ajouter_utf8(majuscules, c);
  }
  return majuscules;
}

}  // namespace ardane
