// The program's random source.
#pragma once

#include <cstdint>
#include <optional>
#include <random>

#include "platform/services.h"

namespace ardane {

/// Draws that are the same on every machine for the same seed.
class HasardSemé : public Hasard {
 public:
  /// Seeded from the clock, or by `germe`, which every later seeding goes back to.
  explicit HasardSemé(std::optional<std::uint32_t> germe = std::nullopt);
  void semer() override;
  float tirer() override;

 private:
  std::optional<std::uint32_t> germe_;
  std::mt19937 source_;
};

}  // namespace ardane
