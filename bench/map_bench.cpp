// The model of the map without a front end: what a redraw, a scroll, a shown province and a click cost.
#include <benchmark/benchmark.h>

#include <array>
#include <random>

#include "core/hit_test_table.h"
#include "map/layers.h"
#include "map/map_reset.h"
#include "map/pointing.h"
#include "map/scrolling.h"
#include "map/visibility_rules.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

/// A game under way at a stage and level, half of the provinces and towns placed.
class Carte_en_jeu {
 public:
  explicit Carte_en_jeu(int étape, int niveau, Point taille_écran = {1280, 1024}) {
    monde.écran.taille = taille_écran;
    monde.démarrer();
    GameState &g = monde.g();
    g.Etape = static_cast<std::int16_t>(étape);
    g.Niveau = static_cast<std::int16_t>(niveau);
    RemiseAZéroCarte(c());
    for (int i = 1; i <= nombre_provinces; i += 2) g.TableProvinces(i).trouvée = true;
    for (int v = 1; v <= nombre_villes; v += 2) g.TableVilles(v).trouvée = true;
    RedessinerCarte(c());
  }
  Contexte &c() { return monde.c(); }

  MondeFactice monde;
};

void étapes_et_niveaux(benchmark::internal::Benchmark *mesure) {
  for (int étape = étape_provinces; étape <= étape_régions; ++étape)
    for (const int niveau : {1, 4}) mesure->Args({étape, niveau});
  mesure->Args({étape_révision, 1});
  mesure->ArgNames({"étape", "niveau"});
}

void Redraw(benchmark::State &état) {
  Carte_en_jeu carte(static_cast<int>(état.range(0)), static_cast<int>(état.range(1)));
  for ([[maybe_unused]] auto _ : état) {
    carte.monde.sabliers.clear();
    RedessinerCarte(carte.c());
  }
}
BENCHMARK(Redraw)->Apply(étapes_et_niveaux);

/// The bar moves by one step and back, so that every turn scrolls.
void ScrollStep(benchmark::State &état) {
  Carte_en_jeu carte(étape_provinces, 1, {800, 600});
  Contrôle &barre = carte.monde.e().barre_v;
  for ([[maybe_unused]] auto _ : état) {
    carte.monde.sabliers.clear();
    fixer_valeur(barre, barre.valeur == 0 ? barre.petit_pas : 0);
  }
}
BENCHMARK(ScrollStep);

void StageReset(benchmark::State &état) {
  Carte_en_jeu carte(étape_provinces, 1);
  for ([[maybe_unused]] auto _ : état) RemiseAZéroCarte(carte.c());
}
BENCHMARK(StageReset);

/// All 110 provinces, each with its towns.
void EveryProvinceShown(benchmark::State &état) {
  Carte_en_jeu carte(static_cast<int>(état.range(0)), static_cast<int>(état.range(1)));
  for ([[maybe_unused]] auto _ : état)
    for (int i = 1; i <= nombre_provinces; ++i) Montrer_province(carte.c(), i, false);
  état.SetItemsProcessed(état.iterations() * nombre_provinces);
}
BENCHMARK(EveryProvinceShown)->Apply(étapes_et_niveaux);

void EveryDotShown(benchmark::State &état) {
  Carte_en_jeu carte(static_cast<int>(état.range(0)), static_cast<int>(état.range(1)));
  for ([[maybe_unused]] auto _ : état)
    for (int v = 1; v <= nombre_villes; ++v) Montrer_repère(carte.c(), v);
  état.SetItemsProcessed(état.iterations() * nombre_villes);
}
BENCHMARK(EveryDotShown)->Apply(étapes_et_niveaux);

/// Map pixels in a fixed order that no branch predictor can learn.
std::array<Point, 4096> pixels_au_hasard() {
  std::mt19937 source(1);
  std::array<Point, 4096> pixels;
  for (Point &pixel : pixels) pixel = {static_cast<int>(source() % 602), static_cast<int>(source() % 662)};
  return pixels;
}

void HitTest(benchmark::State &état) {
  Carte_en_jeu carte(étape_provinces, 1);
  const auto pixels = pixels_au_hasard();
  std::size_t k = 0;
  for ([[maybe_unused]] auto _ : état) {
    const Point pixel = pixels[k++ % pixels.size()];
    benchmark::DoNotOptimize(code_du_pixel(carte.monde.g(), 0, pixel.x, pixel.y));
  }
}
BENCHMARK(HitTest);

void PictureUnderTheMouse(benchmark::State &état) {
  Carte_en_jeu carte(static_cast<int>(état.range(0)), static_cast<int>(état.range(1)));
  const auto pixels = pixels_au_hasard();
  std::size_t k = 0;
  for ([[maybe_unused]] auto _ : état) {
    const Point pixel = pixels[k++ % pixels.size()];
    benchmark::DoNotOptimize(image_sous(carte.monde.e(), pixel.x, pixel.y));
  }
}
BENCHMARK(PictureUnderTheMouse)->Apply(étapes_et_niveaux);

}  // namespace
}  // namespace ardane
