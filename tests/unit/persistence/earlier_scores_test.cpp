#include "persistence/earlier_scores.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// A clock that tells what it is told.
class HorlogeFixe : public Horloge {
 public:
  std::chrono::year_month_day aujourd_hui() const override {
    return std::chrono::year(2026) / std::chrono::November / 22;
  }
  std::chrono::seconds heure() const override { return std::chrono::hours(6) + std::chrono::minutes(5); }
};

class EarlierScores : public testing::Test {
 protected:
  void garder(const std::string &nom, const std::string &contenu) {
    écrire_fichier(dossier.fichier(nom), contenu);
    Garder_scores(gardés(), dossier.fichier(nom), HorlogeFixe());
  }
  fs::path gardés() const { return chemin_natif(dossier.fichier("secours/scores")); }
  /// "number file content", as listed.
  std::vector<std::string> liste() const {
    std::vector<std::string> lignes;
    for (const Scores_anciens &s : Lister_scores_anciens(gardés())) {
      EXPECT_EQ(Dossier_de(s.fichier), dossier.chemin());
      EXPECT_EQ(s.quand, "22/11/2026 06:05");
      lignes.push_back(std::to_string(s.numéro) + " " + s.fichier.substr(dossier.chemin().size() + 1) + " " +
                       lire_fichier(texte_du_chemin(s.copie)));
    }
    return lignes;
  }

  DossierTemporaire dossier;
};

TEST_F(EarlierScores, NothingIsListedWhereNothingIsKept) {
  EXPECT_THAT(liste(), IsEmpty());
  EXPECT_FALSE(fs::exists(gardés()));
}

TEST_F(EarlierScores, TheLastFiveOfEachFileAreKeptTheLatestFirst) {
  for (int i = 1; i <= 7; ++i) {
    garder("ARDANE.SCI", "a" + std::to_string(i));
    if (i < 3) garder("Le nord.SCI", "n" + std::to_string(i));
  }
  EXPECT_THAT(liste(), ElementsAre("9 ARDANE.SCI a7", "8 ARDANE.SCI a6", "7 ARDANE.SCI a5", "6 ARDANE.SCI a4",
                                   "5 ARDANE.SCI a3", "4 Le nord.SCI n2", "2 Le nord.SCI n1"));
}

TEST_F(EarlierScores, WhichIsTheLatestIsToldByTheNumberInWhateverOrderAFolderGivesThem) {
  for (const char *nom : {"A.SCI", "B.SCI"}) {
    for (int i = 1; i <= 5; ++i) garder(nom, "a" + std::to_string(i));
    std::vector<Scores_anciens> copies = Lister_scores_anciens(gardés());
    std::erase_if(copies, [&](const Scores_anciens &s) { return !s.fichier.ends_with(nom); });
    if (std::string_view(nom) == "B.SCI") std::ranges::reverse(copies);
    for (const Scores_anciens &s : copies) {
      const std::string octets = lire_fichier(texte_du_chemin(s.copie));
      fs::remove(s.copie);
      écrire_fichier(texte_du_chemin(s.copie), octets);
    }
    garder(nom, "a6");
    garder(nom, "a6");
  }
  EXPECT_THAT(liste(), ElementsAre("6 A.SCI a6", "5 A.SCI a5", "4 A.SCI a4", "3 A.SCI a3", "2 A.SCI a2",
                                   "12 B.SCI a6", "11 B.SCI a5", "10 B.SCI a4", "9 B.SCI a3", "8 B.SCI a2"));
}

TEST_F(EarlierScores, WhatIsKeptAlreadyIsNotKeptTwiceInARow) {
  for (const char *contenu : {"a", "a", "b", "b", "a"}) garder("ARDANE.SCI", contenu);
  EXPECT_THAT(liste(), ElementsAre("3 ARDANE.SCI a", "2 ARDANE.SCI b", "1 ARDANE.SCI a"));
}

TEST_F(EarlierScores, ThePathIsTheirsAndTheNameTellsNumberAndTime) {
  garder("ARDANE.SCI", "a");
  EXPECT_EQ(lire_fichier(texte_du_chemin(gardés() / fs::path(dossier.fichier("ARDANE.SCI")).relative_path() /
                                         "00001 2026-11-22 06h05.SCI")),
            "a");
}

TEST_F(EarlierScores, WhatIsNoPlainFileOrTooLargeIsPassedOver) {
  Garder_scores(gardés(), dossier.fichier("absent.SCI"), HorlogeFixe());
  fs::create_directory(dossier.fichier("dossier.SCI"));
  Garder_scores(gardés(), dossier.fichier("dossier.SCI"), HorlogeFixe());
  ASSERT_EQ(mkfifo(dossier.fichier("tube.SCI").c_str(), 0600), 0);
  Garder_scores(gardés(), dossier.fichier("tube.SCI"), HorlogeFixe());
  écrire_fichier(dossier.fichier("immense.SCI"), "");
  fs::resize_file(dossier.fichier("immense.SCI"), 3'000'000'000);
  Garder_scores(gardés(), dossier.fichier("immense.SCI"), HorlogeFixe());
  EXPECT_THAT(liste(), IsEmpty());
}

TEST_F(EarlierScores, ForeignFilesAmongThemAreNotListedAndNotDeleted) {
  garder("ARDANE.SCI", "a");
  const fs::path le_sien = gardés() / fs::path(dossier.fichier("ARDANE.SCI")).relative_path();
  for (const char *nom :
       {"lisez-moi", "00001 2026-11-22.SCI", "x 2026-11-22 06h05.SCI", "00002 2026-11-22 06h05.SCI.tmp",
        "00000 2026-11-22 06h05.SCI", "-0003 2026-11-22 06h05.SCI"})
    écrire_fichier(texte_du_chemin(le_sien / nom), "autre");
  for (int i = 0; i < 7; ++i) garder("ARDANE.SCI", "b" + std::to_string(i));
  EXPECT_EQ(liste().size(), contenus_gardés);
  EXPECT_TRUE(fs::exists(le_sien / "lisez-moi"));
}

TEST_F(EarlierScores, AFolderThatCannotBeWrittenHindersNothing) {
  garder("ARDANE.SCI", "a");
  écrire_fichier(dossier.fichier("ARDANE.SCI"), "b");
  {
    const Protégé fermé(gardés() / fs::path(dossier.fichier("ARDANE.SCI")).relative_path(),
                        Protégé::Contre::écriture);
    testing::internal::CaptureStderr();
    Garder_scores(gardés(), dossier.fichier("ARDANE.SCI"), HorlogeFixe());
  }
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("n'est pas gardé"));
  EXPECT_THAT(liste(), ElementsAre("1 ARDANE.SCI a"));
}

}  // namespace
}  // namespace ardane
