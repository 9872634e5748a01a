#include "persistence/score_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "persistence/registry.h"
#include "support/fake_world.h"
#include "support/limits.h"
#include "support/score_bytes.h"
#include "support/table_values.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class ScoreFile : public testing::Test {
 protected:
  ScoreFile() {
    m.démarrer();
    octets.cases.front() = premier_texte(g().Version_programme);
    g().Fichier_lancement = fichier;
  }

  GameState &g() { return m.g(); }
  static std::string premier_texte(const std::string &version) {
    OctetsScores autre;
    autre.texte(version);
    return autre.cases.back();
  }
  void poser() { écrire_fichier(fichier, octets.octets()); }
  /// Under settings and a configuration that no repair leaves so.
  void charger() {
    Ecrire_registre(m.registre, clé_du_jeu, réglage_fichier_lancement, fichier);
    g().Ordre_jeux = Ordre_de_jeu({étape_villes, étape_provinces, 0, 0});
    g().TableProvinces(7).inhibée = true;
    Charger_scores(m.c());
  }
  /// What loading the file writes to the error stream.
  std::string journal_de_lecture() {
    g().Fichier_lancement = fichier;
    testing::internal::CaptureStderr();
    charger();
    return testing::internal::GetCapturedStderr();
  }
  /// A configuration and scores that no default has.
  void remplir() {
    g().Ordre_jeux(1) = 3;
    g().Ordre_jeux(2) = 1;
    g().Ordre_jeux(3) = g().Ordre_jeux(4) = 0;
    g().TableProvinces(7).inhibée = true;
    g().Nombre_scores(1) = 2;
    g().Meilleurs_scores(1, 1) = {"Zoé", 999000};
    g().Meilleurs_scores(1, 2) = {"Ann", 12};
    g().Nombre_scores(4) = 1;
    g().Meilleurs_scores(4, 1) = {"Lou", 5};
  }
  bool configuration_par_défaut() {
    for (int p = 1; p <= nombre_provinces; ++p)
      if (g().TableProvinces(p).inhibée) return false;
    return valeurs(g().Ordre_jeux) == std::vector<int>{1, 4, 2, 3};
  }
  std::string réglage() { return m.registre.lire(clé_du_jeu, réglage_fichier_lancement).value_or("absent"); }
  void attendre_boîte_d_écriture() {
    ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
    EXPECT_EQ(m.dernière_boîte().icône, Icône::information);
    EXPECT_EQ(m.dernière_boîte().titre, "Erreur");
    EXPECT_EQ(m.dernière_boîte().texte, "Impossible d'écrire le fichier " + g().Fichier_lancement +
                                            " ! \r\n" + message(g(), Message::fichier_peut_être_protégé));
    EXPECT_TRUE(g().Scores_non_sauvés);
  }
  void attendre_refus_et_réparation() {
    ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
    EXPECT_EQ(m.dernière_boîte().icône, Icône::exclamation);
    EXPECT_EQ(m.dernière_boîte().titre, "Erreur de format");
    EXPECT_EQ(m.dernière_boîte().texte, fichier + " : Le fichier sélectionné n'est pas interprétable !");
    EXPECT_FALSE(fs::exists(chemin_natif(fichier)));
    attendre_réparation();
  }
  void attendre_réparation() {
    EXPECT_EQ(g().Fichier_lancement, m.dossier.fichier("ARDANE.SCI"));
    EXPECT_EQ(réglage(), m.dossier.fichier("ARDANE.SCI"));
    EXPECT_TRUE(configuration_par_défaut());
  }

  MondeFactice m;
  OctetsScores octets;
  std::string fichier = m.dossier.fichier("Mon jeu.SCI");
};

