// The signals by which a session, a terminal or another program asks this one to end.
#pragma once

#include <QObject>
#include <functional>
#include <memory>

namespace ardane {

/// Takes SIGTERM, SIGINT and SIGHUP for as long as it lives, but those that whoever started the program has
/// it ignore (nohup). There is one at a time, and it needs a QApplication.
class EndSignals : public QObject {
 public:
  /// `asked_to_end` is called by the event loop that runs then, that of a modal window or box too: nothing of
  /// the program runs within a signal's handler.
  explicit EndSignals(std::function<void()> asked_to_end);
  ~EndSignals() override;

 private:
  struct Bell;
  std::unique_ptr<Bell> bell_;
};

}  // namespace ardane
