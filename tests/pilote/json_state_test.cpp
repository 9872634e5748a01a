#include "front/pilote/json_state.h"

#include <gtest/gtest.h>

#include <memory>

#include "front/pilote/refusal.h"

namespace ardane {
namespace {

class Variables : public ::testing::Test {
 protected:
  Json lire(const std::string &chemin) { return variable_json(g, chemin); }
  void fixer(const std::string &chemin, const std::string &valeur) {
    fixer_variable(g, chemin, Json::parse(valeur));
  }
  std::unique_ptr<GameState> état = std::make_unique<GameState>();
  GameState &g = *état;
};

TEST_F(Variables, are_read_by_name_in_their_own_kind) {
  g.Score = -12;
  g.Nom_joueur = "Zoé";
  g.SonActif = true;
  g.Largeur_image_cible = 103.5;
  g.Nombre_langues = 2;
  EXPECT_EQ(lire("Score").dump(), "-12");
  EXPECT_EQ(lire("Nom_joueur").dump(), "\"Zoé\"");
  EXPECT_EQ(lire("SonActif").dump(), "true");
  EXPECT_EQ(lire("Largeur_image_cible").dump(), "103.5");
  EXPECT_EQ(lire("Nombre_langues").dump(), "2");
}

TEST_F(Variables, records_are_objects_in_the_order_of_their_fields) {
  g.Rect_carte = {1, 2, 3, 4};
  EXPECT_EQ(lire("Rect_carte").dump(), R"({"left":1,"top":2,"right":3,"bottom":4})");
  EXPECT_EQ(lire("Rect_carte.left").dump(), "1");
}

TEST_F(Variables, arrays_begin_at_0_with_null_where_they_have_no_index) {
  for (int i = 1; i <= 4; ++i) g.Ordre_jeux(i) = static_cast<std::int16_t>(10 * i);
  EXPECT_EQ(lire("Ordre_jeux").dump(), "[null,10,20,30,40]");
  EXPECT_EQ(lire("Ordre_jeux(4)").dump(), "40");
  g.Nombre_scores(0) = 5;
  EXPECT_EQ(lire("Nombre_scores").dump(), "[5,0,0,0,0]");
}

TEST_F(Variables, arrays_that_grow_have_the_indices_of_the_moment) {
  EXPECT_EQ(lire("TableJeux").dump(), "[]");
  EXPECT_EQ(lire("SélectionRégion").dump(), "[]");
  g.TableJeux.dimensionner(1);
  g.TableJeux(1).clé = "Ardane";
  EXPECT_EQ(lire("TableJeux").size(), 2U);
  EXPECT_TRUE(lire("TableJeux")[0].is_null());
  EXPECT_EQ(lire("TableJeux(1).clé"), "Ardane");
  EXPECT_THROW(lire("TableJeux(0)"), Refus);
  EXPECT_THROW(lire("TableJeux(2)"), Refus);
}

TEST_F(Variables, arrays_of_two_indices_take_both_in_one_pair_of_brackets) {
  g.Meilleurs_scores(1, 3) = {"Ann", 999};
  EXPECT_EQ(lire("Meilleurs_scores(1,3)").dump(), R"({"nom":"Ann","score":999})");
  EXPECT_EQ(lire("Meilleurs_scores(1,3).nom"), "Ann");
  EXPECT_EQ(lire("Meilleurs_scores").size(), 5U);
  EXPECT_EQ(lire("Meilleurs_scores")[1].size(), 11U);
  EXPECT_EQ(lire("Meilleurs_scores")[1][3]["score"], 999);
}

TEST_F(Variables, paths_go_through_arrays_in_records_in_arrays) {
  g.TableProvinces(12).points_perdus(4) = 77;
  EXPECT_EQ(lire("TableProvinces(12).points_perdus(4)"), 77);
  EXPECT_EQ(lire("TableProvinces")[12]["points_perdus"][4], 77);
}

TEST_F(Variables, all_of_them_stand_in_one_object) {
  const Json tout = état_json(g);
  EXPECT_TRUE(tout.is_object());
  EXPECT_EQ(tout["TableVilles"].size(), 331U);
  EXPECT_EQ(tout["Points_segments"][0].size(), 5833U);
  EXPECT_TRUE(tout.contains("Son_système_question"));
}

TEST_F(Variables, paths_that_lead_nowhere_are_refused) {
  for (const char *chemin : {"",
                             "Inconnue",
                             "score",
                             "Score(1)",
                             "Score.x",
                             "Rect_carte.gauche",
                             "TableProvinces.nom",
                             "TableProvinces(111)",
                             "TableProvinces(-1)",
                             "Ordre_jeux(0)",
                             "Ordre_jeux(5)",
                             "TableProvinces(12",
                             "TableProvinces(12))",
                             "TableProvinces(a)",
                             "TableProvinces()",
                             "TableProvinces(1,2)",
                             "Meilleurs_scores(1,11)",
                             "Meilleurs_scores(1,)",
                             "Score.",
                             ".Score",
                             "Score ",
                             "TableProvinces(12)nom",
                             "TableProvinces(12)..nom"})
    EXPECT_THROW(lire(chemin), Refus) << chemin;
}

TEST_F(Variables, paths_of_no_form_are_told_as_such) {
  for (const std::string chemin :
       {"", "TableProvinces(12", "TableProvinces(12))", "TableProvinces(a)", "TableProvinces()",
        "Meilleurs_scores(1,)", "Score.", ".Score", "TableProvinces(12)nom", "TableProvinces(12)..nom"})
    try {
      lire(chemin);
      ADD_FAILURE() << chemin;
    } catch (const Refus &refus) {
      EXPECT_EQ(std::string(refus.what()), "Chemin mal formé : « " + chemin + " »");
    }
}

TEST_F(Variables, are_set_by_values_of_their_own_kind) {
  fixer("Score", "-5");
  fixer("Nom_joueur", R"("Zoé\n")");
  fixer("SonActif", "true");
  fixer("Largeur_image_cible", "12");
  fixer("TableProvinces(12).trouvée", "true");
  fixer("Meilleurs_scores(1,3).score", "8");
  EXPECT_EQ(g.Score, -5);
  EXPECT_EQ(g.Nom_joueur, "Zoé\n");
  EXPECT_TRUE(g.SonActif);
  EXPECT_EQ(g.Largeur_image_cible, 12);
  EXPECT_TRUE(g.TableProvinces(12).trouvée);
  EXPECT_EQ(g.Meilleurs_scores(1, 3).score, 8);
}

TEST_F(Variables, numbers_keep_to_the_range_of_their_variable) {
  fixer("Niveau", "32767");
  fixer("Niveau", "-32768");
  fixer("Nombre_langues", "255");
  fixer("Score", "2147483647");
  EXPECT_THROW(fixer("Niveau", "32768"), Refus);
  EXPECT_THROW(fixer("Niveau", "-32769"), Refus);
  EXPECT_THROW(fixer("Nombre_langues", "256"), Refus);
  EXPECT_THROW(fixer("Nombre_langues", "-1"), Refus);
  EXPECT_THROW(fixer("Score", "2147483648"), Refus);
  EXPECT_THROW(fixer("Score", "18446744073709551615"), Refus);
  EXPECT_EQ(g.Niveau, -32768);
  EXPECT_EQ(g.Nombre_langues, 255);
  EXPECT_EQ(g.Score, 2147483647);
}

TEST_F(Variables, values_of_another_kind_are_refused) {
  EXPECT_THROW(fixer("Score", "1.5"), Refus);
  EXPECT_THROW(fixer("Score", "\"1\""), Refus);
  EXPECT_THROW(fixer("Score", "true"), Refus);
  EXPECT_THROW(fixer("Score", "null"), Refus);
  EXPECT_THROW(fixer("SonActif", "1"), Refus);
  EXPECT_THROW(fixer("Nom_joueur", "1"), Refus);
  EXPECT_THROW(fixer("Largeur_image_cible", "\"large\""), Refus);
  EXPECT_THROW(fixer("Rect_carte", "[1,2,3,4]"), Refus);
  EXPECT_THROW(fixer("Ordre_jeux", "{}"), Refus);
}

TEST_F(Variables, whole_records_and_arrays_can_be_set) {
  fixer("Rect_carte", R"({"left":1,"top":2,"right":3,"bottom":4})");
  EXPECT_EQ(g.Rect_carte, (Rect{1, 2, 3, 4}));
  fixer("Rect_carte", R"({"top":9})");
  EXPECT_EQ(g.Rect_carte, (Rect{1, 9, 3, 4}));
  fixer("Ordre_jeux", "[null,4,3,2,1]");
  EXPECT_EQ(g.Ordre_jeux(1), 4);
  EXPECT_EQ(g.Ordre_jeux(4), 1);
  fixer("SélectionRégion", "[0,5,6]");
  EXPECT_EQ(g.SélectionRégion.dernier(), 2);
  EXPECT_EQ(g.SélectionRégion(2), 6);
  fixer("TableJeux", R"([null,{"clé":"Ardane"}])");
  EXPECT_EQ(g.TableJeux(1).clé, "Ardane");
}

TEST_F(Variables, what_is_read_can_be_set_again) {
  g.Meilleurs_scores(2, 10) = {"Zoé", 3};
  g.TableJeux.dimensionner(2);
  const Json avant = état_json(g);
  for (const auto &[nom, valeur] : avant.items()) fixer_variable(g, nom, valeur);
  EXPECT_EQ(état_json(g), avant);
}

TEST_F(Variables, a_refused_value_changes_nothing) {
  g.Rect_carte = {1, 2, 3, 4};
  EXPECT_THROW(fixer("Rect_carte", R"({"left":7,"top":"x"})"), Refus);
  EXPECT_THROW(fixer("Rect_carte", R"({"left":7,"gauche":1})"), Refus);
  EXPECT_EQ(g.Rect_carte, (Rect{1, 2, 3, 4}));
  EXPECT_THROW(fixer("Ordre_jeux", "[null,1,2,3]"), Refus);
  EXPECT_THROW(fixer("Ordre_jeux", "[0,1,2,3,4]"), Refus);
  EXPECT_THROW(fixer("Ordre_jeux", "[null,1,2,3,70000]"), Refus);
  EXPECT_EQ(g.Ordre_jeux(1), 0);
  EXPECT_THROW(fixer("SélectionRégion", "[1,\"x\"]"), Refus);
  EXPECT_EQ(g.SélectionRégion.dernier(), -1);
}

}  // namespace
}  // namespace ardane
