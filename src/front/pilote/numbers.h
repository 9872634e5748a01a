// Numbers as scripts and command lines write them: the whole text or nothing.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>

namespace ardane {

template <class T>
std::optional<T> lire_nombre(std::string_view texte) {
  T nombre{};
  const char *const fin = texte.data() + texte.size();
  const auto lu = std::from_chars(texte.data(), fin, nombre);
  if (lu.ec != std::errc{} || lu.ptr != fin) return std::nullopt;
  return nombre;
}

}  // namespace ardane
