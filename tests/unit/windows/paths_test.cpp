// Paths with drives.
#include "core/paths.h"

#include <gtest/gtest.h>

#include "core/current_folder.h"

namespace ardane {
namespace {

TEST(WindowsPaths, AreJoinedByABackslash) {
  EXPECT_EQ(Joindre_chemin(R"(C:\jeux)", "ARDANE.SCI"), R"(C:\jeux\ARDANE.SCI)");
  EXPECT_EQ(Joindre_chemin(R"(C:\)", "ARDANE.SCI"), R"(C:\ARDANE.SCI)");
  EXPECT_EQ(texte_du_chemin(chemin_natif("C:/jeux/été")), R"(C:\jeux\été)");
}

TEST(WindowsPaths, LoseTheSeparatorsAtTheirEndsUnlessADriveWouldLoseItsRoot) {
  EXPECT_EQ(sans_séparateur_final(R"(C:\jeux\)"), R"(C:\jeux)");
  EXPECT_EQ(sans_séparateur_final(R"(C:\)"), R"(C:\)");
}

TEST(WindowsPaths, BelowAnotherFolderKeepTheirDriveOrTheirMachine) {
  EXPECT_EQ(en_noms(R"(C:\jeux\ARDANE.SCI)"), R"(C\jeux\ARDANE.SCI)");
  EXPECT_EQ(en_noms(R"(\\salon\jeux\ARDANE.SCI)"), R"(salon\jeux\ARDANE.SCI)");
  for (const char *path : {R"(C:\jeux\ARDANE.SCI)", R"(\\salon\jeux\ARDANE.SCI)"})
    EXPECT_EQ(texte_du_chemin(depuis_noms(en_noms(path))), path);
}

TEST(WindowsPaths, ANameIsOneThatFilesCanHave) {
  for (const char *name : {"Souper", "été 2", "CONTES", "a;b"}) EXPECT_TRUE(est_nom_de_fichier(name)) << name;
  for (const char *name : {"", "a/b", R"(a\b)", "a:b", "a*", "a?", "<a>", "a|b", "\"a\"", "a\tb", "CON",
                           "nul", "Com1", "LPT9", "aux.CAI", "con .SCI"})
    EXPECT_FALSE(est_nom_de_fichier(name)) << name;
}

TEST(WindowsPaths, OfADriveOrFromItsRootAreNotJoinedToTheCurrentFolder) {
  const Dossier_courant folder(R"(C:\jeux)");
  EXPECT_EQ(folder.complet(R"(D:\a)"), R"(D:\a)");
  EXPECT_EQ(folder.complet(R"(\a)"), R"(C:\a)");
  EXPECT_EQ(folder.complet("a"), R"(C:\jeux\a)");
}

}  // namespace
}  // namespace ardane
