#include "core/string_table.h"

#include <algorithm>
#include <charconv>

#include "platform/text.h"

namespace ardane {
namespace {

std::string sans_échappement(std::string_view texte) {
  std::string clair;
  clair.reserve(texte.size());
  for (std::size_t barre = texte.find('\\'); barre != std::string_view::npos; barre = texte.find('\\')) {
    const std::string_view après = texte.substr(barre + 1);
    const bool échappé = après.starts_with('n') || après.starts_with('\\');
    clair.append(texte, 0, barre).push_back(échappé && après.front() == 'n' ? '\n' : '\\');
    texte = après.substr(échappé ? 1 : 0);
  }
  return clair.append(texte);
}

}  // namespace

TableChaînes::TableChaînes(std::string_view source) {
  entrées_.reserve(static_cast<std::size_t>(std::count(source.begin(), source.end(), '\n')) + 1);
  while (!source.empty()) {
    std::string_view ligne = couper(source, '\n');
    if (!ligne.empty() && ligne.back() == '\r') ligne.remove_suffix(1);
    const auto tabulation = ligne.find('\t');
    if (tabulation == std::string_view::npos) continue;
    int numéro = 0;
    const char *fin_nombre = ligne.data() + tabulation;
    const auto lu = std::from_chars(ligne.data(), fin_nombre, numéro);
    if (lu.ec != std::errc{} || lu.ptr != fin_nombre) continue;
    entrées_.push_back({numéro, sans_échappement(ligne.substr(tabulation + 1))});
  }
  std::stable_sort(entrées_.begin(), entrées_.end(),
                   [](const Entrée &a, const Entrée &b) { return a.numéro < b.numéro; });
}

const std::string &TableChaînes::chaîne(int numéro) const {
  static const std::string vide;
  const auto après = std::upper_bound(entrées_.begin(), entrées_.end(), numéro,
                                      [](int n, const Entrée &e) { return n < e.numéro; });
  return après == entrées_.begin() || std::prev(après)->numéro != numéro ? vide : std::prev(après)->texte;
}

std::string_view Champ_ligne(std::string_view ligne, int n) {
  for (int rang = 1; n >= 1; ++rang) {
    const auto séparateur = ligne.find('#');
    if (rang == n) return ligne.substr(0, séparateur);
    if (séparateur == std::string_view::npos) break;
    ligne.remove_prefix(séparateur + 1);
  }
  return {};
}

int nombre_en_tête(std::string_view champ) {
  constexpr int plus_grand = 32767;
  const auto début = champ.find_first_not_of(' ');
  if (début == std::string_view::npos) return 0;
  int nombre = 0;
  for (const char c : champ.substr(début)) {
    if (c < '0' || c > '9') break;
    nombre = nombre * 10 + (c - '0');
    if (nombre > plus_grand) return plus_grand;
  }
  return nombre;
}

}  // namespace ardane
