#include "platform/file_replacement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class FileReplacement : public testing::Test {
 protected:
  std::optional<std::string_view> remplacer(std::string_view octets) const {
    return remplacer_fichier(chemin_natif(fichier), octets);
  }
  std::vector<std::string> dans_le_dossier() const {
    std::vector<std::string> noms;
    for (const auto &entrée : fs::directory_iterator(chemin_natif(dossier.chemin())))
      noms.push_back(texte_du_chemin(entrée.path().filename()));
    return noms;
  }
  /// For tests that give up the superuser's rights.
  void ouvrir_le_dossier_à_tous() const { fs::permissions(chemin_natif(dossier.chemin()), fs::perms::all); }

  static constexpr auto lecture_seule =
      fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
  DossierTemporaire dossier;
  std::string fichier = dossier.fichier("liste été.txt");
};

TEST_F(FileReplacement, AFileIsMadeWhereThereWasNone) {
  const std::string octets("a\0\r\n\xE9", 5);
  EXPECT_EQ(remplacer(octets), std::nullopt);
  EXPECT_EQ(lire_fichier(fichier), octets);
  EXPECT_THAT(dans_le_dossier(), ElementsAre("liste été.txt"));
}

TEST_F(FileReplacement, OfALongerFileNothingStays) {
  écrire_fichier(fichier, std::string(100'000, 'x'));
  EXPECT_EQ(remplacer("court"), std::nullopt);
  EXPECT_EQ(lire_fichier(fichier), "court");
  EXPECT_EQ(remplacer(""), std::nullopt);
  EXPECT_EQ(lire_fichier(fichier), "");
  EXPECT_THAT(dans_le_dossier(), ElementsAre("liste été.txt"));
}

TEST_F(FileReplacement, ThePermissionsStay) {
  écrire_fichier(fichier, "ancien");
  fs::permissions(chemin_natif(fichier), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(remplacer("nouveau"), std::nullopt);
  EXPECT_EQ(fs::status(chemin_natif(fichier)).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(FileReplacement, ALinkStaysALinkAndWhatItLeadsToIsReplaced) {
  fs::create_directory(chemin_natif(dossier.fichier("ailleurs")));
  const std::string réel = dossier.fichier("ailleurs/réel.txt");
  écrire_fichier(réel, "ancien");
  fs::create_symlink("ailleurs/réel.txt", chemin_natif(fichier));
  EXPECT_EQ(remplacer("nouveau"), std::nullopt);
  EXPECT_TRUE(fs::is_symlink(chemin_natif(fichier)));
  EXPECT_EQ(lire_fichier(réel), "nouveau");
}

TEST_F(FileReplacement, AnAbsentFolderIsTold) {
  fichier = dossier.fichier("absent/liste.txt");
  EXPECT_EQ(remplacer("x"), "son dossier refuse un nouveau fichier");
  EXPECT_THAT(dans_le_dossier(), IsEmpty());
}

TEST_F(FileReplacement, AReadOnlyFolderIsToldAndTheOldFileStays) {
  écrire_fichier(fichier, "ancien");
  fs::permissions(chemin_natif(fichier), fs::perms::all);
  const auto traversée = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
  fs::permissions(chemin_natif(dossier.chemin()), lecture_seule | traversée);
  const SansPrivilège ordinaire;
  EXPECT_EQ(remplacer("nouveau"), "son dossier refuse un nouveau fichier");
  EXPECT_EQ(lire_fichier(fichier), "ancien");
}

TEST_F(FileReplacement, AReadOnlyFileIsToldAndStays) {
  écrire_fichier(fichier, "ancien");
  ouvrir_le_dossier_à_tous();
  fs::permissions(chemin_natif(fichier), lecture_seule);
  const SansPrivilège ordinaire;
  EXPECT_EQ(remplacer("nouveau"), "il est protégé contre l'écriture");
  EXPECT_EQ(lire_fichier(fichier), "ancien");
  EXPECT_THAT(dans_le_dossier(), ElementsAre("liste été.txt"));
}

TEST_F(FileReplacement, AFullDiskIsToldAndTheOldFileStays) {
  écrire_fichier(fichier, "ancien");
  for (const rlim_t place : {0U, 1U, 99'999U}) {
    const DisquePlein plein(place);
    EXPECT_EQ(remplacer(std::string(100'000, 'x')), "le disque est plein ou en panne") << place;
  }
  EXPECT_EQ(lire_fichier(fichier), "ancien");
  EXPECT_THAT(dans_le_dossier(), ElementsAre("liste été.txt"));
}

TEST_F(FileReplacement, AFolderOfThatNameIsToldAndStays) {
  fs::create_directory(chemin_natif(fichier));
  EXPECT_EQ(remplacer("x"), "ce n'est pas un fichier ordinaire");
  EXPECT_TRUE(fs::is_directory(chemin_natif(fichier)));
}

TEST_F(FileReplacement, ADeviceIsNotReplacedAndAPipeIsNotWaitedFor) {
  EXPECT_EQ(remplacer_fichier("/dev/full", "x"), "ce n'est pas un fichier ordinaire");
  ASSERT_EQ(mkfifo(fichier.c_str(), S_IRUSR | S_IWUSR), 0);
  EXPECT_EQ(remplacer("x"), "ce n'est pas un fichier ordinaire");
}

TEST_F(FileReplacement, ANameThatIsTooLongOrEmptyIsTold) {
  EXPECT_EQ(remplacer_fichier(chemin_natif(dossier.fichier(std::string(300, 'n'))), "x"),
            "son dossier refuse un nouveau fichier");
  const fs::path avant = fs::current_path();
  fs::current_path(chemin_natif(dossier.chemin()));
  EXPECT_NE(remplacer_fichier("", "x"), std::nullopt);
  fs::current_path(avant);
  EXPECT_THAT(dans_le_dossier(), IsEmpty());
}

/// The number of a process that has ended.
long processus_fini() {
  const pid_t enfant = fork();
  if (enfant == 0) _exit(0);
  waitpid(enfant, nullptr, 0);
  return enfant;
}

TEST_F(FileReplacement, WhatAKilledProcessLeftIsSweptAndNothingElse) {
  const std::string fini = std::to_string(processus_fini()), ici = std::to_string(getpid());
  const std::vector<std::string> restent = {"liste." + ici + "-1763.tmp",
                                            "liste." + fini + "-.tmp",
                                            "liste." + fini + ".tmp",
                                            "liste.-" + fini + "-1763.tmp",
                                            "liste.99999999999-1763.tmp",
                                            "." + fini + "-1763.tmp",
                                            "liste." + fini + "-1763.txt",
                                            "liste." + fini + "-1763x.tmp",
                                            "~zut.tmp",
                                            "liste.0-1763.tmp"};
  for (const std::string &nom : restent) écrire_fichier(dossier.fichier(nom), "x");
  écrire_fichier(dossier.fichier("liste été.txt." + fini + "-1763.tmp"), "x");
  const std::string lien = "lien." + fini + "-1763.tmp";
  fs::create_symlink(chemin_natif(dossier.fichier("~zut.tmp")), chemin_natif(dossier.fichier(lien)));
  fs::create_directory(chemin_natif(dossier.fichier("dossier." + fini + "-1763.tmp")));
  balayer_provisoires(chemin_natif(dossier.chemin()));
  EXPECT_EQ(dans_le_dossier().size(), restent.size() + 2);
  EXPECT_FALSE(fichier_existe(dossier.fichier("liste été.txt." + fini + "-1763.tmp")));
  balayer_provisoires("/nulle/part");
  balayer_provisoires("");
}

}  // namespace
}  // namespace ardane
