// Linux only: the first instance holds a socket whose name stands in no folder (an abstract address), which
// the kernel gives to one process at a time and takes back by itself when that ends, killed or not.

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QSocketNotifier>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>

#include "front/qt/appearance.h"
#include "front/qt/one_instance.h"

namespace ardane {

constexpr std::size_t longest_token = 1024;

/// To another program of this machine, in whole packets.
class PacketSocket {
 public:
  explicit PacketSocket(int descriptor) : descriptor_(descriptor) {}
  ~PacketSocket() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  PacketSocket(const PacketSocket &) = delete;
  PacketSocket &operator=(const PacketSocket &) = delete;

  int descriptor() const { return descriptor_; }
  bool is_open() const { return descriptor_ >= 0; }
  /// Whatever the name, only this player's own programs are spoken to.
  bool is_of_this_player() const {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(descriptor_, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == getuid();
  }
  bool send(std::string_view packet) const {
    return ::send(descriptor_, packet.data(), packet.size(), MSG_NOSIGNAL) >= 0;
  }
  /// The packet that comes within the time, of at least one byte; nothing if none does.
  std::optional<std::string> receive(int milliseconds) const {
    pollfd ready{descriptor_, POLLIN, 0};
    std::array<char, longest_token> packet{};
    int found = 0;
    while ((found = poll(&ready, 1, milliseconds)) < 0 && errno == EINTR) {
    }
    const ssize_t size = found == 1 ? recv(descriptor_, packet.data(), packet.size(), MSG_DONTWAIT) : -1;
    if (size <= 0) return std::nullopt;
    return std::string(packet.data(), static_cast<std::size_t>(size));
  }

 private:
  int descriptor_;
};

namespace {

constexpr int waiting_instances = 8;
/// Between the two calls by which the first instance takes its name and opens it to others.
constexpr int opening_ms = 20;
constexpr int opening_attempts = 25;
/// A later instance sends its packet right behind its call.
constexpr int packet_ms = 200;

PacketSocket make_socket(int flags = 0) {
  return PacketSocket(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | flags, 0));
}

struct Address {
  sockaddr_un name{};
  socklen_t size = 0;

  const sockaddr *get() const { return reinterpret_cast<const sockaddr *>(&name); }
};

/// One for each player and file of settings.
Address address_of(const std::filesystem::path &settings) {
  std::error_code error;
  std::filesystem::path real = std::filesystem::absolute(settings, error);
  if (!error) real = std::filesystem::weakly_canonical(real, error);
  if (error) real = settings;
  const QByteArray path = QByteArray::fromStdString(real.string());
  const std::string name = "mirabonde.ardane." + std::to_string(getuid()) + "." +
                           QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex().toStdString();
  Address address;
  address.name.sun_family = AF_UNIX;
  std::ranges::copy(name, address.name.sun_path + 1);  // behind the zero that makes it abstract
  address.size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
  return address;
}

/// What this instance was started with to bring a window to the front; a packet is never empty.
std::string token() {
  const char *given = std::getenv("XDG_ACTIVATION_TOKEN");
  return std::string(given == nullptr ? "" : given).substr(0, longest_token - 1) + '\n';
}

/// True if the instance that has the address has come to the front.
bool has_come_to_the_front(const Address &address, std::chrono::milliseconds patience) {
  const PacketSocket caller = make_socket();
  for (int attempt = 0; connect(caller.descriptor(), address.get(), address.size) != 0; ++attempt) {
    if (errno != ECONNREFUSED || attempt == opening_attempts) return false;
    poll(nullptr, 0, opening_ms);
  }
  return caller.is_of_this_player() && caller.send(token()) &&
         caller.receive(static_cast<int>(patience.count())).has_value();
}

}  // namespace

struct OneInstance::Link {
  PacketSocket socket = make_socket(SOCK_NONBLOCK);
  std::unique_ptr<QSocketNotifier> notifier;
};

OneInstance::OneInstance(const std::filesystem::path &settings, std::chrono::milliseconds patience)
    : link_(std::make_unique<Link>()) {
  if (settings.empty() || !link_->socket.is_open()) return;
  const Address address = address_of(settings);
  if (bind(link_->socket.descriptor(), address.get(), address.size) == 0) {
    if (::listen(link_->socket.descriptor(), waiting_instances) == 0) place_ = Place::first;
  } else if (errno == EADDRINUSE && has_come_to_the_front(address, patience)) {
    place_ = Place::second;
  }
}

OneInstance::~OneInstance() = default;

void OneInstance::listen(std::function<void(const std::string &)> asked_to_front) {
  asked_to_front_ = std::move(asked_to_front);
  if (place_ != Place::first) return;
  link_->notifier = std::make_unique<QSocketNotifier>(link_->socket.descriptor(), QSocketNotifier::Read);
  connect(link_->notifier.get(), &QSocketNotifier::activated, this, [this] { answer(); });
}

void OneInstance::answer() {
  const PacketSocket caller(accept4(link_->socket.descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
  if (!caller.is_open() || !caller.is_of_this_player()) return;
  const std::optional<std::string> packet = caller.receive(packet_ms);
  if (!packet) return;
  asked_to_front_(packet->substr(0, packet->find('\n')));
  caller.send("!");
}

}  // namespace ardane
