#include "chart/relief.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "drawing/contour.h"
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

/// Heights' tints from the plain to the rock, blended into each other; snow comes on top.
constexpr std::array<Tint, 9> height_tints = {{{0, {170, 200, 172}},
                                               {60, {186, 209, 172}},
                                               {150, {207, 217, 170}},
                                               {300, {226, 221, 168}},
                                               {550, {232, 211, 156}},
                                               {900, {222, 192, 142}},
                                               {1350, {202, 172, 138}},
                                               {1850, {180, 166, 152}},
                                               {2400, {170, 166, 166}}}};

/// The sea's tint from each depth on, in metres.
constexpr std::array<Tint, 8> sea_steps = {{{0, {214, 233, 236}},
                                            {20, {199, 224, 232}},
                                            {50, {183, 213, 226}},
                                            {100, {167, 202, 220}},
                                            {300, {151, 189, 213}},
                                            {800, {137, 177, 205}},
                                            {1600, {124, 165, 197}},
                                            {2500, {113, 154, 189}}}};

constexpr Colour shadow{112, 116, 146};
constexpr Colour light{255, 250, 228};
constexpr Colour haze{220, 230, 228};
constexpr Colour rock{168, 160, 156};
constexpr Colour snow{253, 254, 255};
constexpr Colour snow_shade{168, 184, 208};
constexpr Colour crown{124, 160, 112};
constexpr Colour fir{100, 140, 114};
constexpr Colour cliff{222, 208, 182};
constexpr Colour cliff_ink{112, 92, 80};
constexpr Colour sand{242, 231, 190};
constexpr Colour marsh{166, 202, 184};
constexpr Colour reed{112, 162, 168};
constexpr Colour dry{240, 224, 168};
constexpr Colour neighbour{221, 217, 207};
constexpr Colour coast_line{50, 90, 124};
constexpr Colour river_blue{64, 120, 170};
constexpr Colour lake_blue{156, 200, 225};
constexpr Colour lake_rim{112, 166, 202};
constexpr Colour frontier_ink{120, 84, 94};
constexpr Colour pass_paper{250, 246, 234};
constexpr Colour pass_ink{54, 44, 48};

Colour tint_at(std::span<const Tint> tints, double at) {
  for (std::size_t i = 1; i < tints.size(); ++i)
    if (at < tints[i].at)
      return blend(tints[i - 1].colour, tints[i].colour,
                   clamp01((at - tints[i - 1].at) / (tints[i].at - tints[i - 1].at)));
  return tints.back().colour;
}

/// Brightness of a slope in a light from the north-west at 45 degrees, with a weaker one from above that
/// keeps valleys open which run with it. `turn` swings the light towards the west, in radians. Flat land has
/// 0, the lit side is above, the other below.
double shade(double dx, double dy, double turn) {
  const double length = std::sqrt(dx * dx + dy * dy + 1);
  constexpr double flat = 0.70710678118654752440;
  // Small turns only, for which two terms of the series are good enough to see by.
  const double s = turn - turn * turn * turn / 6;
  const double c = 1 - turn * turn / 2;
  const double lx = -0.5 * c - 0.5 * s;
  const double ly = -0.5 * c + 0.5 * s;
  const double lit = (-dx * lx - dy * ly + flat) / length - flat;
  return 0.86 * lit + 0.14 * (1 / length - 1);
}

/// Heights as the relief is modelled: the slopes of the mountains restrained beside those of the hills, so
/// that both show their forms in one light.
Field modelled(const Field &height) {
  Field result = height;
  for (std::size_t i = 0; i < result.size(); ++i) result[i] = 0.05 * power(height[i] + 60, 0.74);
  return result;
}

struct Slope {
  double x = 0;
  double y = 0;
};

Slope slope_at(const Field &height, int x, int y) {
  const auto z = [&](int i, int j) { return static_cast<double>(height.near(x + i, y + j)); };
  // A grid finer than the model's has narrower cells.
  const double k = height.width() / (8.0 * largeur_carte);
  return {k * (z(1, -1) + 2 * z(1, 0) + z(1, 1) - z(-1, -1) - 2 * z(-1, 0) - z(-1, 1)),
          k * (z(-1, 1) + 2 * z(0, 1) + z(1, 1) - z(-1, -1) - 2 * z(0, -1) - z(1, -1))};
}

/// The shading of one field of heights, which may be finer than the light's; `steepness` exaggerates its
/// slopes.
Field shading(const Field &height, double steepness, const Field &turn) {
  const int finer = height.width() / turn.width();
  Field result(height.width(), height.height());
  for (int y = 0; y < height.height(); ++y)
    for (int x = 0; x < height.width(); ++x) {
      const Slope s = slope_at(height, x, y);
      result.at(x, y) = shade(s.x * steepness, s.y * steepness, turn.at(x / finer, y / finer));
    }
  return result;
}

