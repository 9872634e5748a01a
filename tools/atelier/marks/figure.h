// The hand in which buttons, icons and marks are drawn: flat coloured shapes under a soft light from above, a
// dark outline, and around the whole a white edge that keeps it readable on dark ground.
#pragma once

#include <string_view>
#include <vector>

#include "drawing/image.h"
#include "drawing/path.h"

namespace atelier {

namespace teinte {
inline constexpr Pixel encre{34, 40, 60};
inline constexpr Pixel blanc{255, 255, 255};
inline constexpr Pixel ivoire{253, 248, 234};
inline constexpr Pixel jaune{255, 206, 56};
inline constexpr Pixel ocre{226, 158, 40};
inline constexpr Pixel rouge{206, 46, 42};
inline constexpr Pixel bordeaux{112, 22, 24};
inline constexpr Pixel bleu{62, 116, 188};
inline constexpr Pixel azur{158, 203, 236};
inline constexpr Pixel vert{92, 164, 78};
inline constexpr Pixel sapin{48, 104, 62};
inline constexpr Pixel gris{146, 153, 168};
inline constexpr Pixel perle{220, 224, 231};
inline constexpr Pixel bois{166, 112, 62};
}  // namespace teinte

/// One shape of a figure: filled from `haut` at its upper end to `bas` at its lower end.
struct Aplat {
  Path forme;
  Pixel haut;
  Pixel bas;
  bool cerné = true;  // has the outline; a detail inside another shape has none
};

/// Shapes from the hindmost to the foremost, in units of the figure's own frame.
using Figure = std::vector<Aplat>;

Aplat cerné(Path forme, Pixel couleur);
Aplat cerné(Path forme, Pixel haut, Pixel bas);
Aplat détail(Path forme, Pixel couleur);
Aplat détail(Path forme, Pixel haut, Pixel bas);

/// The path of SVG data `d` drawn with a pen of `largeur`.
Path trait(std::string_view d, double largeur, Cap bout = Cap::round);
Path disque(Point centre, double rayon);
Path anneau(Point centre, double rayon, double largeur);
/// Part of a circle drawn with a pen, angles in degrees clockwise from the right.
Path arc(Point centre, double rayon, double de, double à, double largeur);
/// A star with its first point upward.
Path étoile(Point centre, double rayon, double rayon_intérieur, int pointes);
Path rectangle_arrondi(double x, double y, double largeur, double hauteur, double rayon);

/// Of the white edge, of 255.
inline constexpr int opacité_du_liseré = 225;

/// How a figure becomes a picture.
struct Rendu {
  int largeur = 0;      // pixels
  int hauteur = 0;      // pixels
  double échelle = 1;   // pixels a unit of the figure's frame
  double cerne = 1.0;   // pixels of outline
  double liseré = 1.0;  // pixels of white edge, 0 for none
};
Image dessiner(const Figure &figure, const Rendu &rendu);

}  // namespace atelier
