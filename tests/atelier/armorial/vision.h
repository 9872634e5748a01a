// How unlike two pictures look at a glance, to eyes with and without colour blindness.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "drawing/image.h"

namespace vision {

enum class Eyes { normal, protanopia, deuteranopia, tritanopia };
inline constexpr std::array all_eyes{Eyes::normal, Eyes::protanopia, Eyes::deuteranopia, Eyes::tritanopia};
std::string_view name(Eyes eyes);

/// A CIE L*a*b* colour under D65.
struct Lab {
  double l = 0;
  double a = 0;
  double b = 0;
};
Lab lab(atelier::Pixel colour, Eyes eyes);

/// What remains of a picture at a glance: the mean colours of its blocks of `block` x `block` pixels.
/// Transparent pixels count as light grey, like the panel behind the picture.
struct Impression {
  int width = 0;
  int height = 0;
  std::vector<Lab> cells;
};
Impression impression(const atelier::Image &image, int block, Eyes eyes);

/// Mean colour difference (CIE 1976) over the cells of two impressions of one size.
double distance(const Impression &one, const Impression &other);

}  // namespace vision
