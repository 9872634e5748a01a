#include "files/gif_file.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <memory>
#include <stdexcept>
#include <vector>

namespace atelier {
namespace {

using Palette = std::vector<Pixel>;
using Indices = std::vector<GifByteType>;

constexpr std::size_t most_colours = 256;
constexpr int moving_rounds = 16;
constexpr int settling_rounds = 6;
constexpr int exact_rounds = 2;

bool opaque(const Pixel &p) {
  return p.a >= 128;
}

Pixel solid(const Pixel &p) {
  return {p.r, p.g, p.b, 255};
}

/// The picture's opaque colours with their counts, in the order of the colours.
std::map<Pixel, long> colours_of(const Image &image) {
  std::map<Pixel, long> counts;
  for (const Pixel &p : image.pixels())
    if (opaque(p)) ++counts[solid(p)];
  return counts;
}

int distance(const Pixel &a, int r, int g, int b) {
  const int dr = a.r - r;
  const int dg = a.g - g;
  const int db = a.b - b;
  return 3 * dr * dr + 4 * dg * dg + 2 * db * db;
}

std::size_t nearest(const Palette &palette, int r, int g, int b) {
  std::size_t best = 0;
  int best_distance = std::numeric_limits<int>::max();
  for (std::size_t i = 0; i < palette.size(); ++i)
    if (const int d = distance(palette[i], r, g, b); d < best_distance) {
      best = i;
      best_distance = d;
    }
  return best;
}

/// One colour of a picture with the count of its pixels.
struct Sample {
  Pixel colour;
  long count;
};

/// What falls to one colour of the palette: sums of red, green and blue, pixels, and the squared error.
struct Share {
  std::array<long, 3> sums{};
  long count = 0;
  long error = 0;
};

std::vector<Share> shares_of(const Palette &palette, const std::vector<Sample> &samples) {
  std::vector<Share> shares(palette.size());
  for (const Sample &sample : samples) {
    const Pixel &c = sample.colour;
    const std::size_t i = nearest(palette, c.r, c.g, c.b);
    Share &share = shares[i];
    share.sums[0] += c.r * sample.count;
    share.sums[1] += c.g * sample.count;
    share.sums[2] += c.b * sample.count;
    share.count += sample.count;
    share.error += distance(palette[i], c.r, c.g, c.b) * sample.count;
  }
  return shares;
}

/// Moves every colour of the palette to the mean of the pixels nearest to it (S. P. Lloyd, "Least squares
/// quantization in PCM", 1982). Whole numbers only, so the result does not depend on the machine.
std::vector<Share> move_to_means(Palette &palette, const std::vector<Sample> &samples) {
  std::vector<Share> shares = shares_of(palette, samples);
  for (std::size_t i = 0; i < palette.size(); ++i) {
    const Share &s = shares[i];
    if (s.count == 0) continue;
    const auto mean = [&s](std::size_t c) {
      return static_cast<std::uint8_t>((s.sums[c] + s.count / 2) / s.count);
    };
    palette[i] = {mean(0), mean(1), mean(2), 255};
  }
  return shares;
}

/// The colours that serve least move beside those whose pixels have the greatest error.
void move_where_wanted(Palette &palette, const std::vector<Share> &shares) {
  std::vector<std::size_t> by_error(palette.size());
  for (std::size_t i = 0; i < by_error.size(); ++i) by_error[i] = i;
  std::stable_sort(by_error.begin(), by_error.end(),
                   [&shares](std::size_t a, std::size_t b) { return shares[a].error < shares[b].error; });
  const std::size_t moved = palette.size() / 16;
  for (std::size_t k = 0; k < moved; ++k) {
    const Pixel &crowded = palette[by_error[by_error.size() - 1 - k]];
    const auto shifted = [](std::uint8_t v) { return static_cast<std::uint8_t>(v > 250 ? v - 3 : v + 3); };
    palette[by_error[k]] = {shifted(crowded.r), shifted(crowded.g), shifted(crowded.b), 255};
  }
}

/// The picture's colours; with `kept_bits` under 8 those are taken together that agree in their highest bits.
std::vector<Sample> samples_of(const std::map<Pixel, long> &counts, int kept_bits) {
  const int lost = 8 - kept_bits;
  const int middle = lost > 0 ? 1 << (lost - 1) : 0;
  std::map<Pixel, long> coarse;
  for (const auto &[c, count] : counts) {
    const auto cut = [&](std::uint8_t v) { return static_cast<std::uint8_t>((v >> lost << lost) | middle); };
    coarse[{cut(c.r), cut(c.g), cut(c.b), 255}] += count;
  }
  std::vector<Sample> samples;
  samples.reserve(coarse.size());
  for (const auto &[colour, count] : coarse) samples.push_back({colour, count});
  return samples;
}

/// Most rounds look at the colours coarsely, which is enough to spread the palette; the last look at each
/// exactly, so that large plain areas get their very colour and need no dithering.
void improve(Palette &palette, const std::map<Pixel, long> &counts) {
  const std::vector<Sample> coarse = samples_of(counts, 6);
  for (int round = 0; round < moving_rounds; ++round)
    move_where_wanted(palette, move_to_means(palette, coarse));
  for (int round = 0; round < settling_rounds; ++round) move_to_means(palette, coarse);
  const std::vector<Sample> exact = samples_of(counts, 8);
  for (int round = 0; round < exact_rounds; ++round) move_to_means(palette, exact);
}

Palette reduced_palette(const Image &image, const std::map<Pixel, long> &counts, std::size_t size) {
  Indices red, green, blue;
  for (const Pixel &p : image.pixels()) {
    if (!opaque(p)) continue;
    red.push_back(p.r);
    green.push_back(p.g);
    blue.push_back(p.b);
  }
  Indices output(red.size());
  std::array<GifColorType, most_colours> colours{};
  int count = static_cast<int>(size);
  if (GifQuantizeBuffer(static_cast<unsigned>(red.size()), 1, &count, red.data(), green.data(), blue.data(),
                        output.data(), colours.data()) != GIF_OK)
    throw std::runtime_error("the colours of a picture cannot be reduced");
  Palette palette;
  for (int i = 0; i < count; ++i) {
    const auto &c = colours[static_cast<std::size_t>(i)];
    palette.push_back({c.Red, c.Green, c.Blue, 255});
  }
  improve(palette, counts);
  return palette;
}

constexpr int most_owed = 12;

/// For each pixel the nearest colour, the error handed on to the neighbours in sixteenths (R. W. Floyd and
/// L. Steinberg, "An adaptive algorithm for spatial grey scale", 1976), every second row backwards.
Indices indices_of(const Image &image, const Palette &palette, GifByteType hole, Dithering dithering) {
  const int width = image.width();
  Indices result(image.pixels().size());
  std::map<Pixel, GifByteType> known;
  using Error = std::array<int, 3>;
  const auto slots = static_cast<std::size_t>(width) + 2;
  std::vector<Error> here(slots, Error{});
  std::vector<Error> below(slots, Error{});
  for (int y = 0; y < image.height(); ++y) {
    const int step = y % 2 == 0 ? 1 : -1;
    for (int n = 0; n < width; ++n) {
      const int x = step > 0 ? n : width - 1 - n;
      const auto slot = static_cast<std::size_t>(x) + 1;
      const Pixel &p = image.at(x, y);
      auto &index = result[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + slot - 1];
      if (!opaque(p)) {
        index = hole;
        continue;
      }
      Error wanted{p.r, p.g, p.b};
      if (dithering == Dithering::diffused)
        for (std::size_t c = 0; c < 3; ++c) {
          // What has gathered over many pixels would break out as one of a stray colour.
          const int owed = std::clamp(here[slot][c] / 16, -most_owed, most_owed);
          wanted[c] = std::clamp(wanted[c] + owed, 0, 255);
        }
      const Pixel key{static_cast<std::uint8_t>(wanted[0]), static_cast<std::uint8_t>(wanted[1]),
                      static_cast<std::uint8_t>(wanted[2]), 255};
      const auto [place, is_new] = known.try_emplace(key);
      if (is_new) place->second = static_cast<GifByteType>(nearest(palette, wanted[0], wanted[1], wanted[2]));
      index = place->second;
      if (dithering == Dithering::none) continue;
      const Pixel &got = palette[index];
      const Error error{wanted[0] - got.r, wanted[1] - got.g, wanted[2] - got.b};
      const std::size_t ahead = step > 0 ? slot + 1 : slot - 1;
      const std::size_t behind = step > 0 ? slot - 1 : slot + 1;
      for (std::size_t c = 0; c < 3; ++c) {
        here[ahead][c] += error[c] * 7;
        below[behind][c] += error[c] * 3;
        below[slot][c] += error[c] * 5;
        below[ahead][c] += error[c];
      }
    }
    std::swap(here, below);
    std::fill(below.begin(), below.end(), Error{});
  }
  return result;
}

struct Colour_map_release {
  void operator()(ColorMapObject *map) const { GifFreeMapObject(map); }
};
using Colour_map = std::unique_ptr<ColorMapObject, Colour_map_release>;

Colour_map colour_map(const Palette &palette, std::size_t used) {
  const int size = 1 << GifBitSize(static_cast<int>(std::max<std::size_t>(used, 2)));
  Colour_map map(GifMakeMapObject(size, nullptr));
  if (!map) throw std::bad_alloc();
  for (std::size_t i = 0; i < palette.size(); ++i)
    map->Colors[i] = {palette[i].r, palette[i].g, palette[i].b};
  return map;
}

[[noreturn]] void fail(const std::filesystem::path &fichier, const char *what) {
  throw std::runtime_error(fichier.string() + ": " + what);
}

/// A GIF file while it is written. Every step throws std::runtime_error when it fails.
class Writer {
 public:
  explicit Writer(const std::filesystem::path &fichier) : fichier_(fichier) {
    int error = 0;
    gif_.reset(EGifOpenFileName(fichier.string().c_str(), false, &error));
    if (!gif_) fail(fichier_, GifErrorString(error));
    EGifSetGifVersion(gif_.get(), true);
  }

