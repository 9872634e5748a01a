#include "core/current_folder.h"

#include <gtest/gtest.h>

#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

class CurrentFolder : public testing::Test {
 protected:
  CurrentFolder() { fs::create_directories(chemin_natif(dossier.fichier("jeux/été"))); }
  DossierTemporaire dossier;
  Dossier_courant courant{dossier.chemin()};
};

TEST_F(CurrentFolder, BareNamesLieInItAndFullOnesWhereTheySay) {
  EXPECT_EQ(courant.complet("ARDANE.SCI"), dossier.fichier("ARDANE.SCI"));
  EXPECT_EQ(courant.complet("jeux/x"), dossier.fichier("jeux/x"));
  EXPECT_EQ(courant.complet("/ailleurs/ARDANE.SCI"), "/ailleurs/ARDANE.SCI");
  EXPECT_EQ(courant.complet(""), "");
}

TEST_F(CurrentFolder, ItChangesToAFolderNamedFromWhereItIsOrInFull) {
  EXPECT_TRUE(courant.changer("jeux"));
  EXPECT_EQ(courant.chemin(), dossier.fichier("jeux"));
  EXPECT_TRUE(courant.changer("été/"));
  EXPECT_EQ(courant.chemin(), dossier.fichier("jeux/été"));
  EXPECT_TRUE(courant.changer("../.."));
  EXPECT_EQ(courant.chemin(), dossier.chemin());
  EXPECT_TRUE(courant.changer(dossier.fichier("jeux")));
  EXPECT_EQ(courant.complet("x"), dossier.fichier("jeux/x"));
}

TEST_F(CurrentFolder, AnAbsentFolderLeavesItWhereItIs) {
  écrire_fichier(dossier.fichier("fichier"), "");
  EXPECT_FALSE(courant.changer("/nulle/part"));
  EXPECT_FALSE(courant.changer(dossier.fichier("fichier")));
  EXPECT_FALSE(courant.changer(""));
  EXPECT_EQ(courant.chemin(), dossier.chemin());
}

TEST_F(CurrentFolder, AFolderThatMayNotBeEnteredLeavesItWhereItIs) {
  fs::permissions(chemin_natif(dossier.chemin()), fs::perms::all);
  fs::permissions(chemin_natif(dossier.fichier("jeux")),
                  fs::perms::all & ~fs::perms::others_exec & ~fs::perms::group_exec & ~fs::perms::owner_exec);
  {
    const SansPrivilège ordinaire;
    EXPECT_FALSE(courant.changer("jeux"));
  }
  EXPECT_EQ(courant.chemin(), dossier.chemin());
  fs::permissions(chemin_natif(dossier.fichier("jeux")), fs::perms::all);
}

TEST_F(CurrentFolder, OneThatHasGoneIsNone) {
  ASSERT_TRUE(courant.changer("jeux/été"));
  fs::remove(chemin_natif(dossier.fichier("jeux/été")));
  EXPECT_EQ(courant.chemin(), "");
}

TEST(WithoutACurrentFolder, BareNamesLeadNowhere) {
  Dossier_courant aucun("");
  EXPECT_EQ(aucun.chemin(), "");
  EXPECT_EQ(aucun.complet("ARDANE.SCI"), "");
  EXPECT_FALSE(aucun.changer("jeux"));
  EXPECT_TRUE(aucun.changer("/"));
  EXPECT_EQ(aucun.complet("ARDANE.SCI"), "/ARDANE.SCI");
}

TEST(TheProcess, HasAFolderThatARunCanStartIn) {
  const std::string processus = texte_du_chemin(fs::current_path());
  EXPECT_EQ(dossier_du_processus(), processus);
  EXPECT_EQ(chemin_absolu("./jeu/a/.."), Joindre_chemin(processus, "jeu/"));
  EXPECT_EQ(chemin_absolu("/jeu/ardane"), "/jeu/ardane");
  EXPECT_EQ(chemin_absolu(""), "");
}

}  // namespace
}  // namespace ardane
