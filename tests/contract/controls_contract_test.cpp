// Each kind of control: what the player does with it, and what the program hears of it.
#include "contract.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Controls = Contract;

constexpr Genre clickable[] = {Genre::image,         Genre::étiquette, Genre::cadre,      Genre::bouton,
                               Genre::case_à_cocher, Genre::option,    Genre::boîte_image};

constexpr Genre with_focus[] = {Genre::texte,  Genre::bouton, Genre::case_à_cocher,
                                Genre::option, Genre::liste,  Genre::barre};

TEST_P(Controls, AClickReachesTheControl) {
  for (const Genre kind : clickable)
    add(std::string(nom_genre(kind)), kind).clic = tell(std::string(nom_genre(kind)));
  show();
  for (const Genre kind : clickable) {
    told.clear();
    EXPECT_TRUE(player->click(std::string(nom_genre(kind))));
    EXPECT_THAT(told, ElementsAre(nom_genre(kind)));
  }
}

TEST_P(Controls, WhatIsHiddenDisabledOrNotThereTakesNoClick) {
  for (const Genre kind : clickable) add(std::string(nom_genre(kind)), kind).clic = tell("clic");
  show();
  const auto refused = [&](Genre kind, bool Contrôle::*property) {
    const std::string name(nom_genre(kind));
    Contrôle &control = *window.chercher(name);
    control.*property = false;
    player->windows().repeindre(window);
    EXPECT_FALSE(player->click(name)) << name;
    EXPECT_FALSE(player->double_click(name)) << name;
    control.*property = true;
    player->windows().repeindre(window);
  };
  for (const Genre kind : clickable) {
    refused(kind, &Contrôle::visible);
    refused(kind, &Contrôle::actif);
  }
  EXPECT_FALSE(player->click("absent"));
  EXPECT_THAT(told, IsEmpty());
}

TEST_P(Controls, AHiddenOrDisabledContainerTakesWhatLiesInItAlong) {
  for (const Genre kind : {Genre::cadre, Genre::boîte_image}) {
    const std::string name(nom_genre(kind));
    Contrôle &holder = add(name, kind);
    holder.hauteur = 60;
    Contrôle &inside = add("dans " + name, Genre::bouton, &holder);
    inside.haut = 20;
    inside.clic = tell("clic");
  }
  show();
  for (const Genre kind : {Genre::cadre, Genre::boîte_image}) {
    const std::string name(nom_genre(kind));
    const std::string inside = "dans " + name;
    for (bool Contrôle::*property : {&Contrôle::visible, &Contrôle::actif}) {
      window.chercher(name)->*property = false;
      player->windows().repeindre(window);
      EXPECT_FALSE(player->click(inside));
      EXPECT_FALSE(player->press_enter(inside));
      window.chercher(name)->*property = true;
      player->windows().repeindre(window);
    }
    EXPECT_THAT(told, IsEmpty());
    EXPECT_TRUE(player->click(inside));
    EXPECT_THAT(told, ElementsAre("clic"));
    told.clear();
  }
}

TEST_P(Controls, ADoubleClickBeginsWithAClick) {
  for (const Genre kind : clickable) {
    Contrôle &control = add(std::string(nom_genre(kind)), kind);
    control.clic = tell("clic");
    control.double_clic = tell("double clic");
  }
  show();
  for (const Genre kind : clickable) {
    told.clear();
    EXPECT_TRUE(player->double_click(std::string(nom_genre(kind))));
    EXPECT_THAT(told, ElementsAre("clic", "double clic")) << nom_genre(kind);
  }
}

TEST_P(Controls, ACheckBoxHasItsNewStateWhenItsClickIsHandled) {
  Contrôle &box = add("case", Genre::case_à_cocher);
  box.clic = [&] { told.push_back(box.coché ? "cochée" : "vide"); };
  show();
  player->click("case");
  EXPECT_TRUE(player->marked("case"));
  player->click("case");
  EXPECT_FALSE(player->marked("case"));
  EXPECT_THAT(told, ElementsAre("cochée", "vide"));
  box.clic = [&] { box.coché = false; };
  player->click("case");
  EXPECT_FALSE(player->marked("case")) << "the program may take the mark back";
}

