// atelier <data folder> <output folder>: draws the country and writes everything that the game shows, plays
// and reads. Documents that show what was drawn go to the folder "docs" beside the output folder.
#include <exception>
#include <filesystem>
#include <iostream>

#include "armorial/armorial.h"
#include "chart/country_map.h"
#include "files/catalogue.h"
#include "files/data.h"
#include "marks/marks.h"
#include "voices/sounds.h"

int main(int argc, char **argv) {
  namespace fs = std::filesystem;
  if (argc != 3) {
    std::cerr << "usage: atelier <data folder> <output folder>\n";
    return 2;
  }
  try {
    const fs::path sortie = fs::absolute(argv[2]).lexically_normal();
    const fs::path images = sortie / "images";
    fs::create_directories(images);

    const auto données = atelier::lire_données(argv[1]);
    auto textes = données.messages;
    atelier::Catalogue catalogue;
    atelier::dessiner_carte(données, images, catalogue, sortie / "ardane.pts", textes);
    atelier::dessiner_armorial(données, images, catalogue, sortie.parent_path() / "docs");
    atelier::dessiner_repères(images, catalogue);
    atelier::écrire_sons(sortie);
    catalogue.enregistrer(sortie / "images.txt");
    atelier::écrire_textes(sortie / "textes.txt", textes);
  } catch (const std::exception &failure) {
    std::cerr << "atelier: " << failure.what() << '\n';
    return 1;
  }
  return 0;
}
