#include "ornaments.h"

#include "plan.h"

namespace atelier {
namespace {

constexpr Pixel ink{62, 74, 92, 255};
constexpr Pixel paper{246, 243, 232, 255};

Path frame_line(double inset, double width) {
  Path path;
  path.add_rectangle(inset, inset, largeur_carte - 2 * inset, hauteur_carte - 2 * inset);
  return stroked(path, width, Cap::butt, Join::mitre);
}

}  // namespace

void draw_ornaments(Image &image, int scale) {
  const Affine zoom = Affine::scaling(scale, scale);
  const auto put = [&](const Path &path, Pixel colour) { fill(image, path.transformed(zoom), colour); };
  put(frame_line(1.5, 3), paper);
  put(frame_line(3.5, 1), ink);
}

}  // namespace atelier
