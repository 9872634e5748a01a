#include "terrain/plan.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>

#include "files/data.h"
#include "numbers/math.h"

namespace atelier {
namespace {

std::vector<std::string> split(const std::string &text, char separator) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == separator)
      parts.emplace_back();
    else
      parts.back() += c;
  }
  std::erase(parts, std::string());
  return parts;
}

/// Reads a decimal number exactly rounded, whatever the locale.
double number(const std::string &text) {
  std::size_t i = 0;
  const bool negative = !text.empty() && text[0] == '-';
  if (negative) ++i;
  double whole = 0;
  double divisor = 1;
  bool behind_point = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '.' && !behind_point) {
      behind_point = true;
      continue;
    }
    if (c < '0' || c > '9') throw std::invalid_argument("not a number: " + text);
    whole = whole * 10 + (c - '0');
    if (behind_point) divisor *= 10;
  }
  return negative ? -whole / divisor : whole / divisor;
}

std::vector<Coast_point> coast_points(const std::string &text) {
  std::vector<Coast_point> points;
  for (const std::string &item : split(text, ' ')) {
    const auto part = split(item, ',');
    points.push_back({{number(part.at(0)), number(part.at(1))}, number(part.at(2))});
  }
  return points;
}

std::vector<Point> points(const std::string &text) {
  std::vector<Point> result;
  for (const std::string &item : split(text, ' ')) {
    const auto part = split(item, ',');
    result.push_back({number(part.at(0)), number(part.at(1))});
  }
  return result;
}

using Fields = std::vector<std::string>;

Stretch stretch(const Fields &f) {
  return {{number(f.at(1)), number(f.at(2))}, number(f.at(3))};
}

const std::map<std::string, std::function<void(Plan &, const Fields &)>> &line_kinds() {
  static const std::map<std::string, std::function<void(Plan &, const Fields &)>> kinds = {
      {"graine", [](Plan &p, const Fields &f) { p.seed = static_cast<std::uint64_t>(number(f.at(1))); }},
      {"côte", [](Plan &p, const Fields &f) { p.coast = coast_points(f.at(1)); }},
      {"île", [](Plan &p, const Fields &f) { p.islands.push_back(coast_points(f.at(2))); }},
      {"frontière", [](Plan &p, const Fields &f) { p.border = points(f.at(1)); }},
      {"relief",
       [](Plan &p, const Fields &f) {
         p.ridges.push_back({number(f.at(1)), number(f.at(2)), points(f.at(3))});
       }},
      {"fleuve",
       [](Plan &p, const Fields &f) {
         p.rivers.push_back({number(f.at(1)), points(f.at(2))});
       }},
      {"bras",
       [](Plan &p, const Fields &f) {
         p.arms.push_back({number(f.at(1)), number(f.at(2)), points(f.at(3))});
       }},
      {"lac",
       [](Plan &p, const Fields &f) {
         p.lakes.push_back({{number(f.at(1)), number(f.at(2))},
                            number(f.at(3)),
                            number(f.at(4)),
                            number(f.at(5)) * pi / 180});
       }},
      {"forêt", [](Plan &p, const Fields &f) { p.forests.push_back(stretch(f)); }},
      {"vignes", [](Plan &p, const Fields &f) { p.vineyards.push_back(stretch(f)); }},
      {"karst", [](Plan &p, const Fields &f) { p.karst.push_back(stretch(f)); }},
      {"falaise", [](Plan &p, const Fields &f) { p.cliffs.push_back(stretch(f)); }},
      {"volcan",
       [](Plan &p, const Fields &f) {
         p.volcanoes.push_back({stretch(f), number(f.at(4))});
       }},
      {"îlot",
       [](Plan &p, const Fields &f) {
         p.islets.push_back({number(f.at(1)), points(f.at(2))});
       }},
      {"ria",
       [](Plan &p, const Fields &f) {
         p.rias.push_back({number(f.at(1)), points(f.at(2))});
       }},
      {"région",
       [](Plan &p, const Fields &f) {
         const auto r = static_cast<std::size_t>(number(f.at(1)));
         p.anchors.at(r) = {number(f.at(2)), number(f.at(3))};
         p.spaciousness.at(r) = number(f.at(4));
       }},
  };
  return kinds;
}

}  // namespace

Plan lire_plan(const std::filesystem::path &fichier) {
  std::ifstream in(fichier, std::ios::binary);
  if (!in) throw std::runtime_error(fichier.string() + ": cannot be read");
  Plan plan;
  plan.anchors.resize(nombre_régions + 1);
  plan.spaciousness.resize(nombre_régions + 1, 1);
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line.front() == '#') continue;
    const Fields fields = split(line, '|');
    try {
      line_kinds().at(fields.at(0))(plan, fields);
    } catch (const std::exception &) {
      throw std::runtime_error(fichier.string() + ": not understood: " + line);
    }
  }
  return plan;
}

std::vector<Point> smooth_line(const std::vector<Point> &points, double step, bool closed) {
  std::vector<Point> result;
  const auto n = static_cast<int>(points.size());
  const auto at = [&](int i) -> Point {
    return closed ? points[static_cast<std::size_t>((i + n) % n)]
                  : points[static_cast<std::size_t>(std::clamp(i, 0, n - 1))];
  };
  const int segments = closed ? n : n - 1;
  for (int i = 0; i < segments; ++i) {
    const Point a = at(i - 1), b = at(i), c = at(i + 1), d = at(i + 2);
    const double length = std::sqrt((c.x - b.x) * (c.x - b.x) + (c.y - b.y) * (c.y - b.y));
    const int pieces = std::max(1, static_cast<int>(std::ceil(length / step)));
    for (int k = 0; k < pieces; ++k) {
      const double t = static_cast<double>(k) / pieces;
      const auto spline = [t](double p, double q, double r, double s) {
        return 0.5 * (2 * q + (r - p) * t + (2 * p - 5 * q + 4 * r - s) * t * t +
                      (3 * q - p - 3 * r + s) * t * t * t);
      };
      result.push_back({spline(a.x, b.x, c.x, d.x), spline(a.y, b.y, c.y, d.y)});
    }
  }
  if (!closed) result.push_back(points.back());
  return result;
}

double within(const std::vector<Stretch> &stretches, Point p) {
  double most = 0;
  for (const Stretch &s : stretches) most = std::max(most, 1 - length(p - s.centre) / s.radius);
  return most;
}

double distance_to_line(const std::vector<Point> &line, Point p) {
  double best = 1e30;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    const Point a = line[i];
    const Point d{line[i + 1].x - a.x, line[i + 1].y - a.y};
    const double l2 = d.x * d.x + d.y * d.y;
    const double t = l2 == 0 ? 0 : clamp01(((p.x - a.x) * d.x + (p.y - a.y) * d.y) / l2);
    const double dx = p.x - a.x - t * d.x;
    const double dy = p.y - a.y - t * d.y;
    best = std::min(best, dx * dx + dy * dy);
  }
  return std::sqrt(best);
}

}  // namespace atelier