TEST_P(Controls, OfTheOptionsOfOneContainerOneIsMarked) {
  Contrôle &frame = add("cadre", Genre::cadre);
  frame.hauteur = 120;
  frame.largeur = 200;
  Contrôle &first = add("premier", Genre::option, &frame);
  Contrôle &second = add("second", Genre::option, &frame);
  Contrôle &apart = add("à part", Genre::option);
  first.haut += 20;
  second.haut += 20;
  first.coché = apart.coché = true;
  second.clic = [&] { told.push_back(first.coché ? "deux" : "un seul"); };
  show();
  player->click("second");
  EXPECT_FALSE(player->marked("premier"));
  EXPECT_TRUE(player->marked("second"));
  EXPECT_TRUE(player->marked("à part"));
  EXPECT_THAT(told, ElementsAre("un seul"));
}

TEST_P(Controls, TypingReplacesTheTextAndTellsOfIt) {
  Contrôle &box = add("nom", Genre::texte);
  box.texte = "ancien";
  box.changement = tell("changement");
  show();
  EXPECT_TRUE(player->type("nom", "Élo & moi"));
  EXPECT_EQ(box.texte, "Élo & moi");
  EXPECT_EQ(player->text("nom"), "Élo & moi");
  EXPECT_FALSE(told.empty());
  told.clear();
  box.texte = "écrit par le programme";
  player->windows().repeindre(window);
  EXPECT_EQ(player->text("nom"), "écrit par le programme");
  EXPECT_THAT(told, IsEmpty()) << "what the program writes is no change of the player's";
  EXPECT_TRUE(player->type("nom", ""));
  EXPECT_EQ(box.texte, "");
}

TEST_P(Controls, NobodyTypesWhereTheTextIsOnlyShownOrTheBoxDisabled) {
  Contrôle &box = add("nom", Genre::texte);
  box.texte = "ancien";
  box.lecture_seule = true;
  show();
  EXPECT_FALSE(player->type("nom", "a"));
  box.lecture_seule = box.actif = false;
  player->windows().repeindre(window);
  EXPECT_FALSE(player->type("nom", "a"));
  EXPECT_EQ(box.texte, "ancien");
}

TEST_P(Controls, LinesEndAsTheDataHasThem) {
  for (const bool crlf : {true, false}) {
    Contrôle &page = add(crlf ? "crlf" : "lf", Genre::texte);
    page.multiligne = true;
    page.lignes_crlf = crlf;
    page.hauteur = 60;
    page.texte = crlf ? "un\r\ndeux\r\n" : "un\ndeux\n";
    page.changement = tell("changement");
  }
  show();
  const std::string before = window.chercher("crlf")->texte;
  for (int i = 0; i < 3; ++i) player->windows().repeindre(window);
  EXPECT_THAT(told, IsEmpty()) << "a text that was only looked at is not changed";
  EXPECT_EQ(window.chercher("crlf")->texte, before);
  player->type("crlf", "un\n\ntrois");
  player->type("lf", "un\n\ntrois");
  EXPECT_EQ(window.chercher("crlf")->texte, "un\r\n\r\ntrois");
  EXPECT_EQ(window.chercher("lf")->texte, "un\n\ntrois");
}

TEST_P(Controls, EnterRunsTheHandlerOrPressesTheButtonThatHasTheFocusAndNoOther) {
  add("nom", Genre::texte).entrée = tell("entrée");
  for (const Genre kind : with_focus)
    add(std::string(nom_genre(kind)), kind).clic = tell("clic " + std::string(nom_genre(kind)));
  show();
  EXPECT_TRUE(player->press_enter("nom"));
  for (const Genre kind : with_focus) EXPECT_TRUE(player->press_enter(std::string(nom_genre(kind))));
  EXPECT_THAT(told, ElementsAre("entrée", "clic bouton"));
  add("image", Genre::image).clic = tell("image");
  player->windows().repeindre(window);
  EXPECT_FALSE(player->press_enter("image"));
}

