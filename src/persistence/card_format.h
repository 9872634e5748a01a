// The information file (".INF"): 110 slots of 650 bytes, the card of province p from byte 650 x (p - 1) on,
// and nothing else. A card is two texts with no gap between:
//
//     2 bytes    length L1, little-endian
//     L1 bytes   title, Windows-1252
//     2 bytes    length L2
//     L2 bytes   text, lines end in CR LF
//     rest       padding: written as zeros, never looked at
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ardane {

constexpr std::size_t taille_de_fiche = 650;

/// Texts are UTF-8; lines of `texte` end in CR LF.
struct Fiche_information {
  std::string titre;
  std::string texte;
  friend bool operator==(const Fiche_information &, const Fiche_information &) = default;
};

/// Bytes that the card takes in the file; it has `taille_de_fiche` of them.
std::size_t Longueur_de_fiche(const Fiche_information &fiche);

/// The card in the bytes of a whole file; nothing if it is not there whole or its lengths pass the slot.
/// `numéro` from 1.
std::optional<Fiche_information> Fiche_du_fichier(std::string_view octets, int numéro);

/// What is there of a card that is not whole: its title if that is, and its text as far as it goes. Of a
/// whole card, everything.
Fiche_information Restes_de_fiche(std::string_view octets, int numéro);

/// Puts a card that fits its slot into the bytes of a whole file; a file that ends above the slot is padded.
void Placer_fiche(std::string &octets, int numéro, const Fiche_information &fiche);

}  // namespace ardane
