// Gradient noise (K. Perlin, "Improving noise", 2002) and its sums over octaves.
#pragma once

#include <cstdint>

namespace atelier {

/// Smooth noise in about [-1, 1] with features of size 1; 0 at whole coordinates.
double noise(std::uint64_t seed, double x, double y);

/// Sum of `octaves` noises, each of half the wavelength and `gain` times the height of the one before, scaled
/// to about [-1, 1]. `wavelength` is that of the first, in the unit of x and y.
double fractal_noise(std::uint64_t seed, double x, double y, double wavelength, int octaves,
                     double gain = 0.5);

/// The same with each octave folded to sharp crests, in [0, 1], 1 on the crests.
double ridged_noise(std::uint64_t seed, double x, double y, double wavelength, int octaves,
                    double gain = 0.5);

}  // namespace atelier
