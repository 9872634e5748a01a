// Arithmetic that gives the same bits on every machine.
//
// Only + - * / and the square root of IEEE doubles are exact everywhere; the C library picks its sine,
// exponential and power after the processor, and their last bits differ. What the drawings need of them
// stands here, built from exact operations only. All are good to about 1e-12, which is far below a pixel.
#pragma once

#include <cstdint>

namespace atelier {

inline constexpr double pi = 3.14159265358979323846;

double sine(double radians);
double cosine(double radians);
/// Angle of the vector (x, y) in ]-pi, pi]; 0 for the null vector.
double arc_tangent(double y, double x);
/// e to the power x; 0 below -700, and x is cut to 700 above.
double exponential(double x);
/// Natural logarithm of x > 0.
double logarithm(double x);
/// base to the power exponent, for base >= 0; 0 for base 0.
double power(double base, double exponent);

/// a at t = 0, b at t = 1.
constexpr double mix(double a, double b, double t) {
  return a + (b - a) * t;
}
constexpr double clamp01(double x) {
  return x < 0 ? 0 : x > 1 ? 1 : x;
}
/// 0 up to a, 1 from b on, smooth between (Hermite's cubic).
constexpr double smooth_step(double a, double b, double x) {
  const double t = clamp01((x - a) / (b - a));
  return t * t * (3 - 2 * t);
}

/// Pseudo-random numbers, SplitMix64 (Steele, Lea and Flood, "Fast splittable pseudorandom number
/// generators", 2014). The same seed gives the same sequence everywhere.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  std::uint64_t next();
  /// In [0, 1).
  double uniform();
  double uniform(double low, double high) { return low + (high - low) * uniform(); }
  /// In 0 .. count - 1.
  int below(int count);

 private:
  std::uint64_t state_;
};

/// A well mixed number out of the three given: noise at the points of a lattice.
std::uint64_t hash(std::uint64_t seed, std::int64_t x, std::int64_t y);

}  // namespace atelier