TEST_F(ScoreFile, WhatIsWrittenIsLoadedAgain) {
  remplir();
  EXPECT_TRUE(Ecrire_scores(m.c(), true));
  EXPECT_EQ(fs::file_size(chemin_natif(fichier)), 120U * 128U);
  Vider_scores(m.c());
  g().TableProvinces(7).inhibée = false;
  g().TableProvinces(8).inhibée = true;
  charger();
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_THAT(valeurs(g().Ordre_jeux), ElementsAre(3, 1, 0, 0));
  EXPECT_TRUE(g().TableProvinces(7).inhibée);
  EXPECT_FALSE(g().TableProvinces(8).inhibée);
  EXPECT_THAT(valeurs(g().Nombre_scores), ElementsAre(0, 2, 0, 0, 1));
  EXPECT_EQ(g().Meilleurs_scores(1, 1).nom, "Zoé");
  EXPECT_EQ(g().Meilleurs_scores(1, 2).score, 12);
  EXPECT_EQ(g().Meilleurs_scores(4, 1).nom, "Lou");
}

TEST_F(ScoreFile, ItHoldsTheLanguageAndEveryScoreLevelByLevel) {
  remplir();
  g().Langue = 1;
  Ecrire_scores(m.c(), true);
  OctetsScores attendu;
  attendu.cases.front() = premier_texte(g().Version_programme);
  attendu.changer(case_ordre, 3);
  attendu.changer(case_ordre + 1, 1);
  attendu.changer(case_ordre + 2, 0);
  attendu.changer(case_ordre + 3, 0);
  attendu.changer(case_inhibée + 6, -1);
  attendu.score("Zo\xE9", 999000, 1);
  attendu.score("Ann", 12, 1);
  attendu.score("Lou", 5, 4);
  EXPECT_EQ(lire_fichier(fichier), attendu.octets());
}

TEST_F(ScoreFile, WrittenWithoutScoresItHasNone) {
  remplir();
  EXPECT_TRUE(Ecrire_scores(m.c(), false));
  EXPECT_EQ(fs::file_size(chemin_natif(fichier)), 117U * 128U);
  EXPECT_EQ(g().Nombre_scores(1), 2);
}

TEST_F(ScoreFile, AFullTableHas157Slots) {
  for (int niveau = 1; niveau <= 4; ++niveau) {
    g().Nombre_scores(niveau) = 10;
    for (int rang = 1; rang <= 10; ++rang) g().Meilleurs_scores(niveau, rang) = {"Ann", 1000 - rang};
  }
  EXPECT_TRUE(Ecrire_scores(m.c(), true));
  EXPECT_EQ(fs::file_size(chemin_natif(fichier)), 157U * 128U);
  charger();
  EXPECT_THAT(valeurs(g().Nombre_scores), ElementsAre(0, 10, 10, 10, 10));
}

TEST_F(ScoreFile, AShorterFileLeavesNothingOfTheOldOne) {
  écrire_fichier(fichier, std::string(100000, 'x'));
  EXPECT_TRUE(Ecrire_scores(m.c(), false));
  EXPECT_EQ(fs::file_size(chemin_natif(fichier)), 117U * 128U);
}

TEST_F(ScoreFile, TheTemporaryNameIsWrittenInTheCurrentFolder) {
  g().Fichier_lancement = "~tmp.~ci";
  EXPECT_TRUE(Ecrire_scores(m.c(), true));
  EXPECT_EQ(fs::file_size(chemin_natif(m.dossier.fichier("~tmp.~ci"))), 117U * 128U);
}

TEST_F(ScoreFile, ANameOutsideWindows1252IsWrittenAsWellAsCanBe) {
  g().Nombre_scores(1) = 1;
  g().Meilleurs_scores(1, 1) = {"Ωlga", 7};
  EXPECT_TRUE(Ecrire_scores(m.c(), true));
  charger();
  EXPECT_EQ(g().Meilleurs_scores(1, 1).nom, "?lga");
}

