#include "terrain/coast.h"

#include <algorithm>
#include <cmath>

#include "drawing/raster.h"
#include "numbers/math.h"
#include "numbers/noise.h"

namespace atelier {
namespace {

constexpr int margin = 40;

struct Warp {
  double x;
  double y;
};

/// Displacement that tears the coast: wide bays, then ever smaller ones.
Warp warp_at(std::uint64_t seed, double x, double y, double raggedness) {
  const double height = 27 * raggedness + 2.5;
  return {height * fractal_noise(seed, x, y, 40, 4, 0.6),
          height * fractal_noise(seed + 77, x, y, 40, 4, 0.6)};
}

std::vector<Point> places(const std::vector<Coast_point> &coast) {
  std::vector<Point> result;
  result.reserve(coast.size());
  for (const Coast_point &c : coast) result.push_back(c.place);
  return result;
}

/// Signed distance to a closed outline on a grid of one cell a map pixel with a margin around the map.
Field signed_distance(const std::vector<Point> &outline) {
  const int width = largeur_carte + 2 * margin;
  const int height = hauteur_carte + 2 * margin;
  Path path;
  path.add_polygon(outline);
  const Coverage inside = coverage(path.transformed(Affine::translation(margin, margin)), width, height);
  Mask in(width, height, 0);
  Mask out(width, height, 0);
  for (std::size_t i = 0; i < in.size(); ++i) {
    in[i] = inside.values[i] >= 0.5F;
    out[i] = !in[i];
  }
  const Field to_in = distance_to(in);
  Field result = distance_to(out);
  for (std::size_t i = 0; i < result.size(); ++i)
    result[i] = result[i] > 0 ? result[i] - 0.5 : 0.5 - to_in[i];
  return blurred(result, 1.2);
}

double at_map(const Field &with_margin, double x, double y) {
  return sampled(with_margin, x + margin, y + margin);
}

/// Raggedness everywhere, from that of the coast's points, weighed by nearness.
double raggedness_at(const std::vector<Coast_point> &coast, double x, double y) {
  double sum = 0;
  double weights = 0;
  for (const Coast_point &c : coast) {
    const double d2 = (c.place.x - x) * (c.place.x - x) + (c.place.y - y) * (c.place.y - y) + 20;
    const double w = 1 / (d2 * d2);
    sum += w * c.raggedness;
    weights += w;
  }
  return sum / weights;
}

Field raggedness_field(const std::vector<Coast_point> &coast) {
  constexpr int step = 8;
  Field coarse(largeur_carte / step + 2, hauteur_carte / step + 2);
  for (int y = 0; y < coarse.height(); ++y)
    for (int x = 0; x < coarse.width(); ++x)
      coarse.at(x, y) = raggedness_at(coast, (x + 0.5) * step, (y + 0.5) * step);
  Field result(largeur_carte, hauteur_carte);
  for (int y = 0; y < result.height(); ++y)
    for (int x = 0; x < result.width(); ++x)
      result.at(x, y) = sampled(coarse, (x + 0.5) / step, (y + 0.5) / step);
  return result;
}

/// Signed distance to the torn coast.
Field torn_coast(std::uint64_t seed, const std::vector<Coast_point> &coast) {
  const Field smooth = signed_distance(smooth_line(places(coast), 2, true));
  const Field raggedness = raggedness_field(coast);
  Field result(largeur_carte * fine, hauteur_carte * fine);
  for (int j = 0; j < result.height(); ++j)
    for (int i = 0; i < result.width(); ++i) {
      const double x = (i + 0.5) / fine;
      const double y = (j + 0.5) / fine;
      const double r = sampled(raggedness, x, y);
      const Warp w = warp_at(seed, x, y, r);
      result.at(i, j) = at_map(smooth, x + w.x, y + w.y);
    }
  return result;
}

Field lake_field(const Plan &plan) {
  Field result(largeur_carte * fine, hauteur_carte * fine, -100);
  for (std::size_t n = 0; n < plan.lakes.size(); ++n) {
    const Lake &lake = plan.lakes[n];
    const double c = cosine(lake.tilt);
    const double s = sine(lake.tilt);
    const double torn = std::min(5.5, 0.9 * lake.half_width);
    for (int j = 0; j < result.height(); ++j)
      for (int i = 0; i < result.width(); ++i) {
        const double dx = (i + 0.5) / fine - lake.centre.x;
        const double dy = (j + 0.5) / fine - lake.centre.y;
        if (std::abs(dx) > 40 || std::abs(dy) > 40) continue;
        const double wx =
            torn * fractal_noise(plan.seed + 31, dx + lake.centre.x, dy + lake.centre.y, 14, 4, 0.6);
        const double wy =
            torn * fractal_noise(plan.seed + 32, dx + lake.centre.x, dy + lake.centre.y, 14, 4, 0.6);
        const double u = ((dx + wx) * c + (dy + wy) * s) / lake.half_length;
        const double v = ((dy + wy) * c - (dx + wx) * s) / lake.half_width;
        const double inside = (1 - std::sqrt(u * u + v * v)) * lake.half_width;
        result.at(i, j) = std::max<double>(result.at(i, j), inside);
      }
  }
  return result;
}

/// The mud that the arms of a delta carry out to sea builds a bird's foot around each mouth: a middle toe
/// along the arm and a shorter one to either side.
void add_lobes(Field &land, const Plan &plan) {
  for (const Delta_arm &arm : plan.arms) {
    const Point last = arm.course.back();
    const Point way = last - arm.course[arm.course.size() - 2];
    const Point out = way * (1 / length(way));
    const double reach = std::min(11.0, 3 + 6 * arm.first_width);
    const Point spread = out + Point{-out.y, out.x} * 0.9;
    const Point other_spread = out - Point{-out.y, out.x} * 0.9;
    const std::vector<Point> foot{last - out * 6, last + out * reach};
    const std::vector<Point> toes{last + spread * (0.5 * reach), last, last + other_spread * (0.5 * reach)};
    for (int j = 0; j < land.height(); ++j)
      for (int i = 0; i < land.width(); ++i) {
        const Point p{(i + 0.5) / fine, (j + 0.5) / fine};
        if (length(p - last) > 30) continue;
        const double torn = 2.4 * fractal_noise(plan.seed + 33, p.x, p.y, 7, 3);
        land.at(i, j) = std::max<double>(
            land.at(i, j), std::max(3.4 - distance_to_line(foot, p), 2.4 - distance_to_line(toes, p)) + torn);
      }
  }
}

void drown_rias(Field &land, const Plan &plan) {
  constexpr double at_the_head = 0.9;
  for (const Ria &ria : plan.rias) {
    const std::vector<Point> line = smooth_line(ria.line, 1, false);
    const double reach = 2 * length(line.back() - line.front());
    for (int j = 0; j < land.height(); ++j)
      for (int i = 0; i < land.width(); ++i) {
        const Point p{(i + 0.5) / fine, (j + 0.5) / fine};
        if (length(p - line.front()) > reach) continue;
        const auto nearest = std::min_element(line.begin(), line.end(), [&p](const Point &a, const Point &b) {
          return length(a - p) < length(b - p);
        });
        const double t = static_cast<double>(nearest - line.begin()) / static_cast<double>(line.size());
        const double width =
            mix(ria.half_width, at_the_head, t) * (1 + 0.5 * fractal_noise(plan.seed + 35, p.x, p.y, 7, 3));
        land.at(i, j) = std::min<double>(land.at(i, j), length(*nearest - p) - width);
      }
  }
}

/// Gives the bank's field: as the land's, far from every bank far below 0.
Field add_islets(Field &land, const Plan &plan) {
  const Field coast = land;
  Field bank(land.width(), land.height(), -100);
  for (const Islet &islet : plan.islets) {
    const std::vector<Point> line = islet.line.size() > 1 ? smooth_line(islet.line, 2, false)
                                                          : std::vector<Point>{islet.line[0], islet.line[0]};
    for (int j = 0; j < land.height(); ++j)
      for (int i = 0; i < land.width(); ++i) {
        const Point p{(i + 0.5) / fine, (j + 0.5) / fine};
        if (coast.at(i, j) > 0 || coast.at(i, j) < -40) continue;
        const double torn = 0.7 * islet.half_width * fractal_noise(plan.seed + 34, p.x, p.y, 4, 3);
        bank.at(i, j) = std::max<double>(bank.at(i, j), islet.half_width + torn - distance_to_line(line, p));
        land.at(i, j) = std::max<double>(land.at(i, j), bank.at(i, j));
      }
  }
  return bank;
}

/// Keeps only the piece of land that holds a cell, and fills waters enclosed in it.
void keep_one_piece(Field &land) {
  Mask mask(land.width(), land.height(), 0);
  for (std::size_t i = 0; i < land.size(); ++i) mask[i] = land[i] > 0;
  std::vector<int> sizes;
  Grid<int> numbers = pieces(mask, sizes);
  const auto largest = static_cast<int>(std::max_element(sizes.begin(), sizes.end()) - sizes.begin());
  for (std::size_t i = 0; i < land.size(); ++i)
    if (mask[i] && numbers[i] != largest) land[i] = -0.6;
  for (std::size_t i = 0; i < land.size(); ++i) mask[i] = !(land[i] > 0);
  numbers = pieces(mask, sizes);
  constexpr int smallest_sea = 20000;
  for (std::size_t i = 0; i < land.size(); ++i)
    if (mask[i] && sizes[static_cast<std::size_t>(numbers[i])] < smallest_sea) land[i] = 0.6;
}

}  // namespace

Shores draw_shores(const Plan &plan) {
  Shores shores;
  shores.land = torn_coast(plan.seed, plan.coast);
  add_lobes(shores.land, plan);
  drown_rias(shores.land, plan);
  keep_one_piece(shores.land);

  std::vector<Point> country = smooth_line(plan.border, 2, false);
  country.push_back({-margin, 700});
  country.push_back({-margin, -margin});
  const Field side = signed_distance(country);
  const int width = shores.land.width();
  const int height = shores.land.height();
  shores.ours = Field(width, height);
  for (int j = 0; j < height; ++j)
    for (int i = 0; i < width; ++i) {
      const double x = (i + 0.5) / fine;
      const double y = (j + 0.5) / fine;
      const Warp w = warp_at(plan.seed + 5, x, y, 0.28);
      shores.ours.at(i, j) = at_map(side, x + w.x, y + w.y);
    }

  shores.island = Grid<int>(width, height, 0);
  for (std::size_t n = 0; n < plan.islands.size(); ++n) {
    Field island = torn_coast(plan.seed + 100 + n, plan.islands[n]);
    keep_one_piece(island);
    for (std::size_t i = 0; i < island.size(); ++i) {
      if (island[i] > shores.land[i]) shores.land[i] = island[i];
      if (island[i] > 0) shores.island[i] = static_cast<int>(n) + 1;
    }
  }

  // What is narrower than a pixel or two neither shows nor can be hit.
  shores.land = blurred(shores.land, 1.6);
  shores.bank = add_islets(shores.land, plan);
  shores.lake = lake_field(plan);
  for (std::size_t i = 0; i < shores.land.size(); ++i)
    if (shores.land[i] <= 0) shores.island[i] = 0;
  // Column 0 of the map stays sea: a run of land at x = 0 could not be told from the mark of a row.
  for (int j = 0; j < height; ++j)
    for (int i = 0; i < 2 * fine; ++i) shores.land.at(i, j) = std::min<double>(shores.land.at(i, j), -1);
  return shores;
}

}  // namespace atelier
