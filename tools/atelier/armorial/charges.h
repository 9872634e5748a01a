// The charges of the arms: vector shapes drawn by hand in the file charges.txt of the data folder.
//
// The file is a sequence of charges; "//" begins a comment.
//
//   meuble|tour|tours|f       name, plural, gender (f or m)
//   boîte 60 100              width and height of its drawing, x to the right, y downward from the top left
//   attitude passant          words that a blazon may add because the drawing is so, the first of them an
//                             adjective that agrees with the charge: "vu de dos"
//   détail maçonné sable      a part that a blazon may give a tincture ("maçonnée d'or"), and its tincture
//   else naturel #a0703c           the body's colour "au naturel" plein corps <shape>       a filled and
//   outlined shape joint, jointe             like plein and branche, melted into the shape before uni maçonné
//   <shape>       a filled shape without outline branche 5 corps <shape>   the trace of a pen 5 wide,
//   outlined trait 2 ombre <shape>     the trace of a pen 2 wide, without outline
//
// Each drawing command names its paint: corps (the charge's tincture), ombre and clair (a darker and a
// lighter tone of it), encre (the outline's ink), a tincture, a colour as #a0703c, or a détail. A "*" behind
// the command adds the mirror image about the box's vertical axis; "@n" lays the shape n times in a circle
// around the box's centre.
//
//   svg M 0 0 L ...           path data
//   poly 0,0 10,0 ...         a polygon
//   lisse 0,0 10,5! ...       a closed smooth curve through the points; those with "!" are corners
//   ligne 0,0 10,5 ...        an open one
//   demi 50,0 60,20 ...       right half, from top to bottom, of a smooth shape that is its own mirror image
//   demipoly 50,0 60,20 ...   the same with straight sides
//   cercle x y r              a circle
//   ellipse x y rx ry angle   an ellipse turned clockwise by the angle in degrees
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "drawing/image.h"
#include "drawing/path.h"

namespace atelier {

struct Trait_de_meuble {
  Path forme;
  /// Width of the pen that draws along `forme`; 0 when `forme` is filled.
  double plume = 0;
  /// What paints it: corps, ombre, clair, encre, a tincture or the name of a detail.
  std::string peinture;
  bool contour = false;
  /// Its outline goes under the shape before it, so that both become one figure.
  bool joint = false;

  /// What is painted, outline apart.
  Path surface() const;
};

struct Meuble {
  std::string nom;
  std::string pluriel;
  bool féminin = false;
  double largeur = 100;
  double hauteur = 100;
  std::vector<std::string> attitudes;
  /// Paint of each detail that a blazon may name, unless it does.
  std::map<std::string, std::string> détails;
  Pixel naturel{150, 106, 62};
  std::vector<Trait_de_meuble> traits;

  /// All outlined shapes: what must lie within the room given to the charge.
  Path silhouette() const;
};

/// The colour of "#a0703c". Throws std::runtime_error when the text has another form.
Pixel lire_couleur(const std::string &texte);

class Meubles {
 public:
  /// Throws std::runtime_error that names file and line when a line cannot be read.
  static Meubles lire(const std::filesystem::path &fichier);

  const std::vector<Meuble> &tous() const { return meubles_; }
  /// Throws std::out_of_range when there is no charge of this name.
  const Meuble &chercher(const std::string &nom) const;

 private:
  std::vector<Meuble> meubles_;
};

}  // namespace atelier