  void put_screen(const Image &image, const ColorMapObject &map) {
    require(EGifPutScreenDesc(gif_.get(), image.width(), image.height(), 8, 0, &map));
  }

  void put_transparency(GifByteType index) {
    GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 0, index};
    std::array<GifByteType, 4> bytes{};
    EGifGCBToExtension(&control, bytes.data());
    require(
        EGifPutExtension(gif_.get(), GRAPHICS_EXT_FUNC_CODE, static_cast<int>(bytes.size()), bytes.data()));
  }

  void put_lines(const Image &image, Indices &indices) {
    require(EGifPutImageDesc(gif_.get(), 0, 0, image.width(), image.height(), false, nullptr));
    GifPixelType *line = indices.data();
    for (int y = 0; y < image.height(); ++y, line += image.width())
      require(EGifPutLine(gif_.get(), line, image.width()));
  }

  void finish() {
    int error = 0;
    if (EGifCloseFile(gif_.release(), &error) == GIF_ERROR) fail(fichier_, GifErrorString(error));
  }

 private:
  struct Close {
    void operator()(GifFileType *file) const {
      int ignored = 0;
      EGifCloseFile(file, &ignored);
    }
  };

  void require(int result) const {
    if (result == GIF_ERROR) fail(fichier_, GifErrorString(gif_->Error));
  }

