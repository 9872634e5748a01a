#include "core/paths.h"

#include <gtest/gtest.h>

#include "support/fake_world.h"

namespace ardane {
namespace {

TEST(Paths, AFolderAndANameAreJoinedByOneSeparator) {
  EXPECT_EQ(Joindre_chemin("/jeux/ardane", "ardane.pts"), "/jeux/ardane/ardane.pts");
  EXPECT_EQ(Joindre_chemin("/jeux/ardane/", "ardane.pts"), "/jeux/ardane/ardane.pts");
  EXPECT_EQ(Joindre_chemin("/", "ardane.pts"), "/ardane.pts");
}

TEST(Paths, TheFolderOfAPathIsWhatStandsBeforeItsLastSeparator) {
  EXPECT_EQ(Dossier_de("/jeux/ardane/ARDANE.SCI"), "/jeux/ardane");
  EXPECT_EQ(Dossier_de("/jeux/ardane/"), "/jeux/ardane");
  EXPECT_EQ(Dossier_de("ARDANE.SCI"), "");
  EXPECT_EQ(Dossier_de(""), "");
}

TEST(Paths, AccentsSurviveTheRoundTripToTheFileSystem) {
  EXPECT_EQ(texte_du_chemin(chemin_natif("/jeux/Été à Ardane/x")), "/jeux/Été à Ardane/x");
}

TEST(Paths, OnlyAFileExistsAsAFile) {
  DossierTemporaire dossier;
  EXPECT_FALSE(fichier_existe(dossier.fichier("été.sci")));
  écrire_fichier(dossier.fichier("été.sci"), "");
  EXPECT_TRUE(fichier_existe(dossier.fichier("été.sci")));
  EXPECT_FALSE(fichier_existe(dossier.chemin()));
  EXPECT_FALSE(fichier_existe(""));
}

TEST(Paths, ALinkToNowhereIsNoFile) {
  DossierTemporaire dossier;
  std::filesystem::create_symlink("nulle-part", chemin_natif(dossier.fichier("lien")));
  EXPECT_FALSE(fichier_existe(dossier.fichier("lien")));
}

}  // namespace
}  // namespace ardane
