#include "chart/relief.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "drawing/raster.h"
#include "numbers/math.h"
#include "numbers/noise.h"

namespace atelier {
namespace {

struct Colour {
  double r = 0;
  double g = 0;
  double b = 0;
};

Colour blend(Colour a, Colour b, double t) {
  return {mix(a.r, b.r, t), mix(a.g, b.g, t), mix(a.b, b.b, t)};
}
Colour times(Colour a, Colour b) {
  return {a.r * b.r / 255, a.g * b.g / 255, a.b * b.b / 255};
}

std::uint8_t to_byte(double v) {
  return static_cast<std::uint8_t>(std::clamp(v + 0.5, 0.0, 255.0));
}
Pixel to_pixel(Colour c) {
  return {to_byte(c.r), to_byte(c.g), to_byte(c.b), 255};
}

struct Tint {
  /// Metres above the sea, or map pixels from the coast.
  double at = 0;
  Colour colour;
};

/// Heights' tints from the plain to the snow, blended into each other.
constexpr std::array<Tint, 10> height_tints = {{{0, {172, 203, 152}},
                                                {50, {184, 210, 156}},
                                                {140, {204, 218, 162}},
                                                {280, {224, 222, 166}},
                                                {500, {232, 214, 164}},
                                                {800, {224, 197, 148}},
                                                {1200, {206, 176, 136}},
                                                {1650, {194, 172, 148}},
                                                {2150, {216, 210, 205}},
                                                {2600, {250, 251, 253}}}};

/// The sea's steps: from each distance to the next the sea has one tint.
constexpr std::array<Tint, 6> sea_steps = {{{0, {205, 228, 234}},
                                            {7, {189, 218, 229}},
                                            {18, {173, 207, 223}},
                                            {38, {158, 195, 216}},
                                            {70, {144, 183, 209}},
                                            {118, {132, 172, 202}}}};

/// Height of crags, in the unit of the modelled heights.
constexpr double rock_roughness = 1.9;

constexpr Colour shadow{118, 124, 168};
constexpr Colour light{255, 249, 226};
constexpr Colour haze{222, 230, 226};
constexpr Colour wood_tint{108, 150, 98};
constexpr Colour sand{240, 229, 188};
constexpr Colour marsh{176, 208, 178};
constexpr Colour dry{240, 224, 168};
constexpr Colour neighbour{222, 219, 212};
constexpr Colour coast_line{58, 98, 132};
constexpr Colour river_blue{72, 128, 176};
constexpr Colour lake_blue{150, 196, 224};

Colour tint_at(std::span<const Tint> tints, double at) {
  for (std::size_t i = 1; i < tints.size(); ++i)
    if (at < tints[i].at)
      return blend(tints[i - 1].colour, tints[i].colour,
                   clamp01((at - tints[i - 1].at) / (tints[i].at - tints[i - 1].at)));
  return tints.back().colour;
}

Colour sea_at(double distance) {
  Colour colour = sea_steps.front().colour;
  for (std::size_t i = 1; i < sea_steps.size(); ++i) {
    const double t = smooth_step(-1.1, 1.1, distance - sea_steps[i].at);
    colour = blend(colour, sea_steps[i].colour, t);
  }
  return colour;
}

/// Brightness of a slope in the light from the north-west, with weaker light from west and north beside it,
/// which keeps valleys that run with the light from vanishing. Flat land has 0, the lit side is above, the
/// other below.
double shade(double dx, double dy) {
  const double length = std::sqrt(dx * dx + dy * dy + 1);
  constexpr double flat = 0.70710678118654752440;
  const auto lit = [&](double lx, double ly) { return (-dx * lx - dy * ly + flat) / length - flat; };
  constexpr double d = 0.5;
  constexpr double s = 0.70710678118654752440;
  return 0.7 * lit(-d, -d) + 0.15 * lit(-s, 0) + 0.15 * lit(0, -s);
}

/// Heights as the relief is modelled: slopes of the plains exaggerated, those of the mountains restrained, so
/// that both show their forms in the same light; bare rock is given its roughness, which is finer than the
/// terrain's grid.
Field modelled(const Field &height, std::uint64_t seed) {
  Field result = height;
  for (int y = 0; y < result.height(); ++y)
    for (int x = 0; x < result.width(); ++x) {
      const double h = height.at(x, y);
      double &z = result.at(x, y);
      z = 0.66 * power(h + 45, 0.45);
      if (h < 500) continue;
      const double px = (x + 0.5) / fine;
      const double py = (y + 0.5) / fine;
      z += rock_roughness * smooth_step(500, 1600, h) * ridged_noise(seed + 86, px, py, 5.5, 3, 0.6);
    }
  return result;
}

/// The shading of one field of heights; `steepness` exaggerates its slopes.
Field shading(const Field &height, double steepness) {
  Field result(height.width(), height.height());
  const double k = steepness * fine / 8.0;
  for (int y = 0; y < height.height(); ++y)
    for (int x = 0; x < height.width(); ++x) {
      const auto z = [&](int i, int j) { return static_cast<double>(height.near(x + i, y + j)); };
      const double dx = z(1, -1) + 2 * z(1, 0) + z(1, 1) - z(-1, -1) - 2 * z(-1, 0) - z(-1, 1);
      const double dy = z(-1, 1) + 2 * z(0, 1) + z(1, 1) - z(-1, -1) - 2 * z(0, -1) - z(1, -1);
      result.at(x, y) = shade(dx * k, dy * k);
    }
  return result;
}

/// What the painter needs at every cell, worked out once.
class Painter {
 public:
  explicit Painter(const Scene &scene) : scene_(scene) {
    Field height = scene.terrain.height;
    for (std::size_t i = 0; i < height.size(); ++i) height[i] = std::max<double>(height[i], 0);
    // Small forms for the eye, great forms for the understanding: generalised relief lies under the detail.
    const Field relief = modelled(height, scene.plan.seed);
    const Field detail = shading(relief, 1);
    const Field forms = shading(blurred(relief, 2.5), 1.3);
    const Field masses = shading(blurred(relief, 10), 2);
    shade_ = Field(height.width(), height.height());
    for (std::size_t i = 0; i < shade_.size(); ++i) {
      const double high = smooth_step(200, 1400, height[i]);
      shade_[i] = mix(0.5, 0.72, high) * detail[i] + 0.3 * forms[i] + mix(0.32, 0.2, high) * masses[i];
    }
    Mask land(height.width(), height.height(), 0);
    for (std::size_t i = 0; i < land.size(); ++i) land[i] = scene.shores.land[i] > 0;
    // Creases far out, where two coasts are equally near, are smoothed away.
    offshore_ = distance_to(land);
    const Field wide = blurred(offshore_, 14);
    for (std::size_t i = 0; i < offshore_.size(); ++i)
      offshore_[i] = mix(offshore_[i], wide[i], smooth_step(10, 60, offshore_[i]));
    height_ = height;
    water_ = coverage(river_shape(scene.rivers, 0.55).transformed(Affine::scaling(fine, fine)),
                      height.width(), height.height());
  }