/// How steep the ground is, in metres a map pixel.
Field steepness_of(const Field &height) {
  Field result(height.width(), height.height());
  for (int y = 0; y < height.height(); ++y)
    for (int x = 0; x < height.width(); ++x) {
      const Slope s = slope_at(height, x, y);
      result.at(x, y) = std::sqrt(s.x * s.x + s.y * s.y);
    }
  return result;
}

/// How far to turn the light everywhere: by up to 30 degrees towards the west where ridges run with it from
/// the north-west to the south-east, so that their sides part (E. Imhof, "Kartographische
/// Geländedarstellung", 1965). The way ridges run is that of the structure tensor around.
Field light_turn(const Field &relief) {
  Field xx(relief.width(), relief.height());
  Field xy = xx;
  for (int y = 0; y < relief.height(); ++y)
    for (int x = 0; x < relief.width(); ++x) {
      const Slope s = slope_at(relief, x, y);
      xx.at(x, y) = s.x * s.x + s.y * s.y;
      xy.at(x, y) = s.x * s.y;
    }
  xx = blurred(xx, 12);
  xy = blurred(xy, 12);
  Field turn = xx;
  for (std::size_t i = 0; i < turn.size(); ++i) turn[i] = pi / 6 * clamp01(-2.4 * xy[i] / (xx[i] + 1e-4));
  return turn;
}

/// Depth of the sea in metres: a shelf of changing width, its edge, a slope and the deep; a canyon before the
/// delta and a sill between the islands.
class Depths {
 public:
  Depths(const Scene &scene, const Field &offshore) : seed_(scene.plan.seed), offshore_(offshore) {
    // The first arm of the delta is the greatest; all stand behind the rivers.
    const Point mouth = scene.rivers.at(scene.rivers.size() - scene.plan.arms.size()).line.back();
    canyon_ = smooth_line({mouth, mouth + Point{-4, 20}, mouth + Point{-20, 44}, mouth + Point{-28, 72},
                           mouth + Point{-52, 104}, mouth + Point{-64, 150}},
                          3, false);
    for (const auto &island : scene.plan.islands) {
      Point middle;
      for (const Coast_point &c : island)
        middle = middle + c.place * (1.0 / static_cast<double>(island.size()));
      sill_.push_back(middle);
    }
  }

  double at(int x, int y) const {
    const Point p{(x + 0.5) / fine, (y + 0.5) / fine};
    const double from_land = offshore_.at(x, y) / fine;
    const double shelf = 46 * (0.95 + 1.1 * fractal_noise(seed_ + 81, p.x, p.y, 130, 3));
    const double u = from_land / std::max(14.0, shelf);
    double depth =
        112 * power(std::min(u, 1.0), 1.25) + 34 * u * fractal_noise(seed_ + 87, p.x, p.y, 34, 4, 0.6);
    depth += 2500 * smooth_step(0.92, 3.1, u) * (0.86 + 0.5 * fractal_noise(seed_ + 88, p.x, p.y, 90, 4));
    if (sill_.size() > 1) {
      const double on_sill = exponential(-power(distance_to_line(sill_, p) / 17, 2));
      depth = mix(depth, std::min(depth, 62 + 30 * fractal_noise(seed_ + 89, p.x, p.y, 20, 3)), on_sill);
    }
    const Point q{p.x + 5 * fractal_noise(seed_ + 90, p.x, p.y, 26, 3), p.y};
    const double along = smooth_step(3, 60, from_land);
    const double across = distance_to_line(canyon_, q) / (3.5 + 5 * along);
    depth += (60 + 950 * along) * exponential(-across * across) * smooth_step(1.5, 7, from_land);
    return std::max(0.0, depth);
  }

 private:
  std::uint64_t seed_;
  const Field &offshore_;
  std::vector<Point> canyon_;
  std::vector<Point> sill_;
};

Field depths_of(const Scene &scene, const Mask &land) {
  // Creases far out, where two coasts are equally near, are smoothed away.
  Field offshore = distance_to(land);
  const Field wide = blurred(offshore, 16);
  for (std::size_t i = 0; i < offshore.size(); ++i)
    offshore[i] = mix(offshore[i], wide[i], smooth_step(10, 60, offshore[i]));
  const Depths depths(scene, offshore);
  Field result(land.width(), land.height(), 0);
  for (int y = 0; y < land.height(); ++y)
    for (int x = 0; x < land.width(); ++x)
      if (offshore.at(x, y) > 0) result.at(x, y) = depths.at(x, y);
  return result;
}

/// The trees of a wood, each a crown in a cell of a jittered grid.
class Trees {
 public:
  Trees(const Field &wood, std::uint64_t seed) : wood_(wood), seed_(seed) {}

