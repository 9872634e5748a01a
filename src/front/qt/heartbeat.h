// The timer of the program.
#pragma once

#include <QObject>
#include <chrono>
#include <functional>

#include "front/qt/boxes.h"
#include "front/qt/dispatcher.h"

namespace ardane {

/// Calls a procedure of the program at each beat of a timer, unless another is at work or a message box
/// waits: a box stands in the middle of a procedure, which no beat may meet. Such a beat is lost.
class Heartbeat : public QObject {
 public:
  Heartbeat(Dispatcher &dispatcher, const BoxesQt &boxes) : dispatcher_(dispatcher), boxes_(boxes) {}

  void start(std::chrono::milliseconds period) { startTimer(period); }

  std::function<void()> beat;

 protected:
  void timerEvent(QTimerEvent *) override {
    if (!dispatcher_.busy() && !boxes_.up()) dispatcher_.run_tick(beat);
  }

 private:
  Dispatcher &dispatcher_;
  const BoxesQt &boxes_;
};

}  // namespace ardane
