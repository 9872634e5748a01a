// The filling of vector shapes into pictures.
//
// The rasteriser is our own because a drawing must come out the same to the bit on every machine, which a
// toolkit's painter does not promise. Coverage is sampled on 16 lines a pixel, and is exact along each line.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "drawing/image.h"
#include "drawing/path.h"

namespace atelier {

enum class Fill_rule { non_zero, even_odd };

/// How much of each pixel a shape covers, 0 to 1, for a picture of the given size.
struct Coverage {
  int width = 0;
  int height = 0;
  std::vector<float> values;
  float at(int x, int y) const {
    return values[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};
Coverage coverage(const Path &path, int width, int height, Fill_rule rule = Fill_rule::non_zero);

/// Fills the path with one colour, or with the colour that `paint` gives for the pixel at (x, y).
void fill(Image &image, const Path &path, Pixel colour, Fill_rule rule = Fill_rule::non_zero);
void fill(Image &image, const Path &path, const std::function<Pixel(int, int)> &paint,
          Fill_rule rule = Fill_rule::non_zero);
/// Fills the path where `stencil` lets it, in proportion: the shape is clipped.
void fill_within(Image &image, const Path &path, const Coverage &stencil,
                 const std::function<Pixel(int, int)> &paint, Fill_rule rule = Fill_rule::non_zero);

}  // namespace atelier
