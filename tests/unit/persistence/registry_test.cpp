#include "persistence/registry.h"

#include <gtest/gtest.h>

#include "platform/registry_store.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

class Registry : public testing::Test {
 protected:
  int lire(std::string_view nom, std::string_view clé = clé_du_jeu) {
    return Lire_registre(registre, clé, nom, texte);
  }

  RegistreMémoire registre;
  std::string texte = "avant";
};

TEST_F(Registry, AnAbsentKeyIsMinusOneAndAnAbsentValueMinusTwo) {
  EXPECT_EQ(lire("version"), -1);
  EXPECT_EQ(Créer_clé(registre, clé_du_jeu), 0);
  EXPECT_EQ(lire("version"), -2);
  EXPECT_EQ(texte, "avant");
  EXPECT_EQ(Ecrire_registre(registre, clé_du_jeu, "version", "1.00"), 0);
  EXPECT_EQ(lire("version"), 0);
  EXPECT_EQ(texte, "1.00");
}

TEST_F(Registry, AnEmptyTextIsAValue) {
  Créer_clé(registre, clé_du_jeu);
  Ecrire_registre(registre, clé_du_jeu, "joueur", "");
  EXPECT_EQ(lire("joueur"), 0);
  EXPECT_EQ(texte, "");
}

TEST_F(Registry, NothingIsWrittenUnderAnAbsentKey) {
  EXPECT_EQ(Ecrire_registre(registre, clé_du_jeu, "joueur", "Ann"), -1);
  EXPECT_FALSE(registre.existe(clé_du_jeu));
}

TEST_F(Registry, TheNameOfTheValueIsTrimmedForReading) {
  Créer_clé(registre, clé_du_jeu);
  Ecrire_registre(registre, clé_du_jeu, "joueur", "Ann");
  EXPECT_EQ(lire("  joueur "), 0);
  EXPECT_EQ(texte, "Ann");
}

TEST_F(Registry, TheRootIsTakenInAnyCase) {
  Créer_clé(registre, clé_du_jeu);
  EXPECT_EQ(Ouvrir_clé(registre, R"(hkey_Current_User\Software\Mirabonde\Ardane)"), clé_du_jeu);
}

TEST_F(Registry, EmptyPartsAreSkipped) {
  EXPECT_EQ(Créer_clé(registre, R"(\\HKEY_CURRENT_USER\\Software\Mirabonde\\Ardane\)"), 0);
  EXPECT_EQ(Ouvrir_clé(registre, R"(\HKEY_CURRENT_USER\Software\\Mirabonde\Ardane\\)"), clé_du_jeu);
}

TEST_F(Registry, OnlyTheSixRootsOpen) {
  for (const char *racine : {"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE", "HKEY_USERS",
                             "HKEY_PERFORMANCE_DATA", "HKEY_CURRENT_CONFIG"})
    EXPECT_EQ(Ouvrir_clé(registre, racine), racine);
  registre.créer("AUTRE");
  EXPECT_EQ(Ouvrir_clé(registre, "AUTRE"), std::nullopt);
  EXPECT_EQ(Ouvrir_clé(registre, ""), std::nullopt);
  EXPECT_EQ(Ouvrir_clé(registre, "\\"), std::nullopt);
}

TEST_F(Registry, ThirtyTwoPartsOpenAndThirtyThreeDoNot) {
  std::string clé = "HKEY_CURRENT_USER";
  for (int i = 2; i <= 32; ++i) clé += "\\k";
  EXPECT_EQ(Créer_clé(registre, clé), 0);
  EXPECT_TRUE(Ouvrir_clé(registre, clé));
  EXPECT_EQ(Créer_clé(registre, clé + "\\k"), -1);
  registre.créer(clé + "\\k");
  EXPECT_FALSE(Ouvrir_clé(registre, clé + "\\k"));
}

TEST_F(Registry, KeysAreMadeUnderTheUserAlone) {
  EXPECT_EQ(Créer_clé(registre, R"(HKEY_LOCAL_MACHINE\Software\Mirabonde)"), -2);
  EXPECT_EQ(Créer_clé(registre, "Software"), -2);
  EXPECT_EQ(Créer_clé(registre, ""), -1);
  EXPECT_EQ(Créer_clé(registre, R"(hkey_current_user\Software\Mirabonde)"), 0);
  EXPECT_TRUE(registre.existe(clé_de_famille));
  EXPECT_EQ(Créer_clé(registre, clé_de_famille), 0);
}

TEST_F(Registry, ALongTextIsCutByTheBufferOf256Bytes) {
  Créer_clé(registre, clé_du_jeu);
  std::string voulu;
  for (int i = 0; i < 254; ++i) voulu += "é";
  Ecrire_registre(registre, clé_du_jeu, "a", voulu);
  lire("a");
  EXPECT_EQ(texte, voulu);
  Ecrire_registre(registre, clé_du_jeu, "a", voulu + "x");
  lire("a");
  EXPECT_EQ(texte, voulu + "x");
  Ecrire_registre(registre, clé_du_jeu, "a", voulu + "xy");
  lire("a");
  EXPECT_EQ(texte, voulu + "x");
}

TEST_F(Registry, AStoreThatCannotKeepAnythingSaysSo) {
  DossierTemporaire dossier;
  écrire_fichier(dossier.fichier("config"), "");
  RegistreFichier perdu(chemin_natif(dossier.fichier("config/registre")));
  EXPECT_EQ(Créer_clé(perdu, clé_du_jeu), -1);
  EXPECT_EQ(Ecrire_registre(perdu, clé_du_jeu, "joueur", "Ann"), -2);
  EXPECT_EQ(Lire_registre(perdu, clé_du_jeu, "joueur", texte), 0);
  EXPECT_EQ(texte, "Ann");
}

}  // namespace
}  // namespace ardane
