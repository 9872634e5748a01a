// The words of a blazon, taken one after the other.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace atelier {

/// The words of a text in lower case, with elided articles and punctuation on their own.
std::vector<std::string> mots(std::string_view texte);

/// Whether the word is the adjective in one of its four forms.
bool s_accorde(std::string_view mot, std::string_view adjectif);

/// The number from 1 to 9 that the word writes in a figure.
std::optional<int> nombre_en_chiffres(std::string_view mot);

/// A place among the words of a blazon. What is called "prendre" steps over the words that it finds, and
/// stays where it is when it does not find them.
class Mots_du_blason {
 public:
  explicit Mots_du_blason(std::string_view texte) : texte_(texte), mots_(mots(texte)) {}

  bool fini() const { return i_ >= mots_.size(); }
  /// The word here or so many ahead; empty behind the last.
  std::string_view mot(std::size_t ahead = 0) const;
  bool commence_par(const std::vector<std::string> &suite) const;

  std::size_t ici() const { return i_; }
  void revenir(std::size_t ici) { i_ = ici; }
  void avancer(std::size_t combien = 1) { i_ += combien; }

  bool prendre(std::string_view attendu);
  bool prendre_suite(std::initializer_list<std::string_view> suite);
  bool prendre_adjectif(std::string_view adjectif);
  /// In words up to twelve, or in a figure.
  std::optional<int> prendre_nombre();

  /// Throws Erreur_de_blason when the word is not here.
  void exiger(std::string_view attendu);
  /// Throws Erreur_de_blason with the blazon, the reason and the word here.
  [[noreturn]] void échouer(const std::string &raison) const;

 private:
  std::string_view texte_;
  std::vector<std::string> mots_;
  std::size_t i_ = 0;
};

}  // namespace atelier
