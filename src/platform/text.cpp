#include "platform/text.h"

#include <algorithm>
#include <array>

namespace ardane {
namespace {

bool est_ascii(std::string_view texte) {
  unsigned char ensemble = 0;
  for (const char c : texte) ensemble |= static_cast<unsigned char>(c);
  return ensemble < 0x80;
}

}  // namespace

std::optional<char32_t> prendre_caractère(std::string_view &reste) {
  const std::string_view texte = reste;
  const auto octet = [&](std::size_t i) { return static_cast<unsigned char>(texte[i]); };
  reste.remove_prefix(1);
  const unsigned char premier = octet(0);
  if (premier < 0x80) return premier;
  const std::size_t longueur = premier < 0xC2   ? 0
                               : premier < 0xE0 ? 2
                               : premier < 0xF0 ? 3
                               : premier < 0xF5 ? 4
                                                : 0;
  if (longueur == 0 || longueur > texte.size()) return std::nullopt;
  char32_t c = premier & (0x7F >> longueur);
  for (std::size_t i = 1; i < longueur; ++i) {
    if ((octet(i) & 0xC0) != 0x80) return std::nullopt;
    c = (c << 6) | (octet(i) & 0x3F);
  }
  constexpr std::array<char32_t, 5> plus_petit = {0, 0, 0x80, 0x800, 0x10000};
  if (c < plus_petit[longueur] || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return std::nullopt;
  reste.remove_prefix(longueur - 1);
  return c;
}

void ajouter_caractère(std::string &utf8, char32_t caractère) {
  const auto octet = [&](char32_t o) { utf8.push_back(static_cast<char>(static_cast<unsigned char>(o))); };
  const auto suite = [&](int décalage) { octet(0x80 | ((caractère >> décalage) & 0x3F)); };
  if (caractère < 0x80) {
    octet(caractère);
  } else if (caractère < 0x800) {
    octet(0xC0 | (caractère >> 6));
    suite(0);
  } else if (caractère < 0x10000) {
    octet(0xE0 | (caractère >> 12));
    suite(6);
    suite(0);
  } else {
    octet(0xF0 | (caractère >> 18));
    suite(12);
    suite(6);
    suite(0);
  }
}

bool est_utf8(std::string_view texte) {
  if (est_ascii(texte)) return true;
  while (!texte.empty())
    if (!prendre_caractère(texte)) return false;
  return true;
}

std::size_t nombre_de_caractères(std::string_view utf8) {
  std::size_t nombre = 0;
  for (; !utf8.empty(); ++nombre) prendre_caractère(utf8);
  return nombre;
}

std::string premiers_caractères(std::string_view utf8, std::size_t nombre) {
  std::string_view reste = utf8;
  for (; nombre > 0 && !reste.empty(); --nombre) prendre_caractère(reste);
  return std::string(utf8.substr(0, utf8.size() - reste.size()));
}

std::string en_majuscules(std::string_view utf8) {
  std::string majuscules(utf8);
  for (char &c : majuscules)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 0x20);
  // Nearly all of it is: no character needs to be taken apart then.
  if (est_ascii(utf8)) return majuscules;
  std::string_view reste = majuscules;
  std::string accentuées;
  accentuées.reserve(utf8.size());
  while (!reste.empty()) {
    const char premier_octet = reste.front();
    const auto lu = prendre_caractère(reste);
    if (!lu) {
      accentuées.push_back(premier_octet);
      continue;
    }
    char32_t c = *lu;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) c -= 0x20;
    if (c == 0x153 || c == 0x161 || c == 0x17E) c -= 1;
    if (c == 0xFF) c = 0x178;
    ajouter_caractère(accentuées, c);
  }
  return accentuées;
}

std::string_view sans_blancs(std::string_view texte) {
  const auto premier = texte.find_first_not_of(' ');
  if (premier == std::string_view::npos) return {};
  return texte.substr(premier, texte.find_last_not_of(' ') - premier + 1);
}

std::string_view couper(std::string_view &reste, char séparateur) {
  const auto place = std::min(reste.find(séparateur), reste.size());
  const std::string_view tête = reste.substr(0, place);
  reste.remove_prefix(std::min(place + 1, reste.size()));
  return tête;
}

}  // namespace ardane
