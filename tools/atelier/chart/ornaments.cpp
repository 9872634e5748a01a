#include "chart/ornaments.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "chart/relief.h"
#include "drawing/raster.h"
#include "numbers/math.h"
#include "terrain/plan.h"

namespace atelier {
namespace {

constexpr Pixel ink{52, 66, 92, 255};
constexpr Pixel red_ink{132, 44, 36, 255};
constexpr Pixel paper{247, 243, 229, 255};
constexpr Pixel gold{196, 158, 88, 255};

/// Map kilometres a pixel: the country is about four hundred kilometres across.
constexpr double kilometres = 1;

/// The graticule: pixels of a degree at this latitude, and the first full degrees inside the frame.
constexpr double degree_across = 79;
constexpr double degree_down = 111;
constexpr double west_degree = 52;
constexpr double north_degree = 84;
constexpr int westmost = 3;
constexpr int northmost = 47;

/// Draws in map pixels on the picture.
class Pen {
 public:
  Pen(Image &image, int scale) : image_(image), zoom_(Affine::scaling(scale, scale)) {}
  void fill(const Path &path, Pixel colour, Fill_rule rule = Fill_rule::non_zero) {
    atelier::fill(image_, path.transformed(zoom_), colour, rule);
  }
  void line(const Path &path, double width, Pixel colour, Join join = Join::mitre) {
    fill(stroked(path, width, Cap::butt, join), colour);
  }

