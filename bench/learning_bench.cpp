// Cards, statistics and lists without a front end: what their files and tables cost.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "persistence/information_file.h"
#include "persistence/revision_lists.h"
#include "platform/window_layout.h"
#include "screens/statistics.h"
#include "screens/statistics_file.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

/// The program at rest, every object of a game with points of its own.
class Après_une_partie {
 public:
  Après_une_partie() {
    monde.démarrer();
    monde.nouvelle_partie(niveau_facile);
    GameState &g = monde.g();
    for (int p = 1; p <= nombre_provinces; ++p) g.TableProvinces(p).points_perdus(0) = p * 37 % 101;
    for (int r = 1; r <= nombre_régions; ++r) g.TableRégions(r).points_perdus = r * 7 % 11;
    for (int v = 1; v <= nombre_villes; ++v) g.TableVilles(v).points_perdus = v * 53 % 211;
  }
  Contexte &c() { return monde.c(); }

  MondeFactice monde;
};

void CréerFichierInfo(benchmark::State &état) {
  Après_une_partie partie;
  const std::filesystem::path fichier = chemin_natif(partie.monde.dossier.fichier("ARDANE.INF"));
  for ([[maybe_unused]] auto _ : état) {
    std::filesystem::remove(fichier);
    partie.monde.oublier();
    Préparer_fichiers_info(partie.c());
  }
  état.counters["bytes"] = static_cast<double>(std::filesystem::file_size(fichier));
}
BENCHMARK(CréerFichierInfo)->Unit(benchmark::kMicrosecond);

void OuvrirFiche(benchmark::State &état) {
  Après_une_partie partie;
  for ([[maybe_unused]] auto _ : état) {
    partie.monde.oublier();
    partie.monde.g().ProvinceFiche = 42;
    partie.c().plateforme.fenêtres.ouvrir_modale("Pompe");
  }
}
BENCHMARK(OuvrirFiche)->Unit(benchmark::kMicrosecond);

void RécrireFiche(benchmark::State &état) {
  Après_une_partie partie;
  for ([[maybe_unused]] auto _ : état)
    if (!Ecrire_fiche_information(partie.c(), 42, {"Titre", "Texte"})) état.SkipWithError("not written");
}
BENCHMARK(RécrireFiche)->Unit(benchmark::kMicrosecond);

constexpr std::array boutons = {"BoutonProvinces", "BoutonRégions", "BoutonVilles"};

/// Sorted, its rows made and filled, those of the table before taken off.
void MontrerTableau(benchmark::State &état) {
  Après_une_partie partie;
  Stats fenêtre(partie.c());
  const auto montrer = [&](std::int64_t tableau) {
    cliquer(fenêtre, contrôle(fenêtre, boutons[static_cast<std::size_t>(tableau % 3)]));
  };
  for ([[maybe_unused]] auto _ : état) {
    état.PauseTiming();
    montrer(état.range(0) + 1);
    fenêtre.oublier_retirés();
    état.ResumeTiming();
    montrer(état.range(0));
  }
}
BENCHMARK(MontrerTableau)->ArgName("tableau")->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

/// By one row and back.
void DéfilerTableau(benchmark::State &état) {
  Après_une_partie partie;
  Stats fenêtre(partie.c());
  cliquer(fenêtre, contrôle(fenêtre, boutons[static_cast<std::size_t>(état.range(0))]));
  Contrôle &barre = contrôle(fenêtre, "BarreVerticale");
  for ([[maybe_unused]] auto _ : état) fixer_valeur(barre, barre.valeur == 0 ? 1 : 0);
}
BENCHMARK(DéfilerTableau)->ArgName("tableau")->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

void mesurer_écriture(benchmark::State &état, void (*écrire)(Contexte &)) {
  Après_une_partie partie;
  for ([[maybe_unused]] auto _ : état) {
    partie.monde.oublier();
    écrire(partie.c());
  }
}
BENCHMARK_CAPTURE(mesurer_écriture, ARDANE_TXT, Ecrire_liste_des_provinces)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(mesurer_écriture, ARDANE_SP_TXT, Ecrire_liste_des_villes)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(mesurer_écriture, ARDA_STA_TXT, Ecrire_statistiques)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace ardane
