// Arrays with the bounds of the design, checked at every access.
#pragma once

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/fatal_error.h"

namespace ardane {

/// An array with indices Premier..Dernier, empty or made from its elements. An index outside ends the program
/// (ErreurFatale).
template <class T, int Premier, int Dernier>
class Table {
  static_assert(Premier <= Dernier);

 public:
  static constexpr int premier = Premier;
  static constexpr int dernier = Dernier;
  using Eléments = std::array<T, static_cast<std::size_t>(Dernier - Premier + 1)>;

  constexpr Table() = default;
  constexpr explicit Table(const Eléments &éléments) : éléments_(éléments) {}

  T &operator()(long indice, Lieu lieu = Lieu::ici()) { return éléments_[place(indice, lieu)]; }
  const T &operator()(long indice, Lieu lieu = Lieu::ici()) const { return éléments_[place(indice, lieu)]; }

  void remplir(const T &valeur) { éléments_.fill(valeur); }
  auto begin() { return éléments_.begin(); }
  auto end() { return éléments_.end(); }
  auto begin() const { return éléments_.begin(); }
  auto end() const { return éléments_.end(); }
  friend bool operator==(const Table &, const Table &) = default;

 private:
  static std::size_t place(long indice, Lieu lieu) {
    if (indice < Premier || indice > Dernier) [[unlikely]]
      signaler_indice(indice, Premier, Dernier, lieu);
    return static_cast<std::size_t>(indice - Premier);
  }

  Eléments éléments_{};
};

/// An array of two indices, both checked.
template <class T, int Premier1, int Dernier1, int Premier2, int Dernier2>
class Table2 {
 public:
  using Ligne = Table<T, Premier2, Dernier2>;
  static constexpr int premier = Premier1;
  static constexpr int dernier = Dernier1;

  T &operator()(long i, long j, Lieu lieu = Lieu::ici()) { return lignes_(i, lieu)(j, lieu); }
  const T &operator()(long i, long j, Lieu lieu = Lieu::ici()) const { return lignes_(i, lieu)(j, lieu); }
  Ligne &ligne(long i, Lieu lieu = Lieu::ici()) { return lignes_(i, lieu); }
  const Ligne &ligne(long i, Lieu lieu = Lieu::ici()) const { return lignes_(i, lieu); }
  friend bool operator==(const Table2 &, const Table2 &) = default;

 private:
  Table<Ligne, Premier1, Dernier1> lignes_;
};

/// An array whose upper bound is set while the program runs. Before the first `dimensionner` it has no
/// index at all.
template <class T, int Premier>
class TableauDynamique {
 public:
  static constexpr int premier = Premier;

  /// Makes it Premier..dernier, every element empty.
  void dimensionner(int dernier_indice) {
    éléments_.assign(dernier_indice < Premier ? 0 : static_cast<std::size_t>(dernier_indice - Premier + 1),
                     T{});
  }
  /// Makes it Premier..dernier, keeping what it holds.
  void redimensionner(int dernier_indice) {
    éléments_.resize(dernier_indice < Premier ? 0 : static_cast<std::size_t>(dernier_indice - Premier + 1));
  }
  /// Adds an element behind the last.
  void ajouter(T élément) { éléments_.push_back(std::move(élément)); }
  int dernier() const { return Premier + static_cast<int>(éléments_.size()) - 1; }

  T &operator()(long indice, Lieu lieu = Lieu::ici()) { return éléments_[place(indice, lieu)]; }
  const T &operator()(long indice, Lieu lieu = Lieu::ici()) const { return éléments_[place(indice, lieu)]; }

 private:
  std::size_t place(long indice, Lieu lieu) const {
    if (indice < Premier || indice > dernier()) [[unlikely]]
      signaler_indice(indice, Premier, dernier(), lieu);
    return static_cast<std::size_t>(indice - Premier);
  }

  std::vector<T> éléments_;
};

}  // namespace ardane
