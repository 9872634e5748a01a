// What is compiled into the program: the string table, the catalogue of pictures, and what tells of pictures
// to who does not see them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/expanses.h"
#include "core/string_table.h"
#include "core/table.h"
#include "platform/picture.h"

namespace ardane {

/// The pictures that exist, by name, with their sizes and files.
class CatalogueImages {
 public:
  CatalogueImages() : CatalogueImages(std::string_view()) {}
  /// Reads "name|file|width|height" lines, UTF-8, sizes in pixels. Lines of another form are passed over.
  explicit CatalogueImages(std::string_view source);

  /// The picture of that name; none (rank 0) if the stock has no such picture.
  Image chercher(std::string_view nom) const;
  /// The picture `famille(i)` of the stock.
  Image chercher(std::string_view famille, int i) const;
  const std::string &nom(Image image) const { return fiche(image).nom; }
  /// File of the picture, relative to the folder of pictures; empty for no picture.
  const std::string &fichier(Image image) const { return fiche(image).fichier; }
  /// Every picture, in the order of the catalogue.
  std::vector<Image> toutes() const;

 private:
  struct Fiche {
    std::string nom;
    std::string fichier;
    std::int16_t largeur = 0;
    std::int16_t hauteur = 0;
  };
  const Fiche &fiche(Image image) const { return fiches_(image.rang); }
  Image image(std::uint16_t rang) const;

  TableauDynamique<Fiche, 0> fiches_;   ///< index 0 is no picture
  std::vector<std::uint16_t> par_nom_;  ///< ranks, ascending by name
};

struct Ressources {
  TableChaînes chaînes;
  CatalogueImages images;
  /// The blazons of the provinces' arms, by their numbers, and of the regions' flags, by 200 and theirs.
  TableChaînes blasons = {};
  Etendues étendues = {};
};

/// The resources that the program was built with.
const Ressources &ressources_du_programme();

/// What the option --version of a program prints: its release, and the edition of the game, which no release
/// moves: files of any other are refused.
std::string Présenter_version(std::string_view programme);

}  // namespace ardane
