// Paths of keys in the store of settings: parts between backslashes. The empty path is the root of all keys.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ardane {

/// A path of more parts is no key's.
constexpr std::size_t parties_au_plus = 32;

/// The parts of a path, the empty ones passed over.
std::vector<std::string_view> parties_de_clé(std::string_view clé);
/// The path that has these parts.
std::string clé_de(const std::vector<std::string_view> &parties);
/// The path of a key right under `clé`.
std::string Joindre_clé(std::string_view clé, std::string_view nom);

}  // namespace ardane
