// The list of all pictures that the game can ask for by their stock name.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "drawing/image.h"
#include "files/gif_file.h"

namespace atelier {

/// One picture of the stock. Its 2x drawing, where there is one, has the same path with "@2x" before the
/// extension, or with "@2x.png", "@2x.jpg" or "@2x.ppm" in place of it, and is not listed on its own; nor is
/// a copy that is not compressed, with ".ppm" in place of the extension.
struct Image_du_stock {
  /// As "Graphismes.Pays(12)" or "rondjaune".
  std::string nom;
  /// Relative to the pictures' folder, with "/".
  std::string fichier;
  int largeur = 0;
  int hauteur = 0;
};

class Catalogue {
 public:
  void ajouter(std::string nom, std::string fichier, int largeur, int hauteur);
  /// Writes `image` as GIF to `dossier`/`fichier`, making folders as needed, and adds it.
  void écrire(const std::filesystem::path &dossier, const std::string &nom, const std::string &fichier,
              const Image &image, Dithering dithering = Dithering::none);
  /// Writes one line a picture, "nom|fichier|largeur|hauteur", sorted by file and name.
  void enregistrer(const std::filesystem::path &fichier) const;

 private:
  std::vector<Image_du_stock> images_;
};

/// The path of a picture's 2x drawing: "pays/012.gif" gives "pays/012@2x.gif".
std::string fichier_double(const std::string &fichier);
/// The same for a 2x drawing in true colour: "pays/012@2x.png".
std::string fichier_double_en_png(const std::string &fichier);
/// The same for one that every start reads: what is not compressed takes half the time of a JPEG.
std::string fichier_double_sans_compression(const std::string &fichier);
/// The path of a picture's copy that is not compressed: "carte.ppm" of "carte.gif".
std::string fichier_sans_compression(const std::string &fichier);

/// "pays/012.gif" of ("pays", 12, 3).
std::string fichier_numéroté(const std::string &dossier, int numéro, int chiffres);

}  // namespace atelier
