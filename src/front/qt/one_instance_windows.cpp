// Windows only: the first instance makes a mutex, which the system takes back by itself when it ends, killed
// or not. A later one rings one event and waits for the other. The names are those of this session alone.

#include <QByteArray>
#include <QCryptographicHash>
#include <QString>
#include <QWinEventNotifier>
#include <array>

#include "front/qt/one_instance.h"
#include "platform/windows_headers.h"

namespace ardane {

/// Closed with it; null where the system has refused it.
class NamedHandle {
 public:
  explicit NamedHandle(HANDLE handle) : handle_(handle) {}
  ~NamedHandle() {
    if (handle_ != nullptr) CloseHandle(handle_);
  }
  NamedHandle(const NamedHandle &) = delete;
  NamedHandle &operator=(const NamedHandle &) = delete;

  HANDLE get() const { return handle_; }
  bool is_open() const { return handle_ != nullptr; }

 private:
  HANDLE handle_;
};

namespace {

/// One for each player and file of settings.
std::wstring name_of(const std::filesystem::path &settings, const wchar_t *what) {
  std::error_code error;
  std::filesystem::path real = std::filesystem::absolute(settings, error);
  if (!error) real = std::filesystem::weakly_canonical(real, error);
  if (error) real = settings;
  std::array<wchar_t, 256> player{};
  auto size = static_cast<DWORD>(player.size());
  GetUserNameW(player.data(), &size);
  const QByteArray whole = (QString::fromWCharArray(player.data()) + QLatin1Char('\n') +
                            QString::fromStdWString(real.wstring()).toLower())
                               .toUtf8();
  const QString hash = QString::fromLatin1(QCryptographicHash::hash(whole, QCryptographicHash::Sha1).toHex());
  return L"Local\\mirabonde.ardane." + hash.toStdWString() + L"." + what;
}

NamedHandle named_event(const std::filesystem::path &settings, const wchar_t *what) {
  return NamedHandle(CreateEventW(nullptr, FALSE, FALSE, name_of(settings, what).c_str()));
}

}  // namespace

struct OneInstance::Link {
  explicit Link(const std::filesystem::path &settings)
      : held(CreateMutexW(nullptr, FALSE, name_of(settings, L"jeu").c_str())),
        is_taken(GetLastError() == ERROR_ALREADY_EXISTS),
        asked(named_event(settings, L"devant")),
        answered(named_event(settings, L"fait")) {}

  NamedHandle held;
  const bool is_taken;
  NamedHandle asked, answered;
  std::unique_ptr<QWinEventNotifier> notifier;
};

OneInstance::OneInstance(const std::filesystem::path &settings, std::chrono::milliseconds patience) {
  if (settings.empty()) return;
  link_ = std::make_unique<Link>(settings);
  if (!link_->held.is_open() || !link_->asked.is_open() || !link_->answered.is_open()) return;
  if (!link_->is_taken) {
    place_ = Place::first;
    return;
  }
  AllowSetForegroundWindow(ASFW_ANY);
  SetEvent(link_->asked.get());
  if (WaitForSingleObject(link_->answered.get(), static_cast<DWORD>(patience.count())) == WAIT_OBJECT_0)
    place_ = Place::second;
}

OneInstance::~OneInstance() = default;

void OneInstance::listen(std::function<void(const std::string &)> asked_to_front) {
  asked_to_front_ = std::move(asked_to_front);
  if (place_ != Place::first) return;
  link_->notifier = std::make_unique<QWinEventNotifier>(link_->asked.get());
  connect(link_->notifier.get(), &QWinEventNotifier::activated, this, [this] { answer(); });
}

void OneInstance::answer() {
  asked_to_front_({});
  SetEvent(link_->answered.get());
}

}  // namespace ardane
