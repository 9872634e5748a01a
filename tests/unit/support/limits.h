// What the system refuses a player, arranged for the length of a test: leave to write, room on the disk.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace ardane {

/// The rights of an ordinary user: the superuser may write whatever is protected.
class SansPrivilège {
 public:
  SansPrivilège() : avant_(geteuid()) {
    if (avant_ == 0 && seteuid(personne) != 0) throw std::runtime_error("cannot become an ordinary user");
  }
  ~SansPrivilège() {
    if (seteuid(avant_) != 0) std::abort();
  }
  SansPrivilège(const SansPrivilège &) = delete;
  SansPrivilège &operator=(const SansPrivilège &) = delete;

 private:
  static constexpr uid_t personne = 65534;
  uid_t avant_;
};

/// A disk that is full: no file grows beyond `octets`.
class DisquePlein {
 public:
  explicit DisquePlein(rlim_t octets) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &avant_);
    const rlimit limite{octets, avant_.rlim_max};
    if (setrlimit(RLIMIT_FSIZE, &limite) != 0) throw std::runtime_error("cannot limit the files");
  }
  ~DisquePlein() {
    setrlimit(RLIMIT_FSIZE, &avant_);
    std::signal(SIGXFSZ, signal_);
  }
  DisquePlein(const DisquePlein &) = delete;
  DisquePlein &operator=(const DisquePlein &) = delete;

 private:
  rlimit avant_{};
  void (*signal_)(int);
};

}  // namespace ardane