  struct Cover {
    /// 0 open ground, 1 crown.
    double crown = 0;
    /// -1 the shaded side of a crown, 1 the lit one.
    double side = 0;
    /// Share of light that a crown further up the light takes away.
    double shadow = 0;
  };

  /// At a fine pixel: the mean of four places in it.
  Cover at(int x, int y) const {
    Cover mean;
    for (const double dy : {0.25, 0.75})
      for (const double dx : {0.25, 0.75}) {
        const Cover cover = at(Point{x + dx, y + dy});
        mean.crown += cover.crown / 4;
        mean.side += cover.crown * cover.side / 4;
        mean.shadow += cover.shadow / 4;
      }
    return mean;
  }

 private:
  static constexpr double spacing = 2.3;

  Cover at(Point p) const {
    Cover cover;
    const int i = static_cast<int>(std::floor(p.x / spacing));
    const int j = static_cast<int>(std::floor(p.y / spacing));
    for (int dj = -1; dj <= 1; ++dj)
      for (int di = -1; di <= 1; ++di) {
        const std::uint64_t h = hash(seed_, i + di, j + dj);
        const auto part = [h](int k) { return static_cast<double>((h >> (16 * k)) & 0xFFFF) / 65536; };
        const double cx = (i + di + part(0)) * spacing;
        const double cy = (j + dj + part(1)) * spacing;
        const int tx = static_cast<int>(cx);
        const int ty = static_cast<int>(cy);
        if (!wood_.contains(tx, ty) || wood_.at(tx, ty) < 0.18 + 0.74 * part(2)) continue;
        const double radius = 0.95 + 0.75 * part(3);
        const double dx = p.x - cx;
        const double dy = p.y - cy;
        const double reach = std::sqrt(dx * dx + dy * dy);
        const double here = reach < radius ? 1 : 0;
        if (here > 0) {
          cover.crown = here;
          cover.side = std::clamp(-(dx + dy) / radius / 1.4, -1.0, 1.0);
        }
        const double sx = dx - 0.9;
        const double sy = dy - 0.9;
        if (std::sqrt(sx * sx + sy * sy) < radius) cover.shadow = 1;
      }
    return cover;
  }

  const Field &wood_;
  std::uint64_t seed_;
};

/// A tongue of ice from its end up into the snow.
struct Tongue {
  std::vector<Point> line;
  double width = 0;
};

/// The greatest glaciers, and the brooks that lead their water to the rivers.
struct Glaciers {
  std::vector<Tongue> tongues;
  Path brooks;
};

void smooth(std::vector<Point> &line, int rounds) {
  for (int round = 0; round < rounds; ++round)
    for (std::size_t k = 1; k + 1 < line.size(); ++k)
      line[k] = (line[k - 1] + line[k] * 2 + line[k + 1]) * 0.25;
}

/// Where the snow of the heights goes as ice, by the way of the water.
class Icefields {
 public:
  Icefields(const Field &height, const Drainage &drainage)
      : height_(height),
        drainage_(drainage),
        above_(height.size(), height.size()),
        fed_(height.width(), height.height(), 0) {
    constexpr double snow_lies = 2150;
    for (auto it = drainage.order.rbegin(); it != drainage.order.rend(); ++it) {
      const std::size_t i = *it;
      if (height[i] > snow_lies) fed_[i] += 1.0 / (fine * fine);
      const std::size_t below = drainage.receiver[i];
      if (below == i) continue;
      fed_[below] += fed_[i];
      if (above_[below] == height.size() || fed_[i] > fed_[above_[below]]) above_[below] = i;
    }
  }

  /// Square map pixels of snow above a cell.
  double fed(std::size_t i) const { return fed_[i]; }

  /// The lowest cells of ice, those with the most snow above them first.
  std::vector<std::size_t> ends() const {
    constexpr double least = 8;
    std::vector<std::size_t> result;
    for (const std::size_t i : drainage_.order)
      if (fed_[i] >= least && is_ice(i) && !is_ice(drainage_.receiver[i])) result.push_back(i);
    std::stable_sort(result.begin(), result.end(),
                     [this](std::size_t a, std::size_t b) { return fed_[a] > fed_[b]; });
    return result;
  }

  /// From the end of the ice up to where snow covers everything.
  std::vector<Point> tongue(std::size_t end) const {
    constexpr double snow_covers = 3000;
    std::vector<Point> line;
    for (std::size_t i = end; i < height_.size() && height_[i] < snow_covers; i = above_[i])
      line.push_back(place(i));
    return line;
  }

  /// From the end of the ice down to the first river.
  std::vector<Point> brook(std::size_t end, const Coverage &rivers) const {
    std::vector<Point> line{place(end)};
    for (std::size_t i = end; rivers.values[i] < 0.3F && drainage_.receiver[i] != i;) {
      i = drainage_.receiver[i];
      line.push_back(place(i));
    }
    return line;
  }

