// Slot files: one item in each slot of 128 bytes, little-endian, whatever the item's size. The score file and
// the saved game are such files.
//
//     16-bit integer   2 bytes, two's complement; true is -1, false is 0
//     32-bit integer   4 bytes, two's complement
//     text             16-bit length, then that many bytes of Windows-1252, 126 at most
//     pair             two 16-bit integers
//     score            text of 120 bytes at most, 32-bit score, 16-bit level, with no gap
//     bytes            their number, 32-bit, in a slot; then themselves, in as many slots as they fill
//
// The bytes behind an item are padding: written as zeros, never looked at. The last slot may be cut short, as
// long as its item is there.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace ardane {

constexpr std::size_t taille_de_case = 128;
constexpr std::size_t longueur_de_texte = 126;
constexpr std::size_t longueur_de_nom = 120;
/// Of a path that is kept as bytes.
constexpr std::size_t longueur_de_chemin = 4096;

struct Paire {
  std::int16_t indice = 0;
  std::int16_t valeur = 0;
  friend bool operator==(const Paire &, const Paire &) = default;
};

struct Enregistrement_score {
  std::string nom;
  std::int32_t score = 0;
  std::int16_t niveau = 0;
  friend bool operator==(const Enregistrement_score &, const Enregistrement_score &) = default;
};

/// What is wrong with a slot file, and in which of its slots, counted from 1.
struct Défaut_de_case {
  enum class Cause : std::uint8_t {
    fin_du_fichier,  ///< the item is not there whole
    trop_long,       ///< a text that its slot cannot hold
    valeur,          ///< an item that what reads the file cannot take
    lecture,         ///< the device failed
    écriture,        ///< the device failed, or is full; it may have told so late
  };
  int numéro = 0;
  Cause cause = Cause::valeur;
  friend bool operator==(const Défaut_de_case &, const Défaut_de_case &) = default;
};

/// One French sentence without its full stop: "case 12 : texte trop long".
std::string décrire_défaut(const Défaut_de_case &défaut);

/// Reads the items of a slot file in order. After the first item that could not be read, every further one
/// yields nothing, and `défaut` tells which it was. Texts come as UTF-8.
class Lecteur_de_cases {
 public:
  /// `flux` must be binary and outlive the reader.
  explicit Lecteur_de_cases(std::istream &flux) : flux_(flux) {}

  std::optional<std::int16_t> entier16();
  std::optional<std::int32_t> entier32();
  /// A 16-bit integer: any number but 0 is true.
  std::optional<bool> booléen();
  /// `plus_long` is in bytes of the file.
  std::optional<std::string> texte(std::size_t plus_long = longueur_de_texte);
  std::optional<Paire> paire();
  std::optional<Enregistrement_score> score();
  /// At most `au_plus` of them.
  std::optional<std::string> octets(std::size_t au_plus);

  /// Refuses the item just read.
  void refuser();
  const std::optional<Défaut_de_case> &défaut() const { return défaut_; }

 private:
  bool avancer();
  bool présents(std::size_t octets);
  void échouer(Défaut_de_case::Cause cause);
  std::uint32_t octet(std::size_t i) const { return static_cast<unsigned char>(case_[i]); }
  std::int16_t entier16_à(std::size_t place) const;
  std::int32_t entier32_à(std::size_t place) const;
  /// The text at the head of the slot; nothing, and a fault, if `plus_long` bytes cannot hold it or it is
  /// cut.
  std::optional<std::string> texte_en_tête(std::size_t plus_long);

  std::istream &flux_;
  int numéro_ = 0;
  std::array<char, taille_de_case> case_{};
  std::size_t lus_ = 0;
  std::optional<Défaut_de_case> défaut_;
};

/// Writes items in order, every slot in full. After the first failure nothing more is written. Texts are
/// UTF-8; what has no place in Windows-1252 is written as "?".
class Scripteur_de_cases {
 public:
  /// `flux` must be binary and outlive the writer.
  explicit Scripteur_de_cases(std::ostream &flux) : flux_(flux) {}

  void entier16(std::int16_t valeur);
  void entier32(std::int32_t valeur);
  void booléen(bool valeur);
  void texte(std::string_view valeur);
  void paire(const Paire &valeur);
  void score(const Enregistrement_score &valeur);
  void octets(std::string_view valeur);

  /// Hands everything to the device; true if every item has been written.
  bool terminer();
  const std::optional<Défaut_de_case> &défaut() const { return défaut_; }

 private:
  void case_suivante(std::string_view contenu);
  void échouer(Défaut_de_case::Cause cause);
  /// Length and bytes of a text; empty, and a fault, if it is longer than `plus_long`.
  std::string octets_du_texte(std::string_view utf8, std::size_t plus_long);

  std::ostream &flux_;
  int numéro_ = 0;
  std::optional<Défaut_de_case> défaut_;
};

}  // namespace ardane
