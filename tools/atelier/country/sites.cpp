#include "country/sites.h"

#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "drawing/raster.h"
#include "numbers/math.h"

namespace atelier {
namespace {

/// How far a pixel of the map is from what towns look for, in map pixels unless said otherwise.
struct Lie {
  Field sea;
  Field river;
  Field lake;
  Field arm;
  /// Metres.
  Field height;
  /// Metres of height for each map pixel, over a few pixels.
  Field slope;
  /// 0 to 1.
  Field wood;
  /// Square map pixels of river water nearby: great where rivers meet.
  Field water;
};

Mask wet(const std::vector<River> &rivers, std::size_t from, std::size_t to) {
  const std::vector<River> chosen(rivers.begin() + static_cast<std::ptrdiff_t>(from),
                                  rivers.begin() + static_cast<std::ptrdiff_t>(to));
  const Coverage c = coverage(river_shape(chosen, 1), largeur_carte, hauteur_carte);
  Mask mask(largeur_carte, hauteur_carte, 0);
  for (std::size_t i = 0; i < mask.size(); ++i) mask[i] = c.values[i] > 0.3F;
  return mask;
}

Lie lie_of_the_land(const Shores &shores, const Terrain &terrain, const std::vector<River> &rivers,
                    std::size_t delta_arms) {
  Lie lie;
  const Field land = halved(shores.land);
  const Field lake = halved(shores.lake);
  Mask sea(land.width(), land.height(), 0);
  Mask lakes = sea;
  for (std::size_t i = 0; i < sea.size(); ++i) {
    sea[i] = land[i] <= 0;
    lakes[i] = lake[i] > 0;
  }
  lie.sea = distance_to(sea);
  lie.lake = distance_to(lakes);
  const Mask water = wet(rivers, 0, rivers.size());
  lie.river = distance_to(water);
  lie.arm = distance_to(wet(rivers, rivers.size() - delta_arms, rivers.size()));
  lie.height = blurred(halved(terrain.height), 1);
  lie.wood = blurred(halved(terrain.wood), 2.5);
  lie.water = Field(land.width(), land.height(), 0);
  for (std::size_t i = 0; i < lie.water.size(); ++i) lie.water[i] = water[i];
  lie.water = blurred(lie.water, 4);
  lie.slope = Field(land.width(), land.height(), 0);
  const Field smooth = blurred(halved(terrain.height), 2);
  for (int y = 0; y < land.height(); ++y)
    for (int x = 0; x < land.width(); ++x) {
      const double dx = (smooth.near(x + 1, y) - smooth.near(x - 1, y)) / 2;
      const double dy = (smooth.near(x, y + 1) - smooth.near(x, y - 1)) / 2;
      lie.slope.at(x, y) = std::sqrt(dx * dx + dy * dy);
    }
  return lie;
}

/// 0 where the pixel is what the hint wants, 1 where it is nothing like it.
double want(const Lie &lie, Indice indice, std::size_t i) {
  switch (indice) {
    case Indice::côte: return smooth_step(6.5, 20, lie.sea[i]);
    case Indice::île: return 0.3 * smooth_step(6, 12, lie.sea[i]);
    case Indice::rivière: return smooth_step(5.5, 16, std::min<double>(lie.river[i], lie.arm[i]));
    case Indice::lac: return smooth_step(6.5, 18, lie.lake[i]);
    case Indice::montagne: return 1 - smooth_step(150, 450, lie.height[i] + 8 * lie.slope[i]);
    case Indice::forêt: return 1 - smooth_step(0.1, 0.45, lie.wood[i]);
    case Indice::delta:
      return std::max(smooth_step(25, 90, lie.height[i]),
                      0.6 * smooth_step(6, 22, std::min<double>(lie.arm[i], lie.river[i])));
    case Indice::plaine: return 0;
  }
  return 0;
}

constexpr double is_unmet = 0.35;

/// What makes a place good for any town: near water, not steep; and plain towns keep off the coast a little.
double pleasantness(const Lie &lie, const Ville &ville, bool capital, std::size_t i) {
  double penalty = 0.25 * smooth_step(8, 60, lie.slope[i]);
  penalty += 0.12 * smooth_step(5, 18, lie.river[i]);
  penalty -= (capital ? 0.5 : 0.25) * std::min<double>(lie.water[i], 0.5);
  if (ville.indice == Indice::plaine) penalty += 0.3 * (1 - smooth_step(5, 9, lie.sea[i]));
  if (ville.indice == Indice::montagne) penalty -= 0.2 * smooth_step(300, 1500, lie.height[i]);
  return penalty;
}

bool dot_inside(const Provinces &provinces, Cell centre, int province) {
  for (int y = centre.y - dot_offset; y < centre.y - dot_offset + dot_height; ++y)
    for (int x = centre.x - dot_offset; x < centre.x - dot_offset + dot_width; ++x)
      if (!provinces.contains(x, y) || provinces.at(x, y) != province) return false;
  return true;
}

bool clear(Cell a, Cell b) {
  return std::abs(a.x - b.x) >= dot_width + dot_gap || std::abs(a.y - b.y) >= dot_height + dot_gap;
}

/// Distance of a dot's centre from its province's border from which on no line touches the dot.
constexpr double off_the_border = 6;
/// From here on the dot keeps off the line's middle at least.
constexpr double at_the_border = 5;

/// The places of a grown province where a dot may lie, and the middle of the province.
struct Room {
  std::vector<Cell> places;
  /// By place: distance in pixels to the nearest pixel of another province, of water or of foreign land.
  std::vector<double> margins;
  Point middle;
  double radius = 0;
};

/// Looks no further than it matters.
double margin_at(const Provinces &provinces, Cell c, int province) {
  constexpr int reach = 9;
  double best = reach;
  for (int y = -reach; y <= reach; ++y)
    for (int x = -reach; x <= reach; ++x)
      if (!provinces.contains(c.x + x, c.y + y) || provinces.at(c.x + x, c.y + y) != province)
        best = std::min(best, std::sqrt(static_cast<double>(x * x + y * y)));
  return best;
}

std::vector<Room> rooms_of(const Provinces &provinces) {
  std::vector<Room> rooms(nombre_provinces + 1);
  std::vector<double> counts(rooms.size(), 0);
  for (int y = 0; y < provinces.height(); ++y)
    for (int x = 0; x < provinces.width(); ++x) {
      const int p = provinces.at(x, y);
      if (p == 0) continue;
      Room &room = rooms[static_cast<std::size_t>(p)];
      room.middle.x += x;
      room.middle.y += y;
      counts[static_cast<std::size_t>(p)] += 1;
      if (!dot_inside(provinces, {x, y}, p)) continue;
      room.places.push_back({x, y});
      room.margins.push_back(margin_at(provinces, {x, y}, p));
    }
  for (std::size_t p = 1; p < rooms.size(); ++p) {
    rooms[p].middle = {rooms[p].middle.x / counts[p], rooms[p].middle.y / counts[p]};
    rooms[p].radius = std::sqrt(counts[p] / pi);
  }
  return rooms;
}

double best_want(const Lie &lie, const Room &room, const Provinces &provinces, Indice indice) {
  double best = 1;
  for (const Cell c : room.places) best = std::min(best, want(lie, indice, provinces.index(c.x, c.y)));
  return best;
}

double mean_want(const Lie &lie, const Room &room, const Provinces &provinces, Indice indice) {
  double sum = 0;
  for (const Cell c : room.places) sum += want(lie, indice, provinces.index(c.x, c.y));
  return room.places.empty() ? 1 : sum / static_cast<double>(room.places.size());
}

/// How badly the gazetteer's province would lie in the grown one.
double misfit(const Lie &lie, const Province &province, const Room &room, const Provinces &provinces) {
  double sum = 0.5 * mean_want(lie, room, provinces, province.indice) +
               best_want(lie, room, provinces, province.indice) +
               2 * best_want(lie, room, provinces, province.capitale.indice);
  for (const Ville &ville : province.villes) {
    const double best = best_want(lie, room, provinces, ville.indice);
    sum += best;
    if (best > is_unmet) sum += 2;
  }
  return sum;
}

/// The cheapest way to give row i column choice[i], each column once: by the best choice for every set of
/// columns already given.
std::vector<int> cheapest_matching(const std::vector<std::vector<double>> &costs) {
  const std::size_t n = costs.size();
  const std::size_t sets = std::size_t{1} << n;
  std::vector<double> best(sets, std::numeric_limits<double>::max());
  std::vector<int> last(sets, -1);
  best[0] = 0;
  for (std::size_t set = 0; set + 1 < sets; ++set) {
    const auto row = static_cast<std::size_t>(std::popcount(set));
    for (std::size_t column = 0; column < n; ++column) {
      const std::size_t with = set | (std::size_t{1} << column);
      if (with == set || best[set] + costs[row][column] >= best[with]) continue;
      best[with] = best[set] + costs[row][column];
      last[with] = static_cast<int>(column);
    }
  }
  std::vector<int> choice(n);
  for (std::size_t set = sets - 1, row = n; row-- > 0;) {
    choice[row] = last[set];
    set &= ~(std::size_t{1} << static_cast<std::size_t>(last[set]));
  }
  return choice;
}

void renumber(const Données &données, Provinces &provinces, const Lie &lie) {
  const std::vector<Room> rooms = rooms_of(provinces);
  std::vector<int> number(nombre_provinces + 1, 0);
  for (const Région &région : données.régions) {
    std::vector<std::vector<double>> costs;
    for (const int wanted : région.provinces) {
      costs.emplace_back();
      for (const int grown : région.provinces)
        costs.back().push_back(misfit(lie, données.provinces[static_cast<std::size_t>(wanted)],
                                      rooms[static_cast<std::size_t>(grown)], provinces));
    }
    const std::vector<int> choice = cheapest_matching(costs);
    for (std::size_t k = 0; k < choice.size(); ++k)
      number[static_cast<std::size_t>(région.provinces[static_cast<std::size_t>(choice[k])])] =
          région.provinces[k];
  }
  for (std::size_t i = 0; i < provinces.size(); ++i)
    provinces[i] = number[static_cast<std::size_t>(provinces[i])];
}

class Settler {
 public:
  Settler(const Données &données, const Provinces &provinces, const Lie &lie)
      : données_(données), provinces_(provinces), lie_(lie), rooms_(rooms_of(provinces)) {
    sites_.centres.resize(nombre_provinces + 1);
  }

