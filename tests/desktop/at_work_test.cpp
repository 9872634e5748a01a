// What comes while a procedure is at work or a box is up: other events, the timer, the player's keys.
#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <stdexcept>

#include "front/qt/heartbeat.h"
#include "program_test.h"
#include "stage.h"

namespace ardane {
namespace {

class AtWork : public testing::Test {
 protected:
  AtWork() { window.largeur = window.hauteur = 200; }
  Contrôle &button(const char *name) { return place(window, name, Genre::bouton, {0, 0, 100, 25}); }
  QWidget *show() {
    stage.renderer.montrer(window);
    QWidget *frame = stage.renderer.frame(window);
    EXPECT_TRUE(QTest::qWaitForWindowActive(frame));
    return frame;
  }

  Stage stage;
  Fenêtre window{"fenêtre"};
};

TEST_F(AtWork, WhatCanWaitComesWhenTheProcedureIsOver) {
  std::string done;
  stage.dispatcher.run([&] {
    stage.dispatcher.run_when_idle([&] { done += "b"; });
    QApplication::processEvents();
    done += "a";
  });
  EXPECT_EQ(done, "a");
  EXPECT_TRUE(QTest::qWaitFor([&] { return done == "ab"; }));
  stage.dispatcher.run_when_idle([&] { done += "c"; });
  EXPECT_EQ(done, "abc") << "at once where nothing is at work";
}

TEST_F(AtWork, WhatCallsNothingIsNoEvent) {
  int events = 0;
  stage.dispatcher.before_event = [&] { ++events; };
  stage.dispatcher.explain = []() -> std::optional<std::string> { throw std::logic_error("an error's end"); };
  EXPECT_NO_THROW(stage.dispatcher.run({}));
  EXPECT_EQ(events, 0);
}

TEST_F(AtWork, NoWindowClosesAndNoKeyPressesAButton) {
  int presses = 0, closings = 0;
  button("ok").clic = [&] { ++presses; };
  button("annuler").clic = [&] { ++presses; };
  window.bouton_défaut = window.chercher("ok");
  window.bouton_annulation = window.chercher("annuler");
  window.demande_de_fermeture = [&] { ++closings; };
  QWidget *frame = show();
  const auto ask_for_all = [&] {
    frame->close();
    QTest::keyClick(frame, Qt::Key_Return);
    QTest::keyClick(frame, Qt::Key_Escape);
  };
  stage.dispatcher.run(ask_for_all);
  EXPECT_EQ(presses, 0);
  EXPECT_EQ(closings, 0);
  ask_for_all();
  EXPECT_EQ(presses, 2);
  EXPECT_EQ(closings, 1);
}

/// A timer without a pause beats at each turn of the event loop.
class Beats : public AtWork {
 protected:
  Beats() {
    heartbeat.beat = [this] { ++beats; };
    heartbeat.start(std::chrono::milliseconds(0));
  }
  int beats_of_some_turns() {
    beats = 0;
    for (int turn = 0; turn < 5; ++turn) QApplication::processEvents();
    return beats;
  }

  int beats = 0;
  Heartbeat heartbeat{stage.dispatcher, stage.boxes};
};

TEST_F(Beats, MeetNoProcedureAtWork) {
  EXPECT_GT(beats_of_some_turns(), 0);
  stage.dispatcher.run([&] { EXPECT_EQ(beats_of_some_turns(), 0); });
  EXPECT_GT(beats_of_some_turns(), 0);
}

TEST_F(Beats, AreLostUnderABoxAndGoOnUnderAModalWindow) {
  const auto in_the_loop = [](const std::function<void()> &look) { QTimer::singleShot(0, qApp, look); };
  in_the_loop([&] {
    EXPECT_EQ(beats_of_some_turns(), 0);
    qobject_cast<QMessageBox *>(QApplication::activeModalWidget())->accept();
  });
  stage.dispatcher.run([&] { stage.boxes.montrer({Icône::information, "Titre", "Texte"}); });
  EXPECT_GT(beats_of_some_turns(), 0);
  in_the_loop([&] {
    EXPECT_GT(beats_of_some_turns(), 0);
    stage.renderer.close_top();
  });
  stage.dispatcher.run([&] { stage.renderer.montrer_modale(window); });
}

/// Learns of the timer's beats and how long it waits between them.
struct BeatWatch : QObject {
  BeatWatch() { qApp->installEventFilter(this); }
  bool eventFilter(QObject *watched, QEvent *event) override {
    if (event->type() == QEvent::Timer && dynamic_cast<Heartbeat *>(watched) != nullptr)
      period = QAbstractEventDispatcher::instance()->registeredTimers(watched).constFirst().interval;
    return false;
  }
  int period = 0;
};

using StartedProgram = ProgramTest;

TEST_F(StartedProgram, BeatsTwiceASecond) {
  const BeatWatch watch;
  start();
  state().TableClignotement(7) = true;
  const bool before = state().PhaseClignotement;
  EXPECT_EQ(script().run([&] { return state().PhaseClignotement != before; }), "");
  EXPECT_EQ(watch.period, 500);
}

}  // namespace
}  // namespace ardane