TEST_P(Controls, EnterElsewherePressesTheDefaultButtonWhereThereIsOne) {
  add("nom", Genre::texte);
  add("case", Genre::case_à_cocher);
  add("annuler", Genre::bouton).clic = tell("annuler");
  Contrôle &ok = add("ok", Genre::bouton);
  ok.clic = tell("ok");
  window.bouton_défaut = &ok;
  show();
  player->press_enter("nom");
  EXPECT_EQ(player->focus(), "nom") << "the default button needs no focus";
  player->press_enter("case");
  player->press_enter("annuler");
  EXPECT_THAT(told, ElementsAre("ok", "ok", "annuler"));
  ok.actif = false;
  player->windows().repeindre(window);
  player->press_enter("nom");
  EXPECT_THAT(told, ElementsAre("ok", "ok", "annuler"));
}

TEST_P(Controls, EnterInATextOfSeveralLinesEndsALine) {
  Contrôle &page = add("page", Genre::texte);
  page.multiligne = true;
  page.entrée = tell("entrée");
  Contrôle &ok = add("ok", Genre::bouton);
  ok.clic = tell("ok");
  window.bouton_défaut = &ok;
  show();
  player->type("page", "un");
  player->press_enter("page");
  EXPECT_EQ(page.texte, "un\n");
  EXPECT_THAT(told, IsEmpty());
}

TEST_P(Controls, AListTellsOfTheChoiceAndOfADoubleClick) {
  Contrôle &list = add("liste", Genre::liste);
  list.hauteur = 80;
  list.éléments = {"un", "deux", "trois"};
  list.changement = [&] { told.push_back(std::to_string(list.choix)); };
  list.double_clic = tell("double clic");
  list.entrée = tell("entrée");
  show();
  EXPECT_THAT(player->items("liste"), ElementsAre("un", "deux", "trois"));
  EXPECT_EQ(player->choice("liste"), 0);
  EXPECT_TRUE(player->select("liste", 3));
  EXPECT_EQ(player->choice("liste"), 3);
  EXPECT_FALSE(player->select("liste", 4));
  EXPECT_TRUE(player->double_click("liste"));
  EXPECT_TRUE(player->press_enter("liste"));
  EXPECT_THAT(told, ElementsAre("3", "double clic", "entrée"));
  list.éléments = {"seul"};
  list.choix = 0;
  player->windows().repeindre(window);
  EXPECT_THAT(player->items("liste"), ElementsAre("seul"));
  EXPECT_EQ(player->choice("liste"), 0);
  EXPECT_EQ(told.size(), 3U) << "what the program selects is no choice of the player's";
}

TEST_P(Controls, WhatADoubleClickOrEnterOpensMayFillTheListAnew) {
  Contrôle &list = add("liste", Genre::liste);
  list.hauteur = 80;
  add("autre", Genre::texte);
  list.double_clic = list.entrée = [&] {
    told.push_back(list.choix == 0 ? "rien" : élément_choisi(list));
    list.éléments = {"..", "dedans", "encore"};
    list.choix = 0;
  };
  list.changement = tell("choix");
  show();
  for (const bool by_mouse : {true, false}) {
    const auto open = [&] { by_mouse ? player->double_click("liste") : player->press_enter("liste"); };
    list.éléments = {"..", "zoo"};
    list.choix = 0;
    player->windows().repeindre(window);
    told.clear();
    player->select("liste", 2);
    open();
    EXPECT_THAT(told, ElementsAre("choix", "zoo"));
    EXPECT_THAT(player->items("liste"), ElementsAre("..", "dedans", "encore"));
    EXPECT_EQ(player->choice("liste"), 0);
    EXPECT_EQ(list.choix, 0);
    EXPECT_EQ(player->focus(), "liste");
    player->select("liste", 3);
    open();
    EXPECT_THAT(told, ElementsAre("choix", "zoo", "choix", "encore"));
  }
}

TEST_P(Controls, ABoxFromAListLeavesItsChoiceAndTheFocus) {
  Contrôle &list = add("liste", Genre::liste);
  list.hauteur = 80;
  list.éléments = {"un", "deux"};
  list.double_clic = list.entrée = [&] {
    player->boxes().montrer({Icône::exclamation, "Titre", "Texte"});
    told.push_back(élément_choisi(list));
  };
  add("autre", Genre::texte);
  show();
  player->select("liste", 2);
  for (int i = 0; i < 2; ++i) player->then([&] { player->answer("ok"); });
  player->double_click("liste");
  player->press_enter("liste");
  EXPECT_THAT(told, ElementsAre("deux", "deux"));
  EXPECT_EQ(player->choice("liste"), 2);
  EXPECT_EQ(player->focus(), "liste");
}

