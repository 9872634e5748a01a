#include "core/paths.h"

namespace ardane {

std::string Joindre_chemin(std::string_view dossier, std::string_view nom) {
  std::string chemin(dossier);
  if (chemin.empty() || chemin.back() != séparateur_de_chemin) chemin.push_back(séparateur_de_chemin);
  return chemin.append(nom);
}

std::string Dossier_de(std::string_view chemin) {
  const auto dernier = chemin.rfind(séparateur_de_chemin);
  return dernier == std::string_view::npos ? std::string{} : std::string(chemin.substr(0, dernier));
}

std::string sans_séparateur_final(std::string dossier) {
  const std::size_t racine = chemin_natif(dossier).root_name().u8string().size() + 1;
  while (dossier.size() > racine && dossier.back() == séparateur_de_chemin) dossier.pop_back();
  return dossier;
}

std::filesystem::path chemin_natif(std::string_view utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string texte_du_chemin(const std::filesystem::path &chemin) {
  const std::u8string texte = std::filesystem::path(chemin).make_preferred().u8string();
  return {texte.begin(), texte.end()};
}

bool fichier_existe(std::string_view chemin) {
  std::error_code erreur;
  const auto état = std::filesystem::status(chemin_natif(chemin), erreur);
  return std::filesystem::exists(état) && !std::filesystem::is_directory(état);
}

bool fichier_peut_exister(std::string_view chemin) {
  std::error_code erreur;
  const auto genre = std::filesystem::status(chemin_natif(chemin), erreur).type();
  return genre != std::filesystem::file_type::not_found && genre != std::filesystem::file_type::directory;
}

bool est_fichier_ordinaire(std::string_view chemin) {
  std::error_code erreur;
  return std::filesystem::is_regular_file(chemin_natif(chemin), erreur);
}

}  // namespace ardane