  /// All capitals first, for they have the first choice; then the others, province by province.
  Sites settle() {
    for (std::size_t p = 1; p <= nombre_provinces; ++p) {
      sites_.centres[p].resize(3);
      place(p, 0);
    }
    for (std::size_t p = 1; p <= nombre_provinces; ++p) {
      const auto &cities = données_.provinces[p].villes;
      const bool second_first = cities[0].indice == Indice::plaine && cities[1].indice != Indice::plaine;
      place(p, second_first ? 2 : 1);
      place(p, second_first ? 1 : 2);
    }
    return sites_;
  }

 private:
  void place(std::size_t p, std::size_t town) {
    const Province &province = données_.provinces[p];
    const Ville &ville = town == 0 ? province.capitale : province.villes[town - 1];
    const Room &room = rooms_[p];
    double best = std::numeric_limits<double>::max();
    Cell chosen;
    for (std::size_t k = 0; k < room.places.size(); ++k) {
      const Cell c = room.places[k];
      if (!free(c)) continue;
      const std::size_t i = provinces_.index(c.x, c.y);
      double cost =
          5 * want(lie_, ville.indice, i) + pleasantness(lie_, ville, town == 0, i) + crowding(p, c, room);
      cost += 1.8 * (1 - smooth_step(3.5, off_the_border + 0.5, room.margins[k]));
      if (room.margins[k] < at_the_border) cost += 6;
      if (town == 0) cost += 0.25 * distance(c, room.middle) / room.radius;
      if (cost >= best) continue;
      best = cost;
      chosen = c;
    }
    if (best == std::numeric_limits<double>::max())
      throw std::runtime_error("no room for " + ville.nom + " in " + province.nom);
    taken_.push_back(chosen);
    sites_.centres[p][town] = chosen;
    if (want(lie_, ville.indice, provinces_.index(chosen.x, chosen.y)) > is_unmet)
      sites_.unmet.push_back(ville.nom + " (" + province.nom + ") does not lie at '" +
                             static_cast<char>(ville.indice) + "'");
  }

