// Systems other than Windows: one root, and names that lack nothing but its separator.
#include "core/paths.h"

namespace ardane {

std::filesystem::path en_noms(const std::filesystem::path &absolu) {
  return absolu.relative_path();
}

std::filesystem::path depuis_noms(const std::filesystem::path &noms) {
  return "/" / noms;
}

bool est_nom_de_fichier(std::string_view nom) {
  return !nom.empty() && nom.find(séparateur_de_chemin) == std::string_view::npos;
}

}  // namespace ardane
