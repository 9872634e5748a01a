#include "drawing/image.h"

#include <algorithm>

namespace atelier {
namespace {

std::uint8_t to_byte(double value) {
  return static_cast<std::uint8_t>(std::clamp(value + 0.5, 0.0, 255.0));
}

}  // namespace

Image::Image(int width, int height, Pixel colour)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour) {}

Pixel laid_over(Pixel under, Pixel over, double strength) {
  const double a = over.a / 255.0 * strength;
  if (a <= 0) return under;
  const double rest = under.a / 255.0 * (1 - a);
  const double sum = a + rest;
  const auto blend = [&](std::uint8_t o, std::uint8_t u) { return to_byte((o * a + u * rest) / sum); };
  return {blend(over.r, under.r), blend(over.g, under.g), blend(over.b, under.b), to_byte(sum * 255)};
}

void draw(Image &image, const Image &picture, int left, int top) {
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (image.contains(left + x, top + y))
        image.at(left + x, top + y) = laid_over(image.at(left + x, top + y), picture.at(x, y));
}

Image reduced(const Image &image, int factor) {
  Image result(image.width() / factor, image.height() / factor);
  for (int y = 0; y < result.height(); ++y)
    for (int x = 0; x < result.width(); ++x) {
      double r = 0, g = 0, b = 0, a = 0;
      for (int dy = 0; dy < factor; ++dy)
        for (int dx = 0; dx < factor; ++dx) {
          const Pixel p = image.at(x * factor + dx, y * factor + dy);
          r += p.r * p.a;
          g += p.g * p.a;
          b += p.b * p.a;
          a += p.a;
        }
      if (a > 0)
        result.at(x, y) = {to_byte(r / a), to_byte(g / a), to_byte(b / a), to_byte(a / (factor * factor))};
    }
  return result;
}

Image resized(const Image &image, int width, int height) {
  Image result(width, height);
  const double across = static_cast<double>(image.width()) / width;
  const double down = static_cast<double>(image.height()) / height;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      double r = 0, g = 0, b = 0, a = 0;
      const double right = (x + 1) * across;
      const double bottom = (y + 1) * down;
      for (int j = static_cast<int>(y * down); j < bottom; ++j)
        for (int i = static_cast<int>(x * across); i < right; ++i) {
          if (!image.contains(i, j)) continue;
          const double w = (std::min(i + 1.0, right) - std::max<double>(i, x * across)) *
                           (std::min(j + 1.0, bottom) - std::max<double>(j, y * down));
          const Pixel p = image.at(i, j);
          r += w * p.r * p.a;
          g += w * p.g * p.a;
          b += w * p.b * p.a;
          a += w * p.a;
        }
      if (a > 0)
        result.at(x, y) = {to_byte(r / a), to_byte(g / a), to_byte(b / a), to_byte(a / (across * down))};
    }
  return result;
}

Image with_hard_edges(const Image &image, int threshold) {
  Image result = image;
  for (Pixel &p : result.pixels()) p.a = p.a >= threshold ? 255 : 0;
  return result;
}

}  // namespace atelier
