#include "front/pilote/json_controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ardane {
namespace {

using ::testing::ElementsAre;

class Contrôles_lus : public ::testing::Test {
 protected:
  Contrôle &ajouter(const std::string &nom, Genre genre, Contrôle *conteneur = nullptr) {
    Contrôle contrôle;
    contrôle.nom = nom;
    contrôle.genre = genre;
    contrôle.conteneur = conteneur;
    return fenêtre.ajouter(std::move(contrôle));
  }
  Json lire(const Contrôle &contrôle) { return contrôle_json(fenêtre, contrôle, images); }
  std::vector<std::string> ordre() {
    std::vector<std::string> noms;
    for (const Json &contrôle : contrôles_json(fenêtre, images)) noms.push_back(contrôle["nom"]);
    return noms;
  }
  static std::vector<std::string> clés(const Json &json) {
    std::vector<std::string> noms;
    for (const auto &[clé, valeur] : json.items()) noms.push_back(clé);
    return noms;
  }

  Fenêtre fenêtre{"essai"};
  CatalogueImages images{"rond|rond.gif|20|21\nPays(12)|12.gif|30|31\n"};
};

TEST_F(Contrôles_lus, all_have_name_kind_state_place_and_rank) {
  Contrôle &étiquette = ajouter("Label1", Genre::étiquette);
  étiquette.gauche = 31;
  étiquette.haut = 29.5;
  étiquette.largeur = 103.2;
  étiquette.hauteur = 20;
  étiquette.actif = false;
  étiquette.texte = "Votre nom\n";
  étiquette.fond = Couleur{255, 171, 0};
  EXPECT_EQ(lire(étiquette).dump(),
            R"({"nom":"Label1","genre":"étiquette","visible":true,"actif":false,"gauche":31,"haut":29.5,)"
            R"("largeur":103.2,"hauteur":20,"plan":0,"texte":"Votre nom\n","infobulle":"","fond":"#FFAB00",)"
            R"("couleur":"système"})");
}

TEST_F(Contrôles_lus, the_picture_is_told_by_its_name_in_the_stock) {
  Contrôle &image = ajouter("rond(1)", Genre::image);
  EXPECT_TRUE(lire(image)["image"].is_null());
  image.image = images.chercher("Pays(12)");
  EXPECT_EQ(lire(image)["image"], "Pays(12)");
}

TEST_F(Contrôles_lus, each_kind_has_its_own_properties) {
  const std::vector<std::string> communes = {"nom",  "genre",   "visible", "actif", "gauche",
                                             "haut", "largeur", "hauteur", "plan"};
  const auto propres = [&](Genre genre) {
    std::vector<std::string> noms = clés(lire(ajouter("x", genre)));
    EXPECT_EQ(std::vector<std::string>(noms.begin(), noms.begin() + 9), communes);
    noms.erase(noms.begin(), noms.begin() + 9);
    return noms;
  };
  EXPECT_THAT(propres(Genre::image), ElementsAre("infobulle", "image"));
  EXPECT_THAT(propres(Genre::cadre), ElementsAre("texte", "infobulle", "fond", "couleur"));
  EXPECT_THAT(propres(Genre::texte), ElementsAre("texte", "infobulle", "fond", "couleur", "focus"));
  EXPECT_THAT(propres(Genre::bouton), ElementsAre("texte", "infobulle", "image", "fond", "couleur", "focus"));
  EXPECT_THAT(propres(Genre::case_à_cocher),
              ElementsAre("texte", "infobulle", "fond", "couleur", "coché", "focus"));
  EXPECT_THAT(propres(Genre::option), ElementsAre("texte", "infobulle", "fond", "couleur", "coché", "focus"));
  EXPECT_THAT(propres(Genre::liste),
              ElementsAre("infobulle", "fond", "couleur", "éléments", "choix", "focus"));
  EXPECT_THAT(propres(Genre::barre), ElementsAre("valeur", "min", "max", "petit_pas", "grand_pas", "focus"));
  EXPECT_THAT(propres(Genre::menu), ElementsAre("parent", "texte"));
  EXPECT_THAT(propres(Genre::boîte_image), ElementsAre("infobulle", "image", "fond", "couleur"));
  EXPECT_THAT(propres(Genre::vue), ElementsAre("fond", "couleur"));
}

TEST_F(Contrôles_lus, a_colour_of_the_desktops_is_no_number) {
  Contrôle &étiquette = ajouter("PerteVilles(1)", Genre::étiquette);
  étiquette.fond = Couleur_système::barre_de_défilement;
  EXPECT_EQ(lire(étiquette)["fond"], "système");
}

TEST_F(Contrôles_lus, a_text_keeps_its_ampersands_and_the_line_ends_of_the_data) {
  Contrôle &bouton = ajouter("bouton", Genre::bouton);
  bouton.texte = "Oui & non";
  bouton.mnémonique = U'o';
  EXPECT_EQ(lire(bouton)["texte"], "Oui & non");
  Contrôle &fiche = ajouter("fiche", Genre::texte);
  fiche.texte = "un\r\ndeux";
  EXPECT_EQ(lire(fiche)["texte"], "un\r\ndeux");
}

TEST_F(Contrôles_lus, lists_and_bars_tell_where_they_stand) {
  Contrôle &liste = ajouter("Fichier", Genre::liste);
  liste.éléments = {"un", "deux"};
  liste.choix = 2;
  EXPECT_EQ(lire(liste)["éléments"].dump(), R"(["un","deux"])");
  EXPECT_EQ(lire(liste)["choix"], 2);
  Contrôle &barre = ajouter("barre_h", Genre::barre);
  barre.max = 90;
  barre.valeur = 30;
  barre.petit_pas = 4;
  barre.grand_pas = 20;
  EXPECT_EQ(lire(barre)["valeur"], 30);
  EXPECT_EQ(lire(barre)["max"], 90);
  EXPECT_EQ(lire(barre)["petit_pas"], 4);
  EXPECT_EQ(lire(barre)["grand_pas"], 20);
}

TEST_F(Contrôles_lus, one_control_has_the_focus) {
  const Contrôle &un = ajouter("un", Genre::texte);
  Contrôle &deux = ajouter("deux", Genre::bouton);
  fenêtre.focus = &deux;
  EXPECT_EQ(lire(un)["focus"], false);
  EXPECT_EQ(lire(deux)["focus"], true);
}

TEST_F(Contrôles_lus, the_rank_is_that_in_the_stack_of_the_container) {
  Contrôle &cadre = ajouter("cadre", Genre::cadre);
  Contrôle &bas = ajouter("bas", Genre::bouton);
  Contrôle &dedans = ajouter("dedans", Genre::option, &cadre);
  Contrôle &dedans_aussi = ajouter("dedans aussi", Genre::option, &cadre);
  EXPECT_EQ(lire(cadre)["plan"], 0);
  EXPECT_EQ(lire(bas)["plan"], 1);
  EXPECT_EQ(lire(dedans)["plan"], 0);
  EXPECT_EQ(lire(dedans_aussi)["plan"], 1);
  fenêtre.au_premier_plan(cadre);
  EXPECT_EQ(lire(cadre)["plan"], 1);
  EXPECT_EQ(lire(bas)["plan"], 0);
  EXPECT_THAT(ordre(), ElementsAre("bas", "cadre", "dedans", "dedans aussi"));
}

TEST_F(Contrôles_lus, menu_entries_come_first_and_count_among_themselves) {
  ajouter("bouton", Genre::bouton);
  Contrôle &fichier = ajouter("menu_fichier", Genre::menu);
  ajouter("nouveau", Genre::menu, &fichier);
  Contrôle &quitter = ajouter("quitter", Genre::menu, &fichier);
  Contrôle &aide = ajouter("menu_aide", Genre::menu);
  EXPECT_THAT(ordre(), ElementsAre("menu_fichier", "nouveau", "quitter", "menu_aide", "bouton"));
  EXPECT_EQ(lire(quitter)["plan"], 1);
  EXPECT_EQ(lire(quitter)["parent"], "menu_fichier");
  EXPECT_EQ(lire(aide)["plan"], 1);
  EXPECT_TRUE(lire(aide)["parent"].is_null());
  EXPECT_EQ(lire(*fenêtre.chercher("bouton"))["plan"], 0);
}

TEST_F(Contrôles_lus, what_the_list_tells_is_what_each_control_tells) {
  Contrôle &cadre = ajouter("cadre", Genre::cadre);
  ajouter("dedans", Genre::option, &cadre);
  ajouter("entrée", Genre::menu);
  const Json liste = contrôles_json(fenêtre, images);
  ASSERT_EQ(liste.size(), 3U);
  for (const Json &contrôle : liste)
    EXPECT_EQ(contrôle, lire(*fenêtre.chercher(contrôle["nom"].get<std::string>())));
}

TEST_F(Contrôles_lus, a_window_tells_its_title_place_and_help) {
  fenêtre.titre = "Essai";
  fenêtre.gauche = 4.5;
  fenêtre.haut = 5;
  fenêtre.largeur = 312;
  fenêtre.hauteur = 303;
  fenêtre.contexte_aide = 20;
  EXPECT_EQ(
      fenêtre_json(fenêtre).dump(),
      R"({"nom":"essai","titre":"Essai","gauche":4.5,"haut":5,"largeur":312,"hauteur":303,"contexte_aide":20})");
}

}  // namespace
}  // namespace ardane
