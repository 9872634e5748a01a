#include "platform/registry_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <thread>

#include "platform/registry_lock.h"
#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::string_view jeu = R"(HKEY_CURRENT_USER\Software\Mirabonde\Ardane)";
constexpr std::string_view famille = R"(HKEY_CURRENT_USER\Software\Mirabonde)";

TEST(MemoryRegistry, AKeyBringsThoseAboveIt) {
  RegistreMémoire registre;
  EXPECT_FALSE(registre.existe(famille));
  EXPECT_TRUE(registre.créer(jeu));
  EXPECT_TRUE(registre.existe(jeu));
  EXPECT_TRUE(registre.existe(famille));
  EXPECT_TRUE(registre.existe("HKEY_CURRENT_USER"));
  EXPECT_FALSE(registre.existe("HKEY_CURRENT_USER\\Soft"));
}

TEST(MemoryRegistry, NamesAreComparedWithoutRegardToCase) {
  RegistreMémoire registre;
  registre.créer(jeu);
  registre.écrire(R"(hkey_current_user\SOFTWARE\mirabonde\ARDANE)", "Répertoire", "a");
  EXPECT_EQ(registre.lire(jeu, "RÉPERTOIRE"), "a");
  EXPECT_EQ(registre.lire(jeu, "œ"), std::nullopt);
  registre.écrire(jeu, "Œ", "b");
  EXPECT_EQ(registre.lire(jeu, "œ"), "b");
  registre.écrire(jeu, "Ÿ Š", "c");
  EXPECT_EQ(registre.lire(jeu, "ÿ š"), "c");
}

TEST(MemoryRegistry, NamesAreKeptAsFirstWritten) {
  RegistreMémoire registre;
  registre.créer(jeu);
  registre.créer(R"(HKEY_CURRENT_USER\SOFTWARE\MIRABONDE\Updates)");
  registre.écrire(jeu, "Joueur", "Ann");
  registre.écrire(jeu, "JOUEUR", "Zoé");
  EXPECT_THAT(registre.valeurs(jeu), ElementsAre("Joueur"));
  EXPECT_EQ(registre.lire(jeu, "joueur"), "Zoé");
  EXPECT_THAT(registre.sous_clés("HKEY_CURRENT_USER"), ElementsAre("Software"));
}

TEST(MemoryRegistry, KeysAndValuesComeInTheOrderOfTheirMaking) {
  RegistreMémoire registre;
  registre.créer(R"(R\a\z)");
  registre.créer(R"(R\a\b)");
  registre.créer(R"(R\a\m)");
  registre.créer(R"(R\ab)");
  registre.écrire(R"(R\a)", "2", "");
  registre.écrire(R"(R\a)", "1", "");
  EXPECT_THAT(registre.sous_clés(R"(R\a)"), ElementsAre("z", "b", "m"));
  EXPECT_THAT(registre.sous_clés("R"), ElementsAre("a", "ab"));
  EXPECT_THAT(registre.sous_clés(""), ElementsAre("R"));
  EXPECT_THAT(registre.valeurs(R"(R\a)"), ElementsAre("2", "1"));
  EXPECT_THAT(registre.sous_clés(R"(R\absente)"), IsEmpty());
  EXPECT_THAT(registre.valeurs(R"(R\absente)"), IsEmpty());
}

TEST(MemoryRegistry, EmptyPartsOfAKeyArePassedOver) {
  RegistreMémoire registre;
  EXPECT_TRUE(registre.créer(R"(\R\\a\)"));
  EXPECT_TRUE(registre.existe(R"(R\a)"));
  EXPECT_FALSE(registre.créer(""));
  EXPECT_FALSE(registre.créer(R"(\\)"));
}

TEST(MemoryRegistry, NothingIsWrittenUnderAnAbsentKey) {
  RegistreMémoire registre;
  EXPECT_FALSE(registre.écrire(jeu, "joueur", "Ann"));
  EXPECT_EQ(registre.lire(jeu, "joueur"), std::nullopt);
}

TEST(MemoryRegistry, ThereIsNoKeyWithoutAName) {
  RegistreMémoire registre;
  registre.créer(jeu);
  EXPECT_TRUE(registre.existe(jeu));
  EXPECT_FALSE(registre.existe(""));
}

