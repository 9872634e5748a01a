#include "core/text_encoding.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace ardane {
namespace {

// Windows-1252 differs from Latin-1 in 0x80..0x9F only (table of the WHATWG Encoding Standard).
constexpr std::array<char32_t, 32> haut_de_page = {
    0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021, 0x2C6,  0x2030, 0x160,
    0x2039, 0x152,  0x8D,   0x17D,  0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};

/// Takes a character off `reste`; nothing if it has no place, or is no UTF-8.
std::optional<unsigned char> prendre_octet(std::string_view &reste) {
  const auto lu = prendre_caractère(reste);
  if (!lu) return std::nullopt;
  const char32_t c = *lu;
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<unsigned char>(c);
  const auto trouvé = std::find(haut_de_page.begin(), haut_de_page.end(), c);
  if (trouvé == haut_de_page.end()) return std::nullopt;
  return static_cast<unsigned char>(0x80 + (trouvé - haut_de_page.begin()));
}

}  // namespace

std::optional<std::string> vers_windows_1252(std::string_view utf8) {
  std::string octets;
  while (!utf8.empty()) {
    const auto octet = prendre_octet(utf8);
    if (!octet) return std::nullopt;
    octets.push_back(static_cast<char>(*octet));
  }
  return octets;
}

std::string vers_windows_1252_au_mieux(std::string_view utf8) {
  std::string octets;
  while (!utf8.empty()) octets.push_back(static_cast<char>(prendre_octet(utf8).value_or('?')));
  return octets;
}

std::string depuis_windows_1252(std::string_view octets) {
  std::string utf8;
  utf8.reserve(octets.size());
  for (const char o : octets) {
    const auto octet = static_cast<unsigned char>(o);
    ajouter_caractère(utf8, octet >= 0x80 && octet < 0xA0 ? haut_de_page[octet - 0x80U] : octet);
  }
  return utf8;
}

}  // namespace ardane
