// Plays one scenario: scenario_runner SHIPPED_FILES_FOLDER SCENARIO. Exit code 0 if the game answered as
// told.
#include <exception>
#include <fstream>
#include <iostream>

#include "player.h"
#include "scenario.h"

int main(int argc, char **argv) {
  if (argc != 3) {
    std::cerr << "scenario_runner DOSSIER_LIVRÉ FICHIER.scenario\n";
    return 2;
  }
  try {
    std::ifstream fichier(argv[2], std::ios::binary);
    if (!fichier) throw std::runtime_error("le fichier ne peut pas être lu");
    ardane::Joueur(argv[1]).jouer(ardane::lire_scénario(fichier));
  } catch (const std::exception &erreur) {
    std::cerr << argv[2] << ", " << erreur.what() << '\n';
    return 1;
  }
  return 0;
}
