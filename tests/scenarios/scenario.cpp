#include "scenario.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "front/pilote/numbers.h"

namespace ardane {
namespace {

using Sorte = Etape_scénario::Sorte;

struct Directive {
  std::string_view mot;
  Sorte sorte;
  bool avec_texte;
};

constexpr std::array directives = std::to_array<Directive>({
    {">", Sorte::commande, true},
    {"répéter", Sorte::répéter, true},
    {"relancer", Sorte::relancer, false},
    {"options", Sorte::options, true},
    {"fichier", Sorte::fichier, true},
    {"sans", Sorte::sans, true},
    {"présent", Sorte::présent, true},
    {"absent", Sorte::absent, true},
});

std::vector<std::string> mots_de(std::string_view texte) {
  std::vector<std::string> mots;
  while (!texte.empty()) {
    const auto fin = std::min(texte.find(' '), texte.size());
    if (fin > 0) mots.emplace_back(texte.substr(0, fin));
    texte.remove_prefix(std::min(fin + 1, texte.size()));
  }
  return mots;
}

class Lecteur {
 public:
  explicit Lecteur(std::istream &fichier) : fichier_(fichier) {}

  std::vector<Etape_scénario> lire() {
    for (std::string ligne; std::getline(fichier_, ligne);) {
      ++numéro_;
      if (ligne.ends_with('\r')) ligne.pop_back();
      prendre(ligne);
    }
    if (piles_.size() > 1) throw Scénario_illisible(numéro_, "il manque « fin » à une répétition");
    return std::move(piles_.front());
  }

 private:
  void prendre(const std::string &ligne) {
    if (ligne.empty() || ligne.starts_with('#')) return;
    if (ligne == "..." || ligne.starts_with('{'))
      attendre(Sorte::commande, ligne);
    else if (ligne == "|" || ligne.starts_with("| "))
      attendre(Sorte::fichier, ligne.substr(std::min<std::size_t>(2, ligne.size())));
    else if (ligne == "fin")
      finir_répétition();
    else
      ajouter(ligne);
  }

  /// A line that belongs to the step above it.
  void attendre(Sorte sorte, const std::string &ligne) {
    if (piles_.back().empty() || piles_.back().back().sorte != sorte)
      throw Scénario_illisible(numéro_, "cette ligne ne suit rien qui l'attende : " + ligne);
    piles_.back().back().attendu.push_back(ligne);
  }

  void finir_répétition() {
    if (piles_.size() == 1) throw Scénario_illisible(numéro_, "« fin » sans répétition");
    std::vector<Etape_scénario> étapes = std::move(piles_.back());
    piles_.pop_back();
    piles_.back().back().étapes = std::move(étapes);
  }

  void ajouter(const std::string &ligne) {
    const auto blanc = std::min(ligne.find(' '), ligne.size());
    const std::string_view mot = std::string_view(ligne).substr(0, blanc);
    const auto directive =
        std::find_if(directives.begin(), directives.end(), [&](const Directive &d) { return d.mot == mot; });
    const std::string texte = ligne.substr(std::min(blanc + 1, ligne.size()));
    if (directive == directives.end() || directive->avec_texte == texte.empty())
      throw Scénario_illisible(numéro_, "cette ligne n'a pas de sens : " + ligne);
    Etape_scénario étape;
    étape.sorte = directive->sorte;
    étape.ligne = numéro_;
    étape.texte = texte;
    if (étape.sorte == Sorte::options) étape.mots = mots_de(texte);
    if (étape.sorte == Sorte::répéter) étape.nombre = lire_nombre<int>(texte).value_or(0);
    if (étape.sorte == Sorte::répéter && étape.nombre < 1)
      throw Scénario_illisible(numéro_, "« " + texte + " » n'est pas un nombre de fois");
    piles_.back().push_back(std::move(étape));
    if (directive->sorte == Sorte::répéter) piles_.emplace_back();
  }

  std::istream &fichier_;
  int numéro_ = 0;
  std::vector<std::vector<Etape_scénario>> piles_{1};  ///< the innermost repetition last
};

}  // namespace

std::vector<Etape_scénario> lire_scénario(std::istream &fichier) {
  return Lecteur(fichier).lire();
}

}  // namespace ardane