 private:
  Image &image_;
  Affine zoom_;
};

Pixel with_opacity(Pixel colour, int opacity) {
  colour.a = static_cast<std::uint8_t>(opacity);
  return colour;
}

Path rectangle(double x, double y, double width, double height) {
  Path path;
  path.add_rectangle(x, y, width, height);
  return path;
}

Point on_circle(Point centre, double radius, double turn) {
  return {centre.x + radius * sine(2 * pi * turn), centre.y - radius * cosine(2 * pi * turn)};
}

double width_of(const std::map<char, Letter> &letters, std::string_view text, double spacing) {
  double width = -spacing;
  for (const char c : text) width += letters.at(c).width + spacing;
  return width;
}

/// Sets a text with the middle of its foot line at `foot`, letters of the given height.
Path set_text(const std::map<char, Letter> &letters, std::string_view text, Point foot, double height,
              double spacing) {
  const double k = height / 100;
  double x = foot.x - k * width_of(letters, text, spacing) / 2;
  Path result;
  for (const char c : text) {
    const Letter &letter = letters.at(c);
    result.add(letter.shape.transformed({k, 0, x, 0, k, foot.y - height}));
    x += k * (letter.width + spacing);
  }
  return result;
}

/// A frame whose band changes its colour every half degree, with the full degrees told inside it.
void draw_frame(Pen &pen, const Lettering &lettering) {
  const auto ring = [&pen](double inset, double width, Pixel colour) {
    pen.line(rectangle(inset, inset, largeur_carte - 2 * inset, hauteur_carte - 2 * inset), width, colour);
  };
  ring(3, 6, paper);
  constexpr double inner = 5.5;
  constexpr double band = 1.5;
  const auto sides = [&](double extent, double other, double first, double step, bool across) {
    const auto bar = [&](double from, double to, double at) {
      from = std::max(from, inner - band);
      to = std::min(to, extent - inner + band);
      if (to > from)
        pen.fill(across ? rectangle(from, at, to - from, band) : rectangle(at, from, band, to - from), ink);
    };
    for (double at = first; at < extent; at += step) {
      bar(at, at + step / 2, inner - band);
      bar(at, at + step / 2, other - inner);
    }
  };
  sides(largeur_carte, hauteur_carte, west_degree - degree_across, degree_across, true);
  sides(hauteur_carte, largeur_carte, north_degree - degree_down, degree_down, false);
  ring(inner - band - 0.2, 0.4, ink);
  ring(inner + 0.3, 0.6, ink);
  const auto degrees = [&](int number, Point foot) {
    const Path shape = set_text(lettering.drawn, std::to_string(number) + "o", foot, 5, 18);
    pen.fill(stroked(shape, 1.6), with_opacity(paper, 150));
    pen.fill(stroked(shape, 0.6), ink);
  };
  const auto tick = [&](Point from, Point to) {
    pen.fill(stroked(Path().move_to(from).line_to(to), 0.5), ink);
  };
  int number = westmost;
  for (double x = west_degree; x < largeur_carte - 20; x += degree_across, ++number) {
    tick({x, inner}, {x, inner + 3});
    tick({x, hauteur_carte - inner}, {x, hauteur_carte - inner - 3});
    degrees(number, {x, inner + 10});
    degrees(number, {x, hauteur_carte - inner - 5});
  }
  number = northmost;
  for (double y = north_degree; y < hauteur_carte - 20; y += degree_down, --number) {
    tick({inner, y}, {inner + 3, y});
    tick({largeur_carte - inner, y}, {largeur_carte - inner - 3, y});
    degrees(number, {inner + 10, y + 2});
    degrees(number, {largeur_carte - inner - 10, y + 2});
  }
}

/// The tints of the heights from the shore up, with the height at which each begins.
void draw_heights(Pen &pen, const Lettering &lettering, Point left) {
  constexpr std::array<std::pair<double, const char *>, 6> steps{
      {{0, "0"}, {200, "200"}, {500, "500"}, {1000, "1000"}, {2000, "2000"}, {3000, "3000 m"}}};
  constexpr double field = 24;
  constexpr double height = 5;
  for (std::size_t k = 0; k < steps.size(); ++k) {
    const double x = left.x + field * static_cast<double>(k);
    pen.fill(rectangle(x, left.y, field, height), height_tint(steps[k].first));
    const Path figure =
        set_text(lettering.drawn, steps[k].second, {x + (k == 0 ? 0 : 1), left.y - 2.5}, 5, 20);
    pen.fill(stroked(figure, 0.7), ink);
  }
  for (std::size_t k = 1; k < steps.size(); ++k)
    pen.fill(rectangle(left.x + field * static_cast<double>(k) - 0.2, left.y, 0.4, height), ink);
  pen.line(rectangle(left.x, left.y, field * steps.size(), height), 0.5, ink);
}

/// A point of the star: one half dark, the other light.
void draw_ray(Pen &pen, Point centre, double length, double half_width, double turn, Pixel dark) {
  const Point tip = on_circle(centre, length, turn);
  const Point left = on_circle(centre, half_width, turn - 0.125);
  const Point right = on_circle(centre, half_width, turn + 0.125);
  pen.fill(polygon({centre, tip, left}), paper);
  pen.fill(polygon({centre, right, tip}), dark);
  pen.line(polygon({centre, left, tip, right}), 0.45, ink, Join::bevel);
}

void draw_compass(Pen &pen, const Lettering &lettering, Point centre, double radius) {
  Path outer;
  outer.add_circle(centre, radius * 0.66);
  pen.line(outer, 0.5, ink);
  Path inner;
  inner.add_circle(centre, radius * 0.6);
  pen.line(inner, 0.9, ink);
  for (int tick = 0; tick < 32; ++tick) {
    Path mark;
    const double turn = tick / 32.0;
    mark.move_to(on_circle(centre, radius * 0.6, turn)).line_to(on_circle(centre, radius * 0.66, turn));
    pen.line(mark, 0.4, ink);
  }
  for (int k = 0; k < 8; ++k) draw_ray(pen, centre, radius * 0.5, radius * 0.1, (2 * k + 1) / 16.0, gold);
  for (int k = 0; k < 4; ++k) draw_ray(pen, centre, radius * 0.74, radius * 0.15, (2 * k + 1) / 8.0, gold);
  for (int k = 0; k < 4; ++k) draw_ray(pen, centre, radius, radius * 0.2, k / 4.0, k == 0 ? red_ink : ink);
  pen.fill(set_text(lettering.filled, "N", {centre.x, centre.y - radius - 3}, 9, 0), ink,
           Fill_rule::even_odd);
}

/// A bar of alternating fields with its figures above.
void draw_scale_bar(Pen &pen, const Lettering &lettering, Point left) {
  constexpr double field = 25 / kilometres;
  constexpr double height = 3;
  pen.fill(rectangle(left.x, left.y, 4 * field, height), paper);
  for (int k = 0; k < 4; k += 2) pen.fill(rectangle(left.x + k * field, left.y, field, height), ink);
  pen.line(rectangle(left.x, left.y, 4 * field, height), 0.6, ink);
  const auto figure = [&](const char *text, double x) {
    constexpr double size = 6.5;
    const Path shape = set_text(lettering.drawn, text, {left.x + x, left.y - 2.5}, size, 22);
    pen.fill(stroked(shape, 0.85), ink);
  };
  figure("0", 0);
  figure("50", 2 * field);
  figure("100 km", 4 * field);
}

/// A rectangle whose corners are cut by quarter circles that bend inward.
Path plaque(double x, double y, double width, double height, double cut) {
  const double k = 0.5523 * cut;
  Path path;
  path.move_to({x + cut, y}).line_to({x + width - cut, y});
  path.curve_to({x + width - cut, y + k}, {x + width - k, y + cut}, {x + width, y + cut});
  path.line_to({x + width, y + height - cut});
  path.curve_to({x + width - k, y + height - cut}, {x + width - cut, y + height - k},
                {x + width - cut, y + height});
  path.line_to({x + cut, y + height});
  path.curve_to({x + cut, y + height - k}, {x + k, y + height - cut}, {x, y + height - cut});
  path.line_to({x, y + cut});
  path.curve_to({x + k, y + cut}, {x + cut, y + k}, {x + cut, y});
  return path.close();
}

void draw_cartouche(Pen &pen, const Lettering &lettering, Point centre) {
  constexpr double width = 206;
  constexpr double height = 52;
  const double x = centre.x - width / 2;
  const double y = centre.y - height / 2;
  for (int k = 4; k >= 1; --k)
    pen.fill(plaque(x - 0.5 * k + 2, y - 0.5 * k + 2, width + k, height + k, 9), {40, 60, 90, 26});
  pen.fill(plaque(x, y, width, height, 9), paper);
  pen.line(plaque(x, y, width, height, 9), 1.1, ink, Join::round);
  pen.line(plaque(x + 3.5, y + 3.5, width - 7, height - 7, 9), 0.6, gold, Join::round);
  pen.fill(set_text(lettering.filled, "ARDANE", {centre.x, centre.y + 11.5}, 23, 34), red_ink,
           Fill_rule::even_odd);
  for (const double side : {-1.0, 1.0}) {
    const double tip = centre.x + side * 40;
    pen.fill(polygon({{tip, centre.y + 18},
                      {centre.x + side * 5, centre.y + 17.6},
                      {centre.x + side * 5, centre.y + 18.4}}),
             gold);
  }
  pen.fill(polygon({{centre.x - 3, centre.y + 18},
                    {centre.x, centre.y + 16},
                    {centre.x + 3, centre.y + 18},
                    {centre.x, centre.y + 20}}),
           gold);
}

}  // namespace

Lettering lire_lettres(const std::filesystem::path &fichier) {
  std::ifstream in(fichier, std::ios::binary);
  if (!in) throw std::runtime_error(fichier.string() + ": cannot be read");
  Lettering lettering;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line.front() == '#') continue;
    const auto first = line.find('|');
    const auto second = line.find('|', first + 1);
    const auto third = line.find('|', second + 1);
    const std::string kind = line.substr(0, first);
    if (third == std::string::npos || second != first + 2 || (kind != "lettre" && kind != "trait"))
      throw std::runtime_error(fichier.string() + ": not understood: " + line);
    const Letter letter{static_cast<double>(std::stoi(line.substr(second + 1, third - second - 1))),
                        path_from_svg(std::string_view(line).substr(third + 1), 0.2)};
    (kind == "lettre" ? lettering.filled : lettering.drawn)[line[first + 1]] = letter;
  }
  return lettering;
}

void draw_ornaments(Image &image, const Lettering &lettering, int scale) {
  Pen pen(image, scale);
  draw_frame(pen, lettering);
  draw_compass(pen, lettering, {58, 86}, 34);
  draw_scale_bar(pen, lettering, {30, 636});
  draw_heights(pen, lettering, {170, 634});
  draw_cartouche(pen, lettering, {476, 606});
}

}  // namespace atelier
