// The arms of provinces and country and the flags of regions, after the blazons of armorial.txt.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "armorial/blazon.h"
#include "armorial/charges.h"
#include "drawing/image.h"
#include "files/catalogue.h"
#include "files/data.h"

namespace atelier {

struct Armoiries {
  /// "royale", "ducale", "comtale", "baronale", "murale", "navale" or "vallaire"; empty for a flag.
  std::string couronne;
  std::string texte;
  Blason blason;
};

struct Armorial {
  Armoiries pays;
  /// Both indexed from 1; element 0 is empty.
  std::vector<Armoiries> provinces;
  std::vector<Armoiries> régions;
};

/// Reads armorial.txt. Throws std::runtime_error that names file and line when a line has not the expected
/// form, its blazon is refused, or a number is missing or given twice.
Armorial lire_armorial(const std::filesystem::path &fichier, const Meubles &meubles);

/// Sizes of the plain drawings; the 2x drawings have twice as many pixels each way.
inline constexpr int largeur_des_armes = 100;
inline constexpr int hauteur_des_armes = 141;
inline constexpr int largeur_du_drapeau = 212;
inline constexpr int hauteur_du_drapeau = 141;
/// The height that belongs to the width in the proportions in which the panel shows a flag, 200 to 177.
inline constexpr int hauteur_vue_du_drapeau = 188;

/// A shield under its crown, on a transparent ground, as 2x drawing.
Image dessiner_armes(const Armoiries &armoiries, const Meubles &meubles);
/// A flag that fills the picture, as 2x drawing.
Image dessiner_drapeau(const Armoiries &armoiries, const Meubles &meubles);

/// Draws everything into `images` (folders drapeau and drapeau_region), writes docs/armorial.md, which shows
/// these pictures, and the table of texts `blasons`, which tells them: the provinces' under their numbers,
/// the regions' under 200 and theirs.
void dessiner_armorial(const Données &données, const std::filesystem::path &images, Catalogue &catalogue,
                       const std::filesystem::path &blasons, const std::filesystem::path &docs);

}  // namespace atelier
