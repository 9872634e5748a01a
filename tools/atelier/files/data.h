// What the atelier is given: the gazetteer and the messages, text files of the data folder.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace atelier {

/// Where a place wants to lie: the letter of its line in the gazetteer.
enum class Indice : char {
  côte = 'c',
  île = 'i',
  rivière = 'r',
  lac = 'l',
  montagne = 'm',
  forêt = 'f',
  plaine = 'p',
  delta = 'd',
};

struct Ville {
  std::string nom;
  Indice indice = Indice::plaine;
};

struct Province {
  std::string nom;
  Indice indice = Indice::plaine;
  /// Its region, 1 to 20.
  int région = 0;
  Ville capitale;
  /// The two other cities.
  std::vector<Ville> villes;
};

struct Région {
  std::string nom;
  std::string caractère;
  /// Numbers of its provinces, consecutive.
  std::vector<int> provinces;
};

inline constexpr int nombre_régions = 20;
inline constexpr int nombre_provinces = 110;
inline constexpr int nombre_villes = 330;

struct Données {
  /// The data folder itself, for modules with a file of their own.
  std::filesystem::path dossier;
  /// Both indexed from 1; element 0 is empty.
  std::vector<Région> régions;
  std::vector<Province> provinces;
  /// Strings by number, without the gazetteer's rows; escapes already resolved.
  std::map<int, std::string> messages;
};

/// Reads gazetteer.txt and messages.txt. Throws std::runtime_error that names file and line when a line has
/// not the expected form or a count is wrong.
Données lire_données(const std::filesystem::path &dossier);

/// The table number -> text as it is kept in files: "number<TAB>text" lines, "\n" and "\\" escaped.
std::map<int, std::string> lire_textes(const std::filesystem::path &fichier);
void écrire_textes(const std::filesystem::path &fichier, const std::map<int, std::string> &textes);

}  // namespace atelier
