#include "armorial/blazon_words.h"

#include <algorithm>
#include <array>
#include <utility>

#include "armorial/blazon.h"

namespace atelier {
namespace {

constexpr std::array<std::string_view, 13> nombres{"",     "un",   "deux", "trois", "quatre", "cinq", "six",
                                                   "sept", "huit", "neuf", "dix",   "onze",   "douze"};

}  // namespace

std::vector<std::string> mots(std::string_view texte) {
  std::vector<std::string> result;
  std::string mot;
  const auto finir = [&] {
    if (!mot.empty()) result.push_back(std::exchange(mot, {}));
  };
  for (const char c : texte) {
    if (c == ' ' || c == '\t') {
      finir();
    } else if (c == '\'') {
      mot += c;
      finir();
    } else if (c == ',' || c == ';' || c == ':') {
      finir();
      result.emplace_back(1, c);
    } else {
      mot += c;
    }
  }
  finir();
  return result;
}

bool s_accorde(std::string_view mot, std::string_view adjectif) {
  if (!mot.starts_with(adjectif)) return false;
  const std::string_view fin = mot.substr(adjectif.size());
  return fin.empty() || fin == "e" || fin == "s" || fin == "es";
}

std::optional<int> nombre_en_chiffres(std::string_view mot) {
  if (mot.size() != 1 || mot[0] < '1' || mot[0] > '9') return {};
  return mot[0] - '0';
}

std::string_view Mots_du_blason::mot(std::size_t ahead) const {
  return i_ + ahead < mots_.size() ? std::string_view(mots_[i_ + ahead]) : std::string_view();
}

bool Mots_du_blason::commence_par(const std::vector<std::string> &suite) const {
  return i_ + suite.size() <= mots_.size() &&
         std::equal(suite.begin(), suite.end(), mots_.begin() + static_cast<std::ptrdiff_t>(i_));
}

bool Mots_du_blason::prendre(std::string_view attendu) {
  if (mot() != attendu) return false;
  ++i_;
  return true;
}

bool Mots_du_blason::prendre_suite(std::initializer_list<std::string_view> suite) {
  std::size_t ahead = 0;
  for (const std::string_view attendu : suite)
    if (mot(ahead++) != attendu) return false;
  i_ += suite.size();
  return true;
}

bool Mots_du_blason::prendre_adjectif(std::string_view adjectif) {
  if (!s_accorde(mot(), adjectif)) return false;
  ++i_;
  return true;
}

std::optional<int> Mots_du_blason::prendre_nombre() {
  if (const auto chiffre = nombre_en_chiffres(mot())) {
    ++i_;
    return chiffre;
  }
  if (prendre("une")) return 1;
  const auto found = std::find(nombres.begin() + 1, nombres.end(), mot());
  if (found == nombres.end()) return {};
  ++i_;
  return static_cast<int>(found - nombres.begin());
}

void Mots_du_blason::exiger(std::string_view attendu) {
  if (!prendre(attendu)) échouer("expected \"" + std::string(attendu) + "\"");
}

void Mots_du_blason::échouer(const std::string &raison) const {
  const std::string place = fini() ? "at the end" : "at \"" + mots_[i_] + "\"";
  throw Erreur_de_blason("\"" + std::string(texte_) + "\": " + raison + ' ' + place);
}

}  // namespace atelier
