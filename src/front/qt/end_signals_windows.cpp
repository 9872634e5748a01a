// Windows only: the end of a session. It is not held up by a question, as the system would tell the player
// that this program prevents him from leaving: his game is on the disk.

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include "front/qt/end_signals.h"
#include "platform/windows_headers.h"

namespace ardane {

struct EndSignals::Bell : QAbstractNativeEventFilter {
  explicit Bell(std::function<void()> asked_to_end) : ring(std::move(asked_to_end)) {
    QCoreApplication::instance()->installNativeEventFilter(this);
  }

  bool nativeEventFilter(const QByteArray &, void *message, qintptr *result) override {
    const auto &msg = *static_cast<const MSG *>(message);
    if (msg.message == WM_QUERYENDSESSION) {
      *result = TRUE;
      return true;
    }
    if (msg.message != WM_ENDSESSION) return false;
    if (msg.wParam != 0) ring();
    *result = 0;
    return true;
  }

  const std::function<void()> ring;
};

EndSignals::EndSignals(std::function<void()> asked_to_end)
    : bell_(std::make_unique<Bell>(std::move(asked_to_end))) {}
EndSignals::~EndSignals() = default;

}  // namespace ardane
