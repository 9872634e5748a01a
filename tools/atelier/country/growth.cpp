#include "country/growth.h"

#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <queue>
#include <tuple>

namespace atelier {
namespace {

constexpr double never = 1e18;

/// A label that reaches a cell at a time.
struct Front {
  double time = 0;
  std::size_t cell = 0;
  int label = 0;
  bool operator>(const Front &other) const {
    return std::tie(time, cell, label) > std::tie(other.time, other.cell, other.label);
  }
};

struct Box {
  int left = 1 << 30, top = 1 << 30, right = -1, bottom = -1;
};

std::vector<Box> boxes_of(const Grid<int> &labels) {
  std::vector<Box> boxes;
  for (int y = 0; y < labels.height(); ++y)
    for (int x = 0; x < labels.width(); ++x) {
      const auto l = static_cast<std::size_t>(labels.at(x, y));
      if (l >= boxes.size()) boxes.resize(l + 1);
      Box &b = boxes[l];
      b.left = std::min(b.left, x);
      b.right = std::max(b.right, x);
      b.top = std::min(b.top, y);
      b.bottom = std::max(b.bottom, y);
    }
  return boxes;
}

/// Whether a cell of the grid of twice the cells a side lies in the rectangle.
bool within_doubled(const Box &b, Cell c) {
  return c.x >= 2 * b.left && c.x <= 2 * b.right + 1 && c.y >= 2 * b.top && c.y <= 2 * b.bottom + 1;
}

/// How strong a label is around every cell of its surroundings: the blurred picture of the label alone.
struct Strength {
  Cell origin;
  Field values;
};

Strength strength_of(const Grid<int> &labels, int label, const Box &box, double deviation) {
  const int pad = static_cast<int>(4 * deviation) + 3;
  Strength s{{box.left - pad, box.top - pad},
             Field(box.right - box.left + 1 + 2 * pad, box.bottom - box.top + 1 + 2 * pad, 0)};
  for (int y = box.top; y <= box.bottom; ++y)
    for (int x = box.left; x <= box.right; ++x)
      if (labels.at(x, y) == label) s.values.at(x - s.origin.x, y - s.origin.y) = 1;
  s.values = blurred(s.values, deviation);
  return s;
}

/// Arrival time from the neighbour across and the neighbour above or below, with the costs of a step either
/// way: the greater root of ((T - across) / c)^2 + ((T - down) / d)^2 = 1, or the time of the faster step
/// alone.
double arrival(double across, double down, double c, double d) {
  const double one_way = std::min(across + c, down + d);
  const double p = 1 / (c * c);
  const double q = 1 / (d * d);
  const double middle = (p * across + q * down) / (p + q);
  const double under_root = middle * middle - (p * across * across + q * down * down - 1) / (p + q);
  if (across >= never || down >= never || under_root < 0) return one_way;
  const double both = middle + std::sqrt(under_root);
  return both > std::max(across, down) ? both : one_way;
}

}  // namespace

Grid<int> grow(const std::vector<Seed> &seeds, const Field &cost, const Grid<int> &zone) {
  Grid<int> labels(cost.width(), cost.height(), 0);
  Field time(cost.width(), cost.height(), never);
  std::priority_queue<Front, std::vector<Front>, std::greater<>> open;
  for (std::size_t i = 0; i < seeds.size(); ++i) {
    const std::size_t at = cost.index(seeds[i].place.x, seeds[i].place.y);
    if (zone[at] == 0 || -seeds[i].advance >= time[at]) continue;
    time[at] = -seeds[i].advance;
    open.push({time[at], at, static_cast<int>(i) + 1});
  }
  while (!open.empty()) {
    const Front front = open.top();
    open.pop();
    const std::size_t i = front.cell;
    if (labels[i] != 0 || front.time > time[i]) continue;
    labels[i] = front.label;
    const Cell c = cost.cell(i);
    for (std::size_t k = 0; k < side_neighbours; ++k) {
      const int x = c.x + neighbours[k].x;
      const int y = c.y + neighbours[k].y;
      if (!cost.contains(x, y) || zone.at(x, y) != zone[i] || labels.at(x, y) != 0) continue;
      const auto settled = [&](int dx, int dy) {
        if (!cost.contains(x + dx, y + dy) || labels.at(x + dx, y + dy) != front.label) return never;
        return time.at(x + dx, y + dy);
      };
      const double across = std::min(settled(-1, 0), settled(1, 0));
      const double down = std::min(settled(0, -1), settled(0, 1));
      const double when = arrival(across, down, cost.at(x, y), steepness * cost.at(x, y));
      if (when >= time.at(x, y)) continue;
      time.at(x, y) = when;
      open.push({when, cost.index(x, y), front.label});
    }
  }
  return labels;
}

Grid<int> grow_balanced(std::vector<Seed> seeds, const std::vector<double> &targets, const Field &cost,
                        const Grid<int> &zone, int rounds, int moves) {
  Grid<int> labels;
  for (int round = 0; round < rounds; ++round) {
    labels = grow(seeds, cost, zone);
    std::vector<std::array<double, 4>> sums(seeds.size() + 1, {0, 0, 0, 0});
    for (std::size_t i = 0; i < labels.size(); ++i) {
      auto &s = sums[static_cast<std::size_t>(labels[i])];
      const Cell c = labels.cell(i);
      s[0] += 1;
      s[1] += c.x;
      s[2] += c.y;
      s[3] += cost[i];
    }
    if (round + 1 == rounds) break;
    for (std::size_t k = 0; k < seeds.size(); ++k) {
      const auto &s = sums[k + 1];
      const double radius = std::sqrt(targets[k] / 3.14159265358979) * (s[0] > 0 ? s[3] / s[0] : 1);
      const double lack = std::clamp((targets[k] - s[0]) / targets[k], -1.0, 1.0);
      seeds[k].advance += 0.28 * lack * radius;
      if (round >= moves || s[0] == 0) continue;
      const double mx = s[1] / s[0];
      const double my = s[2] / s[0];
      double best = never;
      for (int y = std::max(0, static_cast<int>(my) - 12);
           y < std::min(labels.height(), static_cast<int>(my) + 13); ++y)
        for (int x = std::max(0, static_cast<int>(mx) - 12);
             x < std::min(labels.width(), static_cast<int>(mx) + 13); ++x) {
          if (labels.at(x, y) != static_cast<int>(k) + 1) continue;
          const double d = (x - mx) * (x - mx) + (y - my) * (y - my);
          if (d >= best) continue;
          best = d;
          seeds[k].place = {x, y};
        }
    }
  }
  return labels;
}

void smooth_labels(Grid<int> &labels, double deviation) {
  const std::vector<Box> boxes = boxes_of(labels);
  Grid<int> result(labels.width(), labels.height(), 0);
  Field best(labels.width(), labels.height(), 0);
  for (std::size_t l = 1; l < boxes.size(); ++l) {
    if (boxes[l].right < 0) continue;
    const Strength s = strength_of(labels, static_cast<int>(l), boxes[l], deviation);
    for (int j = 0; j < s.values.height(); ++j)
      for (int i = 0; i < s.values.width(); ++i) {
        const int x = i + s.origin.x;
        const int y = j + s.origin.y;
        if (!labels.contains(x, y) || labels.at(x, y) == 0 || s.values.at(i, j) <= best.at(x, y)) continue;
        best.at(x, y) = s.values.at(i, j);
        result.at(x, y) = static_cast<int>(l);
      }
  }
  labels = result;
}

void hand_over_strips(Grid<int> &labels, double half_width, int smallest) {
  const Grid<int> before = labels;
  const std::vector<Box> boxes = boxes_of(before);
  for (std::size_t l = 1; l < boxes.size(); ++l) {
    const Box &b = boxes[l];
    if (b.right < 0) continue;
    const auto label_at = [&](int x, int y) { return before.contains(x, y) ? before.at(x, y) : 0; };
    const auto own = [&](int x, int y) { return label_at(x, y) == static_cast<int>(l); };
    Mask outside(b.right - b.left + 3, b.bottom - b.top + 3, 0);
    const auto each = [&](const auto &visit) {
      for (int j = 0; j < outside.height(); ++j)
        for (int i = 0; i < outside.width(); ++i) visit(i, j, b.left - 1 + i, b.top - 1 + j);
    };
    each([&](int i, int j, int x, int y) { outside.at(i, j) = !own(x, y); });
    const Field depth = distance_to(outside);
    Mask deep = outside;
    for (std::size_t i = 0; i < deep.size(); ++i) deep[i] = depth[i] > half_width;
    const Field from_deep = distance_to(deep);
    Mask strip = outside;
    for (std::size_t i = 0; i < strip.size(); ++i) strip[i] = !outside[i] && from_deep[i] > half_width + 1;
    std::vector<int> sizes;
    const Grid<int> numbers = pieces(strip, sizes);
    std::vector<std::map<int, int>> beside(sizes.size());
    each([&](int i, int j, int x, int y) {
      for (std::size_t k = 0; k < side_neighbours && numbers.at(i, j) != 0; ++k)
        if (const int other = label_at(x + neighbours[k].x, y + neighbours[k].y); other != 0)
          ++beside[static_cast<std::size_t>(numbers.at(i, j))][other];
    });
    each([&](int i, int j, int x, int y) {
      const auto n = static_cast<std::size_t>(numbers.at(i, j));
      if (n == 0 || sizes[n] < smallest) return;
      auto around = beside[n];
      around.erase(static_cast<int>(l));
      const auto longest = std::max_element(around.begin(), around.end(),
                                            [](const auto &p, const auto &q) { return p.second < q.second; });
      // A headland has the other label at its neck alone.
      if (longest != around.end() && longest->second * half_width > sizes[n] / 2.0)
        labels.at(x, y) = longest->first;
    });
  }
}

void join_pieces(Grid<int> &labels) {
  for (bool changed = true; changed;) {
    changed = false;
    const std::vector<Box> boxes = boxes_of(labels);
    for (std::size_t l = 1; l < boxes.size(); ++l) {
      if (boxes[l].right < 0) continue;
      const Box &b = boxes[l];
      Mask mask(b.right - b.left + 1, b.bottom - b.top + 1, 0);
      for (int y = b.top; y <= b.bottom; ++y)
        for (int x = b.left; x <= b.right; ++x)
          mask.at(x - b.left, y - b.top) = labels.at(x, y) == static_cast<int>(l);
      std::vector<int> sizes;
      const Grid<int> numbers = pieces(mask, sizes);
      if (sizes.size() <= 2) continue;
      const auto largest = static_cast<int>(std::max_element(sizes.begin(), sizes.end()) - sizes.begin());
      std::vector<std::map<int, int>> around(sizes.size());
      for (int y = b.top; y <= b.bottom; ++y)
        for (int x = b.left; x <= b.right; ++x) {
          const int piece = numbers.at(x - b.left, y - b.top);
          if (piece == 0 || piece == largest) continue;
          for (std::size_t k = 0; k < side_neighbours; ++k) {
            const int nx = x + neighbours[k].x;
            const int ny = y + neighbours[k].y;
            if (!labels.contains(nx, ny)) continue;
            const int other = labels.at(nx, ny);
            if (other != 0 && other != static_cast<int>(l)) ++around[static_cast<std::size_t>(piece)][other];
          }
        }
      for (int y = b.top; y <= b.bottom; ++y)
        for (int x = b.left; x <= b.right; ++x) {
          const int piece = numbers.at(x - b.left, y - b.top);
          if (piece == 0 || piece == largest) continue;
          const auto &candidates = around[static_cast<std::size_t>(piece)];
          const auto strongest =
              std::max_element(candidates.begin(), candidates.end(),
                               [](const auto &p, const auto &q) { return p.second < q.second; });
          labels.at(x, y) = strongest == candidates.end() ? 0 : strongest->first;
          changed = true;
        }
    }
  }
}

Grid<int> doubled_labels(const Grid<int> &labels, const Mask &domain) {
  constexpr double deviation = 1.3;
  const std::vector<Box> boxes = boxes_of(labels);
  Grid<int> result(domain.width(), domain.height(), 0);
  Field best(domain.width(), domain.height(), 0);
  for (std::size_t l = 1; l < boxes.size(); ++l) {
    if (boxes[l].right < 0) continue;
    const Strength s = strength_of(labels, static_cast<int>(l), boxes[l], deviation);
    for (int j = 0; j < 2 * s.values.height(); ++j)
      for (int i = 0; i < 2 * s.values.width(); ++i) {
        const int x = i + 2 * s.origin.x;
        const int y = j + 2 * s.origin.y;
        if (!domain.contains(x, y) || !domain.at(x, y)) continue;
        if (!within_doubled(boxes[l], {x, y})) continue;
        const double v = sampled(s.values, (i + 0.5) / 2, (j + 0.5) / 2);
        if (v <= best.at(x, y)) continue;
        best.at(x, y) = v;
        result.at(x, y) = static_cast<int>(l);
      }
  }
  join_pieces(result);
  // What a joined piece would add beyond its new label's rectangle is a cell or two of shore.
  for (std::size_t i = 0; i < result.size(); ++i) {
    const Box &b = boxes[static_cast<std::size_t>(result[i])];
    const Cell c = result.cell(i);
    if (result[i] != 0 && !within_doubled(b, c)) result[i] = 0;
  }
  return result;
}

}  // namespace atelier
