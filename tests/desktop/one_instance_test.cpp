// Two starts of the program by one player.
#include "front/qt/one_instance.h"

#include <poll.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QAction>
#include <QTest>
#include <atomic>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <thread>

#include "persistence/score_file.h"
#include "program_test.h"
#include "started_program.h"
#include "thread_status.h"

namespace ardane {
namespace {

using Place = OneInstance::Place;

class TwoStarts : public testing::Test {
 protected:
  const ScratchFolder folder{ARDANE_RESOURCES};
  const std::filesystem::path settings = folder.places().registre;
};

TEST_F(TwoStarts, TheSecondAsksTheFirstToTheFrontAndEndsWithZero) {
  OneInstance first(settings);
  ASSERT_EQ(first.place(), Place::first);
  std::vector<std::string> tokens;
  first.listen([&](const std::string &token) { tokens.push_back(token); });
  qputenv("XDG_ACTIVATION_TOKEN", "jeton");
  Started second(folder.places());
  qunsetenv("XDG_ACTIVATION_TOKEN");
  ASSERT_TRUE(QTest::qWaitFor([&] { return second.state() == QProcess::NotRunning; }, end_ms));
  EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(second.exitCode(), 0);
  EXPECT_EQ(tokens, std::vector<std::string>{"jeton"});
  EXPECT_TRUE(QString::fromUtf8(second.readAllStandardOutput()).startsWith("Le jeu est déjà ouvert"));
}

TEST_F(TwoStarts, OfTwoProgramsOneStaysAndOneThatWasKilledHindersNone) {
  for (int time = 0; time < 2; ++time) {
    Started one(folder.places()), other(folder.places());
    const auto [ended, running] = ended_and_running(one, other);
    EXPECT_EQ(ended->exitCode(), 0);
    EXPECT_EQ(running->state(), QProcess::Running);
    running->kill();
    ASSERT_TRUE(running->waitForFinished(end_ms));
  }
  EXPECT_EQ(OneInstance(settings).place(), Place::first);
}

TEST_F(TwoStarts, NoScoresAreGivenBackUnderAGameThatIsOpenButTheyAreListed) {
  OneInstance game(settings);
  int calls = 0;
  game.listen([&](const std::string &) { ++calls; });
  QProcess rescue;
  const auto answer = [&](const QStringList &number) {
    rescue.start(QStringLiteral(ARDANE_PROGRAM),
                 QStringList{"--registre", to_qt(settings.string()), "--secours"} + number);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rescue.state() == QProcess::NotRunning; }, end_ms));
    return QString::fromUtf8(rescue.readAllStandardOutput());
  };
  EXPECT_EQ(answer({"1"}), "Le jeu est ouvert : fermez-le d'abord.\n");
  EXPECT_EQ(rescue.exitCode(), 1);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(answer({}), "Aucun ancien contenu d'un fichier de scores n'est gardé.\n");
  EXPECT_EQ(rescue.exitCode(), 0);
  EXPECT_EQ(calls, 1);
}

TEST_F(TwoStarts, AFileIsLeftToTheGameThatIsOpen) {
  OneInstance game(settings);
  int calls = 0;
  game.listen([&](const std::string &) { ++calls; });
  QProcess second;
  second.start(QStringLiteral(ARDANE_PROGRAM), {"--registre", to_qt(settings.string()), "Souper.CAI"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return second.state() == QProcess::NotRunning; }, end_ms));
  EXPECT_EQ(second.exitCode(), 0);
  EXPECT_EQ(calls, 1);
  EXPECT_TRUE(
      QString::fromUtf8(second.readAllStandardOutput()).endsWith("Ouvrez-y ce fichier par ses menus.\n"));
}

TEST_F(TwoStarts, OtherSettingsAreAnotherPlayersAndAnotherSpellingOfTheSameFileIsNot) {
  const OneInstance first(settings);
  EXPECT_EQ(OneInstance(folder.path() / "autre").place(), Place::first);
  EXPECT_EQ(OneInstance(folder.path() / "." / "registre", std::chrono::milliseconds(0)).place(),
            Place::unknown)
      << "the first does not listen";
}

struct Name {
  sockaddr_un value{};
  socklen_t size = sizeof value;

  const sockaddr *get() const { return reinterpret_cast<const sockaddr *>(&value); }
};

int make_socket_for_packets() {
  return socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
}

/// Of the instance that this process holds.
Name name_of_the_instance() {
  for (int descriptor = 0; descriptor < FD_SETSIZE; ++descriptor) {
    Name name;
    if (getsockname(descriptor, reinterpret_cast<sockaddr *>(&name.value), &name.size) == 0 &&
        name.value.sun_family == AF_UNIX &&
        std::string_view(name.value.sun_path + 1).starts_with("mirabonde.ardane."))
      return name;
  }
  throw std::logic_error("No instance here");
}

/// The socket of a first instance that has its name but does not listen yet.
int begin_to_start(const std::filesystem::path &settings) {
  std::optional<OneInstance> known(settings);
  const Name name = name_of_the_instance();
  known.reset();
  const int starting = make_socket_for_packets();
  EXPECT_EQ(bind(starting, name.get(), name.size), 0);
  return starting;
}