TEST(MemoryRegistry, TheEmptyNameIsAValueLikeAnother) {
  RegistreMémoire registre;
  registre.créer("R");
  EXPECT_EQ(registre.lire("R", ""), std::nullopt);
  EXPECT_TRUE(registre.écrire("R", "", "défaut"));
  EXPECT_EQ(registre.lire("R", ""), "défaut");
}

TEST(MemoryRegistry, WhatIsNotUtf8IsRefused) {
  RegistreMémoire registre;
  EXPECT_FALSE(registre.créer("R\\\xE9"));
  registre.créer("R");
  for (const char *texte :
       {"\xE9", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF", "\xE2\x82"})
    EXPECT_FALSE(registre.écrire("R", "a", texte));
  EXPECT_FALSE(registre.écrire("R", "\x80", "a"));
  EXPECT_TRUE(registre.écrire("R", "a", "é€\xF0\x9F\x97\xBA"));
}

/// A key of so many parts.
std::string clé_profonde(int parties) {
  std::string clé = "HKEY_CURRENT_USER";
  for (int i = 1; i < parties; ++i) clé += "\\a";
  return clé;
}

TEST(MemoryRegistry, AKeyOfMoreThan32PartsIsRefused) {
  RegistreMémoire registre;
  EXPECT_TRUE(registre.créer(clé_profonde(32)));
  EXPECT_FALSE(registre.créer(clé_profonde(33)));
  EXPECT_FALSE(registre.créer(clé_profonde(20'000)));
  EXPECT_FALSE(registre.existe(clé_profonde(33)));
}

class FileRegistry : public testing::Test {
 protected:
  RegistreFichier ouvrir() const { return RegistreFichier(chemin_natif(fichier)); }
  std::string contenu() const { return lire_fichier(fichier); }
  void poser(std::string_view texte) const {
    fs::create_directories(chemin_natif(Dossier_de(fichier)));
    écrire_fichier(fichier, texte);
  }
  /// Names of what stands beside the file, but for the lock.
  std::vector<std::string> voisins() const {
    std::vector<std::string> noms;
    for (const auto &entrée : fs::directory_iterator(chemin_natif(Dossier_de(fichier)))) {
      const std::string nom = texte_du_chemin(entrée.path().filename());
      if (nom != "registre" && nom != "registre.verrou") noms.push_back(nom);
    }
    return noms;
  }

  DossierTemporaire dossier;
  std::string fichier = dossier.fichier("config/mirabonde/registre");
};

TEST_F(FileRegistry, WhatIsWrittenIsThereInTheNextRun) {
  {
    RegistreFichier registre = ouvrir();
    EXPECT_FALSE(registre.existe(jeu));
    EXPECT_TRUE(registre.créer(jeu));
    EXPECT_TRUE(registre.écrire(jeu, "joueur", "Ann"));
    EXPECT_TRUE(registre.écrire(famille, "date", "24/02/2007 10:00:00"));
  }
  const RegistreFichier registre = ouvrir();
  EXPECT_EQ(registre.lire(jeu, "JOUEUR"), "Ann");
  EXPECT_EQ(registre.lire(famille, "date"), "24/02/2007 10:00:00");
  EXPECT_THAT(registre.sous_clés(famille), ElementsAre("Ardane"));
  EXPECT_THAT(registre.valeurs(famille), ElementsAre("date"));
  EXPECT_THAT(voisins(), IsEmpty());
}

TEST_F(FileRegistry, TheFileIsReadable) {
  RegistreFichier registre = ouvrir();
  registre.créer(jeu);
  registre.écrire(jeu, "joueur", "Ann");
  registre.écrire(jeu, "répertoire", "/home/ann/Été");
  EXPECT_EQ(contenu(),
            "[HKEY_CURRENT_USER\\Software\\Mirabonde\\Ardane]\n"
            "\"joueur\"=\"Ann\"\n"
            "\"répertoire\"=\"/home/ann/Été\"\n");
}

TEST_F(FileRegistry, SignsOfTheFormatSurviveInNamesAndTexts) {
  const std::string bizarre = "a\"b\\n\n\r\\\"]=[\t";
  {
    RegistreFichier registre = ouvrir();
    registre.créer("R");
    registre.écrire("R", bizarre, bizarre);
    registre.écrire("R", "", "défaut");
  }
  const RegistreFichier registre = ouvrir();
  EXPECT_EQ(registre.lire("R", bizarre), bizarre);
  EXPECT_EQ(registre.lire("R", ""), "défaut");
}

TEST_F(FileRegistry, AKeyWithoutValuesIsKept) {
  ouvrir().créer(R"(R\Updates)");
  EXPECT_TRUE(ouvrir().existe(R"(R\Updates)"));
}

TEST_F(FileRegistry, AKeyMadeTwiceStandsOnce) {
  RegistreFichier registre = ouvrir();
  EXPECT_TRUE(registre.créer(R"(R\a)"));
  EXPECT_TRUE(registre.créer(R"(r\A)"));
  EXPECT_TRUE(registre.créer("R"));
  EXPECT_EQ(contenu(), "[R\\a]\n");
}

TEST_F(FileRegistry, LinesThatMakeNoSenseArePassedOverAndStay) {
  poser(
      "un mot d'avant\n"
      "\"sans clé\"=\"perdu\"\r\n"
      "; une remarque\n"
      "[R]\n"
      "\"a\"=\"1\"\n"
      "\"b\"=2\n"
      "\"c\"=\"3\" et la suite\n"
      "\"d\"=\"\\q\"\n"
      "[]\n"
      "[R\n"
      "\n"
      "\"e\"=\"5\"\r\n");
  RegistreFichier registre = ouvrir();
  EXPECT_THAT(registre.valeurs("R"), ElementsAre("a", "e"));
  EXPECT_THAT(registre.sous_clés(""), ElementsAre("R"));
  EXPECT_TRUE(registre.écrire("R", "a", "7"));
  EXPECT_TRUE(registre.écrire("R", "b", "8"));
  EXPECT_EQ(contenu(),
            "un mot d'avant\n"
            "\"sans clé\"=\"perdu\"\r\n"
            "; une remarque\n"
            "[R]\n"
            "\"a\"=\"7\"\n"
            "\"b\"=2\n"
            "\"c\"=\"3\" et la suite\n"
            "\"d\"=\"\\q\"\n"
            "[]\n"
            "[R\n"
            "\n"
            "\"e\"=\"5\"\n"
            "\"b\"=\"8\"\n");
}

TEST_F(FileRegistry, AKeyOfMoreThan32PartsIsPassedOverAndStays) {
  const std::string lignes = "[R]\n\"a\"=\"1\"\n[" + clé_profonde(20'000) + "]\n\"b\"=\"2\"\n";
  poser(lignes);
  RegistreFichier registre = ouvrir();
  EXPECT_THAT(registre.sous_clés(""), ElementsAre("R"));
  EXPECT_EQ(registre.lire("R", "b"), std::nullopt) << "it is the other key's";
  EXPECT_TRUE(registre.écrire("R", "a", "3"));
  EXPECT_THAT(contenu(), HasSubstr("[" + clé_profonde(20'000) + "]\n\"b\"=\"2\"\n"));
}

TEST_F(FileRegistry, ForeignBytesAreNeverRead) {
  std::string octets;
  for (int i = 0; i < 4096; ++i) octets.push_back(static_cast<char>((i * 131) ^ (i >> 3)));
  poser(octets);
  RegistreFichier registre = ouvrir();
  EXPECT_TRUE(registre.créer(jeu));
  EXPECT_TRUE(registre.écrire(jeu, "joueur", "Ann"));
  EXPECT_THAT(contenu(), StartsWith(octets));
  EXPECT_EQ(ouvrir().lire(jeu, "joueur"), "Ann");
}

TEST_F(FileRegistry, ALatin1LineIsPassedOver) {
  poser("[R]\n\"r\xE9pertoire\"=\"x\"\n\"a\"=\"1\"\n");
  EXPECT_THAT(ouvrir().valeurs("R"), ElementsAre("a"));
}

TEST_F(FileRegistry, AnEmptyFileHoldsNothing) {
  poser("");
  RegistreFichier registre = ouvrir();
  EXPECT_THAT(registre.sous_clés(""), IsEmpty());
  EXPECT_TRUE(registre.créer("R"));
}

TEST_F(FileRegistry, AFileCutAnywhereLosesNoMoreThanItsLastLine) {
  const std::string entier = "[R\\été]\n\"a\"=\"un\\n\"\n\n[R\\b]\n\"c\"=\"deux\"\n";
  for (std::size_t longueur = 0; longueur <= entier.size(); ++longueur) {
    poser(entier.substr(0, longueur));
    RegistreFichier registre = ouvrir();
    EXPECT_EQ(registre.lire(R"(R\été)", "a").has_value(), longueur >= entier.find("\n\n[")) << longueur;
    EXPECT_TRUE(registre.créer(R"(R\b)")) << longueur;
    EXPECT_TRUE(registre.écrire(R"(R\b)", "c", "trois")) << longueur;
    EXPECT_EQ(ouvrir().lire(R"(R\b)", "c"), "trois") << longueur;
  }
}

TEST_F(FileRegistry, AByteOrderMarkOfAnEditorIsDropped) {
  poser("\xEF\xBB\xBF[R]\r\n\"a\"=\"1\"\r\n");
  EXPECT_EQ(ouvrir().lire("R", "a"), "1");
}

TEST_F(FileRegistry, OfTwoValuesOfOneNameTheLastCounts) {
  poser("[R]\n\"a\"=\"1\"\n[r]\n\"A\"=\"2\"\n");
  RegistreFichier registre = ouvrir();
  EXPECT_EQ(registre.lire("R", "a"), "2");
  registre.écrire("R", "a", "3");
  EXPECT_EQ(ouvrir().lire("R", "a"), "3");
}

TEST_F(FileRegistry, TwoInstancesKeepEachOthersSettings) {
  RegistreFichier première = ouvrir(), seconde = ouvrir();
  première.créer(jeu);
  seconde.créer(jeu);
  première.écrire(jeu, "joueur", "Ann");
  seconde.écrire(jeu, "langue", "1");
  première.écrire(jeu, "répertoire", "/tmp");
  EXPECT_EQ(première.lire(jeu, "langue"), "1");
  const RegistreFichier troisième = ouvrir();
  EXPECT_EQ(troisième.lire(jeu, "joueur"), "Ann");
  EXPECT_EQ(troisième.lire(jeu, "langue"), "1");
  EXPECT_EQ(troisième.lire(jeu, "répertoire"), "/tmp");
}

TEST_F(FileRegistry, AnInstanceThatWritesUndoesNoChangeOfAnother) {
  RegistreFichier première = ouvrir();
  première.créer("R");
  première.écrire("R", "a", "1");
  première.écrire("R", "a", "1");
  RegistreFichier seconde = ouvrir();
  seconde.écrire("R", "a", "2");
  première.écrire("R", "b", "3");
  EXPECT_EQ(première.lire("R", "a"), "2");
  EXPECT_EQ(ouvrir().lire("R", "a"), "2");
  EXPECT_EQ(ouvrir().lire("R", "b"), "3");
  // Nor where only one of them has written since.
  première.écrire("R", "c", "4");
  seconde.écrire("R", "c", "5");
  EXPECT_EQ(seconde.lire("R", "b"), "3");
  EXPECT_EQ(ouvrir().lire("R", "c"), "5");
}

TEST_F(FileRegistry, WhatAnInstanceWritesAgainGoesOverWhatAnotherHasMadeOfIt) {
  RegistreFichier première = ouvrir();
  première.créer("R");
  première.écrire("R", "a", "1");
  EXPECT_TRUE(ouvrir().écrire("R", "a", "2"));
  première.écrire("R", "a", "1");
  EXPECT_EQ(ouvrir().lire("R", "a"), "1");
}

TEST_F(FileRegistry, WhatAnotherInstanceHasWrittenAlreadyIsNotWrittenAgain) {
  RegistreFichier première = ouvrir();
  première.créer("R");
  EXPECT_TRUE(ouvrir().écrire("R", "a", "1"));
  const fs::path écrit = chemin_natif(dossier.fichier("écrit"));
  fs::create_hard_link(chemin_natif(fichier), écrit);
  EXPECT_TRUE(première.écrire("R", "a", "1"));
  EXPECT_TRUE(fs::equivalent(chemin_natif(fichier), écrit)) << "else another file stands in its place";
  EXPECT_EQ(première.lire("R", "a"), "1");
}

TEST_F(FileRegistry, InstancesThatWriteAtOnceLoseNothing) {
  constexpr int instances = 4, réglages = 25;
  std::vector<std::thread> fils;
  for (int i = 0; i < instances; ++i) {
    fils.emplace_back([this, i] {
      RegistreFichier registre(chemin_natif(fichier), std::chrono::minutes(1));
      registre.créer("R");
      for (int k = 0; k < réglages; ++k)
        registre.écrire("R", std::to_string(i) + "-" + std::to_string(k), "x");
    });
  }
  for (std::thread &fil : fils) fil.join();
  EXPECT_EQ(ouvrir().valeurs("R").size(), static_cast<std::size_t>(instances * réglages));
  EXPECT_THAT(voisins(), IsEmpty());
}

TEST_F(FileRegistry, ManyChangesTogetherAreWrittenOnce) {
  RegistreFichier registre = ouvrir();
  registre.créer("R");
  registre.ensemble([&] {
    EXPECT_TRUE(registre.écrire("R", "a", "1"));
    registre.ensemble([&] { EXPECT_TRUE(registre.écrire("R", "b", "2")); });
    EXPECT_TRUE(registre.créer("S"));
    EXPECT_EQ(registre.lire("R", "b"), "2");
    EXPECT_EQ(contenu(), "[R]\n");
  });
  EXPECT_EQ(contenu(), "[R]\n\"a\"=\"1\"\n\"b\"=\"2\"\n\n[S]\n");
  registre.ensemble([] {});
  EXPECT_TRUE(registre.écrire("S", "c", "3"));
  EXPECT_EQ(ouvrir().lire("S", "c"), "3");
}

TEST_F(FileRegistry, AnInstanceThatIsStoppedAndHoldsTheLockIsNotWaitedForForEver) {
  poser("[R]\n");
  const VerrouRegistre tenu(chemin_natif(fichier + ".verrou"), RegistreFichier::patience_ordinaire);
  ASSERT_FALSE(tenu.refusé());
  RegistreFichier registre(chemin_natif(fichier), std::chrono::milliseconds(20));
  testing::internal::CaptureStderr();
  EXPECT_TRUE(registre.écrire("R", "a", "1"));
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              HasSubstr("Les réglages sont tenus par un autre programme"));
  // It is told once, and waited for once.
  testing::internal::CaptureStderr();
  EXPECT_TRUE(registre.écrire("R", "b", "2"));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(ouvrir().lire("R", "b"), "2");
  EXPECT_EQ(RegistreFichier::patience_ordinaire, std::chrono::seconds(2));
}

TEST_F(FileRegistry, ALinkInThePlaceOfTheLockIsNotFollowed) {
  poser("[R]\n");
  fs::create_symlink(chemin_natif(dossier.fichier("ailleurs")), chemin_natif(fichier + ".verrou"));
  RegistreFichier registre = ouvrir();
  EXPECT_TRUE(registre.écrire("R", "a", "1"));
  EXPECT_FALSE(fs::exists(chemin_natif(dossier.fichier("ailleurs"))));
}

TEST_F(FileRegistry, AReadOnlyFileStaysAndTheRunGoesOn) {
  poser("[R]\n\"a\"=\"1\"\n");
  fs::permissions(chemin_natif(dossier.chemin()), fs::perms::all);
  fs::permissions(chemin_natif(Dossier_de(fichier)), fs::perms::all);
  fs::permissions(chemin_natif(fichier),
                  fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  const SansPrivilège ordinaire;
  RegistreFichier registre = ouvrir();
  EXPECT_EQ(registre.lire("R", "a"), "1");
  EXPECT_FALSE(registre.écrire("R", "a", "2"));
  EXPECT_FALSE(registre.créer("S"));
  EXPECT_EQ(registre.lire("R", "a"), "2");
  EXPECT_TRUE(registre.existe("S"));
  EXPECT_EQ(contenu(), "[R]\n\"a\"=\"1\"\n");
  EXPECT_THAT(voisins(), IsEmpty());
}

TEST_F(FileRegistry, AFileThatCannotBeReadIsNotReplaced) {
  poser("[R]\n\"a\"=\"1\"\n");
  fs::permissions(chemin_natif(dossier.chemin()), fs::perms::all);
  fs::permissions(chemin_natif(Dossier_de(fichier)), fs::perms::all);
  fs::permissions(chemin_natif(fichier), fs::perms::none);
  {
    const SansPrivilège ordinaire;
    RegistreFichier registre = ouvrir();
    EXPECT_FALSE(registre.existe("R"));
    EXPECT_FALSE(registre.créer("R"));
  }
  fs::permissions(chemin_natif(fichier), fs::perms::owner_all);
  EXPECT_EQ(contenu(), "[R]\n\"a\"=\"1\"\n");
}

TEST_F(FileRegistry, AFileThatCouldNotBeReadForAMomentIsNotReplacedLater) {
  poser("[R]\n\"a\"=\"1\"\n");
  std::optional<RegistreFichier> registre;
  {
    const Protégé illisible(chemin_natif(fichier), Protégé::Contre::lecture);
    registre.emplace(chemin_natif(fichier));
  }
  EXPECT_FALSE(registre->créer("S"));
  EXPECT_FALSE(registre->écrire("S", "b", "2"));
  EXPECT_EQ(contenu(), "[R]\n\"a\"=\"1\"\n");
  EXPECT_EQ(registre->échec(),
            "Les réglages ne sont pas gardés dans « " + fichier + " » : il n'a pas pu être lu");
  // It is well again at the next start.
  EXPECT_TRUE(ouvrir().écrire("R", "a", "2"));
}

TEST_F(FileRegistry, AFileThatCanNoLongerBeReadIsNotReplaced) {
  RegistreFichier registre = ouvrir();
  registre.créer("R");
  const std::string avant = contenu();
  {
    const Protégé illisible(chemin_natif(fichier), Protégé::Contre::lecture);
    EXPECT_FALSE(registre.écrire("R", "a", "1"));
  }
  EXPECT_EQ(contenu(), avant);
  EXPECT_THAT(registre.échec().value_or(""), EndsWith("il ne peut pas être lu"));
}

TEST_F(FileRegistry, AFolderThatCannotBeMadeLeavesTheRunItsMemory) {
  écrire_fichier(dossier.fichier("config"), "a file where the folder should be");
  RegistreFichier registre = ouvrir();
  EXPECT_FALSE(registre.créer(jeu));
  EXPECT_FALSE(registre.écrire(jeu, "joueur", "Ann"));
  EXPECT_EQ(registre.lire(jeu, "joueur"), "Ann");
}

TEST_F(FileRegistry, WhatHindersKeepingIsLoggedOnceInARow) {
  écrire_fichier(dossier.fichier("config"), "in the way");
  RegistreFichier registre = ouvrir();
  testing::internal::CaptureStderr();
  registre.créer(jeu);
  registre.écrire(jeu, "joueur", "Ann");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "ardane : Les réglages ne sont pas gardés dans « " +
                                                        fichier + " » : son dossier ne peut pas être créé\n");
  fs::remove(chemin_natif(dossier.fichier("config")));
  testing::internal::CaptureStderr();
  EXPECT_TRUE(registre.écrire(jeu, "langue", "1"));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  const DisquePlein plein(4096);  // of which the log takes its part
  testing::internal::CaptureStderr();
  registre.écrire(jeu, "langue", std::string(10'000, 'x'));
  EXPECT_THAT(testing::internal::GetCapturedStderr(), EndsWith("le disque est plein ou en panne\n"));
}

TEST_F(FileRegistry, WhatCouldNotBeKeptGoesAlongLater) {
  écrire_fichier(dossier.fichier("config"), "in the way");
  RegistreFichier registre = ouvrir();
  registre.créer(jeu);
  registre.écrire(jeu, "joueur", "Ann");
  fs::remove(chemin_natif(dossier.fichier("config")));
  EXPECT_TRUE(registre.écrire(jeu, "langue", "1"));
  EXPECT_EQ(ouvrir().lire(jeu, "joueur"), "Ann");
}

TEST_F(FileRegistry, AFullDiskLeavesTheOldFileWhole) {
  poser("[R]\n\"a\"=\"1\"\n");
  RegistreFichier registre = ouvrir();
  {
    const DisquePlein plein(16);
    EXPECT_FALSE(registre.écrire("R", "b", std::string(1000, 'x')));
  }
  EXPECT_EQ(contenu(), "[R]\n\"a\"=\"1\"\n");
  EXPECT_THAT(voisins(), IsEmpty());
}

TEST_F(FileRegistry, AFolderOfThatNameIsLeftAlone) {
  fs::create_directories(chemin_natif(fichier));
  RegistreFichier registre = ouvrir();
  EXPECT_FALSE(registre.créer("R"));
  EXPECT_TRUE(fs::is_directory(chemin_natif(fichier)));
}

TEST_F(FileRegistry, APipeIsNotWaitedFor) {
  fs::create_directories(chemin_natif(Dossier_de(fichier)));
  ASSERT_EQ(mkfifo(fichier.c_str(), S_IRUSR | S_IWUSR), 0);
  RegistreFichier registre = ouvrir();
  EXPECT_FALSE(registre.créer("R"));
}

TEST_F(FileRegistry, ALinkToTheFileStaysALink) {
  const std::string réel = dossier.fichier("mes-réglages");
  écrire_fichier(réel, "[R]\n");
  fs::create_directories(chemin_natif(Dossier_de(fichier)));
  fs::create_symlink(chemin_natif(réel), chemin_natif(fichier));
  EXPECT_TRUE(ouvrir().écrire("R", "a", "1"));
  EXPECT_TRUE(fs::is_symlink(chemin_natif(fichier)));
  EXPECT_THAT(lire_fichier(réel), HasSubstr("\"a\"=\"1\""));
}

TEST_F(FileRegistry, TheFileKeepsItsPermissions) {
  poser("[R]\n");
  fs::permissions(chemin_natif(fichier), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_TRUE(ouvrir().écrire("R", "a", "1"));
  EXPECT_EQ(fs::status(chemin_natif(fichier)).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(FileRegistry, AChangeOfTheCurrentFolderDoesNotMoveARelativeFile) {
  const fs::path avant = fs::current_path();
  fs::current_path(chemin_natif(dossier.chemin()));
  RegistreFichier registre("registre");
  fs::create_directory("ailleurs");
  fs::current_path("ailleurs");
  EXPECT_TRUE(registre.créer("R"));
  fs::current_path(avant);
  EXPECT_TRUE(fichier_existe(dossier.fichier("registre")));
}

TEST_F(FileRegistry, WithoutAFileNothingIsKept) {
  RegistreFichier registre{fs::path{}};
  EXPECT_FALSE(registre.créer("R"));
  EXPECT_TRUE(registre.existe("R"));
  EXPECT_THAT(registre.échec().value_or(""), EndsWith("aucun dossier ne leur est connu"));
}

/// A variable of the environment for the length of a test.
class Variable {
 public:
  Variable(const char *nom, const char *valeur) : nom_(nom) {
    if (const char *avant = std::getenv(nom)) avant_ = avant;
    if (valeur != nullptr)
      setenv(nom, valeur, 1);
    else
      unsetenv(nom);
  }
  ~Variable() {
    if (avant_)
      setenv(nom_, avant_->c_str(), 1);
    else
      unsetenv(nom_);
  }
  Variable(const Variable &) = delete;
  Variable &operator=(const Variable &) = delete;

 private:
  const char *nom_;
  std::optional<std::string> avant_;
};

TEST(DefaultRegistryFile, ItLiesInTheConfigurationFolder) {
  const Variable maison("HOME", "/home/ann"), configuration("XDG_CONFIG_HOME", "/conf");
  EXPECT_EQ(fichier_registre_par_défaut(), "/conf/mirabonde/registre");
}

TEST(DefaultRegistryFile, WithoutOneItLiesInTheHomeFolder) {
  const Variable maison("HOME", "/home/ann");
  for (const char *valeur : {static_cast<const char *>(nullptr), "", "relative/conf"}) {
    const Variable configuration("XDG_CONFIG_HOME", valeur);
    EXPECT_EQ(fichier_registre_par_défaut(), "/home/ann/.config/mirabonde/registre");
  }
}

TEST(DefaultRegistryFile, WithoutAnyHomeThereIsNone) {
  const Variable maison("HOME", nullptr), configuration("XDG_CONFIG_HOME", nullptr);
  EXPECT_TRUE(fichier_registre_par_défaut().empty());
}

}  // namespace
}  // namespace ardane