  Image paint() const {
    Image image(shade_.width(), shade_.height());
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) image.at(x, y) = to_pixel(colour_at(x, y));
    return image;
  }

 private:
  /// A signed field as a distance in map pixels: divided by its own slope.
  double edge_distance(const Field &field, int x, int y) const {
    const double dx = (field.near(x + 1, y) - field.near(x - 1, y)) * fine / 2.0;
    const double dy = (field.near(x, y + 1) - field.near(x, y - 1)) * fine / 2.0;
    return field.at(x, y) / std::max(0.25, std::sqrt(dx * dx + dy * dy));
  }

  Colour colour_at(int x, int y) const {
    const double coast = edge_distance(scene_.shores.land, x, y);
    const double on_land = clamp01(0.5 + coast * fine);
    Colour colour = sea_colour(x, y);
    if (on_land > 0) colour = blend(colour, land_colour(x, y), on_land);
    const double line = 1 - smooth_step(0.22, 0.62, std::abs(coast));
    return blend(colour, coast_line, 0.85 * line * (is_ours(x, y) ? 1 : 0.55));
  }

  bool is_ours(int x, int y) const { return scene_.shores.ours.at(x, y) > 0; }

  Colour sea_colour(int x, int y) const {
    const double px = (x + 0.5) / fine;
    const double py = (y + 0.5) / fine;
    const double distance = offshore_.at(x, y) / fine;
    const double wavy = distance * (1 + 0.28 * fractal_noise(scene_.plan.seed + 81, px, py, 70, 3));
    Colour colour = sea_at(wavy);
    const double vignette = exponential(-distance / 3.2);
    return blend(colour, {232, 243, 243}, 0.55 * vignette);
  }

