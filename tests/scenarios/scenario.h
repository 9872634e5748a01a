// A scenario: what someone who knows the game does, and what the game answers. README.md tells its form.
#pragma once

#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace ardane {

struct Etape_scénario {
  enum class Sorte {
    commande,  ///< said to the pilot, its answer compared with `attendu`
    répéter,   ///< `étapes`, `nombre` times
    relancer,  ///< the pilot is left as it stands, the next command starts another one
    options,   ///< of the pilots to come, in `mots`
    fichier,   ///< written with the lines of `attendu`
    sans,      ///< a file or folder is taken away
    présent,   ///< a file must be there
    absent,    ///< a file must not be there
  };
  Sorte sorte = Sorte::commande;
  int ligne = 0;      ///< in the scenario's file, from 1
  std::string texte;  ///< the command, or the name of the file
  std::vector<std::string> mots;
  std::vector<std::string> attendu;
  int nombre = 0;
  std::vector<Etape_scénario> étapes;
};

class Scénario_illisible : public std::runtime_error {
 public:
  Scénario_illisible(int ligne, const std::string &raison)
      : std::runtime_error("ligne " + std::to_string(ligne) + " : " + raison) {}
};

/// Throws Scénario_illisible.
std::vector<Etape_scénario> lire_scénario(std::istream &fichier);

}  // namespace ardane
