#include "numbers/math.h"

#include <cmath>

namespace atelier {
namespace {

constexpr double ln2 = 0.69314718055994530942;

/// Sine on [-pi/4, pi/4] by its Taylor series.
double sine_near_zero(double x) {
  const double s = x * x;
  return x *
         (1 -
          s / 6 * (1 - s / 20 * (1 - s / 42 * (1 - s / 72 * (1 - s / 110 * (1 - s / 156 * (1 - s / 210)))))));
}

double cosine_near_zero(double x) {
  const double s = x * x;
  return 1 -
         s / 2 * (1 - s / 12 * (1 - s / 30 * (1 - s / 56 * (1 - s / 90 * (1 - s / 132 * (1 - s / 182))))));
}

/// Arc tangent on [0, 1]: halved twice, then the series.
double arc_tangent_unit(double t) {
  for (int halving = 0; halving < 2; ++halving) t = t / (1 + std::sqrt(1 + t * t));
  const double s = t * t;
  double sum = 0;
  for (int n = 25; n >= 1; n -= 2) sum = 1.0 / n - s * sum;
  return 4 * t * sum;
}

}  // namespace

double sine(double radians) {
  const double quarters = std::floor(radians / (pi / 2) + 0.5);
  const double x = radians - quarters * (pi / 2);
  switch (static_cast<std::int64_t>(quarters) & 3) {
    case 0: return sine_near_zero(x);
    case 1: return cosine_near_zero(x);
    case 2: return -sine_near_zero(x);
    default: return -cosine_near_zero(x);
  }
}

double cosine(double radians) {
  return sine(radians + pi / 2);
}

double arc_tangent(double y, double x) {
  if (x == 0 && y == 0) return 0;
  const double ax = std::abs(x);
  const double ay = std::abs(y);
  double angle = ay <= ax ? arc_tangent_unit(ay / ax) : pi / 2 - arc_tangent_unit(ax / ay);
  if (x < 0) angle = pi - angle;
  return y < 0 ? -angle : angle;
}

double exponential(double x) {
  if (x < -700) return 0;
  if (x > 700) x = 700;
  const double doublings = std::floor(x / ln2 + 0.5);
  const double rest = x - doublings * ln2;
  double sum = 1;
  for (int n = 14; n >= 1; --n) sum = 1 + sum * rest / n;
  return std::ldexp(sum, static_cast<int>(doublings));
}

double logarithm(double x) {
  int doublings = 0;
  double m = std::frexp(x, &doublings);
  if (m < 0.70710678118654752440) {
    m *= 2;
    --doublings;
  }
  const double t = (m - 1) / (m + 1);
  const double s = t * t;
  double sum = 0;
  for (int n = 21; n >= 1; n -= 2) sum = 1.0 / n + s * sum;
  return 2 * t * sum + doublings * ln2;
}

double power(double base, double exponent) {
  return base <= 0 ? 0 : exponential(exponent * logarithm(base));
}

std::uint64_t Random::next() {
  state_ += 0x9E3779B97F4A7C15ULL;
  std::uint64_t z = state_;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
  return z ^ (z >> 31);
}

double Random::uniform() {
  return static_cast<double>(next() >> 11) * (1.0 / 9007199254740992.0);
}

int Random::below(int count) {
  return static_cast<int>((next() >> 32) * static_cast<std::uint64_t>(count) >> 32);
}

std::uint64_t hash(std::uint64_t seed, std::int64_t x, std::int64_t y) {
  Random mixer(seed ^ (static_cast<std::uint64_t>(x) * 0xD6E8FEB86659FD93ULL));
  Random second(mixer.next() ^ (static_cast<std::uint64_t>(y) * 0xA0761D6478BD642FULL));
  return second.next();
}

}  // namespace atelier
