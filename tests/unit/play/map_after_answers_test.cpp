// The map after each answer, drawn by what has changed, against the whole drawn anew.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "map/layers.h"
#include "play/map_clicks.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

/// Each stage at each level, learning mode being level 0; with all provinces, and with few of them to the
/// end.
class MapAfterAnswers : public testing::TestWithParam<std::tuple<int, int, int>> {
 protected:
  void SetUp() override {
    m.démarrer();
    m.g().Ordre_jeux.remplir(0);
    m.g().Ordre_jeux(1) = static_cast<std::int16_t>(std::get<0>(GetParam()));
    for (int p = std::get<2>(GetParam()) + 1; p <= nombre_provinces; ++p)
      m.g().TableProvinces(p).inhibée = true;
    m.nouvelle_partie(std::get<1>(GetParam()));
  }
  std::vector<std::string> vus() {
    std::vector<std::string> noms;
    for (const Contrôle &image : m.e().contrôles())
      if (image.conteneur == &m.e().Carte && image.visible) noms.push_back(image.nom);
    return noms;
  }
  /// One after the other: right, wrong, of which a region's answer takes several.
  void répondre(int fois) {
    if (m.g().Etape != étape_régions)
      return fois < 9 && fois % 3 == 1 ? m.répondre_faux() : m.répondre_juste();
    const Fiche_région région = m.g().TableRégions(m.g().RégionCourante);
    ClicProvince(m.c(),
                 fois % 5 == 2 ? m.autre_province() : région.membres(fois % région.nombre_provinces + 1));
  }

  MondeFactice m;
};

TEST_P(MapAfterAnswers, ShowsWhatItWouldShowIfItWereDrawnAnew) {
  for (int fois = 0; fois < 40 && m.g().Etape != étape_repos; ++fois) {
    répondre(fois);
    const std::vector<std::string> avant = vus();
    RedessinerCarte(m.c());
    ASSERT_EQ(avant, vus()) << "after answer " << fois;
  }
}

INSTANTIATE_TEST_SUITE_P(EveryStageAndLevel, MapAfterAnswers,
                         testing::Combine(testing::Values(étape_provinces, étape_villes, étape_drapeaux,
                                                          étape_régions),
                                          testing::Range(0, 5), testing::Values(8, nombre_provinces)));

}  // namespace
}  // namespace ardane
