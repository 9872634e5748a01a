#include "persistence/slot_file.h"

#include <algorithm>
#include <istream>
#include <ostream>

#include "core/text_encoding.h"

namespace ardane {
namespace {

using Cause = Défaut_de_case::Cause;

constexpr std::size_t taille_de_longueur = 2;
constexpr std::int16_t vrai = -1;
constexpr std::int16_t faux = 0;

template <class Entier>
std::string petit_boutiste(Entier valeur) {
  std::string octets;
  for (std::size_t i = 0; i < sizeof valeur; ++i)
    octets.push_back(static_cast<char>((static_cast<std::uint32_t>(valeur) >> (8 * i)) & 0xFF));
  return octets;
}

std::string_view nom_de_la_cause(Cause cause) {
  switch (cause) {
    case Cause::fin_du_fichier: return "fin du fichier";
    case Cause::trop_long: return "texte trop long";
    case Cause::valeur: return "valeur refusée";
    case Cause::lecture: return "lecture impossible";
    case Cause::écriture: return "écriture impossible";
  }
  return "";
}

}  // namespace

std::string décrire_défaut(const Défaut_de_case &défaut) {
  return "case " + std::to_string(défaut.numéro) + " : " + std::string(nom_de_la_cause(défaut.cause));
}

// --- Reader

void Lecteur_de_cases::échouer(Cause cause) {
  if (!défaut_) défaut_ = {numéro_, cause};
}

void Lecteur_de_cases::refuser() {
  échouer(Cause::valeur);
}

bool Lecteur_de_cases::avancer() {
  if (défaut_) return false;
  ++numéro_;
  flux_.read(case_.data(), taille_de_case);
  lus_ = static_cast<std::size_t>(flux_.gcount());
  if (flux_.bad()) échouer(Cause::lecture);
  return !défaut_;
}

bool Lecteur_de_cases::présents(std::size_t octets) {
  if (octets > lus_) échouer(Cause::fin_du_fichier);
  return !défaut_;
}

std::int16_t Lecteur_de_cases::entier16_à(std::size_t place) const {
  return static_cast<std::int16_t>(octet(place) | octet(place + 1) << 8);
}

std::int32_t Lecteur_de_cases::entier32_à(std::size_t place) const {
  return static_cast<std::int32_t>(octet(place) | octet(place + 1) << 8 | octet(place + 2) << 16 |
                                   octet(place + 3) << 24);
}

std::optional<std::int16_t> Lecteur_de_cases::entier16() {
  if (!avancer() || !présents(2)) return std::nullopt;
  return entier16_à(0);
}

std::optional<std::int32_t> Lecteur_de_cases::entier32() {
  if (!avancer() || !présents(4)) return std::nullopt;
  return entier32_à(0);
}

std::optional<Paire> Lecteur_de_cases::paire() {
  if (!avancer() || !présents(4)) return std::nullopt;
  return Paire{entier16_à(0), entier16_à(2)};
}

std::optional<std::string> Lecteur_de_cases::texte_en_tête(std::size_t plus_long) {
  if (!présents(taille_de_longueur)) return std::nullopt;
  const std::size_t longueur = octet(0) | octet(1) << 8;
  if (longueur > plus_long) {
    échouer(Cause::trop_long);
    return std::nullopt;
  }
  if (!présents(taille_de_longueur + longueur)) return std::nullopt;
  return std::string(case_.data() + taille_de_longueur, longueur);
}

std::optional<bool> Lecteur_de_cases::booléen() {
  const auto valeur = entier16();
  return valeur ? std::optional(*valeur != faux) : std::nullopt;
}

std::optional<std::string> Lecteur_de_cases::texte(std::size_t plus_long) {
  if (!avancer()) return std::nullopt;
  const auto octets = texte_en_tête(plus_long);
  return octets ? std::optional(depuis_windows_1252(*octets)) : std::nullopt;
}

std::optional<Enregistrement_score> Lecteur_de_cases::score() {
  if (!avancer()) return std::nullopt;
  const auto nom = texte_en_tête(longueur_de_nom);
  if (!nom) return std::nullopt;
  const std::size_t place = taille_de_longueur + nom->size();
  if (!présents(place + 6)) return std::nullopt;
  return Enregistrement_score{depuis_windows_1252(*nom), entier32_à(place), entier16_à(place + 4)};
}

std::optional<std::string> Lecteur_de_cases::octets(std::size_t au_plus) {
  const auto nombre = entier32();
  if (!nombre) return std::nullopt;
  if (*nombre < 0 || static_cast<std::size_t>(*nombre) > au_plus) {
    échouer(Cause::trop_long);
    return std::nullopt;
  }
  std::string octets;
  while (octets.size() < static_cast<std::size_t>(*nombre)) {
    const std::size_t morceau = std::min(taille_de_case, static_cast<std::size_t>(*nombre) - octets.size());
    if (!avancer() || !présents(morceau)) return std::nullopt;
    octets.append(case_.data(), morceau);
  }
  return octets;
}

// --- Writer

void Scripteur_de_cases::échouer(Cause cause) {
  if (!défaut_) défaut_ = {numéro_, cause};
}

void Scripteur_de_cases::case_suivante(std::string_view contenu) {
  std::array<char, taille_de_case> octets{};
  contenu.copy(octets.data(), octets.size());
  flux_.write(octets.data(), octets.size());
  if (!flux_) échouer(Cause::écriture);
}

void Scripteur_de_cases::entier16(std::int16_t valeur) {
  if (défaut_) return;
  ++numéro_;
  case_suivante(petit_boutiste(valeur));
}

void Scripteur_de_cases::entier32(std::int32_t valeur) {
  if (défaut_) return;
  ++numéro_;
  case_suivante(petit_boutiste(valeur));
}

void Scripteur_de_cases::booléen(bool valeur) {
  entier16(valeur ? vrai : faux);
}

void Scripteur_de_cases::paire(const Paire &valeur) {
  if (défaut_) return;
  ++numéro_;
  case_suivante(petit_boutiste(valeur.indice) + petit_boutiste(valeur.valeur));
}

std::string Scripteur_de_cases::octets_du_texte(std::string_view utf8, std::size_t plus_long) {
  const std::string octets = vers_windows_1252_au_mieux(utf8);
  if (octets.size() <= plus_long) return petit_boutiste(static_cast<std::int16_t>(octets.size())) + octets;
  échouer(Cause::trop_long);
  return {};
}

void Scripteur_de_cases::texte(std::string_view valeur) {
  if (défaut_) return;
  ++numéro_;
  const std::string octets = octets_du_texte(valeur, longueur_de_texte);
  if (!défaut_) case_suivante(octets);
}

void Scripteur_de_cases::score(const Enregistrement_score &valeur) {
  if (défaut_) return;
  ++numéro_;
  const std::string nom = octets_du_texte(valeur.nom, longueur_de_nom);
  if (!défaut_) case_suivante(nom + petit_boutiste(valeur.score) + petit_boutiste(valeur.niveau));
}

void Scripteur_de_cases::octets(std::string_view valeur) {
  entier32(static_cast<std::int32_t>(valeur.size()));
  for (; !défaut_ && !valeur.empty(); valeur.remove_prefix(std::min(taille_de_case, valeur.size()))) {
    ++numéro_;
    case_suivante(valeur.substr(0, taille_de_case));
  }
}

bool Scripteur_de_cases::terminer() {
  if (!défaut_ && !flux_.flush()) échouer(Cause::écriture);
  return !défaut_;
}

}  // namespace ardane
