#include "persistence/earlier_scores.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "core/paths.h"
#include "persistence/folders.h"
#include "persistence/score_file.h"
#include "platform/file_replacement.h"
#include "platform/log.h"
#include "platform/whole_file.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t plus_gros_gardé = 16'000'000;

// --- Names: "00017 2026-11-22 06h05.SCI"

std::string nom_de_copie(int numéro, const Horloge &horloge) {
  const auto date = horloge.aujourd_hui();
  const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(horloge.heure()).count();
  std::array<char, 64> nom{};
  std::snprintf(nom.data(), nom.size(), "%05d %04d-%02u-%02u %02dh%02d", numéro,
                static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()), static_cast<int>(minutes / 60),
                static_cast<int>(minutes % 60));
  return std::string(nom.data()) + std::string(extension_scores);
}

/// Nothing for what is not named like a copy.
std::optional<Scores_anciens> lire_nom(const fs::path &copie, const fs::path &dossier) {
  const std::string nom = texte_du_chemin(copie.filename());
  int numéro = 0, année = 0, mois = 0, jour = 0, heures = 0, minutes = 0, lus = 0;
  const int champs = std::sscanf(nom.c_str(), "%9d %4d-%2d-%2d %2dh%2d.SCI%n", &numéro, &année, &mois, &jour,
                                 &heures, &minutes, &lus);
  if (champs != 6 || lus != static_cast<int>(nom.size()) || numéro < 1) return std::nullopt;
  std::array<char, 64> quand{};
  std::snprintf(quand.data(), quand.size(), "%02d/%02d/%04d %02d:%02d", jour, mois, année, heures, minutes);
  const fs::path fichier = depuis_noms(copie.parent_path().lexically_relative(dossier));
  return Scores_anciens{numéro, texte_du_chemin(fichier), quand.data(), copie};
}

// --- What is there

/// Every copy below a folder, in no order.
std::vector<Scores_anciens> copies_sous(const fs::path &dossier) {
  std::vector<Scores_anciens> copies;
  std::error_code erreur;
  fs::recursive_directory_iterator entrée(dossier, fs::directory_options::skip_permission_denied, erreur);
  for (; !erreur && entrée != fs::recursive_directory_iterator(); entrée.increment(erreur)) {
    std::error_code ignorée;
    if (!entrée->is_regular_file(ignorée)) continue;
    if (auto copie = lire_nom(entrée->path(), dossier)) copies.push_back(std::move(*copie));
  }
  return copies;
}

/// Those of one file, the latest first.
std::vector<Scores_anciens> copies_du_fichier(std::vector<Scores_anciens> copies,
                                              const std::string &fichier) {
  std::erase_if(copies, [&](const Scores_anciens &copie) { return copie.fichier != fichier; });
  std::ranges::sort(copies, std::greater(), &Scores_anciens::numéro);
  return copies;
}

}  // namespace

void Garder_scores(const fs::path &dossier, const std::string &fichier, const Horloge &horloge) {
  const fs::path source = chemin_natif(fichier).lexically_normal();
  const auto octets = octets_du_fichier(source, plus_gros_gardé);
  if (!octets) return;
  const std::vector<Scores_anciens> toutes = copies_sous(dossier);
  const std::vector<Scores_anciens> siennes = copies_du_fichier(toutes, texte_du_chemin(source));
  if (!siennes.empty() && octets_du_fichier(siennes.front().copie, plus_gros_gardé) == octets) return;

  const int dernier = toutes.empty() ? 0 : std::ranges::max(toutes, {}, &Scores_anciens::numéro).numéro;
  const fs::path le_sien = dossier / en_noms(source);
  std::error_code erreur;
  fs::create_directories(le_sien, erreur);
  const auto échec = remplacer_fichier(le_sien / chemin_natif(nom_de_copie(dernier + 1, horloge)), *octets);
  if (échec)
    return consigner("L'ancien contenu de « " + fichier + " » n'est pas gardé : " + std::string(*échec));
  for (std::size_t i = contenus_gardés - 1; i < siennes.size(); ++i) fs::remove(siennes[i].copie, erreur);
}

std::vector<Scores_anciens> Lister_scores_anciens(const fs::path &dossier) {
  std::vector<Scores_anciens> copies = copies_sous(dossier);
  std::ranges::sort(copies, [](const Scores_anciens &a, const Scores_anciens &b) {
    return a.fichier != b.fichier ? a.fichier < b.fichier : a.numéro > b.numéro;
  });
  return copies;
}

}  // namespace ardane
