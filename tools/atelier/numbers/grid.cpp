#include "numbers/grid.h"

#include <cmath>

namespace atelier {
namespace {

/// Running mean over 2 r + 1 values of a line with a stride, edges repeated.
void box_filter(std::vector<double> &line, int radius) {
  const int n = static_cast<int>(line.size());
  const std::vector<double> source = line;
  const auto value = [&](int i) { return source[static_cast<std::size_t>(std::clamp(i, 0, n - 1))]; };
  double sum = 0;
  for (int i = -radius; i <= radius; ++i) sum += value(i);
  for (int i = 0; i < n; ++i) {
    line[static_cast<std::size_t>(i)] = sum / (2 * radius + 1);
    sum += value(i + radius + 1) - value(i - radius);
  }
}

template <typename Filter>
void over_lines(Field &field, const Filter &filter) {
  std::vector<double> row(static_cast<std::size_t>(field.width()));
  for (int y = 0; y < field.height(); ++y) {
    for (int x = 0; x < field.width(); ++x) row[static_cast<std::size_t>(x)] = field.at(x, y);
    filter(row);
    for (int x = 0; x < field.width(); ++x) field.at(x, y) = row[static_cast<std::size_t>(x)];
  }
  std::vector<double> column(static_cast<std::size_t>(field.height()));
  for (int x = 0; x < field.width(); ++x) {
    for (int y = 0; y < field.height(); ++y) column[static_cast<std::size_t>(y)] = field.at(x, y);
    filter(column);
    for (int y = 0; y < field.height(); ++y) field.at(x, y) = column[static_cast<std::size_t>(y)];
  }
}

/// Lower envelope of the parabolas that stand over the line's squared distances.
void squared_distances(std::vector<double> &line) {
  const std::size_t n = line.size();
  const std::vector<double> f = line;
  std::vector<std::size_t> site(n);
  std::vector<double> from(n + 1);
  std::size_t k = 0;
  site[0] = 0;
  from[0] = -1e30;
  from[1] = 1e30;
  const auto meeting = [&f](std::size_t a, std::size_t b) {
    const auto q = static_cast<double>(b);
    const auto p = static_cast<double>(a);
    return ((f[b] + q * q) - (f[a] + p * p)) / (2 * q - 2 * p);
  };
  for (std::size_t q = 1; q < n; ++q) {
    double s = meeting(site[k], q);
    while (k > 0 && s <= from[k]) s = meeting(site[--k], q);
    if (s <= from[k]) {
      site[k] = q;
      continue;
    }
    ++k;
    site[k] = q;
    from[k] = s;
    from[k + 1] = 1e30;
  }
  k = 0;
  for (std::size_t q = 0; q < n; ++q) {
    while (from[k + 1] < static_cast<double>(q)) ++k;
    const double d = static_cast<double>(q) - static_cast<double>(site[k]);
    line[q] = d * d + f[site[k]];
  }
}

}  // namespace

double sampled(const Field &field, double x, double y) {
  const double fx = std::floor(x - 0.5);
  const double fy = std::floor(y - 0.5);
  const int i = static_cast<int>(fx);
  const int j = static_cast<int>(fy);
  const double u = x - 0.5 - fx;
  const double v = y - 0.5 - fy;
  const double top = field.near(i, j) * (1 - u) + field.near(i + 1, j) * u;
  const double bottom = field.near(i, j + 1) * (1 - u) + field.near(i + 1, j + 1) * u;
  return top * (1 - v) + bottom * v;
}

Field doubled(const Field &field) {
  Field result(field.width() * 2, field.height() * 2);
  for (int y = 0; y < result.height(); ++y)
    for (int x = 0; x < result.width(); ++x) result.at(x, y) = sampled(field, (x + 0.5) / 2, (y + 0.5) / 2);
  return result;
}

Field halved(const Field &field) {
  Field result(field.width() / 2, field.height() / 2);
  for (int y = 0; y < result.height(); ++y)
    for (int x = 0; x < result.width(); ++x)
      result.at(x, y) = (field.at(2 * x, 2 * y) + field.at(2 * x + 1, 2 * y) + field.at(2 * x, 2 * y + 1) +
                         field.at(2 * x + 1, 2 * y + 1)) /
                        4;
  return result;
}

Field blurred(const Field &field, double deviation) {
  // Three boxes of width w have the variance 3 (w^2 - 1) / 12.
  const double ideal = std::sqrt(4 * deviation * deviation + 1);
  const int radius = std::max(0, static_cast<int>(std::floor(ideal / 2)));
  Field result = field;
  if (radius > 0)
    for (int pass = 0; pass < 3; ++pass)
      over_lines(result, [radius](std::vector<double> &line) { box_filter(line, radius); });
  return result;
}

Field distance_to(const Mask &mask) {
  Field result(mask.width(), mask.height());
  for (std::size_t i = 0; i < mask.size(); ++i) result[i] = mask[i] ? 0 : 1e12;
  over_lines(result, squared_distances);
  for (std::size_t i = 0; i < result.size(); ++i) result[i] = std::sqrt(result[i]);
  return result;
}

Grid<int> pieces(const Mask &mask, std::vector<int> &sizes) {
  Grid<int> numbers(mask.width(), mask.height(), 0);
  sizes.assign(1, 0);
  std::vector<std::size_t> open;
  for (std::size_t start = 0; start < mask.size(); ++start) {
    if (!mask[start] || numbers[start] != 0) continue;
    const int number = static_cast<int>(sizes.size());
    sizes.push_back(0);
    numbers[start] = number;
    open.push_back(start);
    while (!open.empty()) {
      const Cell c = mask.cell(open.back());
      open.pop_back();
      ++sizes.back();
      for (std::size_t k = 0; k < side_neighbours; ++k) {
        const int x = c.x + neighbours[k].x;
        const int y = c.y + neighbours[k].y;
        if (!mask.contains(x, y) || !mask.at(x, y) || numbers.at(x, y) != 0) continue;
        numbers.at(x, y) = number;
        open.push_back(mask.index(x, y));
      }
    }
  }
  return numbers;
}

}  // namespace atelier
