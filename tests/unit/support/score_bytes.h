// The bytes of score files, slot by slot, for tests and not through the program's own writer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ardane {

struct OctetsScores {
  OctetsScores() {
    texte("Version 1.00 du 24/02/2007");
    for (const int code : {4, 1, 4, 2, 3}) entier16(code);
    for (int p = 1; p <= 110; ++p) entier16(0);
    entier16(1);
  }

  /// The file as it stands now.
  std::string octets() const {
    std::string tout;
    for (const std::string &c : cases) tout += c;
    return tout;
  }

  void entier16(int valeur) { cases.push_back(case_de(octets_de(valeur, 2))); }
  void texte(const std::string &octets) {
    cases.push_back(case_de(octets_de(static_cast<int>(octets.size()), 2) + octets));
  }
  void score(const std::string &nom, int points, int niveau) {
    score(static_cast<int>(nom.size()), nom, points, niveau);
  }
  /// A record whose name is announced longer or shorter than it is.
  void score(int annoncée, const std::string &nom, int points, int niveau) {
    cases.push_back(case_de(octets_de(annoncée, 2) + nom + octets_de(points, 4) + octets_de(niveau, 2)));
  }
  /// Puts a number in the place of a slot, counted from 1.
  void changer(int numéro, int valeur) {
    cases.at(static_cast<std::size_t>(numéro - 1)) = case_de(octets_de(valeur, 2));
  }

  std::vector<std::string> cases;

 private:
  static std::string octets_de(int valeur, int nombre) {
    std::string octets;
    for (int i = 0; i < nombre; ++i)
      octets.push_back(static_cast<char>(static_cast<std::uint32_t>(valeur) >> (8 * i)));
    return octets;
  }
  static std::string case_de(std::string contenu) {
    constexpr std::size_t taille = 128;
    contenu.resize(taille, '\0');
    return contenu;
  }
};

constexpr int case_nombre = 2;   ///< number of places in the order
constexpr int case_ordre = 3;    ///< the first of them
constexpr int case_inhibée = 7;  ///< province 1
constexpr int case_langue = 117;
constexpr int case_premier_score = 118;

}  // namespace ardane
