#include "core/game_state_fields.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace ardane {
namespace {

template <class Fiche>
std::vector<std::string> noms_des_champs(Fiche &fiche) {
  std::vector<std::string> noms;
  décrire(fiche, [&](const char *nom, auto &) { noms.emplace_back(nom); });
  return noms;
}

/// Stands for a value of any type.
struct Quelconque {
  template <class T>
  operator T() const;
};

template <class Fiche, std::size_t... I>
constexpr bool se_remplit_de(std::index_sequence<I...>) {
  return requires {
    Fiche{(static_cast<void>(I), Quelconque{})...};
  };
}

/// Number of the members of a plain structure: as many values as can stand between its braces, and no more.
template <class Fiche, std::size_t nombre = 0>
constexpr std::size_t nombre_de_membres() {
  static_assert(std::is_aggregate_v<Fiche>);
  if constexpr (se_remplit_de<Fiche>(std::make_index_sequence<nombre + 1>{}))
    return nombre_de_membres<Fiche, nombre + 1>();
  else
    return nombre;
}

/// As many names as members, each for a member of its own, in the order of the record: so none is left out.
template <class Fiche>
void attendre_tous_les_champs(std::size_t membres_sans_nom = 0) {
  const auto fiche = std::make_unique<Fiche>();
  std::set<std::string> noms;
  const char *fin = reinterpret_cast<const char *>(fiche.get());
  décrire(*fiche, [&](const char *nom, auto &variable) {
    EXPECT_TRUE(noms.insert(nom).second) << nom << " stands twice";
    const char *début = reinterpret_cast<const char *>(&variable);
    EXPECT_GE(début, fin) << nom << " stands out of the order of the record";
    fin = début + sizeof variable;
  });
  EXPECT_LE(fin, reinterpret_cast<const char *>(fiche.get()) + sizeof(Fiche));
  EXPECT_EQ(noms.size() + membres_sans_nom, nombre_de_membres<Fiche>()) << "a member has no name";
}

TEST(StateFields, EveryVariableOfTheStateHasItsName) {
  constexpr std::size_t ce_qui_se_calcule = 1;  // VillesParProvince
  attendre_tous_les_champs<GameState>(ce_qui_se_calcule);
}

TEST(StateFields, EveryFieldOfARecordHasItsName) {
  attendre_tous_les_champs<Fiche_province>();
  attendre_tous_les_champs<Fiche_région>();
  attendre_tous_les_champs<Fiche_ville>();
  attendre_tous_les_champs<Segment_carte>();
  attendre_tous_les_champs<Meilleur_score>();
  attendre_tous_les_champs<Fiche_mode>();
  attendre_tous_les_champs<Fiche_jeu>();
  attendre_tous_les_champs<Rect>();
}

TEST(StateFields, MembersAreCountedWhateverTheyAre) {
  struct Rien {};
  struct Mêlée {
    bool a = false;
    std::string b;
    Rect c;
    TableauDynamique<Rect, 0> d;
    Table<bool, 1, 3> e;
    double f = 0, g = 0;
  };
  EXPECT_EQ(nombre_de_membres<Rien>(), 0U);
  EXPECT_EQ(nombre_de_membres<Mêlée>(), 7U);
}

TEST(StateFields, AVariableCanBeSetByItsName) {
  const auto g = std::make_unique<GameState>();
  décrire(*g, [](std::string_view nom, auto &variable) {
    if constexpr (std::is_same_v<std::remove_cvref_t<decltype(variable)>, std::int16_t>)
      if (nom == "Niveau") variable = 3;
  });
  EXPECT_EQ(g->Niveau, 3);
}

TEST(StateFields, AConstantStateCanBeReadByName) {
  GameState état;
  état.Score = 999;
  const GameState &constant = état;
  int score = 0;
  décrire(constant, [&](std::string_view nom, const auto &variable) {
    if constexpr (std::is_same_v<std::remove_cvref_t<decltype(variable)>, std::int32_t>)
      if (nom == "Score") score = variable;
  });
  EXPECT_EQ(score, 999);
}

TEST(StateFields, TheFieldsOfARecordComeInItsOrder) {
  const Fiche_ville ville;
  EXPECT_EQ(noms_des_champs(ville), (std::vector<std::string>{"nom", "capitale", "province", "trouvée",
                                                              "trouvée_étape", "x", "y", "points_perdus"}));
}

TEST(GameState, AStageIsInTheOrderOfPlayAtAnyOfItsFourRanks) {
  GameState g;
  EXPECT_FALSE(Jeu_utilisé(g, étape_provinces));
  g.Ordre_jeux(4) = étape_régions;
  EXPECT_TRUE(Jeu_utilisé(g, étape_régions));
  EXPECT_FALSE(Jeu_utilisé(g, étape_villes));
}

}  // namespace
}  // namespace ardane
