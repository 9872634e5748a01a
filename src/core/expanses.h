// What the map picture shows at a place: sea, a lake, or land.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace ardane {

enum class Etendue : std::uint8_t {
  mer,
  lac,
  province,
  pays_voisin,
  îlot,  ///< land of the country that belongs to no province
};

/// The whole picture, pixel by pixel.
class Etendues {
 public:
  Etendues() = default;
  /// Reads a line for each row of pixels: runs of a letter (m, l, p, v, i, in the order above) and how many
  /// pixels have it. What has another form ends its row.
  explicit Etendues(std::string_view source);

  /// Beyond what was read there is sea.
  Etendue en(int x, int y) const;

 private:
  struct Plage {
    int fin;  ///< the first abscissa behind it
    Etendue étendue;
  };
  std::vector<std::vector<Plage>> lignes_;
};

}  // namespace ardane
