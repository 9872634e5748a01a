// The runner of the scenarios: what it takes for right, what for wrong, and what it reports.
#include "scenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "chronicle.h"
#include "pattern.h"
#include "player.h"

namespace ardane {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

bool va(const std::string &motif, const std::string &reçu) {
  return correspond(Json::parse(motif), Json::parse(reçu));
}

TEST(Motif, an_object_may_have_more_than_the_pattern_tells) {
  EXPECT_TRUE(va(R"({"a":1})", R"({"b":2,"a":1})"));
  EXPECT_TRUE(va(R"({"a":{"b":1}})", R"({"a":{"b":1,"c":2}})"));
  EXPECT_TRUE(va("{}", R"({"a":1})"));
  EXPECT_FALSE(va(R"({"a":1})", R"({"a":2})"));
  EXPECT_FALSE(va(R"({"a":1})", R"({"b":1})"));
  EXPECT_FALSE(va(R"({"a":null})", "{}"));
  EXPECT_FALSE(va("{}", "[]"));
}

TEST(Motif, a_star_stands_for_any_value_that_is_there) {
  EXPECT_TRUE(va(R"({"a":"*"})", R"({"a":{"b":1}})"));
  EXPECT_TRUE(va(R"(["*",2])", "[null,2]"));
  EXPECT_FALSE(va(R"({"a":"*"})", "{}"));
  EXPECT_FALSE(va(R"({"a":"x*"})", R"({"a":"xy"})"));
}

TEST(Motif, all_else_must_be_equal) {
  EXPECT_TRUE(va("[1,{\"a\":1}]", "[1,{\"a\":1,\"b\":2}]"));
  EXPECT_FALSE(va("[1]", "[1,2]"));
  EXPECT_FALSE(va("[1,2]", "[1]"));
  EXPECT_FALSE(va("[]", "{}"));
  EXPECT_FALSE(va("\"a...\"", "\"abc\""));
  EXPECT_FALSE(va("1", "\"1\""));
}

bool vont(const std::vector<std::string> &motifs, const std::vector<std::string> &lignes) {
  std::vector<Json> lues;
  for (const std::string &ligne : lignes) lues.push_back(Json::parse(ligne));
  return réponse_attendue(motifs, lues);
}

const std::string un = R"({"son":"un"})", deux = R"({"son":"deux"})", attend = R"({"attend":"rien"})";

TEST(Réponse_attendue, all_lines_must_be_told_in_their_order) {
  EXPECT_TRUE(vont({un, deux, attend}, {un, deux, attend}));
  EXPECT_FALSE(vont({deux, un, attend}, {un, deux, attend}));
  EXPECT_FALSE(vont({un, attend}, {un, deux, attend}));
  EXPECT_FALSE(vont({un, deux, attend}, {un, attend}));
}

TEST(Réponse_attendue, what_waits_need_not_be_told) {
  EXPECT_TRUE(vont({un}, {un, attend}));
  EXPECT_FALSE(vont({un}, {un, deux, attend}));
  EXPECT_FALSE(vont({un, R"({"attend":"boîte"})"}, {un, attend}));
}

TEST(Réponse_attendue, dots_stand_for_any_number_of_lines) {
  EXPECT_TRUE(vont({"..."}, {attend}));
  EXPECT_TRUE(vont({"...", deux}, {un, deux, attend}));
  EXPECT_TRUE(vont({"...", deux, "..."}, {deux, attend}));
  EXPECT_FALSE(vont({"...", deux}, {deux, un, attend}));
  EXPECT_FALSE(vont({un, "...", un}, {un, attend}));
}

TEST(Réponse_attendue, with_nothing_told_a_command_must_only_be_carried_out) {
  EXPECT_TRUE(vont({}, {un, deux, attend}));
  EXPECT_TRUE(vont({}, {}));
  EXPECT_FALSE(vont({}, {R"({"erreur":"non"})", attend}));
  EXPECT_FALSE(vont({}, {R"({"fatale":"non"})", attend}));
}

std::vector<Etape_scénario> lire(const std::string &texte) {
  std::istringstream flux(texte);
  return lire_scénario(flux);
}

TEST(Lecture_de_scénario, keeps_commands_with_what_is_expected) {
  const auto étapes = lire("# commentaire\n\n> texte nom  a \n...\n{\"son\":\"x\"}\n> fermer\r\n");
  ASSERT_EQ(étapes.size(), 2U);
  EXPECT_EQ(étapes[0].texte, "texte nom  a ");
  EXPECT_EQ(étapes[0].ligne, 3);
  EXPECT_THAT(étapes[0].attendu, ElementsAre("...", "{\"son\":\"x\"}"));
  EXPECT_EQ(étapes[1].texte, "fermer");
}

TEST(Lecture_de_scénario, keeps_repetitions_in_repetitions) {
  const auto étapes = lire("répéter 2\n> a\nrépéter 3\n> b\nfin\nfin\n> c\n");
  ASSERT_EQ(étapes.size(), 2U);
  EXPECT_EQ(étapes[0].nombre, 2);
  ASSERT_EQ(étapes[0].étapes.size(), 2U);
  EXPECT_EQ(étapes[0].étapes[1].nombre, 3);
  EXPECT_EQ(étapes[0].étapes[1].étapes[0].texte, "b");
}

TEST(Lecture_de_scénario, refuses_lines_that_make_no_sense) {
  for (const char *texte :
       {"bonjour\n", "{\"son\":\"x\"}\n", "...\n", "| ligne\n", ">\n", "fin\n", "répéter 2\n> a\n",
        "répéter 0\nfin\n", "répéter deux\nfin\n", "relancer vite\n", "> a\n| ligne\n"})
    EXPECT_THROW(lire(texte), Scénario_illisible) << texte;
}

std::string jouer(const std::string &texte) {
  try {
    Joueur(ARDANE_RESOURCES).jouer(lire(texte));
  } catch (const Scénario_démenti &démenti) {
    return démenti.what();
  }
  return {};
}

TEST(Joueur_de_scénario, is_content_with_a_game_that_goes_as_told) {
  EXPECT_EQ(
      jouer("> fenêtres\n{\"fenêtres\":[]}\n{\"attend\":\"rien\"}\n> chanter\n{\"erreur\":\"La commande "
            "« chanter » est inconnue\"}\n"),
      "");
}

TEST(Joueur_de_scénario, tells_where_a_game_went_otherwise) {
  EXPECT_THAT(
      jouer("# titre\n> fenêtres\n{\"fenêtres\":[\"Stats\"]}\n"),
      AllOf(StartsWith("ligne 2\n  > fenêtres\n"), HasSubstr("attendu :\n    {\"fenêtres\":[\"Stats\"]}\n"),
            HasSubstr("reçu :\n    {\"fenêtres\":[]}\n    {\"attend\":\"rien\"}\n")));
  EXPECT_THAT(jouer("> chanter\n"), HasSubstr("(ni erreur ni fatale)"));
  EXPECT_THAT(jouer("répéter 3\n> fixer Score {état Niveau}\n> état Score\n{\"état\":1}\nfin\n"),
              StartsWith("ligne 3, tour 1 de 3\n"));
}

TEST(Joueur_de_scénario, says_what_stands_in_braces) {
  EXPECT_EQ(jouer("> fixer Nom_joueur \"{dossier}/ici\"\n> état Nom_joueur\n{\"état\":\"{dossier}/ici\"}\n"
                  "> fixer Score 5\n> fixer Niveau {état Score}\n> état Niveau\n{\"état\":5}\n"),
            "");
}

TEST(Joueur_de_scénario, each_start_takes_the_options_and_finds_the_files) {
  EXPECT_EQ(
      jouer(
          "options --registre {dossier}/autre\n> registre Clé | nom | texte\n"
          "présent autre\nabsent registre\nrelancer\n> "
          "registre\n{\"registre\":{\"Clé\":{\"nom\":\"texte\"}}}\n"
          "fichier page.htm\n| une\n|\n> page page.htm\nprésent page.htm\nsans page.htm\nabsent page.htm\n"),
      "");
  EXPECT_THAT(jouer("présent rien\n"), HasSubstr("rien n'est pas là"));
  EXPECT_THAT(jouer("absent programme\n"), HasSubstr("programme est là"));
}

TEST(Joueur_de_scénario, knows_the_provinces_of_a_region) {
  const std::string début = "> démarrer\n> répondre ok\n> répondre ok\n> menu menu_définir\n";
  const std::string clic = "> clic_carte {province de Port-Auréal}\n{\"son\":\"carte_ok.wav\"}\n";
  EXPECT_EQ(jouer(début + clic + "> état TableProvinces(107).trouvée\n{\"état\":true}\n"), "");
  EXPECT_THROW(jouer(début + clic + clic), std::runtime_error) << "it has but one";
  EXPECT_THROW(jouer(début + "> clic_carte {province de Nulle-Part}\n"), std::runtime_error);
}

TEST(Joueur_de_scénario, knows_the_answers) {
  const std::string début =
      "> démarrer\n> répondre ok\n> répondre ok\n> menu fichier_nouveau\n> texte boîte_nom_joueur Ann\n> "
      "clic "
      "bouton_sortie\n";
  EXPECT_EQ(jouer(début + "> clic_carte {mauvaise réponse}\n{\"son\":\"carte_er.wav\"}\n"
                          "> clic_carte {bonne réponse}\n{\"son\":\"carte_ok.wav\"}\n"),
            "");
  EXPECT_THROW(jouer("> clic_carte {bonne réponse}\n"), std::runtime_error);
}

TEST(Chronique, names_are_told_in_few_words) {
  EXPECT_EQ(énumérer({"Pays(3)", "carte", "Pays(1)", "Reste(1)", "Pays(2)", "Pays(7)"}),
            "carte, Pays(1-3), Pays(7), Reste(1)");
}

TEST(Chronique, as_few_as_can_be_have_been_moved) {
  EXPECT_THAT(déplacés({"a", "b", "c", "d"}, {"a", "c", "d", "b"}), ElementsAre("b"));
  EXPECT_THAT(déplacés({"a", "b", "c", "d"}, {"d", "a", "b", "c"}), ElementsAre("d"));
  EXPECT_THAT(déplacés({"a", "b"}, {"a", "neuf", "b"}), ElementsAre());
  EXPECT_THAT(déplacés({"a", "b"}, {"b"}), ElementsAre());
}

class Chronique_d_une_fenêtre : public testing::Test {
 protected:
  Contrôle &ajouter(const std::string &nom) { return fenêtre.ajouter({.nom = nom}); }
  std::vector<std::string> noter() { return chronique.noter({&fenêtre}); }
  void SetUp() override {
    ajouter("décor");
    noter();
  }

