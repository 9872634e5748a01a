// Plays one scenario: scenario_runner SHIPPED_FILES_FOLDER SCENARIO [CHRONICLE [--noter]]. Exit code 0 if the
// game answered as told, and if all that the player saw stands in the chronicle; --noter writes that anew.
#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "player.h"
#include "scenario.h"

namespace {

std::vector<std::string> lignes_de(const char *chemin) {
  std::ifstream fichier(chemin, std::ios::binary);
  if (!fichier) throw std::runtime_error("la chronique ne peut pas être lue");
  std::vector<std::string> lignes;
  for (std::string ligne; std::getline(fichier, ligne);) lignes.push_back(ligne);
  return lignes;
}

/// The first line that differs, told with what stood before it.
void comparer(const std::vector<std::string> &attendues, const std::vector<std::string> &vues) {
  const auto [attendue, vue] = std::ranges::mismatch(attendues, vues);
  if (attendue == attendues.end() && vue == vues.end()) return;
  const auto est_commande = [](const std::string &ligne) { return ligne.starts_with("> "); };
  const auto commande = std::find_if(std::make_reverse_iterator(vue), vues.rend(), est_commande);
  const auto dite = [](auto ligne, auto fin) { return ligne == fin ? std::string("(rien)") : *ligne; };
  throw ardane::Scénario_démenti(
      "ligne " + std::to_string(attendue - attendues.begin() + 1) + " de la chronique" +
      (commande == vues.rend() ? "" : ", après\n  " + *commande) + "\n  attendu :\n    " +
      dite(attendue, attendues.end()) + "\n  vu :\n    " + dite(vue, vues.end()) + "\n");
}

void jouer(const std::vector<const char *> &mots) {
  std::ifstream fichier(mots[1], std::ios::binary);
  if (!fichier) throw std::runtime_error("le fichier ne peut pas être lu");
  ardane::Joueur joueur(mots[0]);
  joueur.jouer(ardane::lire_scénario(fichier));
  if (mots.size() == 3) comparer(lignes_de(mots[2]), joueur.chronique());
  if (mots.size() < 4) return;
  std::ofstream chronique(mots[2], std::ios::binary);
  for (const std::string &ligne : joueur.chronique()) chronique << ligne << '\n';
}

}  // namespace

int main(int argc, char **argv) {
  const std::vector<const char *> mots(argv + 1, argv + argc);
  const bool à_noter = mots.size() == 4 && mots[3] == std::string("--noter");
  if (mots.size() != 2 && mots.size() != 3 && !à_noter) {
    std::cerr << "scenario_runner DOSSIER_LIVRÉ FICHIER.scenario [FICHIER.chronique [--noter]]\n";
    return 2;
  }
  try {
    jouer(mots);
  } catch (const std::exception &erreur) {
    std::cerr << mots[1] << ", " << erreur.what() << '\n';
    return 1;
  }
  return 0;
}