TEST_F(TwoStarts, WhoCallsAndSaysNothingBringsNoWindowToTheFront) {
  OneInstance first(settings);
  int calls = 0;
  first.listen([&](const std::string &) { ++calls; });
  const Name name = name_of_the_instance();
  const int caller = make_socket_for_packets();
  ASSERT_EQ(connect(caller, name.get(), name.size), 0);
  close(caller);
  for (int turn = 0; turn < 5; ++turn) QApplication::processEvents();
  EXPECT_EQ(calls, 0);
}

TEST_F(TwoStarts, TheSecondWaitsForAFirstThatHasOnlyJustStarted) {
  const int starting = begin_to_start(settings);
  std::atomic<pid_t> thread = 0;
  std::atomic<Place> found = Place::first;
  std::thread second([&] {
    thread = gettid();
    found = OneInstance(settings).place();
  });
  while (found == Place::first && (thread == 0 || !waits_in_a_call(thread))) {
  }
  EXPECT_EQ(listen(starting, 1), 0);
  pollfd called{starting, POLLIN, 0};
  if (found == Place::first && poll(&called, 1, end_ms) == 1) {
    const int caller = accept(starting, nullptr, nullptr);
    EXPECT_EQ(send(caller, "!", 1, 0), 1);
    second.join();
    close(caller);
  } else {
    second.join();
  }
  EXPECT_EQ(found, Place::second);
  close(starting);
}

TEST_F(TwoStarts, AFirstThatNeverListensIsGivenUpInHalfASecond) {
  const int starting = begin_to_start(settings);
  EXPECT_EQ(OneInstance(settings).place(), Place::unknown);
  close(starting);
}

/// How often a socket has something for the program.
struct SocketWatch : QObject {
  SocketWatch() { qApp->installEventFilter(this); }
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() == QEvent::SockAct) ++count;
    return false;
  }
  int count = 0;
};

TEST_F(TwoStarts, WithoutSettingsNobodyKnowsAndNobodyIsListenedTo) {
  OneInstance nobody({});
  EXPECT_EQ(nobody.place(), Place::unknown);
  const SocketWatch watch;
  nobody.listen([](const std::string &) {});
  for (int turn = 0; turn < 5; ++turn) QApplication::processEvents();
  EXPECT_EQ(watch.count, 0) << "a socket without a name would call at each turn";
}

class Fronted : public ProgramTest {};

class RaiseCounter : public QObject {
 public:
  explicit RaiseCounter(QWidget &widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() == QEvent::ZOrderChange) ++count;
    return false;
  }
  int count = 0;
};

TEST_F(Fronted, AMinimisedGameComesBack) {
  start();
  frame()->showMinimized();
  ASSERT_TRUE(frame()->isMinimized());
  desktop().come_to_front("");
  EXPECT_FALSE(frame()->isMinimized());
  EXPECT_TRUE(QTest::qWaitForWindowActive(frame()));
}

TEST_F(Fronted, ASecondStartBringsTheGameBack) {
  start();
  OneInstance instance(places().registre);
  desktop().heed(instance);
  frame()->showMinimized();
  Started second(places());
  ASSERT_TRUE(QTest::qWaitFor([&] { return second.state() == QProcess::NotRunning; }, end_ms));
  EXPECT_EQ(second.exitCode(), 0);
  EXPECT_FALSE(frame()->isMinimized());
}

TEST_F(Fronted, AGameBehindAnotherWindowComesBeforeIt) {
  start();
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  desktop().come_to_front("jeton");
  EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "jeton") << "with leave of the one who was started second";
  qunsetenv("XDG_ACTIVATION_TOKEN");
  EXPECT_TRUE(QTest::qWaitForWindowActive(frame()));
}

TEST_F(Fronted, WhatWaitsForThePlayerComesBeforeTheMap) {
  start();
  order().choose("menu_fichier", "fichier_nouveau");
  order().then([this] {
    frame()->activateWindow();
    const RaiseCounter raised(*frame());
    desktop().come_to_front("");
    EXPECT_EQ(raised.count, 1) << "under the dialog";
    EXPECT_EQ(QApplication::activeWindow()->objectName(), "nouvelle_partie");
  });
  order().click("Bouton_annuler");
  play();
}

/// Runs over one score file that do not know of each other.
class SharedScores : public ProgramTest {
 protected:
  DesktopPlaces places() const override {
    DesktopPlaces shared = folder.places();
    shared.partagé = true;
    return shared;
  }
  static void note(GameState &g, const char *name, int score) {
    g.Meilleurs_scores(1, ++g.Nombre_scores(1)) = {name, score};
  }
  static std::vector<std::string> names(const GameState &g) {
    std::vector<std::string> found;
    for (int rank = 1; rank <= g.Nombre_scores(1); ++rank) found.push_back(g.Meilleurs_scores(1, rank).nom);
    return found;
  }
};

TEST_F(SharedScores, WhatAnotherRunHasWrittenIsThereAtTheNextEvent) {
  start();
  note(state(), "Ann", 300);
  ASSERT_TRUE(Ecrire_scores(desktop().programme().contexte(), true));
  {
    Desktop other(places(), ressources_du_programme());
    Script player(other);
    ASSERT_TRUE(player.player.start());
    GameState &theirs = other.programme().état();
    ASSERT_EQ(names(theirs), std::vector<std::string>{"Ann"});
    note(theirs, "Bob", 100);
    ASSERT_TRUE(Ecrire_scores(other.programme().contexte(), true));
  }
  frame()->findChild<QAction *>("MenuSon")->trigger();
  EXPECT_EQ(names(state()), (std::vector<std::string>{"Ann", "Bob"}));
}

}  // namespace
}  // namespace ardane
