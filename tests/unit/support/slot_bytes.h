// The bytes of slot files, slot by slot, for tests and not through the program's own writer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ardane {

struct OctetsCases {
  /// The file as it stands now.
  std::string octets() const {
    std::string tout;
    for (const std::string &c : cases) tout += c;
    return tout;
  }

  void entier16(int valeur) { cases.push_back(case_de(octets_de(valeur, 2))); }
  void entier32(int valeur) { cases.push_back(case_de(octets_de(valeur, 4))); }
  void paire(int indice, int valeur) {
    cases.push_back(case_de(octets_de(indice, 2) + octets_de(valeur, 2)));
  }
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

  // The same in the place of a slot, counted from 1.
  void changer(int numéro, int valeur) { changer(numéro, octets_de(valeur, 2)); }
  void changer32(int numéro, int valeur) { changer(numéro, octets_de(valeur, 4)); }
  void changer_paire(int numéro, int indice, int valeur) {
    changer(numéro, octets_de(indice, 2) + octets_de(valeur, 2));
  }
  void changer_texte(int numéro, const std::string &octets) {
    changer_texte(numéro, static_cast<int>(octets.size()), octets);
  }
  /// A text that is announced longer or shorter than it is.
  void changer_texte(int numéro, int annoncée, const std::string &octets) {
    changer(numéro, octets_de(annoncée, 2) + octets);
  }

  std::vector<std::string> cases;

 private:
  void changer(int numéro, const std::string &contenu) {
    cases.at(static_cast<std::size_t>(numéro - 1)) = case_de(contenu);
  }
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

}  // namespace ardane