  std::filesystem::path fichier_;
  std::unique_ptr<GifFileType, Close> gif_;
};

}  // namespace

void écrire_gif(const std::filesystem::path &fichier, const Image &image, Dithering dithering) {
  const auto counts = colours_of(image);
  const bool has_hole =
      std::any_of(image.pixels().begin(), image.pixels().end(), [](const Pixel &p) { return !opaque(p); });
  const std::size_t room = most_colours - (has_hole ? 1 : 0);
  const bool exact = counts.size() <= room;
  Palette palette;
  if (exact)
    for (const auto &[colour, count] : counts) palette.push_back(colour);
  else
    palette = reduced_palette(image, counts, room);
  const auto hole = static_cast<GifByteType>(palette.size());
  Indices indices = indices_of(image, palette, hole, exact ? Dithering::none : dithering);

  Writer writer(fichier);
  writer.put_screen(image, *colour_map(palette, palette.size() + (has_hole ? 1 : 0)));
  if (has_hole) writer.put_transparency(hole);
  writer.put_lines(image, indices);
  writer.finish();
}

Image lire_gif(const std::filesystem::path &fichier) {
  int error = 0;
  GifFileType *gif = DGifOpenFileName(fichier.string().c_str(), &error);
  if (gif == nullptr) fail(fichier, GifErrorString(error));
  const auto close = [&error](GifFileType *file) { DGifCloseFile(file, &error); };
  const std::unique_ptr<GifFileType, decltype(close)> guard(gif, close);
  if (DGifSlurp(gif) != GIF_OK || gif->ImageCount < 1) fail(fichier, "no picture");

  const SavedImage &saved = gif->SavedImages[0];
  const ColorMapObject *map = saved.ImageDesc.ColorMap != nullptr ? saved.ImageDesc.ColorMap : gif->SColorMap;
  GraphicsControlBlock control{0, false, 0, NO_TRANSPARENT_COLOR};
  DGifSavedExtensionToGCB(gif, 0, &control);
  Image image(saved.ImageDesc.Width, saved.ImageDesc.Height);
  std::size_t i = 0;
  for (Pixel &p : image.pixels()) {
    const int index = saved.RasterBits[i++];
    if (index == control.TransparentColor) continue;
    if (map == nullptr || index >= map->ColorCount) fail(fichier, "a colour is missing");
    const GifColorType &c = map->Colors[index];
    p = {c.Red, c.Green, c.Blue, 255};
  }
  return image;
}

}  // namespace atelier