TEST_P(Controls, AfterABoxACheckBoxStandsAsTheProgramPutsItAndSoDoItsNeighbours) {
  Contrôle &box = add("case", Genre::case_à_cocher);
  Contrôle &other = add("voisine", Genre::case_à_cocher);
  box.clic = [&] {
    player->boxes().montrer({Icône::information, "Titre", "Texte"});
    box.coché = false;
    other.coché = !other.coché;
  };
  other.clic = tell("voisine");
  show();
  for (const bool marked : {true, false}) {
    player->then([&] { player->answer("ok"); });
    player->click("case");
    EXPECT_FALSE(player->marked("case"));
    EXPECT_EQ(player->marked("voisine"), marked);
  }
  EXPECT_THAT(told, IsEmpty()) << "what the program ticks is no click of the player's";
}

TEST_P(Controls, ABarMovesWithinItsRangeAndTellsOnlyOfAChange) {
  Contrôle &bar = add("barre", Genre::barre);
  bar.max = 60;
  bar.changement = [&] { told.push_back(std::to_string(bar.valeur)); };
  show();
  for (const int wanted : {20, 20, 900, -3}) EXPECT_TRUE(player->move_bar("barre", wanted));
  EXPECT_THAT(told, ElementsAre("20", "60", "0"));
  fixer_valeur(bar, 31);
  player->windows().repeindre(window);
  EXPECT_EQ(player->value("barre"), 31);
}

TEST_P(Controls, MenuEntriesAreChosenIfTheyAndTheirMenuCanBe) {
  Contrôle &file = add("fichier", Genre::menu);
  Contrôle &quit = add("quitter", Genre::menu, &file);
  file.texte = "Fichier";
  quit.texte = "Quitter";
  quit.clic = tell("quitter");
  add("bouton", Genre::bouton).haut = 60;
  show();
  EXPECT_TRUE(player->choose("quitter"));
  EXPECT_THAT(told, ElementsAre("quitter"));
  for (Contrôle *entry : {&file, &quit})
    for (bool Contrôle::*property : {&Contrôle::visible, &Contrôle::actif}) {
      entry->*property = false;
      player->windows().repeindre(window);
      EXPECT_FALSE(player->choose("quitter"));
      entry->*property = true;
      player->windows().repeindre(window);
    }
  EXPECT_EQ(told.size(), 1U);
  EXPECT_FALSE(player->choose("bouton"));
}

TEST_P(Controls, AClickOnTheMapReachesTheTopmostPictureThatTakesIt) {
  Ecran_principal &main = player->main_window();
  main.largeur = 700;
  main.hauteur = 700;
  main.Carte.gauche = main.Carte.haut = 0;
  Contrôle &map = main.image_région;
  map.largeur = map.hauteur = 200;
  map.clic = tell("carte");
  Contrôle &dot = main.rondjaune;
  dot.gauche = dot.haut = 50;
  dot.largeur = dot.hauteur = 20;
  dot.visible = true;
  dot.clic = tell("rond");
  main.au_premier_plan(dot);
  player->windows().montrer(main);
  EXPECT_TRUE(player->click_map(60, 60));
  EXPECT_TRUE(player->click_map(10, 10));
  dot.actif = false;
  player->windows().repeindre(main);
  EXPECT_TRUE(player->click_map(60, 60));
  EXPECT_THAT(told, ElementsAre("rond", "carte", "carte"));
  main.Carte.actif = false;
  player->windows().repeindre(main);
  EXPECT_FALSE(player->click_map(60, 60));
  EXPECT_EQ(told.size(), 3U);
  player->windows().retirer(main);
}

INSTANTIATE_TEST_SUITE_P(Contract, Controls, testing::ValuesIn(front_ends()), front_end_name);

}  // namespace
}  // namespace ardane
