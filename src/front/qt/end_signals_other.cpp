// Systems other than Linux: a signal ends the process, and the next start finds what the lifeline has by
// then.

#include "front/qt/end_signals.h"

namespace ardane {

struct EndSignals::Bell {};

EndSignals::EndSignals(std::function<void()>) {}
EndSignals::~EndSignals() = default;

}  // namespace ardane
