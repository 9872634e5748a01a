#include "platform/whole_file.h"

#include <array>
#include <fstream>

namespace ardane {

std::optional<std::string> octets_du_fichier(const std::filesystem::path &fichier, std::uintmax_t au_plus) {
  std::error_code erreur;
  if (!std::filesystem::is_regular_file(fichier, erreur)) return std::nullopt;
  std::ifstream flux(fichier, std::ios::binary);
  std::string octets;
  for (std::array<char, 16384> bloc{}; flux.read(bloc.data(), bloc.size()), flux.gcount() > 0;) {
    octets.append(bloc.data(), static_cast<std::size_t>(flux.gcount()));
    if (octets.size() > au_plus) return std::nullopt;
  }
  // The end alone: a read that failed has not come to it.
  return flux.eof() ? std::optional(std::move(octets)) : std::nullopt;
}

}  // namespace ardane
