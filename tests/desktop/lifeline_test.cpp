// Runs of the real program that end without a word, and the next start over what they have left.
#include "persistence/lifeline.h"

#include <gmock/gmock.h>

#include <QProcess>
#include <QTest>
#include <cstdlib>

#include "core/paths.h"
#include "front/qt/appearance.h"
#include "front/qt/rescue.h"
#include "kept_run.h"
#include "persistence/earlier_scores.h"
#include "persistence/score_file.h"
#include "platform/system_clock.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

TEST_F(KeptRun, TheNextStartGoesOnAtTheVeryQuestion) {
  start();
  play_a_little();
  rest();
  const int asked = state().ProvinceCourante, score = state().Score;
  die();
  ASSERT_TRUE(order().start());
  EXPECT_THAT(script().told, SizeIs(1));
  EXPECT_THAT(script().told, Contains(StartsWith(question)));
  EXPECT_THAT(script().told, Contains(HasSubstr("avec 999998 points. La reprendre ?")));
  EXPECT_EQ(state().ProvinceCourante, asked);
  EXPECT_EQ(state().Score, score);
  EXPECT_EQ(state().ProvincesRestantes, nombre_provinces - 2);
  EXPECT_EQ(state().NbErreurs, 1);
  const auto *pass = frame()->findChild<QWidget *>("BoutonPasse");
  EXPECT_TRUE(pass != nullptr && pass->isVisible());
  order().click(province(asked));
  play();
  EXPECT_EQ(state().ProvincesRestantes, nombre_provinces - 3);
}

TEST_F(KeptRun, NoDropsTheGame) {
  play_a_little_and_die();
  order().answer(Réponse::non);
  ASSERT_TRUE(order().start());
  EXPECT_EQ(state().Etape, étape_repos);
  EXPECT_FALSE(game_on_disk());
}

TEST_F(KeptRun, EscapeThrowsNoGameAway) {
  play_a_little_and_die();
  order().then([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
  ASSERT_TRUE(order().start());
  EXPECT_EQ(state().Etape, étape_provinces);
  EXPECT_TRUE(game_on_disk());
}

TEST_F(KeptRun, AnOrdinaryEndLeavesNothingToOffer) {
  start();
  play_a_little();
  rest();
  order().choose("menu_fichier", "fichier_quitter");
  order().answer(Réponse::oui);
  order().answer(Réponse::ok);
  order().click("Command1");
  play();
  die();
  EXPECT_FALSE(game_on_disk());
  ASSERT_TRUE(order().start());
  EXPECT_THAT(script().told, IsEmpty());
}

TEST_F(KeptRun, AFolderThatCannotBeMadeHindersNothing) {
  start();
  end();
  std::ofstream(places().secours) << "a file";
  testing::internal::CaptureStderr();
  ASSERT_TRUE(order().start());
  play_a_little();
  die();
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("Rien n'est mis de côté"));
}

// --- When it is kept

TEST(AtRest, ComesAfterAnEventOfTheEventLoopOrBeforeTheNext) {
  Dispatcher dispatcher;
  std::string done;
  dispatcher.after_event = [&] { done += "."; };
  dispatcher.at_rest = [&] { done += "r"; };
  dispatcher.run([&] { done += "a"; });
  EXPECT_EQ(done, "a.");
  dispatcher.run([&] { done += "b"; });
  EXPECT_EQ(done, "a.rb.");
  EXPECT_TRUE(QTest::qWaitFor([&] { return done == "a.rb.r"; }));
  dispatcher.run_tick([&] { done += "t"; });
  QTest::qWait(20);
  EXPECT_EQ(done, "a.rb.rt.") << "a tick changes nothing";
}

TEST(AtRest, ComesWhenWhatTheEventHasChangedIsPainted) {
  struct Painted : QWidget {
    explicit Painted(std::string &done) : done_(done) {}
    void paintEvent(QPaintEvent *) override { done_ += "p"; }
    std::string &done_;
  };
  std::string done;
  Painted widget(done);
  widget.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
  QApplication::processEvents();
  Dispatcher dispatcher;
  dispatcher.at_rest = [&] { done += "r"; };
  done = "";
  dispatcher.run([&] { widget.update(); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return done.size() == 2; }));
  EXPECT_EQ(done, "pr");
}

