// Pictures in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <tuple>
#include <vector>

namespace atelier {

/// A colour with its opacity, not premultiplied.
struct Pixel {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;
  std::uint8_t a = 255;
  bool operator==(const Pixel &) const = default;
  bool operator<(const Pixel &other) const {
    return std::tie(r, g, b, a) < std::tie(other.r, other.g, other.b, other.a);
  }
};

inline constexpr Pixel transparent{0, 0, 0, 0};

/// A picture of width x height pixels, row by row from the top.
class Image {
 public:
  Image() = default;
  Image(int width, int height, Pixel colour = transparent);
  int width() const { return width_; }
  int height() const { return height_; }
  bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }
  Pixel &at(int x, int y) { return pixels_[index(x, y)]; }
  const Pixel &at(int x, int y) const { return pixels_[index(x, y)]; }
  std::span<const Pixel> pixels() const { return pixels_; }
  std::span<Pixel> pixels() { return pixels_; }
  bool operator==(const Image &) const = default;

 private:
  std::size_t index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
  }
  int width_ = 0;
  int height_ = 0;
  std::vector<Pixel> pixels_;
};

/// `over` laid on `under`, its opacity multiplied by `strength`.
Pixel laid_over(Pixel under, Pixel over, double strength = 1);

/// `picture` laid on `image` with its top-left corner at (x, y); what stands out is cut.
void draw(Image &image, const Image &picture, int x, int y);

/// Every block of factor x factor pixels averaged into one, opacity weighing the colours.
Image reduced(const Image &image, int factor);

/// The picture at a smaller size, each pixel the mean of what it covers, opacity weighing the colours.
Image resized(const Image &image, int width, int height);

/// Opacity made 0 or 255, split at `threshold`; the colours of half transparent pixels stay.
Image with_hard_edges(const Image &image, int threshold = 128);

}  // namespace atelier
