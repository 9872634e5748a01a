// The sources of the program and of the atelier, for tests that read them.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace ardane {

/// Calls `voir` with the path of each source and header below a folder.
template <class F>
void pour_chaque_source(const std::filesystem::path &racine, F &&voir) {
  for (const auto &entrée : std::filesystem::recursive_directory_iterator(racine))
    if (entrée.path().extension() == ".h" || entrée.path().extension() == ".cpp") voir(entrée.path());
}

template <class F>
void pour_chaque_ligne(const std::filesystem::path &source, F &&lire) {
  std::ifstream flux(source);
  for (std::string ligne; std::getline(flux, ligne);) lire(ligne);
}

}  // namespace ardane
