// How the pilot talks: one answer a command, whatever waits, to the end.
#include <gmock/gmock.h>

#include <sstream>

#include "front/pilote/pilot.h"
#include "pilot_fixture.h"

namespace ardane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using Parole = EssaiDuPilote;

TEST_F(Parole, before_the_start_nothing_waits) {
  EXPECT_EQ(dire("fenêtres").texte(), "{\"fenêtres\":[]}\n{\"attend\":\"rien\"}\n");
  EXPECT_EQ(dire("boîte").texte(), "{\"boîte\":null}\n{\"attend\":\"rien\"}\n");
  EXPECT_EQ(dire("contrôles").erreur(), "Aucune fenêtre n'est ouverte");
  EXPECT_EQ(dire("touche F1").erreur(), "Aucune fenêtre n'est ouverte");
  EXPECT_EQ(dire("tic 1").erreur(), "Le programme n'est pas démarré");
  EXPECT_EQ(dire("clic_carte 10 10").erreur(), "Aucune fenêtre n'est ouverte");
  EXPECT_EQ(dire("dessus 10 10").texte(), "{\"dessus\":null}\n{\"attend\":\"rien\"}\n");
  EXPECT_EQ(dire("fermer").attend(), "rien");
}

TEST_F(Parole, the_start_leads_to_the_first_thing_that_waits) {
  const Réplique début = dire("démarrer");
  ASSERT_EQ(début.lignes.size(), 2U) << début.texte();
  EXPECT_EQ(début.lignes[0]["boîte"]["icône"], "information");
  EXPECT_EQ(début.lignes[0]["boîte"]["titre"], "Publicité gratuite...");
  EXPECT_EQ(début.lignes[0]["boîte"]["boutons"].dump(), "[\"OK\"]");
  EXPECT_EQ(début.lignes[1].dump(), "{\"attend\":\"boîte\"}");
  const Réplique suite = dire("répondre ok");
  ASSERT_EQ(suite.lignes.size(), 3U) << suite.texte();
  EXPECT_EQ(suite.lignes[0].dump(), R"({"fenêtre":"Patience","ouverte":true,"modale":false})");
  EXPECT_EQ(suite.lignes[1]["boîte"]["titre"], "Création du fichier Info");
  EXPECT_EQ(
      dire("répondre ok").texte(),
      "{\"fenêtre\":\"Ecran_principal\",\"ouverte\":true,\"modale\":false}\n"
      "{\"fenêtre\":\"Patience\",\"ouverte\":false,\"modale\":false}\n{\"attend\":\"Ecran_principal\"}\n");
  EXPECT_EQ(dire("démarrer").erreur(), "Le programme est déjà démarré");
}

TEST_F(Parole, a_modal_window_waits_inside_the_command_that_opened_it) {
  démarrer();
  EXPECT_EQ(dire("menu fichier_nouveau").texte(),
            "{\"fenêtre\":\"nouvelle_partie\",\"ouverte\":true,\"modale\":true}\n{\"attend\":\"nouvelle_"
            "partie\"}\n");
  EXPECT_EQ(dire("fenêtres").valeur("fenêtres").dump(), R"(["Ecran_principal","nouvelle_partie"])");
  EXPECT_EQ(dire("menu fichier_quitter").erreur(),
            "La fenêtre nouvelle_partie n'a pas de contrôle « fichier_quitter »");
  EXPECT_EQ(dire("clic_carte 300 300").erreur(), "La carte n'est pas dans la fenêtre du dessus");
  EXPECT_EQ(dire("fermer").erreur(), "La fenêtre nouvelle_partie n'a pas de bouton de fermeture");
  EXPECT_EQ(dire("tic 2").texte(), "{\"attend\":\"nouvelle_partie\"}\n");
  EXPECT_EQ(dire("démarrer").erreur(), "Le programme est déjà démarré");
  EXPECT_EQ(dire("clic Bouton_annuler").texte(),
            "{\"fenêtre\":\"nouvelle_partie\",\"ouverte\":false,\"modale\":true}\n{\"attend\":\"Ecran_"
            "principal\"}\n");
  EXPECT_EQ(dire("fenêtres").valeur("fenêtres").dump(), R"(["Ecran_principal"])");
}