  const CatalogueImages images;
  Chronique chronique{images, "/tmp/x", "{dossier}"};
  Fenêtre fenêtre{"fenêtre"};
};

TEST_F(Chronique_d_une_fenêtre, tells_what_comes_changes_and_goes) {
  Contrôle &nom = ajouter("nom");
  nom.texte = "/tmp/x/Ann";
  EXPECT_THAT(noter(), ElementsAre("paraît : nom", "texte \"\" → \"{dossier}/Ann\" : nom"));
  EXPECT_THAT(noter(), ElementsAre());
  nom.visible = false;
  nom.texte = "Zoé";
  EXPECT_THAT(noter(), ElementsAre("disparaît : nom"));
  nom.visible = true;
  EXPECT_THAT(noter(), ElementsAre("paraît : nom", "texte \"{dossier}/Ann\" → \"Zoé\" : nom"));
  fenêtre.retirer(nom);
  EXPECT_THAT(noter(), ElementsAre("disparaît : nom"));
}

TEST_F(Chronique_d_une_fenêtre, tells_what_lies_on_what) {
  ajouter("dessous");
  Contrôle &milieu = ajouter("milieu");
  ajouter("dessus");
  ajouter("tout en haut");
  noter();
  fenêtre.au_premier_plan(milieu);
  EXPECT_THAT(noter(), ElementsAre("posé sur tout en haut : milieu"));
}

TEST_F(Chronique_d_une_fenêtre, tells_of_many_that_change_alike_or_each_in_its_own_way_at_once) {
  std::vector<Contrôle *> tous;
  for (int i = 1; i <= 20; ++i) tous.push_back(&ajouter("ville(" + std::to_string(i) + ")"));
  noter();
  for (Contrôle *c : tous) c->actif = false;
  EXPECT_THAT(noter(), ElementsAre("actif oui → non : ville(1-20)"));
  for (Contrôle *c : tous) c->valeur = static_cast<int>(c->nom.size() + c->plan);
  const auto lignes = noter();
  EXPECT_THAT(lignes, ElementsAre(AllOf(StartsWith("valeur changé, somme "), HasSubstr(" : ville(1-20)"))));
}

TEST_F(Chronique_d_une_fenêtre, tells_in_what_order_things_lie_at_first) {
  const auto somme = [this](const std::vector<std::string> &noms) {
    Fenêtre autre("autre");
    for (const std::string &nom : noms) autre.ajouter({.nom = nom});
    for (const std::string &ligne : chronique.noter({&autre}))
      if (ligne.starts_with("empilés")) return ligne.substr(0, ligne.find(" : "));
    return std::string();
  };
  const std::string un_deux = somme({"un", "deux"});
  noter();
  const std::string deux_un = somme({"deux", "un"});
  EXPECT_NE(un_deux, "");
  EXPECT_NE(un_deux, deux_un);
}

TEST_F(Chronique_d_une_fenêtre, names_the_window_where_it_is_not_the_one_on_top) {
  ajouter("nom");
  Fenêtre autre("autre");
  EXPECT_THAT(chronique.noter({&fenêtre, &autre}), Contains("fenêtre | paraît : nom"));
}

}  // namespace
}  // namespace ardane
