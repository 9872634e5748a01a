#include "numbers/noise.h"

#include <array>
#include <cmath>

#include "numbers/math.h"

namespace atelier {
namespace {

/// Sixteen directions around the circle, from exact square roots only.
struct Direction {
  double x;
  double y;
};
const std::array<Direction, 16> &directions() {
  static const std::array<Direction, 16> table = [] {
    std::array<Direction, 16> d{};
    for (std::size_t i = 0; i < d.size(); ++i) {
      const double angle = 2 * pi * static_cast<double>(i) / 16;
      d[i] = {cosine(angle), sine(angle)};
    }
    return d;
  }();
  return table;
}

double gradient(std::uint64_t seed, std::int64_t ix, std::int64_t iy, double dx, double dy) {
  const Direction &d = directions()[hash(seed, ix, iy) & 15];
  return d.x * dx + d.y * dy;
}

double fade(double t) {
  return t * t * t * (t * (t * 6 - 15) + 10);
}

}  // namespace

double noise(std::uint64_t seed, double x, double y) {
  const double fx = std::floor(x);
  const double fy = std::floor(y);
  const auto ix = static_cast<std::int64_t>(fx);
  const auto iy = static_cast<std::int64_t>(fy);
  const double dx = x - fx;
  const double dy = y - fy;
  const double u = fade(dx);
  const double top = mix(gradient(seed, ix, iy, dx, dy), gradient(seed, ix + 1, iy, dx - 1, dy), u);
  const double bottom =
      mix(gradient(seed, ix, iy + 1, dx, dy - 1), gradient(seed, ix + 1, iy + 1, dx - 1, dy - 1), u);
  return 1.5 * mix(top, bottom, fade(dy));
}

double fractal_noise(std::uint64_t seed, double x, double y, double wavelength, int octaves, double gain) {
  double sum = 0;
  double height = 1;
  double total = 0;
  for (int octave = 0; octave < octaves; ++octave) {
    sum += height * noise(seed + static_cast<std::uint64_t>(octave) * 1013, x / wavelength, y / wavelength);
    total += height;
    height *= gain;
    wavelength /= 2;
  }
  return sum / total;
}

double ridged_noise(std::uint64_t seed, double x, double y, double wavelength, int octaves, double gain) {
  double sum = 0;
  double height = 1;
  double total = 0;
  for (int octave = 0; octave < octaves; ++octave) {
    const double n = noise(seed + static_cast<std::uint64_t>(octave) * 1013, x / wavelength, y / wavelength);
    sum += height * (1 - std::abs(n));
    total += height;
    height *= gain;
    wavelength /= 2;
  }
  return sum / total;
}

}  // namespace atelier