TEST_F(ScoreFile, ASuccessfulWriteClearsTheAlarm) {
  g().Scores_non_sauvés = true;
  EXPECT_TRUE(Ecrire_scores(m.c(), true));
  EXPECT_FALSE(g().Scores_non_sauvés);
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
}

TEST_F(ScoreFile, AnAbsentFolderIsToldAndTheScoresStay) {
  remplir();
  g().Fichier_lancement = m.dossier.fichier("absent/ARDANE.SCI");
  EXPECT_FALSE(Ecrire_scores(m.c(), true));
  attendre_boîte_d_écriture();
  EXPECT_EQ(g().Nombre_scores(1), 2);
}

TEST_F(ScoreFile, AnEmptyNameIsTold) {
  g().Fichier_lancement = "";
  EXPECT_FALSE(Ecrire_scores(m.c(), true));
  attendre_boîte_d_écriture();
}

TEST_F(ScoreFile, AFolderOfThatNameIsToldAndStays) {
  fs::create_directory(chemin_natif(fichier));
  EXPECT_FALSE(Ecrire_scores(m.c(), true));
  attendre_boîte_d_écriture();
  EXPECT_TRUE(fs::is_directory(chemin_natif(fichier)));
}

TEST_F(ScoreFile, AWriteProtectedFileIsToldAndStays) {
  poser();
  const std::string avant = lire_fichier(fichier);
  fs::permissions(chemin_natif(m.dossier.chemin()), fs::perms::all);
  fs::permissions(chemin_natif(fichier),
                  fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  const SansPrivilège ordinaire;
  remplir();
  EXPECT_FALSE(Ecrire_scores(m.c(), true));
  attendre_boîte_d_écriture();
  EXPECT_EQ(lire_fichier(fichier), avant);
}

TEST_F(ScoreFile, AFullDiskIsTold) {
  remplir();
  for (const rlim_t place : {0U, 100U, 128U * 117, 128U * 120 - 1}) {
    m.boîtes.montrées.clear();
    {
      const DisquePlein plein(place);
      EXPECT_FALSE(Ecrire_scores(m.c(), true)) << place;
    }
    attendre_boîte_d_écriture();
  }
  const DisquePlein juste_assez(128 * 120);
  EXPECT_TRUE(Ecrire_scores(m.c(), true));
}

TEST_F(ScoreFile, ATextTooLongForItsSlotIsTold) {
  g().Version_programme = std::string(127, 'V');
  EXPECT_FALSE(Ecrire_scores(m.c(), true));
  attendre_boîte_d_écriture();
}

TEST_F(ScoreFile, EmptyingLeavesLevel0AndRank0Alone) {
  remplir();
  g().Nombre_scores(0) = 3;
  g().Meilleurs_scores(0, 1) = {"a", 1};
  g().Meilleurs_scores(1, 0) = {"b", 2};
  Vider_scores(m.c());
  EXPECT_THAT(valeurs(g().Nombre_scores), ElementsAre(3, 0, 0, 0, 0));
  EXPECT_EQ(g().Meilleurs_scores(0, 1).nom, "a");
  EXPECT_EQ(g().Meilleurs_scores(1, 0).score, 2);
  EXPECT_EQ(g().Meilleurs_scores(1, 1).nom, "");
  EXPECT_EQ(g().Meilleurs_scores(1, 1).score, 0);
}

TEST_F(ScoreFile, AMissingFileGivesTheDefaultsWithoutAWord) {
  remplir();
  charger();
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  attendre_réparation();
  EXPECT_THAT(valeurs(g().Nombre_scores), ElementsAre(0, 0, 0, 0, 0));
  EXPECT_FALSE(fichier_existe(g().Fichier_lancement));
}

TEST_F(ScoreFile, AnEmptyNameGivesTheDefaultsWithoutAWord) {
  g().Fichier_lancement = "";
  charger();
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  attendre_réparation();
}

TEST_F(ScoreFile, ADefaultFileThatIsThereIsNotReadInTheSameBreath) {
  OctetsScores autre = octets;
  autre.score("Ann", 5, 1);
  écrire_fichier(m.dossier.fichier("ARDANE.SCI"), autre.octets());
  charger();
  EXPECT_EQ(g().Fichier_lancement, m.dossier.fichier("ARDANE.SCI"));
  EXPECT_EQ(g().Nombre_scores(1), 0);
  charger();
  EXPECT_EQ(g().Nombre_scores(1), 1);
}

TEST_F(ScoreFile, AFolderOrAPipeOfThatNameIsNoFile) {
  fs::create_directory(chemin_natif(fichier));
  charger();
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_TRUE(fs::is_directory(chemin_natif(fichier)));
  attendre_réparation();

  const std::string tuyau = m.dossier.fichier("tuyau.SCI");
  ASSERT_EQ(mkfifo(tuyau.c_str(), S_IRUSR | S_IWUSR), 0);
  g().Fichier_lancement = tuyau;
  charger();
  EXPECT_TRUE(fs::exists(chemin_natif(tuyau)));
  attendre_réparation();
}

TEST_F(ScoreFile, AnotherVersionIsToldDeletedAndReplaced) {
  std::string version = g().Version_programme;
  version.back() = '8';
  octets.cases.front() = premier_texte(version);
  octets.score("Ann", 5, 1);
  poser();
  charger();
  attendre_refus_et_réparation();
  EXPECT_EQ(g().Nombre_scores(1), 0);
  EXPECT_TRUE(Ecrire_scores(m.c(), true));
  EXPECT_EQ(fs::file_size(chemin_natif(m.dossier.fichier("ARDANE.SCI"))), 117U * 128U);
}

TEST_F(ScoreFile, AVersionThatOnlyBeginsTheSameIsRefused) {
  octets.cases.front() = premier_texte(g().Version_programme + "x");
  poser();
  charger();
  attendre_refus_et_réparation();
}

TEST_F(ScoreFile, AFirstLineThatIsNoVersionIsRefused) {
  octets.cases.front() = premier_texte("Bonjour");
  poser();
  charger();
  attendre_refus_et_réparation();
}

TEST_F(ScoreFile, AnEmptyFileIsRefused) {
  écrire_fichier(fichier, "");
  charger();
  attendre_refus_et_réparation();
}

TEST_F(ScoreFile, AFileOfOneSlotIsRefused) {
  écrire_fichier(fichier, octets.cases.front());
  charger();
  attendre_refus_et_réparation();
}

TEST_F(ScoreFile, AFileCutInAnySlotOfItsFixedPartIsRefused) {
  for (int numéro = 1; numéro <= case_langue; ++numéro) {
    m.boîtes.montrées.clear();
    g().Fichier_lancement = fichier;
    écrire_fichier(fichier, octets.octets().substr(0, static_cast<std::size_t>(numéro - 1) * 128 + 1));
    charger();
    attendre_refus_et_réparation();
  }
}

TEST_F(ScoreFile, AFileCutAmongItsScoresKeepsTheWholeOnes) {
  octets.score("Ann", 5, 1);
  octets.score("Zoé", 4, 1);
  // In the length of a name, in the name, in the score, in the level.
  for (const std::size_t reste : {1U, 4U, 8U, 10U}) {
    écrire_fichier(fichier, octets.octets().substr(0, 118 * 128 + reste));
    charger();
    EXPECT_THAT(m.boîtes.montrées, IsEmpty());
    EXPECT_THAT(valeurs(g().Nombre_scores), ElementsAre(0, 1, 0, 0, 0)) << reste;
    EXPECT_EQ(g().Fichier_lancement, fichier);
  }
}

TEST_F(ScoreFile, ADamagedConfigurationIsRefused) {
  for (const auto &[numéro, valeur] : {std::pair{2, 5}, {2, -1}, {2, 32767}, {2, 0}, {3, 9}, {4, 1}}) {
    m.boîtes.montrées.clear();
    g().Fichier_lancement = fichier;
    OctetsScores faux = octets;
    faux.changer(numéro, valeur);
    écrire_fichier(fichier, faux.octets());
    charger();
    attendre_refus_et_réparation();
  }
}

TEST_F(ScoreFile, TheScoresAboveAFaultStayOnTheScreenAndGoToTheDefaultFile) {
  octets.changer(case_inhibée, -1);
  octets.score("Ann", 5, 1);
  octets.score("Zoé", 4, 2);
  octets.score("Lou", 3, 5);
  octets.score("Max", 2, 1);
  poser();
  charger();
  attendre_refus_et_réparation();
  EXPECT_THAT(valeurs(g().Nombre_scores), ElementsAre(0, 1, 1, 0, 0));
  EXPECT_EQ(g().Meilleurs_scores(2, 1).score, 4);
  EXPECT_TRUE(Ecrire_scores(m.c(), true));
  EXPECT_EQ(fs::file_size(chemin_natif(m.dossier.fichier("ARDANE.SCI"))), 119U * 128U);
}

TEST_F(ScoreFile, TheLogSaysWhatIsWrongInWhichSlot) {
  octets.changer(case_nombre, 5);
  poser();
  EXPECT_EQ(journal_de_lecture(),
            "ardane : Le fichier de scores « " + fichier + " » est refusé : case 2 : valeur refusée\n");
  octets.changer(case_nombre, 4);
  octets.score(121, "", 5, 1);
  poser();
  EXPECT_THAT(journal_de_lecture(), EndsWith("case 118 : texte trop long\n"));
  for (const std::size_t reste : {0U, 1U, 10U}) {
    écrire_fichier(fichier, octets.octets().substr(0, reste));
    EXPECT_THAT(journal_de_lecture(), EndsWith("case 1 : fin du fichier\n")) << reste;
  }
}

TEST_F(ScoreFile, TheLogSaysTheVersionOfAFileOfAnother) {
  octets.cases.front() = premier_texte("Version 0.99\n");
  poser();
  EXPECT_THAT(journal_de_lecture(), EndsWith("est refusé : il est de la version « Version 0.99? »\n"));
}

TEST_F(ScoreFile, TheLogSaysThatAFileCannotBeOpened) {
  poser();
  fs::permissions(chemin_natif(m.dossier.chemin()), fs::perms::all);
  fs::permissions(chemin_natif(fichier), fs::perms::none);
  const SansPrivilège ordinaire;
  EXPECT_THAT(journal_de_lecture(), EndsWith("est refusé : il ne peut pas être ouvert\n"));
}

TEST_F(ScoreFile, AFileThatCanBeReadIsNotLogged) {
  octets.score("Ann", 5, 1);
  écrire_fichier(fichier, octets.octets().substr(0, 117 * 128 + 5));
  EXPECT_EQ(journal_de_lecture(), "");
}

TEST_F(ScoreFile, TheLogSaysWhyAFileIsNotWritten) {
  const auto journal_d_écriture = [&] {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Ecrire_scores(m.c(), true));
    return testing::internal::GetCapturedStderr();
  };
  {
    const DisquePlein plein(4096);  // of which the log takes its part
    EXPECT_THAT(journal_d_écriture(),
                AllOf(StartsWith("ardane : Le fichier de scores « " + fichier + " » n'est pas écrit : "),
                      EndsWith("le disque est plein ou en panne\n")));
  }
  écrire_fichier(fichier, "ancien");
  fs::permissions(chemin_natif(fichier), fs::perms::all);
  {
    const Protégé fermé(chemin_natif(m.dossier.chemin()), Protégé::Contre::écriture);
    EXPECT_THAT(journal_d_écriture(), EndsWith("l'ancien ne peut pas être effacé\n"));
  }
  EXPECT_EQ(lire_fichier(fichier), "ancien");
  g().Version_programme = std::string(127, 'V');
  EXPECT_THAT(journal_d_écriture(), EndsWith("case 1 : texte trop long\n"));
  g().Fichier_lancement = m.dossier.fichier("absent/ARDANE.SCI");
  EXPECT_THAT(journal_d_écriture(), EndsWith("il ne peut pas être créé\n"));
  g().Fichier_lancement = m.dossier.chemin();
  EXPECT_THAT(journal_d_écriture(), EndsWith("il ne peut pas être créé\n"));
}