TEST(AtRest, NeverComesInTheMiddleOfAProcedure) {
  Dispatcher dispatcher;
  std::string done;
  dispatcher.at_rest = [&] { done += "r"; };
  dispatcher.run([&] {});
  dispatcher.run([&] {
    done = "";
    const Dispatcher::Waiting waiting(dispatcher);
    dispatcher.run([&] { done += "n"; });
    QTest::qWait(20);
    EXPECT_EQ(done, "n");
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return done == "nr"; }));
}

// --- An error that ends the program

/// Ten provinces of a large region are selected, and one of them taken out again: legal, and the end of the
/// program.
TEST_F(KeptRun, AnErrorSaysInWordsThatTheGameIsKeptAndTheNextStartHasIt) {
  QProcess child;
  end_in_a_child(child, "partie");
  EXPECT_EQ(child.exitCode(), 1);
  const std::string told = to_utf8(QString::fromUtf8(child.readAllStandardOutput()));
  EXPECT_THAT(
      told,
      StartsWith("Votre partie est mise de côté : elle vous sera proposée au prochain lancement du jeu."
                 "\n\nUne erreur imprévue arrête le programme.|<small>Indice 9 hors des bornes 0 à 8 ("));
  ASSERT_TRUE(order().start());
  EXPECT_THAT(script().told, Contains(StartsWith(question)));
  EXPECT_EQ(state().Etape, étape_régions);
  EXPECT_EQ(state().TailleRégion - state().ResteRégion, 10) << "all that was selected";
}

// --- ardane --secours

class EarlierScoresOfThePlayer : public KeptRun {
 protected:
  std::string file() { return desktop().programme().contexte().dossier.complet(state().Fichier_lancement); }
  void write(const char *name, int score) {
    state().Nombre_scores(1) = 1;
    state().Meilleurs_scores(1, 1) = {name, score};
    ASSERT_TRUE(Ecrire_scores(desktop().programme().contexte(), true));
  }
  static std::string bytes_of(const std::string &path) {
    std::ostringstream bytes;
    bytes << std::ifstream(chemin_natif(path), std::ios::binary).rdbuf();
    return bytes.str();
  }
};

