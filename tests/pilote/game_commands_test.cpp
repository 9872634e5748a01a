// The commands that play the game itself: menus, the map, the timer, the settings, chance.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <utility>
#include <vector>

#include "core/paths.h"
#include "pilot_fixture.h"

namespace ardane {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

using Commandes_du_jeu = EssaiDuPilote;

TEST_F(Commandes_du_jeu, only_menu_entries_are_chosen_from_the_menu) {
  démarrer();
  EXPECT_EQ(dire("menu Carte").erreur(), "Le contrôle Carte est du genre vue, et non menu");
  EXPECT_EQ(dire("menu menu_fichier").texte(), "{\"attend\":\"Ecran_principal\"}\n");
}

TEST_F(Commandes_du_jeu, a_click_on_the_map_judges_the_answer) {
  jouer("niveau_facile");
  const int question = état("ProvinceCourante").get<int>();
  const int autre = question == 1 ? 2 : 1;
  const Réplique faux = dire("clic_carte " + point(autre));
  EXPECT_EQ(faux.texte(), "{\"son\":\"carte_er.wav\"}\n{\"attend\":\"Ecran_principal\"}\n");
  EXPECT_EQ(état("NbErreurs"), 1);
  const Réplique juste = dire("clic_carte " + point(question));
  EXPECT_EQ(juste.texte(), "{\"son\":\"carte_ok.wav\"}\n{\"attend\":\"Ecran_principal\"}\n");
  EXPECT_EQ(état("TableProvinces(" + std::to_string(question) + ").trouvée"), true);
}

TEST_F(Commandes_du_jeu, dessus_tells_what_the_click_will_reach) {
  jouer("niveau_facile");
  const std::string milieu = point(7);
  EXPECT_EQ(dire("dessus " + milieu).valeur("dessus"), "RondPref(7)");
  EXPECT_EQ(dire("dessus 0 0").valeur("dessus"), "image_région(0)");
  EXPECT_TRUE(dire("dessus 602 0").valeur("dessus").is_null());
  EXPECT_TRUE(dire("dessus -1 0").valeur("dessus").is_null());
  EXPECT_EQ(dire("dessus 1 x").erreur(), "« 1 x » n'est pas un point de la carte");
}

TEST_F(Commandes_du_jeu, only_pixels_in_view_can_be_clicked) {
  options.écran = {800, 600, 32};
  jouer("niveau_facile");
  const int visible_l = contrôle("Carte")["largeur"].get<int>();
  ASSERT_LT(visible_l, 602);
  EXPECT_EQ(dire("clic_carte " + std::to_string(visible_l) + " 10").erreur(),
            "Le point " + std::to_string(visible_l) + " 10 de la carte n'est pas en vue");
  EXPECT_EQ(dire("clic_carte " + std::to_string(visible_l - 1) + " 10").erreur(), "");
  dire("valeur barre_h 50");
  EXPECT_EQ(dire("clic_carte " + std::to_string(visible_l) + " 10").erreur(), "");
  EXPECT_THAT(dire("clic_carte 49 10").erreur(), HasSubstr("n'est pas en vue"));
  EXPECT_THAT(dire("clic_carte 10 661").erreur(), HasSubstr("n'est pas en vue"));
  for (const std::string barre : {"barre_v", "barre_h"}) {
    dire("valeur " + barre + " 9999");
    EXPECT_EQ(contrôle(barre)["focus"], true) << "as by a player's mouse";
  }
  EXPECT_EQ(dire("clic_carte 601 661").erreur(), "");
  EXPECT_THAT(dire("clic_carte 602 661").erreur(), HasSubstr("n'est pas en vue"));
  EXPECT_THAT(dire("clic_carte 601 662").erreur(), HasSubstr("n'est pas en vue"));
  EXPECT_EQ(dire("clic_carte un deux").erreur(), "« un » n'est pas un nombre entier");
}

TEST_F(Commandes_du_jeu, the_same_province_answers_at_every_scroll_position) {
  options.écran = {800, 600, 32};
  jouer("niveau_facile");
  const int question = état("ProvinceCourante").get<int>();
  dire("valeur barre_h 9999");
  dire("valeur barre_v 9999");
  Réplique réplique = dire("clic_carte " + point(question));
  if (!réplique.erreur().empty()) {
    dire("valeur barre_h 0");
    dire("valeur barre_v 0");
    réplique = dire("clic_carte " + point(question));
  }
  EXPECT_EQ(réplique.valeur("son"), "carte_ok.wav") << réplique.texte();
}

TEST_F(Commandes_du_jeu, the_cursor_decides_where_a_click_on_a_big_picture_falls) {
  jouer("niveau_facile");
  const int question = état("ProvinceCourante").get<int>();
  const std::string ville = "TableVilles(" + std::to_string(question) + ")";
  const int x = état(ville + ".x").get<int>() + 3 + état("Rect_carte.left").get<int>();
  const int y = état(ville + ".y").get<int>() + 4 + état("Rect_carte.top").get<int>();
  EXPECT_EQ(dire("curseur " + std::to_string(x) + " " + std::to_string(y)).texte(),
            "{\"attend\":\"Ecran_principal\"}\n");
  EXPECT_EQ(dire("clic image_région(0)").valeur("son"), "carte_ok.wav");
  EXPECT_EQ(dire("curseur 1").erreur(), "La commande curseur attend un argument de plus");
  EXPECT_EQ(dire("curseur 1 x").erreur(), "« x » n'est pas un nombre entier");
}

TEST_F(Commandes_du_jeu, ticks_make_a_hint_blink) {
  jouer("Niveau_apprentissage");
  const int question = état("ProvinceCourante").get<int>();
  dire("clic_carte " + point(question == 1 ? 2 : 1));
  ASSERT_EQ(dire("clic Bouton_gruge").erreur(), "");
  const std::string couche = "Pays(" + std::to_string(question) + ")";
  EXPECT_EQ(dire("tic 1").texte(), "{\"attend\":\"Ecran_principal\"}\n");
  const bool avant = contrôle(couche)["visible"].get<bool>();
  dire("tic 1");
  EXPECT_EQ(contrôle(couche)["visible"], !avant);
  dire("tic 2");
  EXPECT_EQ(contrôle(couche)["visible"], !avant);
  dire("tic 0");
  EXPECT_EQ(contrôle(couche)["visible"], !avant);
  EXPECT_EQ(dire("tic -1").erreur(), "« -1 » n'est pas un nombre de battements");
  EXPECT_EQ(dire("tic beaucoup").erreur(), "« beaucoup » n'est pas un nombre de battements");
}

TEST_F(Commandes_du_jeu, f1_opens_the_help_of_the_window_on_top) {
  démarrer();
  const Json aide = dire("touche F1").valeur("aide");
  EXPECT_EQ(aide["contexte"], 10);
  EXPECT_EQ(aide["fichier"], dossier.chemin("programme/ARDANE.HLP"));
  dire("menu fichier_nouveau");
  EXPECT_EQ(dire("touche F1").valeur("aide")["contexte"], 20);
  EXPECT_EQ(dire("touche F2").erreur(), "La touche « F2 » est inconnue");
}

TEST_F(Commandes_du_jeu, foreseen_draws_choose_the_question) {
  démarrer();
  EXPECT_EQ(dire("hasard 0").texte(), "{\"attend\":\"Ecran_principal\"}\n");
  dire("hasard 0.999999 0.5");
  dire("menu fichier_nouveau");
  dire("texte boîte_nom_joueur Ann");
  dire("clic bouton_sortie");
  EXPECT_EQ(état("ProvinceCourante"), 1);
  dire("clic_carte " + point(1));
  EXPECT_EQ(état("ProvinceCourante"), 110);
}

TEST_F(Commandes_du_jeu, only_draws_below_1_are_taken_and_all_or_none) {
  démarrer();
  for (const char *tirages : {"1", "-0.1", "0.5 x", "0,5", "nan", "0.5 2", "0.5  0.5"})
    EXPECT_THAT(dire(std::string("hasard ") + tirages).erreur(),
                HasSubstr("n'est pas un nombre de l'intervalle"))
        << tirages;
  dire("hasard 0.99999999999");
  dire("hasard");
  dire("hasard 0");
  dire("menu fichier_nouveau");
  dire("texte boîte_nom_joueur Ann");
  dire("clic bouton_sortie");
  EXPECT_EQ(état("ProvinceCourante"), 1);
}

TEST_F(Commandes_du_jeu, a_town_given_to_another_province_is_shown_with_that_one) {
  jouer("Niveau_apprentissage");
  const int question = état("ProvinceCourante").get<int>();
  dire("fixer TableVilles(200).province " + std::to_string(question));
  dire("clic_carte " + point(question));
  dire("répondre ok");
  EXPECT_EQ(contrôle("RondVille(200)")["visible"], true);
}

TEST_F(Commandes_du_jeu, a_page_comes_from_a_file_once) {
  démarrer();
  EXPECT_EQ(dire("page absente.htm").erreur(), "Le fichier « absente.htm » ne peut pas être lu");
  EXPECT_EQ(dire("page programme").erreur(), "Le fichier « programme » ne peut pas être lu");
  std::ofstream(chemin_natif(dossier.chemin("la page.htm"))) << "rien";
  EXPECT_EQ(dire("page " + dossier.chemin("la page.htm")).erreur(), "");
  EXPECT_EQ(dire("page !").erreur(), "");
}

TEST_F(Commandes_du_jeu, a_page_that_fails_takes_the_place_of_one_foreseen) {
  démarrer();
  std::ofstream(chemin_natif(dossier.chemin("la page.htm")))
      << "<x><!--Zaphora#2.10#15/03/2006#Les Zaphores-->";
  dire("page " + dossier.chemin("la page.htm"));
  dire("page !");
  EXPECT_THAT(dire("menu FichierVersion").texte(), Not(HasSubstr("Les Zaphores")));
  dire("répondre ok");
  dire("page " + dossier.chemin("la page.htm"));
  EXPECT_THAT(dire("menu FichierVersion").texte(), HasSubstr("Les Zaphores : version 2.10"));
}

TEST_F(Commandes_du_jeu, the_registry_is_read_and_written) {
  EXPECT_EQ(dire("registre").valeur("registre").dump(), "{}");
  EXPECT_EQ(dire(R"(registre HKEY_CURRENT_USER\Essai\Sons  |  nom  | un texte | avec barre )").erreur(), "");
  EXPECT_EQ(dire(R"(registre HKEY_CURRENT_USER\Essai\Sons||défaut)").erreur(), "");
  EXPECT_EQ(dire(R"(registre hkey_current_user\ESSAI | NOM | )").erreur(), "");
  EXPECT_EQ(dire(R"(registre HKEY_CURRENT_USER\essai\sons | NOM | autre)").erreur(), "");
  EXPECT_EQ(
      dire("registre").valeur("registre").dump(),
      R"({"HKEY_CURRENT_USER\\Essai":{"NOM":""},"HKEY_CURRENT_USER\\Essai\\Sons":{"nom":"autre","":"défaut"}})");
  EXPECT_EQ(dire("registre clé sans barre").erreur(), "Une valeur du registre s'écrit CLÉ | NOM | TEXTE");
  EXPECT_EQ(dire("registre clé | nom").erreur(), "Une valeur du registre s'écrit CLÉ | NOM | TEXTE");
  EXPECT_EQ(dire("registre  | nom | texte").erreur(), "Le registre ne peut pas garder cette valeur");
}

TEST_F(Commandes_du_jeu, the_registry_lasts_in_its_file) {
  options.registre = dossier.chemin("réglages");
  démarrer();
  dire(R"(registre HKEY_CURRENT_USER\Essai | nom | texte)");
  const Json avant = dire("registre").valeur("registre");
  raccrocher();
  EXPECT_EQ(dire("registre").valeur("registre"), avant);
  EXPECT_EQ(dire("démarrer").attend(), "Ecran_principal") << "no box of a first start any more";
}

TEST_F(Commandes_du_jeu, variables_are_set_and_nothing_is_redrawn) {
  jouer("niveau_facile");
  const Json chiffre = contrôle("Digit(1)");
  EXPECT_EQ(dire("fixer Score 123456").texte(), "{\"attend\":\"Ecran_principal\"}\n");
  EXPECT_EQ(état("Score"), 123456);
  EXPECT_EQ(contrôle("Digit(1)"), chiffre);
  EXPECT_EQ(dire("fixer Nom_joueur \"Zoé et Ann\"").erreur(), "");
  EXPECT_EQ(état("Nom_joueur"), "Zoé et Ann");
  EXPECT_EQ(dire("fixer Score").erreur(), "La commande fixer attend un argument de plus");
  EXPECT_EQ(dire("fixer Score douze").erreur(), "« douze » n'est pas une valeur JSON");
  EXPECT_EQ(dire("fixer Points 1").erreur(), "Aucune variable ne répond à « Points »");
  EXPECT_THAT(dire("fixer Niveau 70000").erreur(), HasSubstr("-32768 à 32767"));
  EXPECT_EQ(état("Score"), 123456);
}

TEST_F(Commandes_du_jeu, the_whole_state_is_one_object) {
  jouer("niveau_facile");
  const Json tout = dire("état").valeur("état");
  EXPECT_EQ(tout["Nom_joueur"], "Ann");
  EXPECT_EQ(tout["TableProvinces"].size(), 111U);
  EXPECT_EQ(tout["ProvinceCourante"], état("ProvinceCourante"));
  EXPECT_EQ(dire("état Inconnue").erreur(), "Aucune variable ne répond à « Inconnue »");
}

TEST_F(Commandes_du_jeu, controls_of_any_open_window_can_be_read) {
  démarrer();
  dire("menu fichier_nouveau");
  EXPECT_EQ(contrôle("bouton_sortie")["texte"], "OK");
  EXPECT_EQ(contrôle("nouvelle_partie!bouton_sortie"), contrôle("bouton_sortie"));
  EXPECT_EQ(contrôle("Ecran_principal!Pays(12)")["image"], "Graphismes.Pays(12)");
  EXPECT_EQ(contrôle("nouvelle_partie")["largeur"], 312);
  EXPECT_EQ(contrôle("Ecran_principal!Ecran_principal")["nom"], "Ecran_principal");
  EXPECT_EQ(dire("contrôle Pays(12)").erreur(),
            "La fenêtre nouvelle_partie n'a pas de contrôle « Pays(12) »");
  EXPECT_EQ(dire("contrôle Stats!Pays(12)").erreur(), "La fenêtre « Stats » n'est pas ouverte");
  EXPECT_EQ(dire("contrôle nouvelle_partie!").erreur(),
            "La fenêtre nouvelle_partie n'a pas de contrôle «  »");
}

TEST_F(Commandes_du_jeu, the_list_of_the_main_window_begins_with_its_menus) {
  démarrer();
  const Json liste = dire("contrôles").valeur("contrôles");
  EXPECT_EQ(liste[0]["nom"], "menu_fichier");
  EXPECT_EQ(liste[1]["nom"], "fichier_nouveau");
  EXPECT_EQ(liste[1]["parent"], "menu_fichier");
  EXPECT_EQ(liste[29]["nom"], "Menu_à_propos");
  EXPECT_EQ(liste[29]["genre"], "menu");
  EXPECT_NE(liste[30]["genre"], "menu");
  EXPECT_EQ(contrôle("Carte")["genre"], "vue");
  EXPECT_EQ(contrôle("Carte")["largeur"], 606);
}

TEST_F(Commandes_du_jeu, the_date_is_the_one_given) {
  démarrer();
  EXPECT_EQ(dire("registre").valeur("registre")[R"(HKEY_CURRENT_USER\Software\Mirabonde)"]["date"],
            "21/11/2026 00:00:00");
}

TEST_F(Commandes_du_jeu, a_seed_plays_the_same_game_again) {
  const auto questions = [&] {
    std::vector<int> suite;
    jouer("niveau_facile");
    for (int i = 0; i < 5; ++i) {
      suite.push_back(état("ProvinceCourante").get<int>());
      dire("clic_carte " + point(suite.back()));
    }
    raccrocher();
    std::filesystem::remove(dossier.chemin("programme/ARDANE.SCI"));
    return suite;
  };
  const auto premières = questions();
  EXPECT_EQ(questions(), premières);
  options.hasard = 2;
  EXPECT_NE(questions(), premières);
}

TEST_F(Commandes_du_jeu, what_no_variable_can_hold_is_refused_and_changes_nothing) {
  jouer("niveau_facile");
  const std::string profonde = std::string(50'000, '[') + std::string(50'000, ']');
  const std::vector<std::pair<std::string, std::string>> cas = {
      {"SélectionRégion", profonde},
      {"Score", std::string(50'000, '[')},
      {"TableVilles(3).province", "111"},
      {"TableVilles(3).province", "-1"},
      {"TableVilles(3)", R"({"province":300})"},
      {"ProvincesRestantes", "-32768"},
      {"ProvincesEnJeu", "111"},
      {"VillesEnJeu", "331"},
      {"VillesRestantes", "-1"},
      {"RégionsRestantes", "-1"},
      {"RégionsEnJeu", "32767"},
      {"Rect_carte.left", "-2147483648"},
      {"Rect_carte", R"({"top":2147483647})"},
  };
  const Json avant = dire("état").valeur("état");
  for (const auto &[chemin, valeur] : cas) {
    const Réplique réplique = dire("fixer " + chemin + " " + valeur);
    EXPECT_NE(réplique.erreur(), "") << chemin;
    EXPECT_EQ(réplique.attend(), "Ecran_principal") << chemin;
  }
  EXPECT_EQ(dire("état").valeur("état"), avant);
  for (const char *dans_les_bornes :
       {"TableVilles(3).province 110", "VillesRestantes 330", "Rect_carte.left -32767"})
    EXPECT_EQ(dire("fixer " + std::string(dans_les_bornes)).erreur(), "") << dans_les_bornes;
}

TEST_F(Commandes_du_jeu, a_point_of_no_screen_a_special_file_and_endless_ticks_are_refused) {
  jouer("niveau_facile");
  ASSERT_EQ(mkfifo(dossier.chemin("tuyau").c_str(), S_IRUSR | S_IWUSR), 0);
  for (const char *commande : {"curseur 2147483647 0", "curseur 0 -32768", "page /dev/zero", "page tuyau",
                               "page .", "tic 2000000000", "tic 100001"})
    EXPECT_NE(dire(commande).erreur(), "") << commande;
  EXPECT_EQ(dire("curseur 32767 -32767").erreur(), "");
  EXPECT_EQ(dire("clic image_région(0)").erreur(), "");
  EXPECT_EQ(dire("tic 100000").erreur(), "");
}

}  // namespace
}  // namespace ardane