TEST_F(ScoreFile, AnEleventhScoreOfALevelIsRefused) {
  for (int i = 0; i < 11; ++i) octets.score("Ann", 100 - i, 3);
  poser();
  charger();
  attendre_refus_et_réparation();
  EXPECT_EQ(g().Nombre_scores(3), 10);
}

TEST_F(ScoreFile, ALevelOf0IsNoFaultHoweverOftenTheFileIsLoaded) {
  octets.score("Ann", 5, 0);
  octets.score("Zoé", 4, 1);
  poser();
  for (int fois = 1; fois <= 12; ++fois) charger();
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_EQ(g().Nombre_scores(1), 1);
}

TEST_F(ScoreFile, TheOrderOfTheFileIsTrusted) {
  octets.score("Ann", 5, 1);
  octets.score("Zoé", 50, 1);
  poser();
  charger();
  EXPECT_EQ(g().Meilleurs_scores(1, 1).score, 5);
  EXPECT_EQ(g().Meilleurs_scores(1, 2).score, 50);
}

TEST_F(ScoreFile, TheLanguageOfTheFileIsNotTaken) {
  octets.changer(case_langue, 9);
  poser();
  charger();
  EXPECT_EQ(g().Langue, 1);
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
}

TEST_F(ScoreFile, AReadOnlyFileIsLoadedLikeAnother) {
  octets.score("Ann", 5, 1);
  poser();
  fs::permissions(chemin_natif(fichier),
                  fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  charger();
  EXPECT_EQ(g().Nombre_scores(1), 1);
}

TEST_F(ScoreFile, AReadOnlyFileThatIsRefusedIsNotDeleted) {
  écrire_fichier(fichier, "Version 0.99");
  fs::permissions(chemin_natif(m.dossier.chemin()), fs::perms::all);
  fs::permissions(chemin_natif(fichier),
                  fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  const SansPrivilège ordinaire;
  charger();
  EXPECT_THAT(m.boîtes.montrées, SizeIs(1));
  EXPECT_TRUE(fichier_existe(fichier));
  attendre_réparation();
}

TEST_F(ScoreFile, ResettingAsksFirst) {
  remplir();
  m.boîtes.réponses = {Réponse::non};
  Remise_à_zéro(m.c());
  ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
  EXPECT_EQ(m.dernière_boîte().icône, Icône::question);
  EXPECT_EQ(m.dernière_boîte().boutons, Boutons::oui_non);
  EXPECT_TRUE(m.dernière_boîte().non_par_défaut);
  EXPECT_EQ(m.dernière_boîte().titre, "Remise à zéro des meilleurs scores");
  EXPECT_EQ(m.dernière_boîte().texte,
            "Confirmez-vous que vous voulez perdre définitivement la trace de vos performances ?");
  EXPECT_EQ(g().Nombre_scores(1), 2);
  EXPECT_FALSE(fichier_existe(fichier));
}

TEST_F(ScoreFile, ResettingEmptiesMemoryAndFileAndKeepsTheConfiguration) {
  remplir();
  Ecrire_scores(m.c(), true);
  m.boîtes.réponses = {Réponse::oui};
  Remise_à_zéro(m.c());
  EXPECT_THAT(valeurs(g().Nombre_scores), ElementsAre(0, 0, 0, 0, 0));
  charger();
  EXPECT_THAT(valeurs(g().Nombre_scores), ElementsAre(0, 0, 0, 0, 0));
  EXPECT_THAT(valeurs(g().Ordre_jeux), ElementsAre(3, 1, 0, 0));
  EXPECT_TRUE(g().TableProvinces(7).inhibée);
}

/// Two runs over one file, the other of which has written last.
class ScoresOfOthers : public ScoreFile {
 protected:
  using Scores = std::vector<std::pair<std::string, int>>;

  void noter(int niveau, const Scores &scores) {
    g().Nombre_scores(niveau) = 0;
    for (const auto &[nom, score] : scores)
      g().Meilleurs_scores(niveau, ++g().Nombre_scores(niveau)) = {nom, score};
  }
  Scores notés(int niveau) {
    Scores scores;
    for (int rang = 1; rang <= g().Nombre_scores(niveau); ++rang)
      scores.emplace_back(g().Meilleurs_scores(niveau, rang).nom, g().Meilleurs_scores(niveau, rang).score);
    return scores;
  }
  void écrire_ailleurs(const Scores &scores) {
    noter(1, scores);
    ASSERT_TRUE(Ecrire_scores(m.c(), true));
  }
  void reprendre() { Reprendre_scores_des_autres(m.c()); }
};

TEST_F(ScoresOfOthers, AreTakenInByRankEachOnceAndBelowTheirEquals) {
  écrire_ailleurs({{"Zoé", 900}, {"Bob", 500}, {"Bob", 500}, {"Lou", 100}});
  noter(1, {{"Zoé", 900}, {"Ann", 500}, {"Bob", 500}, {"Dan", 50}});
  noter(2, {{"Eve", 7}});
  reprendre();
  const Scores attendus = {{"Zoé", 900}, {"Ann", 500}, {"Bob", 500}, {"Bob", 500}, {"Lou", 100}, {"Dan", 50}};
  EXPECT_EQ(notés(1), attendus);
  EXPECT_EQ(notés(2), (Scores{{"Eve", 7}}));
  reprendre();
  EXPECT_EQ(notés(1), attendus) << "nothing new";
}

TEST_F(ScoresOfOthers, TheTenthFallsOut) {
  Scores autres, nôtres;
  for (int i = 10; i > 0; --i) {
    autres.emplace_back("Bob", 100 * i);
    nôtres.emplace_back("Ann", 100 * i + 50);
  }
  écrire_ailleurs(autres);
  noter(1, nôtres);
  reprendre();
  EXPECT_THAT(notés(1), SizeIs(10));
  EXPECT_EQ(notés(1).front(), (Scores::value_type{"Ann", 1050}));
  EXPECT_EQ(notés(1).back(), (Scores::value_type{"Bob", 600}));
}

TEST_F(ScoresOfOthers, ANameThatTheFileSpellsByQuestionMarksIsTheSame) {
  écrire_ailleurs({{"Łukasz", 9}});
  reprendre();
  EXPECT_EQ(notés(1), (Scores{{"Łukasz", 9}}));
}

TEST_F(ScoresOfOthers, AFileThatCannotBeUsedChangesAndTellsNothing) {
  noter(1, {{"Ann", 3}});
  reprendre();
  octets.score("Bob", 9, 1);
  octets.score(121, "", 5, 1);
  poser();
  reprendre();
  octets.cases.front() = premier_texte("Version 9.99");
  poser();
  reprendre();
  écrire_fichier(fichier, "abc");
  reprendre();
  EXPECT_EQ(notés(1), (Scores{{"Ann", 3}}));
  EXPECT_THAT(m.boîtes.montrées, IsEmpty());
  EXPECT_TRUE(fichier_existe(fichier));
}

TEST_F(ScoreFile, TheStartWritesNoFile) {
  EXPECT_FALSE(fichier_existe(m.dossier.fichier("ARDANE.SCI")));
}

}  // namespace
}  // namespace ardane