 private:
  /// The more snow feeds it, the farther ice creeps down.
  bool is_ice(std::size_t i) const { return height_[i] > std::max(850.0, 2200 - 190 * std::sqrt(fed_[i])); }
  Point place(std::size_t i) const {
    const Cell c = height_.cell(i);
    return {(c.x + 0.5) / fine, (c.y + 0.5) / fine};
  }

  const Field &height_;
  const Drainage &drainage_;
  /// The cell that most of a cell's snow comes from; past the last cell at a source.
  std::vector<std::size_t> above_;
  Field fed_;
};

Glaciers glaciers_of(const Scene &scene) {
  constexpr std::size_t count = 7;
  constexpr double apart = 9;
  constexpr std::size_t shortest = 11;
  const Icefields fields(scene.terrain.height, scene.terrain.drainage);
  const Coverage rivers = coverage(river_shape(scene.rivers, 0.8).transformed(Affine::scaling(fine, fine)),
                                   scene.terrain.height.width(), scene.terrain.height.height());
  Glaciers glaciers;
  for (const std::size_t end : fields.ends()) {
    std::vector<Point> line = fields.tongue(end);
    const auto beside = [&](const Tongue &other) {
      return distance_to_line(other.line, line.front()) < apart;
    };
    if (glaciers.tongues.size() == count) break;
    if (line.size() < shortest || std::any_of(glaciers.tongues.begin(), glaciers.tongues.end(), beside))
      continue;
    smooth(line, 8);
    glaciers.tongues.push_back({line, std::clamp(1.2 + 0.28 * std::sqrt(fields.fed(end)), 2.0, 3.8)});
    std::vector<Point> way = fields.brook(end, rivers);
    smooth(way, 6);
    Path brook;
    brook.move_to(way.front());
    for (const Point &p : way) brook.line_to(p);
    glaciers.brooks.add(stroked(brook, 0.45));
  }
  return glaciers;
}

/// Tongues of ice, narrow at their ends, with the bowed strokes across them that maps give their surface.
struct Ice {
  Path surface;
  /// The surface and its edge.
  Path edge;
  Path strokes;
};

Ice ice_of(const std::vector<Tongue> &glaciers) {
  Ice ice;
  for (const Tongue &tongue : glaciers) {
    const auto &line = tongue.line;
    for (std::size_t k = 0; k + 1 < line.size(); ++k) {
      const double t = static_cast<double>(k) / static_cast<double>(line.size());
      const double width = tongue.width * mix(0.25, 1, std::min(1.0, 3.5 * t));
      const Path piece = Path().move_to(line[k]).line_to(line[k + 1]);
      ice.surface.add(stroked(piece, width));
      ice.edge.add(stroked(piece, width + 0.45));
      const Point way = line[k + 1] - line[k];
      if (k % 4 != 2 || length(way) == 0) continue;
      const Point along = way * (1 / length(way));
      const Point across{-along.y * width * 0.4, along.x * width * 0.4};
      Path stroke;
      stroke.move_to(line[k] + across + along * 0.5)
          .quad_to(line[k] - along * 0.5, line[k] - across + along * 0.5);
      ice.strokes.add(stroked(stroke, 0.25));
    }
  }
  return ice;
}

/// The lowest places of the frontier between two heights, each with the way along the frontier there.
struct Pass {
  Point place;
  Point along;
};

std::vector<Pass> passes_of(const Scene &scene) {
  constexpr double lowest = 500;
  constexpr double rise = 380;
  constexpr int apart = 14;
  const Field smooth_height = blurred(scene.terrain.height, 3);
  std::vector<Point> line = smooth_line(scene.plan.border, 1, false);
  // The frontier as drawn lies a little beside the one wished for.
  for (Point &p : line)
    for (int round = 0; round < 6; ++round) {
      const auto ours = [&](double x, double y) { return sampled(scene.shores.ours, x * fine, y * fine); };
      const Point slope{ours(p.x + 0.5, p.y) - ours(p.x - 0.5, p.y),
                        ours(p.x, p.y + 0.5) - ours(p.x, p.y - 0.5)};
      const double square = std::max(0.1, slope.x * slope.x + slope.y * slope.y);
      p = p - slope * (ours(p.x, p.y) / square);
    }
  const auto height = [&](std::size_t k) {
    return sampled(smooth_height, line[k].x * fine, line[k].y * fine);
  };
  std::vector<Pass> passes;
  for (std::size_t k = apart; k + apart < line.size(); ++k) {
    const double here = height(k);
    double before = 0;
    double behind = 0;
    bool is_lowest = here > lowest;
    for (std::size_t i = 1; i <= apart; ++i) {
      is_lowest = is_lowest && height(k - i) >= here && height(k + i) > here;
      before = std::max(before, height(k - i));
      behind = std::max(behind, height(k + i));
    }
    if (!is_lowest || std::min(before, behind) < here + rise) continue;
    const Point way = line[k + 3] - line[k - 3];
    passes.push_back({line[k], way * (1 / length(way))});
  }
  return passes;
}

