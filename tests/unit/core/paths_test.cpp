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

TEST(Paths, AFolderLosesTheSeparatorsAtItsEndUnlessItIsTheRoot) {
  EXPECT_EQ(sans_séparateur_final("/a/b//"), "/a/b");
  EXPECT_EQ(sans_séparateur_final("/a/b"), "/a/b");
  EXPECT_EQ(sans_séparateur_final("/"), "/");
  EXPECT_EQ(sans_séparateur_final(""), "");
}

TEST(Paths, AnAbsolutePathCanStandBelowAnotherFolderAndComeBack) {
  EXPECT_EQ(en_noms("/home/ann/ARDANE.SCI"), "home/ann/ARDANE.SCI");
  EXPECT_EQ(depuis_noms("home/ann/ARDANE.SCI"), "/home/ann/ARDANE.SCI");
}

TEST(Paths, ANameLeadsIntoNoOtherFolder) {
  for (const char *nom : {"Souper", "a b", "a:b", "été"}) EXPECT_TRUE(est_nom_de_fichier(nom)) << nom;
  for (const char *nom : {"", "/", "a/b"}) EXPECT_FALSE(est_nom_de_fichier(nom)) << nom;
}

}  // namespace
}  // namespace ardane
