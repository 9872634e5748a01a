// A full game of the four stages, all provinces, without a screen: at each level from the new-game dialog to
// the top ten, the score file written at its end.
#include <benchmark/benchmark.h>

#include "play/map_clicks.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

void finir_régions(MondeFactice &m) {
  while (m.g().Etape == étape_régions) {
    const Fiche_région région = m.g().TableRégions(m.g().RégionCourante);
    for (int k = 1; k <= région.nombre_provinces; ++k) ClicProvince(m.c(), région.membres(k));
  }
}

void jouer_tout(MondeFactice &m, int niveau) {
  m.nouvelle_partie(niveau);
  while (m.g().Etape != étape_repos) {
    if (m.g().Etape == étape_régions)
      finir_régions(m);
    else if (m.g().Etape == étape_villes)
      Clic_repère(m.c(), m.g().VilleCourante);
    else
      m.répondre_juste();
  }
}

void PartieEntière(benchmark::State &état) {
  MondeFactice m;
  m.démarrer();
  for (auto _ : état) {
    jouer_tout(m, static_cast<int>(état.range(0)));
    m.oublier();
  }
  état.SetItemsProcessed(état.iterations());
}
BENCHMARK(PartieEntière)->ArgName("niveau")->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace ardane
