// Paths of files and folders as plain text, UTF-8.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ardane {

constexpr char séparateur_de_chemin = static_cast<char>(std::filesystem::path::preferred_separator);

/// `dossier` and `nom` with one separator between; none is added if the folder already ends in one.
std::string Joindre_chemin(std::string_view dossier, std::string_view nom);
/// Everything before the last separator; empty for a path that has none.
std::string Dossier_de(std::string_view chemin);
/// The folder without separators at its end, but for that of a root.
std::string sans_séparateur_final(std::string dossier);
/// The path for the file functions of the standard library.
std::filesystem::path chemin_natif(std::string_view utf8);
/// The other way, with the system's own separators.
std::string texte_du_chemin(const std::filesystem::path &chemin);
/// True if a file (not a folder) of that name can be found.
bool fichier_existe(std::string_view chemin);
/// The same, and true as well where the system cannot tell: nothing may be made in its place.
bool fichier_peut_exister(std::string_view chemin);
/// True for a plain file, which can be opened without waiting for anyone.
bool est_fichier_ordinaire(std::string_view chemin);
/// True for what a file can be called in whatever folder is open, and no way into another one.
bool est_nom_de_fichier(std::string_view nom);

/// An absolute path as names, to stand below any folder, its root among them where there are many.
std::filesystem::path en_noms(const std::filesystem::path &absolu);
/// The absolute path that these names stand for.
std::filesystem::path depuis_noms(const std::filesystem::path &noms);

}  // namespace ardane
