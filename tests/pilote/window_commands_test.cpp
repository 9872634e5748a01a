// The player's hand in windows of every kind of control.
#include <gmock/gmock.h>

#include "session_fixture.h"

namespace ardane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Main_du_joueur = EssaiDeSession;

TEST_F(Main_du_joueur, cannot_reach_what_is_hidden_or_disabled) {
  Contrôle &cadre = ajouter("cadre", Genre::cadre);
  Contrôle &bouton = ajouter("bouton", Genre::bouton);
  bouton.clic = noter("clic");
  bouton.conteneur = &cadre;
  ouvrir();
  bouton.visible = false;
  EXPECT_EQ(refus("clic bouton"), "Le contrôle bouton est caché");
  bouton.visible = true;
  bouton.actif = false;
  EXPECT_EQ(refus("clic bouton"), "Le contrôle bouton est inactif");
  EXPECT_EQ(refus("double_clic bouton"), "Le contrôle bouton est inactif");
  EXPECT_EQ(refus("entrée bouton"), "Le contrôle bouton est inactif");
  bouton.actif = true;
  cadre.visible = false;
  EXPECT_EQ(refus("clic bouton"), "Le contrôle bouton est caché");
  cadre.visible = true;
  cadre.actif = false;
  EXPECT_EQ(refus("clic bouton"), "Le contrôle bouton est inactif");
  EXPECT_THAT(gestes, IsEmpty());
}

TEST_F(Main_du_joueur, cannot_reach_what_is_not_there) {
  EXPECT_EQ(refus("clic OK"), "Aucune fenêtre n'est ouverte");
  ouvrir();
  EXPECT_EQ(refus("clic OK"), "La fenêtre essai n'a pas de contrôle « OK »");
  for (const char *commande :
       {"double_clic OK", "texte OK a", "entrée OK", "sélection OK a", "valeur OK 1", "menu OK"})
    EXPECT_THAT(refus(commande), HasSubstr("« OK »")) << commande;
}

TEST_F(Main_du_joueur, typing_replaces_the_text) {
  Contrôle &boîte = ajouter("nom", Genre::texte);
  boîte.texte = "ancien";
  boîte.changement = [&] { gestes.push_back(boîte.texte); };
  ouvrir();
  faire("texte nom Ann  de la Tour ");
  faire("texte nom un\\ndeux\\\\trois\\t\\");
  faire("texte nom ");
  faire("texte nom");
  EXPECT_THAT(gestes, ElementsAre("Ann  de la Tour ", "un\ndeux\\trois\\t\\", "", ""));
}

TEST_F(Main_du_joueur, types_only_where_one_can_type) {
  ajouter("OK", Genre::bouton);
  Contrôle &boîte = ajouter("nom", Genre::texte);
  boîte.texte = "ancien";
  boîte.lecture_seule = true;
  ouvrir();
  EXPECT_EQ(refus("texte OK a"), "Le contrôle OK est du genre bouton, et non texte");
  EXPECT_EQ(refus("texte nom a"), "Le contrôle nom ne se modifie pas");
  boîte.lecture_seule = false;
  boîte.actif = false;
  EXPECT_EQ(refus("texte nom a"), "Le contrôle nom est inactif");
  EXPECT_EQ(boîte.texte, "ancien");
}

TEST_F(Main_du_joueur, the_enter_key_needs_a_control_that_takes_the_keyboard) {
  ajouter("image", Genre::image).clic = noter("clic d'image");
  ouvrir();
  EXPECT_EQ(refus("entrée image"), "Le contrôle image ne prend pas le clavier");
  EXPECT_THAT(gestes, IsEmpty());
}

TEST_F(Main_du_joueur, gives_the_focus_to_what_he_works) {
  ajouter("bouton", Genre::bouton);
  ajouter("liste", Genre::liste).éléments = {"un"};
  ajouter("nom", Genre::texte);
  ajouter("barre", Genre::barre);
  ouvrir();
  for (const auto &[commande, nom] : {std::pair("sélection liste un", "liste"),
                                      {"entrée bouton", "bouton"},
                                      {"texte nom a", "nom"},
                                      {"valeur barre 0", "barre"},
                                      {"clic bouton", "bouton"},
                                      {"entrée liste", "liste"}}) {
    faire(commande);
    ASSERT_NE(fenêtre.focus, nullptr) << commande;
    EXPECT_EQ(fenêtre.focus->nom, nom) << commande;
  }
}