TEST_F(EarlierScoresOfThePlayer, AreListedInFrenchAndGivenBack) {
  start();
  write("Ann", 999'812);
  const std::string before = bytes_of(file());
  write("Bob", 5);
  const std::string after = bytes_of(file());
  const Rescue list = list_earlier_scores(places().secours);
  EXPECT_EQ(list.code, 0);
  EXPECT_THAT(list.text, HasSubstr("\n" + file() + "\n     1  jusqu'au "));
  EXPECT_THAT(list.text, HasSubstr("  1 score de Ann : 999 812\n"));
  EXPECT_THAT(list.text, HasSubstr("ardane --secours NUMÉRO"));

  const Rescue given = give_scores_back(places().secours, 1);
  EXPECT_EQ(given.code, 0) << given.text;
  EXPECT_THAT(given.text, HasSubstr(file()));
  EXPECT_EQ(bytes_of(file()), before);
  EXPECT_EQ(give_scores_back(places().secours, 2).code, 0) << "what was there is kept, too";
  const QString longer = to_qt(list_earlier_scores(places().secours).text);
  EXPECT_GT(longer.count("jusqu'au"), 1);
  EXPECT_EQ(longer.count(to_qt(file())), 1) << "their file is named once";
  EXPECT_EQ(bytes_of(file()), after);
}

TEST_F(EarlierScoresOfThePlayer, AFileThatHeldNoneIsListedAsThat) {
  start();
  Ecrire_scores(desktop().programme().contexte(), false);
  write("Ann", 7);
  EXPECT_THAT(list_earlier_scores(places().secours).text, HasSubstr("  aucun score\n"));
}

TEST_F(EarlierScoresOfThePlayer, TheOldestOfFiveCanBeGivenBack) {
  start();
  write("Ann", 1);
  const std::string first = bytes_of(file());
  for (const int score : {2, 3, 4, 5, 6}) write("Ann", score);
  EXPECT_EQ(give_scores_back(places().secours, 1).code, 0);
  EXPECT_EQ(bytes_of(file()), first);
}

TEST_F(EarlierScoresOfThePlayer, ANumberThatIsNoneAndAFileThatCannotBeWrittenAreTold) {
  start();
  const Rescue none = list_earlier_scores(places().secours);
  EXPECT_EQ(none.code, 0);
  EXPECT_THAT(none.text, StartsWith("Aucun ancien contenu"));
  write("Ann", 1);
  write("Ann", 2);
  EXPECT_EQ(give_scores_back(places().secours, 7).code, 1);
  fs::remove(chemin_natif(file()));
  fs::create_directory(chemin_natif(file()));
  const Rescue refused = give_scores_back(places().secours, 1);
  EXPECT_EQ(refused.code, 1);
  EXPECT_THAT(refused.text, HasSubstr("n'est pas écrit"));
}

TEST_F(EarlierScoresOfThePlayer, OneThatCannotBeReadToItsEndIsNotGivenBackInPart) {
  start();
  write("Ann", 1);
  write("Ann", 2);
  const std::string now = bytes_of(file());
  const auto kept = Lister_scores_anciens(Secours({places().secours}).dossier_des_scores());
  fs::remove(kept.front().copie);
  fs::create_symlink("/proc/self/mem", kept.front().copie);
  const Rescue refused = give_scores_back(places().secours, kept.front().numéro);
  EXPECT_EQ(refused.code, 1);
  EXPECT_THAT(refused.text, HasSubstr("ne peut pas être lu"));
  EXPECT_EQ(bytes_of(file()), now);
}

TEST_F(EarlierScoresOfThePlayer, WhatCannotBeReadIsSaidToBeSoAndAGameThatWaitsIsNamed) {
  start();
  play_a_little();
  rest();
  { std::ofstream(chemin_natif(file())) << "nothing that the game could read"; }
  write("Ann", 1);
  const std::string list = list_earlier_scores(places().secours).text;
  EXPECT_THAT(list, HasSubstr("  illisible\n"));
  EXPECT_THAT(list, HasSubstr("La partie interrompue de Zoé (999 998 points)"));
}

TEST_F(EarlierScoresOfThePlayer, TheProgramListsThoseOfTheSettingsThatItIsGiven) {
  QProcess listing;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("XDG_STATE_HOME", to_qt(folder.path().string()));
  listing.setProcessEnvironment(environment);
  const fs::path lifeline = folder.path() / "mirabonde" / "autres" / places().registre.relative_path();
  const fs::path scores = folder.path() / "Le nord.SCI";
  { std::ofstream(scores) << "old"; }
  Secours({lifeline}).garder_scores(texte_du_chemin(scores), HorlogeSystème());
  { std::ofstream(scores) << "new"; }
  for (const char *number : {"", "1", "2", "9"}) {
    QStringList words = {"--registre", to_qt(places().registre.string()), "--secours"};
    if (*number != '\0') words << number;
    listing.start(QStringLiteral(ARDANE_PROGRAM), words);
    ASSERT_TRUE(listing.waitForFinished(60'000));
    EXPECT_EQ(listing.exitCode(), *number == '9' ? 1 : 0) << number;
    EXPECT_FALSE(listing.readAllStandardOutput().isEmpty());
    if (*number == '1') EXPECT_EQ(bytes_of(texte_du_chemin(scores)), "old");
    if (*number == '2') EXPECT_EQ(bytes_of(texte_du_chemin(scores)), "new");
  }
}

}  // namespace
}  // namespace ardane
