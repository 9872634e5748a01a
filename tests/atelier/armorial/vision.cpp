#include "vision.h"

#include <algorithm>
#include <cmath>

namespace vision {
namespace {

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;

/// G. M. Machado, M. M. Oliveira, L. A. F. Fernandes, "A Physiologically-based Model for Simulation of Color
/// Vision Deficiency", IEEE Transactions on Visualization and Computer Graphics 15 (6), 2009: the matrices of
/// severity 1.0, for linear RGB.
constexpr std::array<Matrix, 4> simulations{{
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}},
}};

/// Linear sRGB to CIE XYZ, divided by the white of D65 (IEC 61966-2-1).
constexpr Matrix to_xyz{{{0.4124 / 0.9505, 0.3576 / 0.9505, 0.1805 / 0.9505},
                         {0.2126, 0.7152, 0.0722},
                         {0.0193 / 1.0890, 0.1192 / 1.0890, 0.9505 / 1.0890}}};

constexpr atelier::Pixel panel{212, 208, 200};

Vector product(const Matrix &matrix, const Vector &v) {
  Vector result{};
  for (std::size_t i = 0; i < 3; ++i)
    result[i] = matrix[i][0] * v[0] + matrix[i][1] * v[1] + matrix[i][2] * v[2];
  return result;
}

double linear(std::uint8_t value) {
  const double c = value / 255.0;
  return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double lightness_curve(double t) {
  return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116;
}

Lab lab_of_linear(const Vector &rgb, Eyes eyes) {
  Vector seen = product(simulations[static_cast<std::size_t>(eyes)], rgb);
  for (double &c : seen) c = std::clamp(c, 0.0, 1.0);
  const Vector xyz = product(to_xyz, seen);
  const double x = lightness_curve(xyz[0]);
  const double y = lightness_curve(xyz[1]);
  const double z = lightness_curve(xyz[2]);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

}  // namespace

std::string_view name(Eyes eyes) {
  constexpr std::array<std::string_view, 4> names{"normal vision", "protanopia", "deuteranopia",
                                                  "tritanopia"};
  return names[static_cast<std::size_t>(eyes)];
}

Lab lab(atelier::Pixel colour, Eyes eyes) {
  return lab_of_linear({linear(colour.r), linear(colour.g), linear(colour.b)}, eyes);
}

Impression impression(const atelier::Image &image, int block, Eyes eyes) {
  Impression result{image.width() / block, image.height() / block, {}};
  for (int cell_y = 0; cell_y < result.height; ++cell_y)
    for (int cell_x = 0; cell_x < result.width; ++cell_x) {
      Vector sum{};
      for (int y = 0; y < block; ++y)
        for (int x = 0; x < block; ++x) {
          const atelier::Pixel over = image.at(cell_x * block + x, cell_y * block + y);
          const atelier::Pixel p = over.a < 128 ? panel : over;
          sum[0] += linear(p.r);
          sum[1] += linear(p.g);
          sum[2] += linear(p.b);
        }
      for (double &c : sum) c /= block * block;
      result.cells.push_back(lab_of_linear(sum, eyes));
    }
  return result;
}

double distance(const Impression &one, const Impression &other) {
  double sum = 0;
  for (std::size_t i = 0; i < one.cells.size(); ++i) {
    const Lab &p = one.cells[i];
    const Lab &q = other.cells[i];
    sum += std::hypot(p.l - q.l, p.a - q.a, p.b - q.b);
  }
  return sum / static_cast<double>(one.cells.size());
}

}  // namespace vision
