#include "chart/points_file.h"

#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>

namespace atelier {
namespace {

constexpr int format_version = 4;
constexpr int most_runs = 5833;

void append(std::string &bytes, int x, int province) {
  const auto low = static_cast<std::uint16_t>(x);
  bytes += '\0';
  bytes += static_cast<char>(low & 0xFF);
  bytes += static_cast<char>(low >> 8);
  bytes += static_cast<char>(province);
}

}  // namespace

void écrire_points(const std::filesystem::path &fichier, const Provinces &provinces) {
  std::string bytes;
  append(bytes, 0, format_version);
  int runs = 0;
  for (int y = 0; y < provinces.height(); ++y) {
    append(bytes, 0, 0);
    if (provinces.at(0, y) != 0) throw std::runtime_error("column 0 of the map must be sea");
    for (int x = 1; x < provinces.width(); ++x) {
      if (provinces.at(x, y) == provinces.at(x - 1, y)) continue;
      append(bytes, x - 1, provinces.at(x, y));
      ++runs;
    }
  }
  append(bytes, 0, 0);
  if (runs > most_runs) throw std::runtime_error("too many runs: " + std::to_string(runs));
  std::ofstream out(fichier, std::ios::binary);
  out << bytes;
  out.close();
  if (!out) throw std::runtime_error(fichier.string() + ": cannot be written");
}

}  // namespace atelier