TEST_F(Parole, while_a_box_is_up_only_answers_and_readings_are_taken) {
  démarrer();
  const Réplique question = dire("menu Menu_langue");
  ASSERT_EQ(question.attend(), "boîte");
  for (const char *commande :
       {"démarrer", "menu fichier_nouveau", "clic Bouton_gruge", "double_clic Bouton_gruge",
        "clic_carte 10 10", "curseur 1 1", "texte a b", "entrée a", "sélection a b", "valeur barre_h 1",
        "fermer", "tic 1", "touche F1", "hasard 0.5", "hasard", "page !", "registre a | b | c",
        "fixer Score 1"}) {
    const Réplique réplique = dire(commande);
    EXPECT_EQ(réplique.erreur(), "Une boîte attend une réponse") << commande;
    EXPECT_EQ(réplique.attend(), "boîte") << commande;
  }
  for (const char *commande :
       {"état Score", "état", "contrôle Carte", "contrôles", "dessus 1 1", "registre", "fenêtres", "boîte"}) {
    const Réplique réplique = dire(commande);
    EXPECT_EQ(réplique.lignes.size(), 2U) << commande;
    EXPECT_EQ(réplique.erreur(), "") << commande;
    EXPECT_EQ(réplique.attend(), "boîte") << commande;
  }
  EXPECT_EQ(dire("boîte").valeur("boîte"), question.valeur("boîte"));
  EXPECT_EQ(dire("répondre oui").erreur(), "La boîte n'offre pas la réponse « oui »");
  EXPECT_EQ(dire("répondre OK").erreur(), "La boîte n'offre pas la réponse « OK »");
  EXPECT_EQ(dire("répondre").erreur(), "La commande répondre attend un argument de plus");
  EXPECT_EQ(dire("répondre ok").texte(), "{\"attend\":\"Ecran_principal\"}\n");
  EXPECT_EQ(dire("répondre ok").erreur(), "Aucune boîte n'attend de réponse");
}

TEST_F(Parole, a_question_takes_yes_or_no) {
  jouer("niveau_facile");
  dire("clic_carte " + point(état("ProvinceCourante").get<int>()));
  EXPECT_EQ(dire("fermer").valeur("boîte")["boutons"].dump(), R"(["Oui","Non"])");
  EXPECT_EQ(dire("répondre ok").erreur(), "La boîte n'offre pas la réponse « ok »");
  EXPECT_EQ(dire("répondre non").texte(), "{\"attend\":\"Ecran_principal\"}\n");
  EXPECT_EQ(état("Etape"), 1);
}

TEST_F(Parole, closing_the_main_window_ends_the_program) {
  démarrer();
  EXPECT_EQ(dire("fermer").texte(),
            "{\"fenêtre\":\"Ecran_principal\",\"ouverte\":false,\"modale\":false}\n{\"attend\":\"fin\","
            "\"code\":0}\n");
  EXPECT_TRUE(pilote().finie());
  EXPECT_EQ(pilote().code(), 0);
}

TEST_F(Parole, a_program_that_ends_at_its_start_ends_the_pilot) {
  std::filesystem::remove(dossier.chemin("programme/ardane.pts"));
  dire("démarrer");
  EXPECT_EQ(dire("répondre ok").attend(), "boîte");
  EXPECT_EQ(dire("répondre ok").texte(), "{\"attend\":\"fin\",\"code\":0}\n");
  EXPECT_TRUE(pilote().finie());
}

TEST_F(Parole, an_unguarded_failure_ends_the_program_with_code_1) {
  jouer("niveau_facile");
  dire("fixer Niveau 7");
  const Réplique fin = dire("menu score_en_cours");
  EXPECT_THAT(fin.valeur("fatale").get<std::string>(), StartsWith("Indice 7 hors des bornes 1 à 4"));
  EXPECT_EQ(fin.lignes.back().dump(), R"({"attend":"fin","code":1})");
  EXPECT_TRUE(pilote().finie());
  EXPECT_EQ(pilote().code(), 1);
}