/// Two strokes turned from each other, one on either side of the way over the pass.
Path sign_of(const Pass &pass, double width) {
  const Point over{-pass.along.y, pass.along.x};
  Path sign;
  for (const double side : {-1.0, 1.0}) {
    const Point foot = pass.place + pass.along * (side * 0.5);
    const Point far = pass.along * (side * 1.9);
    Path stroke;
    stroke.move_to(foot + far + over * 2.5).quad_to(foot - far * 0.6, foot + far - over * 2.5);
    sign.add(stroked(stroke, width, Cap::round));
  }
  return sign;
}

/// The same with a torn edge.
double torn_within(const std::vector<Stretch> &stretches, double px, double py, double torn) {
  const double most = within(stretches, {px, py});
  return most <= 0 ? 0 : most + torn;
}

/// Strokes from the shore up the rock, where the coast falls steeply into the sea.
Path cliffs_of(const Scene &scene) {
  constexpr double apart = 1.15;
  const Field &land = scene.shores.land;
  const auto at = [&](double x, double y) { return sampled(land, x * fine, y * fine); };
  Path strokes;
  std::int64_t count = 0;
  const Path shores = contour(land, 0).transformed(Affine::scaling(1.0 / fine, 1.0 / fine));
  for (const Contour &shore : shores.contours()) {
    double walked = 0;
    for (std::size_t k = 1; k < shore.points.size(); ++k) {
      const Point p = shore.points[k];
      walked += length(p - shore.points[k - 1]);
      const std::uint64_t h = hash(scene.plan.seed + 97, count, 0);
      const double chance = static_cast<double>(h & 0xFF) / 255;
      if (walked < apart * (0.7 + 0.6 * chance)) continue;
      walked = 0;
      ++count;
      const double steep = smooth_step(0, 0.25, within(scene.plan.cliffs, p));
      if (steep == 0 || sampled(scene.shores.bank, p.x * fine, p.y * fine) > -1) continue;
      const Point up{at(p.x + 0.7, p.y) - at(p.x - 0.7, p.y), at(p.x, p.y + 0.7) - at(p.x, p.y - 0.7)};
      if (length(up) == 0) continue;
      const Point way = up * (1 / length(up));
      const double high = steep * (1.1 + 1.5 * static_cast<double>((h >> 8) & 0xFF) / 255);
      strokes.add(stroked(Path().move_to(p + way * 0.4).line_to(p + way * (0.4 + high)), 0.42));
    }
  }
  return strokes;
}

/// What the painter needs at every cell, worked out once.
class Painter {
 public:
  explicit Painter(const Scene &scene) : scene_(scene), trees_(scene.terrain.wood, scene.plan.seed + 91) {
    Field height = scene.terrain.height;
    for (std::size_t i = 0; i < height.size(); ++i) height[i] = std::max<double>(height[i], 0);
    // Small forms for the eye, great forms for the understanding: generalised relief lies under the detail,
    // which fades from the hills to the plain.
    const Field relief = modelled(height);
    const Field coarse = blurred(relief, 4);
    const Field turn = light_turn(coarse);
    // Modelled finer than it is shown, the crests stay sharp.
    Field finest = scene.terrain.relief;
    for (std::size_t i = 0; i < finest.size(); ++i) finest[i] = std::max<double>(finest[i], 0);
    const Field detail = halved(shading(modelled(finest), 1, turn));
    steep_ = halved(steepness_of(finest));
    const Field forms = shading(coarse, 1.3, turn);
    const Field masses = shading(blurred(relief, 13), 1.9, turn);
    const Field around = blurred(height, 6);
    shade_ = Field(height.width(), height.height());
    for (std::size_t i = 0; i < shade_.size(); ++i) {
      const double hilly = smooth_step(60, 320, around[i]);
      const double high = smooth_step(250, 1500, around[i]);
      shade_[i] = (mix(0.1, 0.55, hilly) + 0.42 * high) * detail[i] + mix(0.3, 0.42, hilly) * forms[i] +
                  mix(0.34, 0.42, high) * masses[i];
    }
    Mask land(height.width(), height.height(), 0);
    for (std::size_t i = 0; i < land.size(); ++i) land[i] = scene.shores.land[i] > 0;
    depth_ = depths_of(scene, land);
    offshore_ = distance_to(land);
    valley_ = Field(height.width(), height.height());
    for (std::size_t i = 0; i < valley_.size(); ++i) valley_[i] = around[i] - height[i];
    height_ = height;
    const Glaciers glaciers = glaciers_of(scene);
    const Ice ice = ice_of(glaciers.tongues);
    const Affine to_fine = Affine::scaling(fine, fine);
    ice_ = coverage(ice.surface.transformed(to_fine), height.width(), height.height());
    ice_edge_ = coverage(ice.edge.transformed(to_fine), height.width(), height.height());
    ice_strokes_ = coverage(ice.strokes.transformed(to_fine), height.width(), height.height());
    Path casings;
    Path signs;
    for (const Pass &pass : passes_of(scene)) {
      casings.add(sign_of(pass, 2));
      signs.add(sign_of(pass, 0.8));
    }
    pass_paper_ = coverage(casings.transformed(to_fine), height.width(), height.height());
    pass_signs_ = coverage(signs.transformed(to_fine), height.width(), height.height());
    cliffs_ = coverage(cliffs_of(scene).transformed(to_fine), height.width(), height.height());
    Path rivers = river_shape(scene.rivers, 0.36);
    rivers.add(glaciers.brooks);
    water_ = coverage(rivers.transformed(to_fine), height.width(), height.height());
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
    Colour colour = on_land < 1 ? sea_colour(x, y) : Colour{};
    if (on_land > 0) colour = blend(colour, land_colour(x, y), on_land);
    const double line = 1 - smooth_step(0.22, 0.62, std::abs(coast));
    return blend(colour, coast_line, 0.85 * line * (is_ours(x, y) ? 1 : 0.55));
  }

