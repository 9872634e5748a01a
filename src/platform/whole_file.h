// Files that are small enough to be read at once.
#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>

namespace ardane {

/// The bytes of a plain file; no value for one that is absent, cannot be read to its end or has more than so
/// many bytes, nor for anything else of that name: to open a pipe or a device could wait for ever.
std::optional<std::string> octets_du_fichier(
    const std::filesystem::path &fichier,
    std::uintmax_t au_plus = std::numeric_limits<std::uintmax_t>::max());

}  // namespace ardane
