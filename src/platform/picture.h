// A picture of the stock, as the data of a window names it. Pixels belong to the front end.
#pragma once

#include <cstdint>

namespace ardane {

/// A picture by its rank in the catalogue, with its size in pixels. Rank 0 is no picture.
struct Image {
  std::uint16_t rang = 0;
  std::int16_t largeur = 0;
  std::int16_t hauteur = 0;

  explicit operator bool() const { return rang != 0; }
  friend bool operator==(const Image &, const Image &) = default;
};

}  // namespace ardane