  bool is_ours(int x, int y) const { return scene_.shores.ours.at(x, y) > 0; }

  /// Tints by steps of depth, each begun by a thin darker line; pale water along the coast.
  Colour sea_colour(int x, int y) const {
    const double depth = depth_.at(x, y);
    const double dx = (depth_.near(x + 1, y) - depth_.near(x - 1, y)) / 2;
    const double dy = (depth_.near(x, y + 1) - depth_.near(x, y - 1)) / 2;
    const double slope = std::max(0.02, std::sqrt(dx * dx + dy * dy));
    Colour colour = sea_steps.front().colour;
    double line = 0;
    for (std::size_t i = 1; i < sea_steps.size(); ++i) {
      const double pixels = (depth - sea_steps[i].at) / slope;
      colour = blend(colour, sea_steps[i].colour, clamp01(0.5 + pixels));
      line = std::max(line, 1 - clamp01(std::abs(pixels) - 0.35));
    }
    const double px = offshore_.at(x, y) / fine;
    // Where the ground hardly slopes the line would fall into dots.
    line *= smooth_step(0.05, 0.25, slope);
    colour = blend(colour, {96, 140, 178}, 0.3 * line * smooth_step(2, 5, px));
    return blend(colour, {234, 244, 243}, 0.6 * exponential(-px / 3.4));
  }

  Colour land_colour(int x, int y) const {
    const double height = height_.at(x, y);
    const double px = (x + 0.5) / fine;
    const double py = (y + 0.5) / fine;
    const double ours = clamp01(0.5 + edge_distance(scene_.shores.ours, x, y) * fine / 2);
    const double brightness = shade_.at(x, y);
    Colour colour = ground(x, y, px, py, height);
    const double grey = mix(0.62, 0, ours);
    colour = blend(colour, neighbour, grey);
    colour = lit(colour, brightness * mix(0.8, 1, ours));
    colour = under_trees(colour, x, y, height, brightness, 1 - grey);
    colour = under_cliff(colour, x, y);
    colour = under_water(colour, x, y, ours);
    colour = under_snow(colour, x, y, height, brightness);
    colour = under_ice(colour, x, y, brightness);
    const double border = edge_distance(scene_.shores.ours, x, y);
    colour = blend(colour, frontier_ink, border > 0 ? 0.3 * (1 - smooth_step(0, 4.5, border)) : 0);
    colour = blend(colour, frontier_ink, 0.55 * (1 - smooth_step(0.25, 0.7, std::abs(border))));
    colour = blend(colour, pass_paper, 0.85 * static_cast<double>(pass_paper_.at(x, y)));
    return blend(colour, pass_ink, static_cast<double>(pass_signs_.at(x, y)));
  }

  Colour ground(int x, int y, double px, double py, double height) const {
    Colour colour = tint_at(height_tints, height + 40 * fractal_noise(scene_.plan.seed + 82, px, py, 9, 2) *
                                                       smooth_step(20, 300, height));
    colour = cover(colour, px, py, height, scene_.terrain.inland.at(x, y));
    colour =
        blend(colour, rock, 0.75 * smooth_step(900, 1700, height) * smooth_step(80, 220, steep_.at(x, y)));
    // From far above, air lies over the plains and in the valleys.
    const double hollow = smooth_step(10, 160, valley_.at(x, y)) * smooth_step(150, 500, height);
    return blend(colour, haze, 0.07 * (1 - smooth_step(100, 900, height)) + 0.3 * hollow);
  }