TEST_F(Parole, a_failure_below_a_modal_window_ends_it_all_the_same) {
  démarrer();
  dire("menu fichier_nouveau");
  dire("texte boîte_nom_joueur Ann");
  dire("fixer Ordre_jeux [null,9,0,0,0]");
  dire("fixer Fichiers_aide []");
  const Réplique fin = dire("touche F1");
  EXPECT_THAT(fin.valeur("fatale").get<std::string>(), StartsWith("Indice 1 hors des bornes"));
  EXPECT_EQ(fin.attend(), "fin");
  EXPECT_EQ(pilote().code(), 1);
}

TEST_F(Parole, quitter_leaves_without_a_word_wherever_it_is_said) {
  EXPECT_EQ(dire("quitter").lignes.size(), 0U);
  EXPECT_TRUE(pilote().finie());
  EXPECT_EQ(pilote().code(), 0);
  raccrocher();
  démarrer();
  dire("menu fichier_nouveau");
  EXPECT_EQ(dire("quitter").lignes.size(), 0U);
  EXPECT_TRUE(pilote().finie());
  raccrocher();
  démarrer();
  dire("menu Menu_langue");
  EXPECT_EQ(dire("quitter").lignes.size(), 0U);
  EXPECT_EQ(pilote().code(), 0);
}

TEST_F(Parole, commands_that_make_no_sense_are_refused) {
  EXPECT_EQ(dire("chanter").texte(),
            "{\"erreur\":\"La commande « chanter » est inconnue\"}\n{\"attend\":\"rien\"}\n");
  EXPECT_EQ(dire("").erreur(), "La commande «  » est inconnue");
  EXPECT_EQ(dire(" démarrer").erreur(), "La commande «  » est inconnue");
  EXPECT_EQ(dire("Démarrer").erreur(), "La commande « Démarrer » est inconnue");
  EXPECT_EQ(dire("démarrer vite").erreur(), "La commande démarrer ne prend pas d'argument");
  for (const char *nom : {"menu", "clic", "double_clic", "clic_carte", "clic_carte 1", "curseur 1", "texte",
                          "entrée", "sélection a", "valeur a", "tic", "touche", "page", "fixer",
                          "fixer Score", "contrôle", "dessus", "dessus 3"})
    EXPECT_THAT(dire(nom).erreur(), HasSubstr("attend un argument de plus")) << nom;
  for (const char *nom : {"fermer", "quitter", "contrôles", "fenêtres", "boîte"})
    EXPECT_THAT(dire(nom + std::string(" a")).erreur(), HasSubstr("ne prend pas d'argument")) << nom;
  EXPECT_EQ(dire("fenêtres").attend(), "rien");
}

/// The output of a whole script at once.
struct Sortie : std::stringbuf {
  int sync() override {
    vidages.push_back(str());
    return 0;
  }
  std::vector<std::string> vidages;
};

TEST_F(Parole, the_output_is_flushed_at_each_attend_line) {
  std::istringstream entrée("fenêtres\nboîte\n");
  Sortie sortie;
  std::ostream flux(&sortie);
  EXPECT_EQ(Pilote(entrée, flux, options).exécuter(), 0);
  EXPECT_THAT(
      sortie.vidages,
      ElementsAre("{\"fenêtres\":[]}\n{\"attend\":\"rien\"}\n",
                  "{\"fenêtres\":[]}\n{\"attend\":\"rien\"}\n{\"boîte\":null}\n{\"attend\":\"rien\"}\n"));
}

TEST_F(Parole, lines_may_end_as_in_other_systems_and_the_last_not_at_all) {
  std::istringstream entrée("fenêtres\r\nboîte");
  std::ostringstream sortie;
  EXPECT_EQ(Pilote(entrée, sortie, options).exécuter(), 0);
  EXPECT_EQ(sortie.str(),
            "{\"fenêtres\":[]}\n{\"attend\":\"rien\"}\n{\"boîte\":null}\n{\"attend\":\"rien\"}\n");
}

TEST_F(Parole, bytes_that_are_no_text_come_back_replaced) {
  std::istringstream entrée("cliqu\xE9\n");
  std::ostringstream sortie;
  Pilote(entrée, sortie, options).exécuter();
  EXPECT_EQ(sortie.str(),
            "{\"erreur\":\"La commande « cliqu\xEF\xBF\xBD » est inconnue\"}\n{\"attend\":\"rien\"}\n");
}

}  // namespace
}  // namespace ardane
