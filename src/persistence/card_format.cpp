#include "persistence/card_format.h"

#include <algorithm>

#include "core/text_encoding.h"

namespace ardane {
namespace {

constexpr std::size_t octets_de_longueur = 2;

std::size_t début_de_fiche(int numéro) {
  return taille_de_fiche * static_cast<std::size_t>(numéro - 1);
}

std::string texte_compté(std::string_view utf8) {
  const std::string octets = vers_windows_1252_au_mieux(utf8);
  return std::string{static_cast<char>(octets.size() & 0xFF), static_cast<char>(octets.size() >> 8)} + octets;
}

/// Takes a length off the front of `reste`; nothing if it is not there whole.
std::optional<std::size_t> prendre_longueur(std::string_view &reste) {
  if (reste.size() < octets_de_longueur) return std::nullopt;
  const auto octet = [&](std::size_t i) { return std::size_t{static_cast<unsigned char>(reste[i])}; };
  const std::size_t longueur = octet(0) | octet(1) << 8;
  reste.remove_prefix(octets_de_longueur);
  return longueur;
}

/// Takes a counted text off the front of `reste`; nothing if it is not there whole.
std::optional<std::string> prendre_texte(std::string_view &reste) {
  const auto longueur = prendre_longueur(reste);
  if (!longueur || reste.size() < *longueur) return std::nullopt;
  std::string texte = depuis_windows_1252(reste.substr(0, *longueur));
  reste.remove_prefix(*longueur);
  return texte;
}

/// The slot as far as the file goes.
std::string_view case_de_fiche(std::string_view octets, int numéro) {
  const std::size_t début = début_de_fiche(numéro);
  return début < octets.size() ? octets.substr(début, taille_de_fiche) : std::string_view{};
}

std::string_view sans_remplissage(std::string_view texte) {
  return texte.substr(0, texte.find_last_not_of('\0') + 1);
}

}  // namespace

std::size_t Longueur_de_fiche(const Fiche_information &fiche) {
  return texte_compté(fiche.titre).size() + texte_compté(fiche.texte).size();
}

std::optional<Fiche_information> Fiche_du_fichier(std::string_view octets, int numéro) {
  std::string_view reste = case_de_fiche(octets, numéro);
  auto titre = prendre_texte(reste);
  if (!titre) return std::nullopt;
  auto texte = prendre_texte(reste);
  if (!texte) return std::nullopt;
  return Fiche_information{std::move(*titre), std::move(*texte)};
}

Fiche_information Restes_de_fiche(std::string_view octets, int numéro) {
  std::string_view reste = case_de_fiche(octets, numéro);
  auto titre = prendre_texte(reste);
  if (!titre || Longueur_de_fiche({*titre, {}}) > taille_de_fiche) return {};
  const auto longueur = prendre_longueur(reste);
  if (!longueur) return {std::move(*titre), {}};
  if (*longueur <= reste.size()) return {std::move(*titre), depuis_windows_1252(reste.substr(0, *longueur))};
  return {std::move(*titre), depuis_windows_1252(sans_remplissage(reste))};
}

void Placer_fiche(std::string &octets, int numéro, const Fiche_information &fiche) {
  std::string compacte = texte_compté(fiche.titre) + texte_compté(fiche.texte);
  compacte.resize(taille_de_fiche, '\0');
  const std::size_t début = début_de_fiche(numéro);
  octets.resize(std::max(octets.size(), début + taille_de_fiche), '\0');
  octets.replace(début, taille_de_fiche, compacte);
}

}  // namespace ardane
