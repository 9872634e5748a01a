#include "chart/country_map.h"

#include <iostream>
#include <string>

#include "chart/expanses_file.h"
#include "chart/layers.h"
#include "chart/ornaments.h"
#include "chart/points_file.h"
#include "chart/relief.h"
#include "country/provinces.h"
#include "country/sites.h"
#include "files/image_file.h"
#include "terrain/plan.h"

namespace atelier {
namespace {

constexpr double smallest_river = 260;

/// First numbers of the rows in the table of texts.
constexpr int rows_of_provinces = 2000;
constexpr int rows_of_capitals = 4000;
constexpr int rows_of_regions = 5000;
constexpr int rows_of_cities = 7101;
/// The game's rows of these cities have always borne a letter behind the province's digits; readers must live
/// with it.
constexpr int first_odd_city = 7263;
constexpr int last_odd_city = 7283;

/// The one raster, at both resolutions.
struct Raster {
  Provinces provinces;
  Provinces fine;
  Grid<int> regions;
  Grid<int> fine_regions;
  std::vector<Frame> province_frames;
  std::vector<Frame> region_frames;
};

Grid<int> regions_of(const Données &données, const Provinces &provinces) {
  Grid<int> regions(provinces.width(), provinces.height(), 0);
  for (std::size_t i = 0; i < provinces.size(); ++i)
    if (provinces[i] != 0) regions[i] = données.provinces[static_cast<std::size_t>(provinces[i])].région;
  return regions;
}

Raster raster_of(const Données &données, const Provinces &provinces, const Shores &shores) {
  Raster raster{provinces, fine_provinces(provinces, shores), {}, {}, {}, {}};
  raster.regions = regions_of(données, raster.provinces);
  raster.fine_regions = regions_of(données, raster.fine);
  raster.province_frames = frames_of(raster.provinces, nombre_provinces, province_margin);
  raster.region_frames = frames_of(raster.regions, nombre_régions, region_margin);
  return raster;
}

void draw_layers(const Raster &raster, const std::filesystem::path &images, Catalogue &catalogue) {
  const auto both = [&](const char *stock, int number, const std::string &file, const Image &single,
                        const Image &twice) {
    catalogue.écrire(images, "Graphismes." + std::string(stock) + "(" + std::to_string(number) + ")", file,
                     single);
    écrire_png(images / fichier_double_en_png(file), twice);
  };
  for (int p = 1; p <= nombre_provinces; ++p) {
    const Frame &frame = raster.province_frames[static_cast<std::size_t>(p)];
    const auto draw = [&](const char *stock, const char *folder, bool filled) {
      both(stock, p, fichier_numéroté(folder, p, 3), draw_province(raster.provinces, p, frame, filled),
           draw_fine_province(raster.fine, p, frame, filled));
    };
    draw("Pays", "pays", true);
    draw("Inv", "inv", false);
  }
  const Highlights highlights(with_lakes(raster.regions), with_lakes(raster.fine_regions),
                              raster.region_frames);
  for (int r = 1; r <= nombre_régions; ++r)
    both("Région", r, fichier_numéroté("region", r, 2), highlights.draw(r, 1), highlights.draw(r, 2));
}

std::string at_least(int number, std::size_t digits) {
  std::string text = std::to_string(number);
  if (text.size() < digits) text.insert(0, digits - text.size(), '0');
  return text;
}

void add_rows(const Données &données, const Raster &raster, const Sites &sites,
              std::map<int, std::string> &textes) {
  int city_row = rows_of_cities;
  for (int p = 1; p <= nombre_provinces; ++p) {
    const auto i = static_cast<std::size_t>(p);
    const Province &province = données.provinces[i];
    const Frame &frame = raster.province_frames[i];
    textes[rows_of_provinces + p] = province.nom + "#0#" + std::to_string(frame.left) + "#" +
                                    std::to_string(frame.top) + "#" + std::to_string(province.région);
    const auto &centres = sites.centres[i];
    textes[rows_of_capitals + p] =
        province.capitale.nom + "#" + at_least(centres[0].x, 3) + "#" + at_least(centres[0].y, 3);
    for (std::size_t k = 0; k < province.villes.size(); ++k, ++city_row) {
      const bool odd = city_row >= first_odd_city && city_row <= last_odd_city && city_row % 2 == 1;
      textes[city_row] = province.villes[k].nom + "#" + at_least(p, 2) + (odd ? "o" : "") + "#" +
                         std::to_string(centres[k + 1].x) + "#" + std::to_string(centres[k + 1].y);
    }
  }
  for (int r = 1; r <= nombre_régions; ++r) {
    const Frame &frame = raster.region_frames[static_cast<std::size_t>(r)];
    textes[rows_of_regions + r] = données.régions[static_cast<std::size_t>(r)].nom + "#0#" +
                                  std::to_string(frame.left) + "#" + std::to_string(frame.top);
  }
}

}  // namespace

void dessiner_carte(const Données &données, const std::filesystem::path &images, Catalogue &catalogue,
                    const std::filesystem::path &dossier, std::map<int, std::string> &textes) {
  const Plan plan = lire_plan(données.dossier / "terrain.txt");
  const Shores shores = draw_shores(plan);
  const Terrain terrain = raise_terrain(plan, shores);
  const std::vector<River> rivers = trace_rivers(plan, terrain, shores, smallest_river);
  Provinces provinces = grow_provinces(plan, données, shores, terrain, rivers);
  const Sites sites = settle(données, provinces, shores, terrain, rivers, plan.arms.size());
  for (const std::string &complaint : sites.unmet) std::cerr << complaint << '\n';

  const Raster raster = raster_of(données, provinces, shores);
  draw_layers(raster, images, catalogue);
  écrire_points(dossier / "ardane.pts", provinces);
  écrire_étendues(dossier / "etendues.txt", provinces, shores);
  add_rows(données, raster, sites, textes);

  const Scene scene{plan, shores, terrain, rivers};
  Image map = draw_map(scene);
  draw_ornaments(map, lire_lettres(données.dossier / "lettering.txt"), fine);
  catalogue.écrire(images, "image_région(0)", "carte.gif", reduced(map, fine), Dithering::diffused);
  écrire_ppm(images / fichier_sans_compression("carte.gif"), lire_gif(images / "carte.gif"));
  écrire_ppm(images / fichier_double_sans_compression("carte.gif"), map);
}

}  // namespace atelier
