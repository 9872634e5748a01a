// atelier <data folder> <output folder> [room...]: draws the country and writes everything that the game
// shows, plays and reads. Documents that show what was drawn go to the folder "docs" beside the output
// folder. With rooms named (chart, armorial, marks, voices) it draws those alone, for looking at, and leaves
// the catalogue as it stands.
#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <set>
#include <string>

#include "armorial/armorial.h"
#include "chart/country_map.h"
#include "files/catalogue.h"
#include "files/data.h"
#include "marks/marks.h"
#include "voices/sounds.h"

int main(int argc, char **argv) {
  namespace fs = std::filesystem;
  const std::set<std::string> known = {"chart", "armorial", "marks", "voices"};
  const std::set<std::string> chosen(argv + std::min(argc, 3), argv + argc);
  if (argc < 3 || !std::includes(known.begin(), known.end(), chosen.begin(), chosen.end())) {
    std::cerr << "usage: atelier <data folder> <output folder> [chart|armorial|marks|voices]...\n";
    return 2;
  }
  const auto draws = [&chosen](const char *room) { return chosen.empty() || chosen.contains(room); };
  try {
    const fs::path sortie = fs::absolute(argv[2]).lexically_normal();
    const fs::path images = sortie / "images";
    fs::create_directories(images);

    const auto données = atelier::lire_données(argv[1]);
    auto textes = données.messages;
    atelier::Catalogue catalogue;
    if (draws("chart")) {
      atelier::dessiner_carte(données, images, catalogue, sortie, textes);
      atelier::écrire_textes(sortie / "textes.txt", textes);
    }
    if (draws("armorial"))
      atelier::dessiner_armorial(données, images, catalogue, sortie / "blasons.txt",
                                 sortie.parent_path() / "docs");
    if (draws("marks")) atelier::dessiner_repères(images, catalogue);
    if (draws("voices")) atelier::écrire_sons(sortie);
    if (chosen.empty()) catalogue.enregistrer(sortie / "images.txt");
  } catch (const std::exception &failure) {
    std::cerr << "atelier: " << failure.what() << '\n';
    return 1;
  }
  return 0;
}
