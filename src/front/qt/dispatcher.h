// The one door through which the player's events reach the program.
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>

namespace ardane {

/// Runs what events call. No exception crosses Qt's event loop: an error that the program has no answer to is
/// told to the player in a box, and the process ends at once with exit code 1, without another line of the
/// program being run.
class Dispatcher {
 public:
  using Event = std::function<void()>;

  /// Called before an event that comes while no other is under way, not even waiting.
  Event before_event;
  /// Called after each event, to bring the windows in step with the data.
  Event after_event;
  /// Called some milliseconds after an event, once it is painted and no other is under way, and at the latest
  /// before the next.
  Event at_rest;

  /// Better words for the player than an unforeseen error's own, where its cause is known.
  std::function<std::optional<std::string>()> explain;
  /// True if the player will find his game again after an error that ends the program.
  std::function<bool()> is_game_kept;

  Dispatcher();

  /// Runs an event, then `after_event`. An empty event does nothing.
  void run(const Event &event);
  /// The same for the timer, whose ticks change nothing of what is done at rest.
  void run_tick(const Event &event);
  /// Runs it now, or from the event loop if a procedure of the program is at work.
  void run_when_idle(const Event &event);

  /// Ends the process with exit code 0 as soon as no procedure of the program is at work, once what is due at
  /// rest and `last` are done. One that waits for the player is not gone on with: he has not answered. Where
  /// he is being told of an error, that is the end, with its exit code.
  void end_when_idle(const Event &last);

  /// True while a procedure of the program is at work, which must not meet another.
  bool busy() const { return busy_; }

  /// For as long as it lives the program waits for the player, inside an event: other events may come.
  class Waiting {
   public:
    explicit Waiting(Dispatcher &dispatcher) : dispatcher_(dispatcher), busy_(dispatcher.busy_) {
      dispatcher.busy_ = false;
    }
    ~Waiting() { dispatcher_.busy_ = busy_; }
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;

   private:
    Dispatcher &dispatcher_;
    bool busy_;
  };

 private:
  void carry_out(const Event &event);
  void rest();
  void guard(const Event &event);
  [[noreturn]] void end_with(const char *what);

  bool busy_ = false;
  int depth_ = 0;  ///< events under way, those that wait for the player included
  bool ended_ = false;
  QTimer rest_;
  QObject put_off_;  ///< what waits for an idle program ends with it
};

}  // namespace ardane
