#include "core/resources.h"

#include <algorithm>
#include <charconv>

#include "core/embedded.h"
#include "core/gazetteer.h"
#include "platform/text.h"

namespace ardane {
namespace {

bool lire_mesure(std::string_view champ, std::int16_t &mesure) {
  const auto lu = std::from_chars(champ.data(), champ.data() + champ.size(), mesure);
  return lu.ec == std::errc{} && lu.ptr == champ.data() + champ.size() && mesure > 0;
}

}  // namespace

CatalogueImages::CatalogueImages(std::string_view source) {
  fiches_.ajouter({});
  while (!source.empty()) {
    std::string_view ligne = couper(source, '\n');
    Fiche fiche;
    fiche.nom = couper(ligne, '|');
    fiche.fichier = couper(ligne, '|');
    if (!lire_mesure(couper(ligne, '|'), fiche.largeur) || !lire_mesure(couper(ligne, '|'), fiche.hauteur))
      continue;
    fiches_.ajouter(std::move(fiche));
  }
  for (int rang = 1; rang <= fiches_.dernier(); ++rang) par_nom_.push_back(static_cast<std::uint16_t>(rang));
  std::sort(par_nom_.begin(), par_nom_.end(),
            [&](std::uint16_t a, std::uint16_t b) { return fiches_(a).nom < fiches_(b).nom; });
}

Image CatalogueImages::image(std::uint16_t rang) const {
  return {rang, fiches_(rang).largeur, fiches_(rang).hauteur};
}

Image CatalogueImages::chercher(std::string_view nom) const {
  const auto place =
      std::lower_bound(par_nom_.begin(), par_nom_.end(), nom,
                       [&](std::uint16_t rang, std::string_view n) { return fiches_(rang).nom < n; });
  return place == par_nom_.end() || fiches_(*place).nom != nom ? Image{} : image(*place);
}

Image CatalogueImages::chercher(std::string_view famille, int i) const {
  return chercher(std::string(famille) + "(" + std::to_string(i) + ")");
}

std::vector<Image> CatalogueImages::toutes() const {
  std::vector<Image> images;
  for (int rang = 1; rang <= fiches_.dernier(); ++rang)
    images.push_back(image(static_cast<std::uint16_t>(rang)));
  return images;
}

const Ressources &ressources_du_programme() {
  static const Ressources ressources{TableChaînes(textes_incorporés()), CatalogueImages(images_incorporées()),
                                     TableChaînes(blasons_incorporés()), Etendues(étendues_incorporées())};
  return ressources;
}

std::string Présenter_version(std::string_view programme) {
  return std::string(programme) + " " + std::string(version_incorporée()) + "\n" +
         ressources_du_programme().chaînes.chaîne(id_messages) + "\n";
}

}  // namespace ardane