  /// What grows or lies on the ground, trees apart.
  Colour cover(Colour colour, double px, double py, double height, double inland) const {
    const std::uint64_t seed = scene_.plan.seed;
    const double low = 1 - smooth_step(250, 700, height);
    const double south = smooth_step(360, 520, py + 30 * fractal_noise(seed + 83, px, py, 60, 3));
    colour = blend(colour, dry, 0.5 * low * south * smooth_step(225, 300, px));
    const double wet = (1 - smooth_step(4, 16, height)) * (within(scene_.plan.cliffs, {px, py}) > 0 ? 0 : 1) *
                       smooth_step(0.1, 0.45, 0.25 + fractal_noise(seed + 84, px, py, 14, 3));
    colour = blend(colour, marsh, 0.6 * wet);
    colour = blend(colour, reed, 0.7 * smooth_step(0.75, 0.95, wet) * reeds(seed, px * fine, py * fine));
    colour = textured(colour, seed, px, py, height);
    if (inland >= 8) return colour;
    return blend(colour, sand, 0.85 * soft_coast(px, py) * (1 - smooth_step(2, 6, inland)));
  }

  /// Vines in rows, and limestone: pale, with hollows that are dark to the light and bright behind.
  Colour textured(Colour colour, std::uint64_t seed, double px, double py, double height) const {
    const double torn = 0.5 * fractal_noise(seed + 94, px, py, 9, 3);
    const double vines =
        smooth_step(0.1, 0.3, torn_within(scene_.plan.vineyards, px, py, torn)) * smooth_step(40, 90, height);
    if (vines > 0) {
      // The rows turn from slope to slope.
      const double turn = 2 * noise(seed + 95, px / 45, py / 45);
      const double u = (px * cosine(turn) + py * sine(turn)) * fine;
      const double v = (py * cosine(turn) - px * sine(turn)) * fine;
      const bool row = u - 3.4 * std::floor(u / 3.4) < 1.3 && v - 2.6 * std::floor(v / 2.6) < 1.8;
      colour = blend(colour, row ? Colour{126, 134, 84} : Colour{226, 214, 158}, vines * (row ? 0.38 : 0.2));
    }
    const double bare = smooth_step(0.05, 0.35, torn_within(scene_.plan.karst, px, py, torn));
    if (bare <= 0) return colour;
    colour = blend(colour, {234, 230, 216}, 0.55 * bare);
    constexpr double spacing = 3.6;
    const auto i = static_cast<std::int64_t>(std::floor(px / spacing));
    const auto j = static_cast<std::int64_t>(std::floor(py / spacing));
    const std::uint64_t h = hash(seed + 96, i, j);
    if ((h & 3) == 0) return colour;
    const double cx =
        (static_cast<double>(i) + 0.3 + 0.4 * static_cast<double>((h >> 8) & 0xFF) / 255) * spacing;
    const double cy =
        (static_cast<double>(j) + 0.3 + 0.4 * static_cast<double>((h >> 16) & 0xFF) / 255) * spacing;
    const double radius = 0.6 + 0.5 * static_cast<double>((h >> 24) & 0xFF) / 255;
    const double dx = px - cx;
    const double dy = py - cy;
    const double inside = clamp01((radius - std::sqrt(dx * dx + dy * dy)) * fine + 0.5);
    const double side = std::clamp((dx + dy) / radius, -1.0, 1.0);
    return blend(colour, side < 0 ? Colour{168, 156, 140} : Colour{250, 248, 240},
                 bare * inside * std::abs(side));
  }

  /// The strokes by which maps show a marsh: short, level, in rows that do not line up.
  static double reeds(std::uint64_t seed, double fx, double fy) {
    constexpr double row = 5;
    constexpr double step = 11;
    const double j = std::floor(fy / row);
    const std::uint64_t h = hash(seed + 92, static_cast<std::int64_t>(j), 0);
    const double shift = static_cast<double>(h & 0xFF) / 256 * step;
    const double i = std::floor((fx + shift) / step);
    const std::uint64_t k = hash(seed + 93, static_cast<std::int64_t>(i), static_cast<std::int64_t>(j));
    if ((k & 3) == 0) return 0;
    const double length = 3.5 + static_cast<double>((k >> 8) & 0xFF) / 90;
    const double along = fx + shift - i * step;
    return fy - j * row < 1 && along < length ? 1 : 0;
  }

  /// Crowns with a lit and a dark side and a shadow, lighter wood below and fir above.
  Colour under_trees(Colour colour, int x, int y, double height, double brightness, double strength) const {
    const Trees::Cover cover = trees_.at(x, y);
    if (cover.crown == 0 && cover.shadow == 0) return colour;
    const Colour leaf =
        lit(blend(crown, fir, smooth_step(350, 1000, height)), 0.6 * brightness + 0.1 * cover.side);
    colour = blend(colour, times(colour, {186, 196, 190}), strength * 0.7 * cover.shadow);
    return blend(colour, leaf, strength * 0.78 * cover.crown);
  }

