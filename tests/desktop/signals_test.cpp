// The program is asked to end by others than the player.
#include <gmock/gmock.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <fstream>
#include <sstream>
#include <thread>

#include "front/qt/end_signals.h"
#include "front/qt/one_instance.h"
#include "kept_run.h"
#include "thread_status.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// Runs of the test's own process and of the program itself over the same files.
class Signalled : public KeptRun {
 protected:
  DesktopPlaces places() const override {
    DesktopPlaces shared = folder.places();
    shared.secours = dossier_de_secours(shared.registre);
    return shared;
  }
  const fs::path window_memory = folder.path() / "fenetre.ini";

  std::string settings() const {
    std::ostringstream bytes;
    bytes << std::ifstream(places().registre, std::ios::binary).rdbuf();
    return bytes.str();
  }
  static void end_by(int signal, Started &program) {
    ASSERT_EQ(::kill(static_cast<pid_t>(program.processId()), signal), 0);
    ASSERT_TRUE(program.waitForFinished(end_ms)) << signal;
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << signal;
    EXPECT_EQ(program.exitCode(), 0) << signal;
  }
  void end_a_run_by(int signal) {
    Started one(places()), other(places());
    end_by(signal, *ended_and_running(one, other).second);
  }
};

TEST_F(Signalled, EachSignalEndsTheProgramAsTheCloseControlDoes) {
  start();
  end();
  std::ofstream(places().registre, std::ios::app) << "\n[HKEY_CURRENT_USER\\AppEvents\\Schemes\\Apps\\."
                                                     "Default\\SystemHand\\.current]\n\"\"=\"ding.wav\"\n";
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    fs::remove(window_memory);
    Started one(places()), other(places());
    Started &running = *ended_and_running(one, other).second;
    EXPECT_THAT(settings(), Not(HasSubstr("ding.wav"))) << "the program silences it while it runs";
    end_by(signal, running);
    EXPECT_THAT(settings(), HasSubstr("ding.wav")) << signal;
    EXPECT_TRUE(fs::exists(window_memory)) << signal;
    EXPECT_FALSE(game_on_disk()) << signal;
  }
}

TEST_F(Signalled, TheBoxOfAFirstStartHindersNoEnd) {
  end_a_run_by(SIGTERM);
  EXPECT_THAT(settings(), HasSubstr(places().programme)) << "where the scores will lie";
}

TEST_F(Signalled, AGameThatIsOfferedIsOfferedAgain) {
  start();
  play_a_little();
  rest();
  die();
  end_a_run_by(SIGTERM);
  ASSERT_TRUE(order().start());
  EXPECT_THAT(script().told, Contains(StartsWith(question)));
}

TEST_F(Signalled, WhatTheStarterHasItIgnoreIsIgnored) {
  start();
  end();
  const auto before = std::signal(SIGHUP, SIG_IGN);
  Started one(places()), other(places());
  std::signal(SIGHUP, before);
  Started &running = *ended_and_running(one, other).second;
  ASSERT_EQ(::kill(static_cast<pid_t>(running.processId()), SIGHUP), 0);
  // The first answer may come right before the end.
  for (int time = 0; time < 2; ++time)
    EXPECT_EQ(OneInstance(places().registre).place(), OneInstance::Place::second) << "it still answers";
  end_by(SIGTERM, running);
}

using Handler = void (*)(int);

Handler handler_of(int signal) {
  struct sigaction now {};
  sigaction(signal, nullptr, &now);
  return now.sa_handler;
}

TEST(EndSignals, AreTakenFromThoseThatHadThemAndGivenBack) {
  const std::array own = {SIGTERM, SIGINT, SIGHUP};
  const std::array<Handler, 3> found = {SIG_DFL, SIG_DFL, SIG_IGN};
  std::array<Handler, 3> before{};
  for (std::size_t i = 0; i < own.size(); ++i) before.at(i) = std::signal(own.at(i), found.at(i));
  const auto bells = [] {
    std::error_code error;
    return std::count_if(
        fs::directory_iterator("/proc/self/fd"), fs::directory_iterator(),
        [&](const auto &entry) { return fs::read_symlink(entry.path(), error) == "anon_inode:[eventfd]"; });
  };
  const auto bells_before = bells();
  int asked = 0;
  {
    const EndSignals signals([&] { ++asked; });
    EXPECT_NE(handler_of(SIGTERM), SIG_DFL);
    EXPECT_NE(handler_of(SIGINT), SIG_DFL);
    EXPECT_EQ(handler_of(SIGHUP), SIG_IGN) << "what is ignored stays so";
    std::raise(SIGTERM);
    std::raise(SIGINT);
    EXPECT_EQ(asked, 0) << "the event loop is waited for";
    for (int turn = 0; turn < 2; ++turn) {
      QCoreApplication::processEvents();
      EXPECT_EQ(asked, 1);
    }
  }
  EXPECT_EQ(bells(), bells_before);
  for (std::size_t i = 0; i < own.size(); ++i) {
    EXPECT_EQ(handler_of(own.at(i)), found.at(i));
    std::signal(own.at(i), before.at(i));
  }
}

TEST(EndSignals, BreakOffNoCallThatWaits) {
  const EndSignals signals([] {});
  std::array<int, 2> pipe_ends{};
  ASSERT_EQ(pipe(pipe_ends.data()), 0);
  const pthread_t reader = pthread_self();
  const pid_t known_as = gettid();
  std::thread other([&] {
    while (!waits_in_a_call(known_as)) {
    }
    pthread_kill(reader, SIGTERM);
    while (!status_says(known_as, "SigPnd:\t0000000000000000\n")) {
    }
    EXPECT_EQ(write(pipe_ends[1], "x", 1), 1);
  });
  char byte = 0;
  EXPECT_EQ(read(pipe_ends[0], &byte, 1), 1);
  other.join();
  for (const int end : pipe_ends) close(end);
}

class SignalledChild : public KeptRun {
 protected:
  /// How many provinces are found in the game that is offered after the child has ended so.
  int found_again_after(const char *way) {
    QProcess child;
    end_in_a_child(child, way);
    EXPECT_EQ(child.exitCode(), 0);
    EXPECT_TRUE(order().start());
    EXPECT_THAT(script().told, Contains(StartsWith(question)));
    return nombre_provinces - state().ProvincesRestantes;
  }
};

TEST_F(SignalledChild, ASignalRightBehindAnAnswerLosesNotEvenThat) {
  EXPECT_EQ(found_again_after("signal"), 2);
}

TEST_F(SignalledChild, TheEndOfTheSessionAsksNothingAndLosesNothing) {
  EXPECT_EQ(found_again_after("signal de fin de session"), 2);
}

TEST_F(SignalledChild, ASignalIsNoAnswerToTheBoxThatIsUp) {
  EXPECT_EQ(found_again_after("signal sous une boîte"), 1);
}

TEST_F(KeptRun, ASignalWaitsForTheProcedureAtWorkAndDoesNothingMoreAfterAnError) {
  QProcess child;
  end_in_a_child(child, "travail");
  EXPECT_EQ(child.exitCode(), 0);
  EXPECT_EQ(child.readAllStandardOutput(), "travail\nfin\n");
  end_in_a_child(child, "erreur");
  EXPECT_EQ(child.exitCode(), 1);
  EXPECT_EQ(child.readAllStandardOutput(), "");
}

}  // namespace
}  // namespace ardane
