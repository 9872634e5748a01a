#include "files/catalogue.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace atelier {

void Catalogue::ajouter(std::string nom, std::string fichier, int largeur, int hauteur) {
  images_.push_back({std::move(nom), std::move(fichier), largeur, hauteur});
}

void Catalogue::écrire(const std::filesystem::path &dossier, const std::string &nom,
                       const std::string &fichier, const Image &image, Dithering dithering) {
  const auto chemin = dossier / fichier;
  std::filesystem::create_directories(chemin.parent_path());
  écrire_gif(chemin, image, dithering);
  ajouter(nom, fichier, image.width(), image.height());
}

void Catalogue::enregistrer(const std::filesystem::path &fichier) const {
  auto triées = images_;
  std::sort(triées.begin(), triées.end(), [](const Image_du_stock &a, const Image_du_stock &b) {
    return std::tie(a.fichier, a.nom) < std::tie(b.fichier, b.nom);
  });
  std::ofstream out(fichier, std::ios::binary);
  for (const auto &image : triées)
    out << image.nom << '|' << image.fichier << '|' << image.largeur << '|' << image.hauteur << '\n';
  out.close();
  if (!out) throw std::runtime_error(fichier.string() + ": cannot be written");
}

std::string fichier_double(const std::string &fichier) {
  const auto point = fichier.rfind('.');
  return fichier.substr(0, point) + "@2x" + fichier.substr(point);
}

std::string fichier_double_en_png(const std::string &fichier) {
  return fichier.substr(0, fichier.rfind('.')) + "@2x.png";
}

std::string fichier_double_sans_compression(const std::string &fichier) {
  return fichier.substr(0, fichier.rfind('.')) + "@2x.ppm";
}

std::string fichier_sans_compression(const std::string &fichier) {
  return fichier.substr(0, fichier.rfind('.')) + ".ppm";
}

std::string fichier_numéroté(const std::string &dossier, int numéro, int chiffres) {
  std::string texte = std::to_string(numéro);
  texte.insert(0, static_cast<std::size_t>(std::max(0, chiffres - static_cast<int>(texte.size()))), '0');
  return dossier + "/" + texte + ".gif";
}

}  // namespace atelier