  /// Snow by altitude: less on the sunny side and on the steepest walls, on the frontier's other side as on
  /// ours.
  Colour under_snow(Colour colour, int x, int y, double height, double brightness) const {
    const double px = (x + 0.5) / fine;
    const double py = (y + 0.5) / fine;
    const double line = 1900 + 500 * brightness + 420 * fractal_noise(4711, px, py, 6, 4, 0.6);
    const double wall = smooth_step(260, 560, steep_.at(x, y));
    const double lying = smooth_step(line, line + 600, height) * (1 - 0.7 * wall);
    if (lying <= 0) return colour;
    const double dark = std::max(0.0, -0.04 - brightness);
    return blend(colour, blend(snow, snow_shade, 1 - exponential(-2.8 * dark)), 0.94 * lying);
  }

  Colour under_ice(Colour colour, int x, int y, double brightness) const {
    if (ice_edge_.at(x, y) == 0) return colour;
    const Colour ice =
        blend({220, 236, 243}, {172, 198, 222}, 1 - exponential(std::min(0.0, 2 * brightness)));
    // Further up the snow lies over it.
    const double bare = 1 - smooth_step(2300, 2900, height_.at(x, y));
    colour = blend(colour, {112, 152, 190}, 0.6 * bare * static_cast<double>(ice_edge_.at(x, y)));
    colour = blend(colour, ice, 0.95 * bare * static_cast<double>(ice_.at(x, y)));
    return blend(colour, {112, 156, 198}, 0.7 * bare * static_cast<double>(ice_strokes_.at(x, y)));
  }

  /// Bare rock along the shore, with its strokes.
  Colour under_cliff(Colour colour, int x, int y) const {
    const double inland = scene_.terrain.inland.at(x, y);
    if (inland > 4) return colour;
    const double steep =
        smooth_step(0, 0.25, within(scene_.plan.cliffs, {(x + 0.5) / fine, (y + 0.5) / fine}));
    colour = blend(colour, cliff, 0.75 * steep * (1 - smooth_step(0.8, 2.6, inland)));
    return blend(colour, cliff_ink, 0.75 * static_cast<double>(cliffs_.at(x, y)));
  }

  Colour under_water(Colour colour, int x, int y, double ours) const {
    const double shore = edge_distance(scene_.shores.lake, x, y);
    const double lake = clamp01(0.5 + shore * fine);
    const Colour blue = blend({140, 166, 188}, river_blue, ours);
    colour = blend(colour, blue, 0.92 * static_cast<double>(water_.at(x, y)) * (1 - lake));
    // Far from every lake the field has no slope that a distance could be taken from.
    if (scene_.shores.lake.at(x, y) < -2) return colour;
    colour = blend(colour, blend(lake_rim, lake_blue, smooth_step(0.2, 1.8, shore)), lake);
    return blend(colour, coast_line, 0.75 * (1 - smooth_step(0.2, 0.55, std::abs(shore))));
  }

  /// 1 where the coast was drawn smooth.
  double soft_coast(double px, double py) const {
    double best = 1e18;
    double raggedness = 1;
    const auto look = [&](const std::vector<Coast_point> &coast) {
      for (const Coast_point &c : coast) {
        const double d = (c.place.x - px) * (c.place.x - px) + (c.place.y - py) * (c.place.y - py);
        if (d >= best) continue;
        best = d;
        raggedness = c.raggedness;
      }
    };
    look(scene_.plan.coast);
    for (const auto &island : scene_.plan.islands) look(island);
    return (1 - smooth_step(0.12, 0.26, raggedness)) *
           (1 - smooth_step(0, 0.2, within(scene_.plan.cliffs, {px, py})));
  }

  /// Warm light on the lit side, cool shadow on the other, neither ever quite full.
  static Colour lit(Colour colour, double brightness) {
    if (brightness >= 0) return blend(colour, light, 0.66 * (1 - exponential(-3.2 * brightness)));
    return blend(colour, times(colour, shadow), 0.97 * (1 - exponential(2.5 * brightness)));
  }

  const Scene &scene_;
  Trees trees_;
  Field height_;
  Field shade_;
  Field steep_;
  Field depth_;
  Field offshore_;
  /// How much lower than its surroundings the land lies, metres.
  Field valley_;
  Coverage water_;
  Coverage ice_;
  Coverage ice_edge_;
  Coverage ice_strokes_;
  Coverage cliffs_;
  Coverage pass_paper_;
  Coverage pass_signs_;
};

}  // namespace

Image draw_map(const Scene &scene) {
  return Painter(scene).paint();
}

Pixel height_tint(double height) {
  return to_pixel(height >= 2600 ? snow : tint_at(height_tints, height));
}

}  // namespace atelier
