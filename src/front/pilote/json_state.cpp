#include "front/pilote/json_state.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "front/pilote/json_values.h"
#include "front/pilote/numbers.h"

namespace ardane {
namespace {

/// A step of a path: a field's name, or an index.
struct Pas {
  std::string_view champ;
  std::optional<int> indice;
};

struct Bornes {
  std::string_view champ;
  int première, dernière;
};

constexpr int coordonnée_extrême = std::numeric_limits<std::int16_t>::max();

constexpr std::array bornes_des_champs = std::to_array<Bornes>({
    {"province", 0, nombre_provinces},
    {"ProvincesEnJeu", 0, nombre_provinces},
    {"ProvincesRestantes", 0, nombre_provinces},
    {"VillesEnJeu", 0, nombre_villes},
    {"VillesRestantes", 0, nombre_villes},
    {"RégionsEnJeu", 0, nombre_régions},
    {"RégionsRestantes", 0, nombre_régions},
    {"left", -coordonnée_extrême, coordonnée_extrême},
    {"top", -coordonnée_extrême, coordonnée_extrême},
    {"right", -coordonnée_extrême, coordonnée_extrême},
    {"bottom", -coordonnée_extrême, coordonnée_extrême},
});

[[noreturn]] void refuser(std::string_view chemin) {
  throw Refus("Chemin mal formé : « " + std::string(chemin) + " »");
}

/// The one or two indices between brackets, of which `reste` begins with the first.
void lire_indices(std::string_view &reste, std::string_view chemin, std::vector<Pas> &pas) {
  const auto fin = reste.find(')');
  if (fin == std::string_view::npos) refuser(chemin);
  std::string_view indices = reste.substr(1, fin - 1);
  reste.remove_prefix(fin + 1);
  for (bool encore = true; encore;) {
    const auto virgule = indices.find(',');
    const auto indice = lire_nombre<int>(indices.substr(0, virgule));
    if (!indice) refuser(chemin);
    pas.push_back({{}, indice});
    encore = virgule != std::string_view::npos;
    if (encore) indices.remove_prefix(virgule + 1);
  }
}

std::vector<Pas> lire_chemin(std::string_view chemin) {
  std::vector<Pas> pas;
  std::string_view reste = chemin;
  for (bool encore = true; encore;) {
    const auto fin = std::min(reste.find_first_of(".()"), reste.size());
    if (fin == 0) refuser(chemin);
    pas.push_back({reste.substr(0, fin), {}});
    reste.remove_prefix(fin);
    while (reste.starts_with('(')) lire_indices(reste, chemin, pas);
    encore = reste.starts_with('.');
    if (encore) reste.remove_prefix(1);
  }
  if (!reste.empty()) refuser(chemin);
  return pas;
}

std::string nom_du_pas(const Pas &pas) {
  return pas.indice ? "l'indice " + std::to_string(*pas.indice) : "« " + std::string(pas.champ) + " »";
}

/// Calls `action` with the variable at the end of a path.
template <class T, class Action>
void suivre(T &variable, const Pas *pas, const Pas *fin, const Action &action) {
  using Forme = Tableau<std::remove_const_t<T>>;
  if (pas == fin) {
    action(variable);
    return;
  }
  if constexpr (Forme::est_tableau) {
    if (pas->indice) {
      const int dernier = Forme::dernier(variable);
      if (*pas->indice < Forme::premier || *pas->indice > dernier)
        throw Refus("Indice " + std::to_string(*pas->indice) + " hors des bornes " +
                    std::to_string(Forme::premier) + " à " + std::to_string(dernier));
      suivre(Forme::élément(variable, *pas->indice), pas + 1, fin, action);
      return;
    }
  } else if constexpr (Fiche<T>) {
    bool trouvé = false;
    décrire(variable, [&](std::string_view nom, auto &champ) {
      if (trouvé || pas->indice || nom != pas->champ) return;
      trouvé = true;
      suivre(champ, pas + 1, fin, action);
    });
    if (trouvé) return;
  }
  throw Refus("Aucune variable ne répond à " + nom_du_pas(*pas));
}

template <class G, class Action>
void au_bout(G &g, std::string_view chemin, const Action &action) {
  const std::vector<Pas> pas = lire_chemin(chemin);
  suivre(g, pas.data(), pas.data() + pas.size(), action);
}

}  // namespace

void exiger_dans_les_bornes(std::string_view champ, const Json &json) {
  const auto bornes = std::ranges::find(bornes_des_champs, champ, &Bornes::champ);
  if (bornes == bornes_des_champs.end() || !json.is_number()) return;
  const auto nombre = json.get<double>();
  if (nombre < bornes->première || nombre > bornes->dernière)
    throw Refus("Le champ « " + std::string(champ) + " » va de " + std::to_string(bornes->première) + " à " +
                std::to_string(bornes->dernière));
}

Json état_json(const GameState &g) {
  return vers_json(g);
}

Json variable_json(const GameState &g, std::string_view chemin) {
  Json valeur;
  au_bout(g, chemin, [&](const auto &variable) { valeur = vers_json(variable); });
  return valeur;
}

void fixer_variable(GameState &g, std::string_view chemin, const Json &valeur) {
  if (const Pas dernier = lire_chemin(chemin).back(); !dernier.indice)
    exiger_dans_les_bornes(dernier.champ, valeur);
  au_bout(g, chemin, [&](auto &variable) {
    auto copie = variable;
    depuis_json(valeur, copie);
    variable = std::move(copie);
  });
}

}  // namespace ardane