TEST_F(Main_du_joueur, selects_an_item_by_its_text_or_its_rank) {
  Contrôle &liste = ajouter("liste", Genre::liste);
  liste.éléments = {"un", "deux mots", "#x"};
  liste.changement = [&] { gestes.push_back(std::to_string(liste.choix)); };
  ouvrir();
  faire("sélection liste deux mots");
  faire("sélection liste #1");
  faire("sélection liste #x");
  EXPECT_THAT(gestes, ElementsAre("2", "1", "3"));
  EXPECT_EQ(refus("sélection liste deux"), "La liste liste n'a pas d'élément « deux »");
  EXPECT_EQ(refus("sélection liste #4"), "La liste liste n'a que 3 éléments");
  EXPECT_EQ(refus("sélection liste #0"), "La liste liste n'a que 3 éléments");
  EXPECT_EQ(refus("sélection liste"), "La commande sélection attend un argument de plus");
  EXPECT_EQ(liste.choix, 3);
  ajouter("OK", Genre::bouton);
  EXPECT_EQ(refus("sélection OK #1"), "Le contrôle OK est du genre bouton, et non liste");
}

TEST_F(Main_du_joueur, moves_a_bar_within_its_range) {
  Contrôle &barre = ajouter("barre", Genre::barre);
  barre.max = 60;
  barre.changement = [&] { gestes.push_back(std::to_string(barre.valeur)); };
  ouvrir();
  faire("valeur barre 20");
  faire("valeur barre 20");
  faire("valeur barre 900");
  faire("valeur barre -3");
  EXPECT_THAT(gestes, ElementsAre("20", "60", "0"));
  EXPECT_EQ(refus("valeur barre beaucoup"), "« beaucoup » n'est pas un nombre entier");
  EXPECT_EQ(refus("valeur barre 1.5"), "« 1.5 » n'est pas un nombre entier");
  ajouter("OK", Genre::bouton);
  EXPECT_EQ(refus("valeur OK 1"), "Le contrôle OK est du genre bouton, et non barre");
}

TEST_F(Main_du_joueur, chooses_menu_entries_that_can_be_seen_and_used) {
  Contrôle &fichier = ajouter("fichier", Genre::menu);
  Contrôle &nouveau = ajouter("nouveau", Genre::menu);
  nouveau.conteneur = &fichier;
  nouveau.clic = noter("nouveau");
  ajouter("OK", Genre::bouton);
  ouvrir();
  faire("menu nouveau");
  faire("menu fichier");
  EXPECT_THAT(gestes, ElementsAre("nouveau"));
  fichier.actif = false;
  EXPECT_EQ(refus("menu nouveau"), "Le contrôle nouveau est inactif");
  fichier.actif = true;
  nouveau.visible = false;
  EXPECT_EQ(refus("menu nouveau"), "Le contrôle nouveau est caché");
  EXPECT_EQ(refus("menu OK"), "Le contrôle OK est du genre bouton, et non menu");
  EXPECT_THAT(gestes, ElementsAre("nouveau"));
}

TEST_F(Main_du_joueur, closes_windows_that_have_a_close_control) {
  ouvrir();
  fenêtre.fermable = false;
  EXPECT_EQ(refus("fermer"), "La fenêtre essai n'a pas de bouton de fermeture");
  EXPECT_TRUE(fenêtre.ouverte);
  fenêtre.fermable = true;
  EXPECT_EQ(faire("fermer").at(0).dump(), R"({"fenêtre":"essai","ouverte":false,"modale":false})");
  EXPECT_EQ(refus("fermer"), "Aucune fenêtre n'est ouverte");
}

TEST_F(Main_du_joueur, the_window_on_top_takes_the_commands) {
  ajouter("OK", Genre::bouton).clic = noter("dessous");
  Fenêtre dessus("dessus");
  Contrôle bouton;
  bouton.nom = "OK";
  bouton.genre = Genre::bouton;
  bouton.clic = noter("dessus");
  dessus.ajouter(Contrôle(bouton));
  ouvrir();
  monde.façade.montrer(dessus);
  faire("clic OK");
  monde.façade.retirer(dessus);
  faire("clic OK");
  EXPECT_THAT(gestes, ElementsAre("dessus", "dessous"));
}

TEST_F(Main_du_joueur, a_place_on_the_screen_counts_all_containers_and_is_cut_to_the_pixel) {
  Contrôle &cadre = ajouter("cadre", Genre::cadre);
  Contrôle &dedans = ajouter("dedans", Genre::option);
  dedans.conteneur = &cadre;
  fenêtre.gauche = 100;
  fenêtre.haut = 50;
  cadre.gauche = 10.5;
  cadre.haut = 20;
  dedans.gauche = 1.25;
  dedans.haut = 2;
  dedans.largeur = 30.5;
  dedans.hauteur = 40;
  EXPECT_EQ(monde.façade.rectangle(fenêtre, dedans), (Rect{111, 72, 142, 112}));
}

}  // namespace
}  // namespace ardane
