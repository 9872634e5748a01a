// In the place of tests/unit/support/limits.h: of what a system refuses a player Windows shows the read-only
// file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <utility>

using rlim_t = unsigned long long;

namespace ardane {

class SansPrivilège {
 public:
  SansPrivilège() {}
};

class Protégé {
 public:
  enum class Contre : std::uint8_t { écriture, lecture };
  Protégé(std::filesystem::path chemin, Contre)
      : chemin_(std::move(chemin)), avant_(std::filesystem::status(chemin_).permissions()) {
    std::filesystem::permissions(chemin_, std::filesystem::perms::owner_read);
  }
  ~Protégé() {
    std::error_code erreur;
    std::filesystem::permissions(chemin_, avant_, erreur);
  }
  Protégé(const Protégé &) = delete;
  Protégé &operator=(const Protégé &) = delete;

 private:
  std::filesystem::path chemin_;
  std::filesystem::perms avant_;
};

class DisquePlein {
 public:
  explicit DisquePlein(rlim_t) {}
};

}  // namespace ardane
