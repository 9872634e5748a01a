// The program's own sources, for tests that read them.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace ardane {

/// Calls `voir` with the path of each source and header below src/.
template <class F>
void pour_chaque_source(F &&voir) {
  for (const auto &entrée : std::filesystem::recursive_directory_iterator(ARDANE_SOURCES))
    if (entrée.path().extension() == ".h" || entrée.path().extension() == ".cpp") voir(entrée.path());
}

template <class F>
void pour_chaque_ligne(const std::filesystem::path &source, F &&lire) {
  std::ifstream flux(source);
  for (std::string ligne; std::getline(flux, ligne);) lire(ligne);
}

}  // namespace ardane
