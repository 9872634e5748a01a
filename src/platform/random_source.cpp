#include "platform/random_source.h"

#include <chrono>

namespace ardane {
namespace {

std::uint32_t germe_de_l_horloge() {
  const auto maintenant =
      static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
  return static_cast<std::uint32_t>(maintenant ^ (maintenant >> 32));
}

}  // namespace

HasardSemé::HasardSemé(std::optional<std::uint32_t> germe)
    : germe_(germe), source_(germe ? *germe : germe_de_l_horloge()) {}

void HasardSemé::semer() {
  source_.seed(germe_ ? *germe_ : germe_de_l_horloge());
}

float HasardSemé::tirer() {
  // 24 bits fill a float's mantissa: no draw rounds up to 1.
  return static_cast<float>(source_() >> 8) * 0x1p-24F;
}

}  // namespace ardane
