// Files of which the system cannot tell for a moment whether they are there.
#include <gtest/gtest.h>

#include "deadly_calls.h"
#include "persistence/information_file.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

class UnknownFile : public testing::Test {
 protected:
  UnknownFile() {
    m.démarrer();
    avant = lire_fichier(fichier());
  }
  std::string fichier() { return m.g().Fichiers_info(m.g().Langue); }

  MondeFactice m;
  std::string avant;
};

TEST_F(UnknownFile, OfCardsIsNotReplacedByOneCardAlone) {
  ASSERT_EQ(avant.size(), 71'500U);
  {
    const StatDéfaillant une_fois(fichier());
    EXPECT_FALSE(Ecrire_fiche_information(m.c(), 1, {"a", "b"}));
  }
  EXPECT_TRUE(lire_fichier(fichier()) == avant);
  EXPECT_TRUE(Ecrire_fiche_information(m.c(), 1, {"a", "b"}));
}

TEST_F(UnknownFile, OfCardsIsNotMadeAnewByAStart) {
  ASSERT_TRUE(Ecrire_fiche_information(m.c(), 1, {"a", "b"}));
  avant = lire_fichier(fichier());
  {
    const StatDéfaillant toujours(fichier(), 100);
    Préparer_fichiers_info(m.c());
  }
  EXPECT_TRUE(lire_fichier(fichier()) == avant);
}

}  // namespace
}  // namespace ardane
