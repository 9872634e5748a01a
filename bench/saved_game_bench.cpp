// A game under way kept in a file and taken up again, and the window that names and picks the file, without a
// front end.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "core/chooser_modes.h"
#include "map/layers.h"
#include "map/map_reset.h"
#include "persistence/score_file.h"
#include "play/saved_game.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

/// A game under way at a stage, half of it found, every list of best scores full.
class Partie_en_cours {
 public:
  Partie_en_cours(int étape, bool temporaire) {
    monde.démarrer();
    GameState &g = monde.g();
    remplir_scores(g);
    if (temporaire) g.Fichier_lancement = nom_fichier_temporaire;
    Ecrire_scores(monde.c(), true);
    monde.nouvelle_partie(niveau_moyen);
    g.Etape = static_cast<std::int16_t>(étape);
    RemiseAZéroCarte(monde.c());
    for (int p = 1; p <= nombre_provinces; p += 2) g.TableProvinces(p).trouvée = true;
    for (int v = 1; v <= nombre_villes; v += 2) g.TableVilles(v).trouvée = true;
    g.PartieVierge = false;
  }

  MondeFactice monde;
  const std::string chemin = monde.dossier.fichier("Souper.CAI");

 private:
  static void remplir_scores(GameState &g) {
    std::vector<Enregistrement_score> scores;
    for (int niveau = niveau_facile; niveau <= niveau_expert; ++niveau)
      for (int rang = 1; rang <= 10; ++rang)
        scores.push_back({"Joueur du rang " + std::to_string(rang), score_de_départ - 1000 * rang,
                          static_cast<std::int16_t>(niveau)});
    Ajouter_scores(g, scores);
  }
};

void étapes_et_paramétrages(benchmark::internal::Benchmark *mesure) {
  for (int étape = étape_provinces; étape <= étape_régions; ++étape) mesure->Args({étape, 0});
  mesure->Args({étape_villes, 1});
  mesure->ArgNames({"étape", "temporaire"})->Unit(benchmark::kMicrosecond);
}

void Enregistrer(benchmark::State &état) {
  Partie_en_cours partie(static_cast<int>(état.range(0)), état.range(1) != 0);
  for ([[maybe_unused]] auto _ : état)
    if (!Enregistrer_partie(partie.monde.c(), partie.chemin)) état.SkipWithError("not written");
  état.counters["bytes"] = static_cast<double>(std::filesystem::file_size(partie.chemin));
}
BENCHMARK(Enregistrer)->Apply(étapes_et_paramétrages);

/// To the next question.
void Reprendre(benchmark::State &état) {
  Partie_en_cours partie(static_cast<int>(état.range(0)), état.range(1) != 0);
  Enregistrer_partie(partie.monde.c(), partie.chemin);
  for ([[maybe_unused]] auto _ : état) {
    partie.monde.oublier();
    if (!Charger_partie(partie.monde.c(), partie.chemin)) état.SkipWithError("not read");
    Reprendre_partie(partie.monde.c());
  }
}
BENCHMARK(Reprendre)->Apply(étapes_et_paramétrages);

/// In a folder of as many saved games.
void OuvrirSélection(benchmark::State &état) {
  MondeFactice m;
  m.démarrer();
  for (std::int64_t i = 0; i < état.range(0); ++i)
    écrire_fichier(m.dossier.fichier("Partie du soir " + std::to_string(i) + ".CAI"), "");
  m.g().Mode_sélection = choix_fichier;
  m.g().Type_fichier = fichier_partie;
  for ([[maybe_unused]] auto _ : état) m.c().plateforme.fenêtres.ouvrir_modale("Sélection_partie");
}
BENCHMARK(OuvrirSélection)->ArgName("fichiers")->Arg(0)->Arg(200)->Arg(10'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace ardane
