#include "persistence/lifeline.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "platform/system_clock.h"
#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

Contenu_partie partie_de(const std::string &nom) {
  Contenu_partie partie;
  partie.version = "Version";
  partie.langue = 1;
  partie.en_ligne.ordre = Ordre_de_jeu({1, 0, 0, 0});
  partie.étape = 1;
  partie.nom_joueur = nom;
  partie.niveau = 2;
  partie.score = 999'000;
  for (std::int16_t i = 1; i <= nombre_provinces; ++i) partie.trouvées.push_back({i, 0});
  partie.interruption.emplace();
  partie.interruption->question = 7;
  return partie;
}

class Lifeline : public testing::TestWithParam<bool> {
 protected:
  Lieu_de_secours lieu() const { return {chemin_natif(dossier.fichier("état/mirabonde")), GetParam()}; }
  std::string fichier(std::string_view nom) const {
    return Joindre_chemin(texte_du_chemin(lieu().dossier), nom);
  }
  /// The name of the player whose game a next start finds; empty for none.
  std::string trouvée() const {
    const auto partie = Secours(lieu()).partie_interrompue();
    return partie ? partie->nom_joueur : "";
  }

  DossierTemporaire dossier;
  HorlogeSystème horloge;
};

INSTANTIATE_TEST_SUITE_P(AtOnceAndInTheBackground, Lifeline, testing::Bool());

TEST_P(Lifeline, AGameIsFoundByTheNextRunWithItsTime) {
  {
    Secours secours(lieu());
    EXPECT_FALSE(secours.tient_la_partie());
    secours.garder(partie_de("Ann"), std::chrono::seconds(61));
    secours.garder(partie_de("Zoé"), std::chrono::seconds(62));
    EXPECT_TRUE(secours.tient_la_partie());
  }
  const auto partie = Secours(lieu()).partie_interrompue();
  ASSERT_TRUE(partie);
  EXPECT_EQ(partie->interruption->heure, 62);
  EXPECT_EQ(partie->nom_joueur, "Zoé");
}

TEST_P(Lifeline, AGameThatHasEndedIsFoundNoMore) {
  Secours secours(lieu());
  secours.garder(partie_de("Ann"), {});
  secours.attendre();
  secours.oublier();
  EXPECT_FALSE(secours.tient_la_partie());
  EXPECT_EQ(trouvée(), "");
  EXPECT_TRUE(fs::is_empty(lieu().dossier));
}

TEST_P(Lifeline, AGameThatCannotBeForgottenIsToldToTheLog) {
  Secours secours(lieu());
  secours.garder(partie_de("Ann"), {});
  secours.attendre();
  fs::remove(fichier("partie"));
  fs::create_directories(fichier("partie/occupé"));
  testing::internal::CaptureStderr();
  secours.oublier();
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("ne peut pas être effacée"));
}

TEST_P(Lifeline, OneThatWasFoundCanBeForgottenAndIsNotWrittenAgain) {
  { Secours(lieu()).garder(partie_de("Ann"), {}); }
  Secours secours(lieu());
  secours.prendre_en_charge(secours.partie_interrompue().value());
  EXPECT_TRUE(secours.tient_la_partie());
  fs::remove(fichier("partie"));
  secours.garder(partie_de("Ann"), std::chrono::seconds(5));
  secours.attendre();
  EXPECT_FALSE(fs::exists(fichier("partie"))) << "it is the game that is kept already";
  secours.garder(partie_de("Zoé"), {});
  secours.oublier();
  EXPECT_EQ(trouvée(), "");
}

TEST_P(Lifeline, WithoutAFolderNothingIsKeptAndNothingFound) {
  Secours secours({{}, GetParam()});
  EXPECT_FALSE(secours.en_service());
  secours.garder(partie_de("Ann"), {});
  secours.annoncer_écriture(dossier.fichier("ARDANE.SCI"), "b", true);
  secours.garder_scores(dossier.fichier("ARDANE.SCI"), horloge);
  secours.achever(horloge);
  EXPECT_FALSE(secours.tient_la_partie());
  EXPECT_FALSE(secours.partie_interrompue());
  EXPECT_TRUE(fs::is_empty(dossier.chemin()));
}

TEST_P(Lifeline, LookingMakesNoFolder) {
  Secours secours(lieu());
  secours.achever(horloge);
  EXPECT_FALSE(secours.partie_interrompue());
  secours.oublier();
  EXPECT_TRUE(fs::is_empty(dossier.chemin()));
}