  bool free(Cell c) const {
    for (const Cell other : taken_)
      if (!clear(c, other)) return false;
    return true;
  }

  static double distance(Cell c, Point p) {
    return std::sqrt((c.x - p.x) * (c.x - p.x) + (c.y - p.y) * (c.y - p.y));
  }

  /// Towns of a province keep apart; a capital leaves room for the two others.
  double crowding(std::size_t p, Cell c, const Room &room) const {
    double sum = 0;
    for (const Cell other : taken_) {
      const double d = distance(c, {static_cast<double>(other.x), static_cast<double>(other.y)});
      const bool same = provinces_.at(other.x, other.y) == static_cast<int>(p);
      sum += (same ? 0.9 : 0.4) * (1 - smooth_step(8, same ? 1.15 * room.radius : 18, d));
    }
    return sum;
  }

  const Données &données_;
  const Provinces &provinces_;
  const Lie &lie_;
  std::vector<Room> rooms_;
  std::vector<Cell> taken_;
  Sites sites_;
};

}  // namespace

Sites settle(const Données &données, Provinces &provinces, const Shores &shores, const Terrain &terrain,
             const std::vector<River> &rivers, std::size_t delta_arms) {
  const Lie lie = lie_of_the_land(shores, terrain, rivers, delta_arms);
  renumber(données, provinces, lie);
  return Settler(données, provinces, lie).settle();
}

}  // namespace atelier
