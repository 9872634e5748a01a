#include "persistence/folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "persistence/registry.h"
#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::SizeIs;

class WriteProbe : public testing::Test {
 protected:
  DossierTemporaire dossier;
  std::string sonde = dossier.fichier("~zut.tmp");
};

TEST_F(WriteProbe, AFolderThatCanBeWrittenPassesAndKeepsNothing) {
  EXPECT_TRUE(Tester_ecriture(dossier.chemin()));
  EXPECT_TRUE(Tester_ecriture(dossier.chemin() + "/"));
  EXPECT_TRUE(fs::is_empty(chemin_natif(dossier.chemin())));
}

TEST_F(WriteProbe, AFileOfItsNameIsNotSpared) {
  écrire_fichier(sonde, "précieux");
  EXPECT_TRUE(Tester_ecriture(dossier.chemin()));
  EXPECT_FALSE(fichier_existe(sonde));
}

TEST_F(WriteProbe, ALinkOfItsNameIsNeitherFollowedNorSpared) {
  const std::string cible = dossier.fichier("ailleurs");
  fs::create_symlink(chemin_natif(cible), chemin_natif(sonde));
  EXPECT_TRUE(Tester_ecriture(dossier.chemin()));
  EXPECT_TRUE(fs::is_empty(chemin_natif(dossier.chemin()))) << "nor is a file left where it led to";
  écrire_fichier(cible, "précieux");
  fs::create_symlink(chemin_natif(cible), chemin_natif(sonde));
  EXPECT_TRUE(Tester_ecriture(dossier.chemin()));
  EXPECT_EQ(lire_fichier(cible), "précieux");
  EXPECT_FALSE(fs::is_symlink(chemin_natif(sonde)));
}

TEST_F(WriteProbe, AFolderOfItsNameFailsItAndStays) {
  fs::create_directory(chemin_natif(sonde));
  EXPECT_FALSE(Tester_ecriture(dossier.chemin()));
  EXPECT_TRUE(fs::is_directory(chemin_natif(sonde)));
}

TEST_F(WriteProbe, AnAbsentFolderFails) {
  EXPECT_FALSE(Tester_ecriture(dossier.fichier("absent")));
}

TEST_F(WriteProbe, AFileIsNoFolder) {
  écrire_fichier(dossier.fichier("a"), "");
  EXPECT_FALSE(Tester_ecriture(dossier.fichier("a")));
}

TEST_F(WriteProbe, AFolderWithoutLeaveToWriteFails) {
  fs::permissions(chemin_natif(dossier.chemin()), fs::perms::owner_read | fs::perms::owner_exec |
                                                      fs::perms::others_read | fs::perms::others_exec);
  const SansPrivilège ordinaire;
  EXPECT_FALSE(Tester_ecriture(dossier.chemin()));
}

TEST_F(WriteProbe, AProtectedProbeThatWasLeftBehindFails) {
  écrire_fichier(sonde, "");
  fs::permissions(chemin_natif(dossier.chemin()), fs::perms::all);
  fs::permissions(chemin_natif(sonde), fs::perms::owner_read);
  const SansPrivilège ordinaire;
  EXPECT_FALSE(Tester_ecriture(dossier.chemin()));
  EXPECT_TRUE(fichier_existe(sonde));
}

TEST_F(WriteProbe, AFullDiskFailsAndKeepsNothing) {
  {
    const DisquePlein plein(64);
    EXPECT_FALSE(Tester_ecriture(dossier.chemin()));
  }
  EXPECT_TRUE(fs::is_empty(chemin_natif(dossier.chemin())));
}

TEST_F(WriteProbe, APathOf126CharactersPassesAndALongerOneDoesNot) {
  constexpr std::size_t plus_long = 126;
  const std::size_t reste = plus_long - dossier.fichier("/~zut.tmp").size();
  const std::string juste = dossier.fichier(std::string(reste, 'x'));
  const std::string trop = dossier.fichier(std::string(reste + 1, 'x'));
  fs::create_directory(chemin_natif(juste));
  fs::create_directory(chemin_natif(trop));
  EXPECT_TRUE(Tester_ecriture(juste));
  EXPECT_FALSE(Tester_ecriture(trop));
  EXPECT_TRUE(fs::is_empty(chemin_natif(trop)));
}

