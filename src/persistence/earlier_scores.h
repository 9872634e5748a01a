// What stood in score files before the program rewrote or deleted them: the last five contents of each, as
// files of their own in a folder apart.
//
//     <folder>/home/ann/jeux/ARDANE.SCI/00017 2026-11-22 06h05.SCI
//
// The path of the score file is the path within the folder. The numbers go on over all files, so that each
// names one content for ever.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/services.h"

namespace ardane {

constexpr std::size_t contenus_gardés = 5;

struct Scores_anciens {
  int numéro = 0;
  std::string fichier;  ///< the score file that held them, a complete path
  std::string quand;    ///< "22/11/2026 06:05", when they were about to go
  std::filesystem::path copie;
};

/// Keeps what the score file holds now, unless that is what was kept of it last; the sixth content of a file
/// goes. A file that is not there, is no plain one or has over 16 MB is passed over. Failures go to the log.
void Garder_scores(const std::filesystem::path &dossier, const std::string &fichier, const Horloge &horloge);

/// All that is kept: file by file, the latest content first.
std::vector<Scores_anciens> Lister_scores_anciens(const std::filesystem::path &dossier);

}  // namespace ardane