  Colour land_colour(int x, int y) const {
    const double height = height_.at(x, y);
    const double px = (x + 0.5) / fine;
    const double py = (y + 0.5) / fine;
    Colour colour = tint_at(height_tints, height + 40 * fractal_noise(scene_.plan.seed + 82, px, py, 9, 2) *
                                                       smooth_step(20, 300, height));
    const double ours = clamp01(0.5 + edge_distance(scene_.shores.ours, x, y) * fine / 2);
    colour = cover(colour, x, y, px, py, height);
    // From far above, air lies over the plains: they are paler and less modelled than the heights.
    const double high = smooth_step(100, 1800, height);
    colour = blend(haze, colour, mix(0.93, 1, high));
    colour = lit(colour, shade_.at(x, y) * mix(1.05, 1.5, high));
    const Colour grey = lit(blend(neighbour, colour, 0.1), 0.5 * shade_.at(x, y));
    colour = blend(grey, colour, ours);
    const double lake = clamp01(0.5 + edge_distance(scene_.shores.lake, x, y) * fine);
    colour = blend(colour, mix_water(ours), 0.9 * static_cast<double>(water_.at(x, y)) * (1 - lake));
    colour = blend(colour, lake_blue, lake);
    const double lake_edge = 1 - smooth_step(0.2, 0.6, std::abs(edge_distance(scene_.shores.lake, x, y)));
    colour = blend(colour, coast_line, 0.75 * lake_edge * (scene_.shores.lake.at(x, y) > -2 ? 1 : 0));
    const double border = std::abs(edge_distance(scene_.shores.ours, x, y));
    return blend(colour, {150, 120, 130}, 0.5 * (1 - smooth_step(0.3, 2.4, border)));
  }

  static Colour mix_water(double ours) { return blend({150, 172, 190}, river_blue, ours); }

  /// What grows or lies on the ground.
  Colour cover(Colour colour, int x, int y, double px, double py, double height) const {
    const double low = 1 - smooth_step(250, 700, height);
    colour = blend(colour, dry,
                   0.5 * low *
                       smooth_step(360, 520, py + 30 * fractal_noise(scene_.plan.seed + 83, px, py, 60, 3)) *
                       smooth_step(225, 300, px));
    const double wet = (1 - smooth_step(4, 16, height)) *
                       smooth_step(0.1, 0.4, 0.3 + fractal_noise(scene_.plan.seed + 84, px, py, 14, 3));
    colour = blend(colour, marsh, 0.6 * wet);
    const double grain = 0.8 + 0.4 * fractal_noise(scene_.plan.seed + 85, px, py, 3, 2);
    colour = blend(colour, wood_tint, 0.7 * scene_.terrain.wood.at(x, y) * grain);
    const double inland = scene_.terrain.inland.at(x, y);
    if (inland < 8) {
      const double beach = soft_coast(px, py) * (1 - smooth_step(2, 6, inland));
      colour = blend(colour, sand, 0.85 * beach);
    }
    return colour;
  }

  /// 1 where the coast was drawn smooth.
  double soft_coast(double px, double py) const {
    double best = 1e18;
    double raggedness = 1;
    for (const Coast_point &c : scene_.plan.coast) {
      const double d = (c.place.x - px) * (c.place.x - px) + (c.place.y - py) * (c.place.y - py);
      if (d >= best) continue;
      best = d;
      raggedness = c.raggedness;
    }
    return 1 - smooth_step(0.12, 0.26, raggedness);
  }

  /// Warm light on the lit side, cool shadow on the other, neither ever quite full.
  static Colour lit(Colour colour, double brightness) {
    if (brightness >= 0) return blend(colour, light, 0.72 * (1 - exponential(-3.4 * brightness)));
    return blend(colour, times(colour, shadow), 0.95 * (1 - exponential(2.1 * brightness)));
  }

  const Scene &scene_;
  Field height_;
  Field shade_;
  Field offshore_;
  Coverage water_;
};

}  // namespace

Image draw_map(const Scene &scene) {
  return Painter(scene).paint();
}

}  // namespace atelier