TEST_P(Lifeline, AFileThatIsNoGameIsToldToTheLogAndStays) {
  fs::create_directories(lieu().dossier);
  for (const std::string &octets : {std::string(), std::string("Partie"), std::string(500'000, 'x')}) {
    écrire_fichier(fichier("partie"), octets);
    testing::internal::CaptureStderr();
    EXPECT_EQ(trouvée(), "");
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("est refusée : case 1"));
    Secours(lieu()).oublier();
    EXPECT_EQ(lire_fichier(fichier("partie")), octets);
  }
  fs::resize_file(fichier("partie"), 4'000'000'000);
  EXPECT_EQ(trouvée(), "") << "huge";
  fs::remove(fichier("partie"));
  ASSERT_EQ(mkfifo(fichier("partie").c_str(), 0600), 0);
  EXPECT_EQ(trouvée(), "") << "a pipe";
  fs::remove(fichier("partie"));
  fs::create_directory(fichier("partie"));
  EXPECT_EQ(trouvée(), "") << "a folder";
}

TEST_P(Lifeline, WhatCannotBeKeptIsToldToTheLogOnceAndPromisesNothing) {
  fs::create_directories(lieu().dossier);
  std::string log;
  {
    const Protégé fermé(lieu().dossier, Protégé::Contre::écriture);
    testing::internal::CaptureStderr();
    Secours secours(lieu());
    for (const char *nom : {"Ann", "Zoé", "Lou"}) {
      secours.garder(partie_de(nom), {});
      EXPECT_FALSE(secours.tient_la_partie());
    }
    log = testing::internal::GetCapturedStderr();
  }
  EXPECT_EQ(std::ranges::count(log, '\n'), 1) << log;
  EXPECT_THAT(log, HasSubstr("Rien n'est mis de côté"));
}

TEST_P(Lifeline, AFullDiskLeavesTheGameAsItWasKeptBefore) {
  Secours secours(lieu());
  secours.garder(partie_de("Ann"), {});
  secours.attendre();
  testing::internal::CaptureStderr();
  {
    const DisquePlein plein(10'000);
    secours.garder(partie_de("Zoé"), {});
    EXPECT_TRUE(secours.tient_la_partie());
  }
  testing::internal::GetCapturedStderr();
  EXPECT_EQ(trouvée(), "Ann");
}

// --- Score files about to be written

TEST_P(Lifeline, WhatWasAnnouncedAndNotDoneIsDoneByTheNextStart) {
  const std::string scores = dossier.fichier("ARDANE.SCI");
  for (const char *avant : {"", "half of it", "all that was there before"}) {
    écrire_fichier(scores, avant);
    Secours(lieu()).annoncer_écriture(scores, "what was to be there", false);
    Secours(lieu()).achever(horloge);
    EXPECT_EQ(lire_fichier(scores), "what was to be there");
    EXPECT_FALSE(fs::exists(fichier("ecriture")));
  }
  fs::remove(scores);
  Secours(lieu()).annoncer_écriture(scores, "what was to be there", false);
  Secours(lieu()).achever(horloge);
  EXPECT_EQ(lire_fichier(scores), "what was to be there");
}

TEST_P(Lifeline, WhatStoodInItsPlaceIsKept) {
  const std::string scores = dossier.fichier("ARDANE.SCI");
  écrire_fichier(scores, "other");
  Secours secours(lieu());
  secours.annoncer_écriture(scores, "what was to be there", false);
  secours.achever(horloge);
  const auto gardés = Lister_scores_anciens(secours.dossier_des_scores());
  ASSERT_EQ(gardés.size(), 1U);
  EXPECT_EQ(lire_fichier(texte_du_chemin(gardés[0].copie)), "other");
}

TEST_P(Lifeline, WhatWasDoneIsNotDoneAgain) {
  const std::string scores = dossier.fichier("ARDANE.SCI");
  Secours secours(lieu());
  secours.annoncer_écriture(scores, "old", false);
  secours.écriture_faite();
  écrire_fichier(scores, "new");
  Secours(lieu()).achever(horloge);
  EXPECT_EQ(lire_fichier(scores), "new");
}

TEST_P(Lifeline, TheEndOfAGameEndsTheGameThatIsKept) {
  for (const bool fin : {false, true}) {
    Secours secours(lieu());
    secours.garder(partie_de("Ann"), {});
    secours.attendre();
    secours.annoncer_écriture(dossier.fichier("ARDANE.SCI"), "scores", fin);
    Secours(lieu()).achever(horloge);
    EXPECT_EQ(trouvée(), fin ? "" : "Ann");
  }
}

TEST_P(Lifeline, AFileThatCannotBeWrittenWaitsForTheNextStart) {
  const std::string absent = dossier.fichier("clé/ARDANE.SCI");
  Secours(lieu()).annoncer_écriture(absent, "scores", true);
  testing::internal::CaptureStderr();
  Secours(lieu()).achever(horloge);
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("n'y sont pas écrits"));
  fs::create_directory(dossier.fichier("clé"));
  Secours(lieu()).achever(horloge);
  EXPECT_EQ(lire_fichier(absent), "scores");
}

TEST_P(Lifeline, AnAnnouncementThatIsNotWholeIsNotCarriedOut) {
  const std::string scores = dossier.fichier("ARDANE.SCI");
  Secours(lieu()).annoncer_écriture(scores, std::string(300, 's'), true);
  const std::string entière = lire_fichier(fichier("ecriture"));
  for (std::size_t taille = 0; taille < entière.size() - (384 - 300); taille += taille % 128 < 8 ? 1 : 24) {
    écrire_fichier(fichier("ecriture"), entière.substr(0, taille));
    Secours(lieu()).achever(horloge);
    ASSERT_FALSE(fs::exists(scores)) << taille;
  }
  écrire_fichier(fichier("ecriture"), std::string(100'000, '\xFF'));
  Secours(lieu()).achever(horloge);
  EXPECT_FALSE(fs::exists(scores));
  std::string autre_forme = entière;
  autre_forme.replace(autre_forme.find("forme 1"), 7, "forme 2");
  écrire_fichier(fichier("ecriture"), autre_forme);
  Secours(lieu()).achever(horloge);
  EXPECT_FALSE(fs::exists(scores)) << "another program's";
}

TEST_P(Lifeline, AnAnnouncementForAFileOfNoKnownFolderIsNotCarriedOut) {
  const fs::path scores = chemin_natif(dossier.fichier("ARDANE.SCI"));
  Secours(lieu()).annoncer_écriture(texte_du_chemin(fs::relative(scores)), "scores", true);
  Secours(lieu()).achever(horloge);
  EXPECT_FALSE(fs::exists(scores));
}

TEST_P(Lifeline, WhatKilledRunsHaveLeftHalfWrittenIsSwept) {
  fs::create_directories(lieu().dossier / "scores" / "jeux");
  for (const char *nom : {"partie.123.tmp", "scores/jeux/00001 2026-11-22 06h05.SCI.123.tmp"})
    écrire_fichier(fichier(nom), "half");
  écrire_fichier(fichier("lettre"), "not ours");
  Secours(lieu()).achever(horloge);
  EXPECT_FALSE(fs::exists(fichier("partie.123.tmp")));
  EXPECT_TRUE(fs::is_empty(lieu().dossier / "scores" / "jeux"));
  EXPECT_TRUE(fs::exists(fichier("lettre")));
}

// --- Where it is

/// A variable of the environment for the length of a test.
class Variable {
 public:
  Variable(const char *nom, const char *valeur) : nom_(nom) {
    if (const char *ancienne = std::getenv(nom)) avant_ = ancienne;
    poser(valeur);
  }
  ~Variable() { poser(avant_ ? avant_->c_str() : nullptr); }
  Variable(const Variable &) = delete;
  Variable &operator=(const Variable &) = delete;

 private:
  void poser(const char *valeur) const {
    if (valeur == nullptr)
      unsetenv(nom_);
    else
      setenv(nom_, valeur, 1);
  }
  const char *nom_;
  std::optional<std::string> avant_;
};

TEST(LifelineFolder, IsThePlayersFolderOfStates) {
  const struct {
    const char *états, *maison, *locales, *dossier;
  } cas[] = {{"/é", "/m", nullptr, "/é/mirabonde"},
             {nullptr, "/m", nullptr, "/m/.local/state/mirabonde"},
             {"relative", "/m", "/l", "/m/.local/state/mirabonde"},
             {"", nullptr, "/l", "/l/mirabonde"},
             {nullptr, nullptr, nullptr, ""},
             {nullptr, "", "", ""}};
  for (const auto &[états, maison, locales, attendu] : cas) {
    const Variable a("XDG_STATE_HOME", états), b("HOME", maison), c("LOCALAPPDATA", locales);
    EXPECT_EQ(dossier_de_secours({}), attendu);
  }
}

TEST(LifelineFolder, OfSettingsThatThePlayerNamesIsAnother) {
  const Variable états("XDG_STATE_HOME", "/é");
  EXPECT_EQ(dossier_de_secours("/classe/registre"), "/é/mirabonde/autres/classe/registre");
  EXPECT_NE(dossier_de_secours("/classe/registre"), dossier_de_secours("/salon/registre"));
}

}  // namespace
}  // namespace ardane
