// Linux only: the handler rings a descriptor that the event loop watches. The signals are not blocked and
// read from a descriptor of theirs (signalfd): every program that this one starts, a browser among them,
// would inherit the block and could not be ended.

#include <sys/eventfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>

#include "front/qt/end_signals.h"

namespace ardane {
namespace {

constexpr std::array end_signals = {SIGTERM, SIGINT, SIGHUP};

/// All that a handler may read.
std::atomic<int> bell_descriptor = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void ring(int) {
  const int error = errno;
  const std::uint64_t once = 1;
  // It fails where it has rung some 2^64 times.
  [[maybe_unused]] const ssize_t rung = write(bell_descriptor, &once, sizeof once);
  errno = error;
}

}  // namespace

struct EndSignals::Bell {
  Bell() : descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
  ~Bell() {
    if (descriptor >= 0) close(descriptor);
  }
  Bell(const Bell &) = delete;
  Bell &operator=(const Bell &) = delete;

  const int descriptor;
  std::unique_ptr<QSocketNotifier> notifier;
  std::array<struct sigaction, end_signals.size()> before{};
};

EndSignals::EndSignals(std::function<void()> asked_to_end) : bell_(std::make_unique<Bell>()) {
  if (bell_->descriptor < 0) return;
  bell_descriptor = bell_->descriptor;
  bell_->notifier = std::make_unique<QSocketNotifier>(bell_->descriptor, QSocketNotifier::Read);
  connect(bell_->notifier.get(), &QSocketNotifier::activated, this,
          [this, asked_to_end = std::move(asked_to_end)] {
            std::uint64_t times = 0;
            if (read(bell_->descriptor, &times, sizeof times) == sizeof times) asked_to_end();
          });
  struct sigaction taken {};
  taken.sa_handler = ring;
  taken.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < end_signals.size(); ++i) {
    struct sigaction &before = bell_->before.at(i);
    if (sigaction(end_signals.at(i), nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
      sigaction(end_signals.at(i), &taken, nullptr);
  }
}

EndSignals::~EndSignals() {
  if (bell_->descriptor < 0) return;
  for (std::size_t i = 0; i < end_signals.size(); ++i)
    sigaction(end_signals.at(i), &bell_->before.at(i), nullptr);
  bell_descriptor = -1;
}

}  // namespace ardane
