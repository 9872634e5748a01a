// What the system refuses a player, arranged for the length of a test: leave to write, room on the disk.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <utility>

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

/// An ordinary user, and files or folders that he may not write, or not even read. Their own rights come back
/// afterwards; to the temporary folders above them everybody is admitted.
class Protégé {
 public:
  enum class Contre : std::uint8_t { écriture, lecture };
  Protégé(std::filesystem::path chemin, Contre contre)
      : chemin_(std::move(chemin)), avant_(std::filesystem::status(chemin_).permissions()) {
    using std::filesystem::perms;
    const std::filesystem::path au_plus_haut = std::filesystem::temp_directory_path();
    for (auto dessus = chemin_.parent_path(); dessus != au_plus_haut && dessus.has_relative_path();
         dessus = dessus.parent_path())
      std::filesystem::permissions(dessus, perms::all, std::filesystem::perm_options::add);
    constexpr perms lisible = perms::owner_read | perms::group_read | perms::others_read | perms::owner_exec |
                              perms::group_exec | perms::others_exec;
    std::filesystem::permissions(chemin_, contre == Contre::écriture ? lisible : perms::none);
    ordinaire_.emplace();
  }
  ~Protégé() {
    ordinaire_.reset();
    std::error_code erreur;
    std::filesystem::permissions(chemin_, avant_, erreur);
  }
  Protégé(const Protégé &) = delete;
  Protégé &operator=(const Protégé &) = delete;

 private:
  std::filesystem::path chemin_;
  std::filesystem::perms avant_;
  std::optional<SansPrivilège> ordinaire_;
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