TEST_F(WriteProbe, AFolderNamedOutsideWindows1252Passes) {
  const std::string grec = dossier.fichier("Ελλάδα");
  fs::create_directory(chemin_natif(grec));
  EXPECT_TRUE(Tester_ecriture(grec));
}

TEST(DeletingFiles, OnlyAPlainFileGoes) {
  DossierTemporaire dossier;
  écrire_fichier(dossier.fichier("a"), "");
  fs::create_directory(chemin_natif(dossier.fichier("d")));
  ASSERT_EQ(mkfifo(dossier.fichier("p").c_str(), S_IRUSR | S_IWUSR), 0);
  EXPECT_TRUE(Effacer_fichier(dossier.fichier("a")));
  EXPECT_FALSE(Effacer_fichier(dossier.fichier("a")));
  EXPECT_FALSE(Effacer_fichier(dossier.fichier("d")));
  EXPECT_FALSE(Effacer_fichier(dossier.fichier("p")));
  EXPECT_FALSE(Effacer_fichier(""));
  EXPECT_TRUE(fs::exists(chemin_natif(dossier.fichier("p"))));
}

TEST(DeletingFiles, InAReadOnlyFolderItFailsAndTheFileStays) {
  DossierTemporaire dossier;
  écrire_fichier(dossier.fichier("a"), "");
  fs::permissions(chemin_natif(dossier.fichier("a")), fs::perms::all);
  {
    const Protégé lecture_seule(chemin_natif(dossier.chemin()), Protégé::Contre::écriture);
    EXPECT_FALSE(Effacer_fichier(dossier.fichier("a")));
  }
  EXPECT_TRUE(fichier_existe(dossier.fichier("a")));
}

class ProposedFolder : public testing::Test {
 protected:
  ProposedFolder() {
    m.démarrer();
    nouveau = m.dossier.fichier("Parties");
    fs::create_directory(chemin_natif(nouveau));
  }
  MondeFactice m;
  std::string nouveau;
};

TEST_F(ProposedFolder, TheFolderInUseIsNotAskedAbout) {
  m.g().Répertoire_sauvegarde = "/Jeux/Été";
  Proposer_répertoire(m.c(), "/jeux/ÉTÉ");
  Proposer_répertoire(m.c(), "  /JEUX/été ");
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
}

TEST_F(ProposedFolder, OuiMakesItTheDefaultAndTheCurrentFolder) {
  m.boîtes.réponses = {Réponse::oui};
  Proposer_répertoire(m.c(), nouveau);
  ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
  EXPECT_EQ(m.dernière_boîte().icône, Icône::question);
  EXPECT_EQ(m.dernière_boîte().boutons, Boutons::oui_non);
  EXPECT_EQ(m.dernière_boîte().titre, "Choix du répertoire");
  EXPECT_EQ(m.dernière_boîte().texte, "Souhaitez-vous utiliser comme répertoire par défaut " + nouveau);
  EXPECT_EQ(m.g().Répertoire_sauvegarde, nouveau);
  EXPECT_EQ(m.registre.lire(clé_du_jeu, "répertoire"), nouveau);
  EXPECT_EQ(m.c().dossier.chemin(), nouveau);
}

TEST_F(ProposedFolder, NonChangesNothing) {
  const std::string avant = m.g().Répertoire_sauvegarde;
  m.boîtes.réponses = {Réponse::non};
  Proposer_répertoire(m.c(), nouveau);
  EXPECT_EQ(m.g().Répertoire_sauvegarde, avant);
  EXPECT_EQ(m.registre.lire(clé_du_jeu, "répertoire"), avant);
  EXPECT_EQ(m.c().dossier.chemin(), m.dossier.chemin());
}

TEST_F(ProposedFolder, AFolderThatHasGoneIsFoundOutLater) {
  m.boîtes.réponses = {Réponse::oui};
  Proposer_répertoire(m.c(), m.dossier.fichier("absent"));
  EXPECT_EQ(m.c().dossier.chemin(), m.dossier.chemin());
  EXPECT_FALSE(Tester_ecriture(m.g().Répertoire_sauvegarde));
}

}  // namespace
}  // namespace ardane
