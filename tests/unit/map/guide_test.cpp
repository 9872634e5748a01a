// What the keyboard's cursor can go to on the map.
#include "map/guide.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "map/layers.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class Guide : public testing::Test {
 protected:
  void jouer(int étape, int niveau) {
    m.démarrer();
    m.g().Etape = static_cast<std::int16_t>(étape);
    m.g().Niveau = static_cast<std::int16_t>(niveau);
    RedessinerCarte(m.c());
  }
  std::vector<Point> cibles() { return Cibles(m.c()); }

  MondeFactice m;
};

TEST_F(Guide, AtRestNothingOnTheMapCanBeGoneTo) {
  jouer(étape_repos, aucun_niveau);
  EXPECT_THAT(cibles(), IsEmpty());
}

TEST_F(Guide, WhereTheMapShowsNothingNothingCanBeGoneTo) {
  jouer(étape_provinces, niveau_expert);
  EXPECT_THAT(cibles(), IsEmpty());
}

TEST_F(Guide, WhereDotsAreShownTheyAreGoneTo) {
  jouer(étape_provinces, niveau_facile);
  EXPECT_THAT(cibles(), SizeIs(nombre_provinces));
}

}  // namespace
}  // namespace ardane
