#include "core/game_state_fields.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace ardane {
namespace {

template <class Fiche>
std::vector<std::string> noms_des_champs(Fiche &fiche) {
  std::vector<std::string> noms;
  décrire(fiche, [&](const char *nom, auto &) { noms.emplace_back(nom); });
  return noms;
}

template <class Fiche>
void attendre_des_champs_distincts(Fiche &fiche) {
  std::set<std::string> noms;
  std::set<const void *> adresses;
  décrire(fiche, [&](const char *nom, auto &variable) {
    EXPECT_TRUE(noms.insert(nom).second) << nom << " stands twice";
    EXPECT_TRUE(adresses.insert(&variable).second) << nom << " names the variable of another";
  });
}

TEST(StateFields, EveryNameOfTheStateStandsForAVariableOfItsOwn) {
  const auto g = std::make_unique<GameState>();
  attendre_des_champs_distincts(*g);
}

TEST(StateFields, EveryNameOfARecordStandsForAFieldOfItsOwn) {
  Fiche_province province;
  Fiche_région région;
  Fiche_ville ville;
  Segment_carte segment;
  Meilleur_score score;
  Fiche_mode mode;
  Fiche_jeu jeu;
  Rect rect;
  attendre_des_champs_distincts(province);
  attendre_des_champs_distincts(région);
  attendre_des_champs_distincts(ville);
  attendre_des_champs_distincts(segment);
  attendre_des_champs_distincts(score);
  attendre_des_champs_distincts(mode);
  attendre_des_champs_distincts(jeu);
  attendre_des_champs_distincts(rect);
}

/// The fields follow each other without a gap up to `fin_des_champs`, the end of the record if none is given.
template <class Fiche>
void attendre_tous_les_champs(Fiche &fiche, const char *nom_fiche, const void *fin_des_champs = nullptr) {
  const char *fin = reinterpret_cast<const char *>(&fiche);
  décrire(fiche, [&](const char *nom, auto &variable) {
    const char *début = reinterpret_cast<const char *>(&variable);
    // Between two neighbours there is room for nothing but the alignment of the second.
    EXPECT_GE(début, fin) << nom_fiche << "." << nom << " stands out of the order of the record";
    EXPECT_LT(début - fin, static_cast<std::ptrdiff_t>(alignof(std::remove_reference_t<decltype(variable)>)))
        << "a field is left out before " << nom_fiche << "." << nom;
    fin = début + sizeof variable;
  });
  const char *fin_fiche = fin_des_champs == nullptr ? reinterpret_cast<const char *>(&fiche) + sizeof fiche
                                                    : static_cast<const char *>(fin_des_champs);
  EXPECT_LT(fin_fiche - fin, static_cast<std::ptrdiff_t>(alignof(Fiche))) << "a field is left out at the end";
}

TEST(StateFields, NoVariableOfTheStateIsLeftOut) {
  const auto g = std::make_unique<GameState>();
  attendre_tous_les_champs(*g, "GameState", &g->VillesParProvince);
}

TEST(StateFields, NoFieldOfARecordIsLeftOut) {
  Fiche_province province;
  Fiche_région région;
  Fiche_ville ville;
  Segment_carte segment;
  Meilleur_score score;
  Fiche_mode mode;
  Fiche_jeu jeu;
  attendre_tous_les_champs(province, "Fiche_province");
  attendre_tous_les_champs(région, "Fiche_région");
  attendre_tous_les_champs(ville, "Fiche_ville");
  attendre_tous_les_champs(segment, "Segment_carte");
  attendre_tous_les_champs(score, "Meilleur_score");
  attendre_tous_les_champs(mode, "Fiche_mode");
  attendre_tous_les_champs(jeu, "Fiche_jeu");
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
