// Windows: focus, rows that come and go, modal windows and boxes, closing, the timer.
#include "contract.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Windows = Contract;

TEST_P(Windows, AWindowThatNamesNoFocusGivesItToTheFirstInTheKeyboardsOrder) {
  add("premier fait", Genre::bouton);
  add("caché", Genre::texte).ordre_tabulation = 0;
  add("premier en ordre", Genre::texte).ordre_tabulation = 1;
  window.chercher("caché")->visible = false;
  show();
  EXPECT_EQ(player->focus(), "premier en ordre");
  EXPECT_EQ(window.focus, window.chercher("premier en ordre"));
}

TEST_P(Windows, TheFocusGoesWithThePlayersHandAndWithTheData) {
  Contrôle &line = add("ligne", Genre::texte);
  add("bouton", Genre::bouton);
  add("case", Genre::case_à_cocher);
  add("image", Genre::image).clic = tell("image");
  add("étiquette", Genre::étiquette).clic = tell("étiquette");
  show();
  for (const char *name : {"bouton", "ligne", "case"}) {
    player->click(name);
    EXPECT_EQ(player->focus(), name);
    EXPECT_EQ(window.focus, window.chercher(name));
  }
  player->click("image");
  player->click("étiquette");
  EXPECT_THAT(told, ElementsAre("image", "étiquette"));
  EXPECT_EQ(player->focus(), "case") << "pictures and labels take no focus";
  window.focus = &line;
  player->windows().repeindre(window);
  EXPECT_EQ(player->focus(), "ligne");
}

TEST_P(Windows, TheControlThatLosesTheFocusHearsOfItBeforeTheOthersClick) {
  Contrôle &line = add("ligne", Genre::texte);
  line.perte_du_focus = tell("perte");
  add("bouton", Genre::bouton).clic = tell("clic");
  window.focus = &line;
  show();
  player->click("bouton");
  EXPECT_THAT(told, ElementsAre("perte", "clic"));
  player->click("ligne");
  EXPECT_THAT(told, ElementsAre("perte", "clic")) << "to get it back is no loss";
}

TEST_P(Windows, AFocusThatTheProgramMovesIsLostAsWell) {
  Contrôle &line = add("ligne", Genre::texte);
  Contrôle &other = add("autre", Genre::texte);
  line.perte_du_focus = tell("perte");
  line.entrée = [&] { window.focus = &other; };
  show();
  player->press_enter("ligne");
  EXPECT_THAT(told, ElementsAre("perte"));
  EXPECT_EQ(player->focus(), "autre");
}

TEST_P(Windows, AControlThatIsHiddenOrDisabledHandsTheFocusToTheNext) {
  for (bool Contrôle::*property : {&Contrôle::visible, &Contrôle::actif}) {
    Fenêtre here("ici");
    here.largeur = here.hauteur = 200;
    Contrôle &last = add(here, "dernier", Genre::texte);
    Contrôle &first = add(here, "premier", Genre::texte);
    Contrôle &second = add(here, "second", Genre::texte);
    last.ordre_tabulation = 3;
    first.ordre_tabulation = 1;
    second.ordre_tabulation = 2;
    first.perte_du_focus = tell("perte");
    first.entrée = [&] { first.*property = false; };
    player->windows().montrer(here);
    EXPECT_EQ(player->focus(), "premier");
    player->press_enter("premier");
    EXPECT_EQ(player->focus(), "second");
    EXPECT_THAT(told, ElementsAre("perte"));
    told.clear();
    player->windows().retirer(here);
  }
}

TEST_P(Windows, RowsCome) {
  add("ajouter", Genre::bouton).clic = [&] {
    Contrôle &row = add("rang(2)", Genre::étiquette);
    row.texte = "Villes";
    row.clic = tell("rang");
  };
  show();
  EXPECT_FALSE(player->shows("rang(2)"));
  player->click("ajouter");
  EXPECT_TRUE(player->shows("rang(2)"));
  EXPECT_EQ(player->text("rang(2)"), "Villes");
  player->click("rang(2)");
  EXPECT_THAT(told, ElementsAre("rang"));
}

TEST_P(Windows, RowsGoWithWhatLiesInThemAndTheirLikeMayCome) {
  Contrôle &frame = add("cadre", Genre::cadre);
  frame.hauteur = 60;
  Contrôle &inside = add("dedans", Genre::bouton, &frame);
  inside.haut = 20;
  inside.clic = tell("ancien");
  add("bouton", Genre::bouton).clic = [&] {
    window.retirer(*window.chercher("cadre"));
    EXPECT_EQ(window.chercher("dedans"), nullptr);
  };
  show();
  player->click("dedans");
  player->click("bouton");
  EXPECT_FALSE(player->shows("cadre"));
  EXPECT_FALSE(player->click("dedans"));
  EXPECT_EQ(window.focus, window.chercher("bouton"));

  Contrôle &again = add("dedans", Genre::étiquette);
  again.texte = "nouveau";
  again.clic = tell("nouveau");
  player->windows().repeindre(window);
  EXPECT_EQ(player->text("dedans"), "nouveau");
  player->click("dedans");
  EXPECT_THAT(told, ElementsAre("ancien", "nouveau"));
}

TEST_P(Windows, ManyRowsComeAndGoInOneEvent) {
  add("changer", Genre::bouton).clic = [&] {
    for (int i = 0; i < 40; ++i)
      if (Contrôle *old = window.chercher("rang(" + std::to_string(i) + ")")) window.retirer(*old);
    for (int i = 0; i < 40; ++i) {
      Contrôle &row = add("rang(" + std::to_string(i) + ")", Genre::étiquette);
      row.texte = std::to_string(i) + (told.empty() ? " avant" : " après");
      row.haut = 30;
      row.visible = i < 18;
    }
    told.emplace_back("changé");
  };
  show();
  player->click("changer");
  EXPECT_EQ(player->text("rang(17)"), "17 avant");
  player->click("changer");
  EXPECT_EQ(player->text("rang(17)"), "17 après");
  EXPECT_FALSE(player->shows("rang(18)"));
  EXPECT_EQ(window.contrôles().size(), 41U);
}

TEST_P(Windows, AControlMayTakeItselfOffAndHearsNothingOfIt) {
  Contrôle &row = add("rang", Genre::bouton);
  row.perte_du_focus = tell("perte");
  row.double_clic = tell("double clic");
  row.clic = [this, word = std::string("un mot assez long pour ne pas tenir dans la fonction")] {
    window.retirer(*window.chercher("rang"));
    player->windows().repeindre(window);
    told.push_back(word);
  };
  add("autre", Genre::texte);
  show();
  player->double_click("rang");
  EXPECT_THAT(told, ElementsAre("un mot assez long pour ne pas tenir dans la fonction"));
  EXPECT_FALSE(player->shows("rang"));
  EXPECT_NE(player->focus(), "rang");
}

TEST_P(Windows, AButtonThatIsTakenOffIsNobodysDefaultOrLabelAnyMore) {
  Contrôle &label = add("étiquette", Genre::étiquette);
  Contrôle &line = add("ligne", Genre::texte);
  line.étiquette = &label;
  Contrôle &ok = add("ok", Genre::bouton);
  ok.clic = tell("ok");
  window.bouton_défaut = window.bouton_annulation = &ok;
  show();
  window.retirer(label);
  window.retirer(ok);
  player->windows().repeindre(window);
  EXPECT_EQ(line.étiquette, nullptr);
  EXPECT_EQ(window.bouton_annulation, nullptr);
  player->press_enter("ligne");
  EXPECT_THAT(told, IsEmpty());
}

TEST_P(Windows, AModalWindowHoldsItsCallerUntilItCloses) {
  add("ouvrir", Genre::bouton).clic = [&] {
    told.emplace_back("avant");
    show_modal(dialog);
    told.emplace_back("après");
  };
  add("autre", Genre::bouton).clic = tell("autre");
  add(dialog, "fermer", Genre::bouton).clic = [&] {
    told.emplace_back("dedans");
    dialog.fermer();
  };
  show();
  player->then([&] {
    EXPECT_EQ(player->top(), "dialogue");
    EXPECT_FALSE(player->click("autre")) << "the window below takes nothing";
    EXPECT_TRUE(player->click("fermer"));
  });
  player->click("ouvrir");
  EXPECT_THAT(told, ElementsAre("avant", "dedans", "après"));
  EXPECT_EQ(player->top(), "fenêtre");
}

TEST_P(Windows, ModalWindowsNestAndTheOuterOneWaitsForTheInner) {
  Fenêtre inner{"intérieure"};
  inner.largeur = inner.hauteur = 100;
  add("ouvrir", Genre::bouton).clic = [&] {
    show_modal(dialog);
    told.emplace_back("dialogue");
  };
  add(dialog, "ouvrir", Genre::bouton).clic = [&] {
    show_modal(inner);
    told.emplace_back("intérieure");
  };
  add(inner, "fermer l'autre", Genre::bouton).clic = [&] { dialog.fermer(); };
  add(inner, "fermer", Genre::bouton).clic = [&] { inner.fermer(); };
  show();
  player->then([&] { player->click("ouvrir"); });
  player->then([&] {
    EXPECT_EQ(player->top(), "intérieure");
    player->click("fermer l'autre");
    EXPECT_THAT(told, IsEmpty());
    player->click("fermer");
  });
  player->click("ouvrir");
  EXPECT_THAT(told, ElementsAre("intérieure", "dialogue"));
}

TEST_P(Windows, AModalWindowWithoutTitleBarIsAWindowLikeAnother) {
  dialog.avec_titre = dialog.fermable = false;
  add("ouvrir", Genre::bouton).clic = [&] { show_modal(dialog); };
  add(dialog, "pastille", Genre::image).clic = [&] { dialog.fermer(); };
  show();
  player->then([&] {
    EXPECT_EQ(player->top(), "dialogue");
    EXPECT_FALSE(player->close());
    EXPECT_TRUE(player->click("pastille"));
  });
  player->click("ouvrir");
  EXPECT_EQ(player->top(), "fenêtre");
}

TEST_P(Windows, ABoxOverAModalWindowTakesEverythingUntilItIsAnswered) {
  add("ouvrir", Genre::bouton).clic = [&] { show_modal(dialog); };
  add(dialog, "demander", Genre::bouton).clic = [&] {
    const Réponse answer = player->boxes().montrer({Icône::question, "Titre", "Texte", Boutons::oui_non});
    told.emplace_back(answer == Réponse::oui ? "oui" : "non");
  };
  add(dialog, "fermer", Genre::bouton).clic = [&] {
    EXPECT_EQ(player->boxes().montrer({Icône::information, "Titre", "Texte"}), Réponse::ok);
    dialog.fermer();
  };
  show();
  for (const char *word : {"non", "oui"}) {
    player->then([&] { player->click("demander"); });
    player->then([this, word] {
      EXPECT_EQ(player->top(), "boîte");
      EXPECT_FALSE(player->click("fermer"));
      EXPECT_FALSE(player->close());
      EXPECT_FALSE(player->answer("ok")) << "the box has no such button";
      EXPECT_TRUE(player->answer(word));
    });
  }
  player->then([&] { player->click("fermer"); });
  player->then([&] { player->answer("ok"); });
  player->click("ouvrir");
  EXPECT_THAT(told, ElementsAre("non", "oui"));
}

TEST_P(Windows, AWindowIsActivatedWhenItComesUpAndWhenAModalOneUncoversItButNotByABox) {
  window.activation = tell("fenêtre");
  dialog.activation = tell("dialogue");
  add("ouvrir", Genre::bouton).clic = [&] { show_modal(dialog); };
  add(dialog, "boîte", Genre::bouton).clic = [&] {
    player->boxes().montrer({Icône::information, "Titre", "Texte"});
  };
  add(dialog, "fermer", Genre::bouton).clic = [&] { dialog.fermer(); };
  show();
  player->beat();
  EXPECT_THAT(told, ElementsAre("fenêtre"));
  player->then([&] { player->click("boîte"); });
  player->then([&] { player->answer("ok"); });
  player->then([&] { player->click("fermer"); });
  player->click("ouvrir");
  EXPECT_EQ(player->top(), "fenêtre");
  EXPECT_THAT(told, ElementsAre("fenêtre", "dialogue", "fenêtre"));
}

TEST_P(Windows, ActivationMayMoveTheFocus) {
  add("premier", Genre::texte).perte_du_focus = tell("perte");
  Contrôle &second = add("second", Genre::bouton);
  window.activation = [&] { window.focus = &second; };
  show();
  EXPECT_EQ(player->focus(), "second");
}

TEST_P(Windows, ActivationMayFillAListThatKeepsItsChoice) {
  Contrôle &list = add("liste", Genre::liste);
  list.hauteur = 80;
  list.éléments = {"b"};
  list.choix = 1;
  list.changement = tell("choix");
  Contrôle &line = add("ligne", Genre::texte);
  window.activation = [&] {
    list.éléments = {"a", "b", "c"};
    list.choix = 2;
    window.focus = &line;
  };
  show();
  EXPECT_THAT(player->items("liste"), ElementsAre("a", "b", "c"));
  EXPECT_EQ(player->choice("liste"), 2);
  EXPECT_EQ(player->focus(), "ligne");
  EXPECT_THAT(told, IsEmpty());
}

TEST_P(Windows, AModalWindowMayCloseUnderTheKeyOrTheMouse) {
  add("ouvrir", Genre::bouton).clic = [&] { show_modal(dialog); };
  const auto close = [&] {
    told.emplace_back("fermée");
    dialog.fermer();
  };
  Contrôle &list = add(dialog, "liste", Genre::liste);
  list.hauteur = 80;
  list.éléments = {"un", "deux"};
  list.double_clic = list.entrée = close;
  add(dialog, "nom", Genre::texte).entrée = close;
  dialog.demande_de_fermeture = close;
  show();
  const std::vector<std::function<void()>> ways = {
      [&] {
        player->select("liste", 2);
        player->double_click("liste");
      },
      [&] { player->press_enter("liste"); },
      [&] { player->press_enter("nom"); },
      [&] { player->close(); },
  };
  for (const auto &way : ways) {
    told.clear();
    player->then(way);
    player->click("ouvrir");
    EXPECT_THAT(told, ElementsAre("fermée"));
    EXPECT_EQ(player->top(), "fenêtre");
  }
}

TEST_P(Windows, TheCloseControlAsksTheWindowsHandlerOrCloses) {
  bool granted = false;
  window.demande_de_fermeture = [&] {
    told.emplace_back("demande");
    if (granted) window.fermer();
  };
  show();
  EXPECT_TRUE(player->close());
  EXPECT_TRUE(window.ouverte);
  EXPECT_EQ(player->top(), "fenêtre") << "a refusal leaves everything";
  granted = true;
  EXPECT_TRUE(player->close());
  EXPECT_EQ(player->top(), "");
  EXPECT_THAT(told, ElementsAre("demande", "demande"));

  player->windows().montrer(dialog);
  EXPECT_TRUE(player->close());
  EXPECT_FALSE(dialog.ouverte);
}

TEST_P(Windows, AWindowWithoutCloseControlStays) {
  window.fermable = false;
  window.demande_de_fermeture = tell("demande");
  show();
  EXPECT_FALSE(player->close());
  EXPECT_TRUE(window.ouverte);
  EXPECT_THAT(told, IsEmpty());
}

TEST_P(Windows, TheTimerBeatsUnderAModalWindowAndNotUnderABox) {
  player->main_window().tic = tell("tic");
  add("ouvrir", Genre::bouton).clic = [&] { show_modal(dialog); };
  add(dialog, "boîte", Genre::bouton).clic = [&] {
    player->boxes().montrer({Icône::information, "Titre", "Texte"});
    dialog.fermer();
  };
  show();
  EXPECT_TRUE(player->beat());
  player->then([&] {
    EXPECT_TRUE(player->beat());
    EXPECT_EQ(told.size(), 2U);
    player->click("boîte");
  });
  player->then([&] {
    EXPECT_FALSE(player->beat());
    player->answer("ok");
  });
  player->click("ouvrir");
  EXPECT_THAT(told, ElementsAre("tic", "tic"));
}

TEST_P(Windows, ATextThatTheTimerSynchronisesKeepsTheFocusAndIsNotChanged) {
  Contrôle &page = add("page", Genre::texte);
  page.multiligne = page.lignes_crlf = true;
  page.hauteur = 80;
  page.texte = "un\r\ndeux";
  page.changement = tell("changement");
  page.perte_du_focus = tell("perte");
  player->main_window().tic = [] {};
  show();
  for (int i = 0; i < 4; ++i) player->beat();
  EXPECT_THAT(told, IsEmpty());
  EXPECT_EQ(page.texte, "un\r\ndeux");
  EXPECT_EQ(player->focus(), "page");
}

INSTANTIATE_TEST_SUITE_P(Contract, Windows, testing::ValuesIn(front_ends()), front_end_name);

}  // namespace
}  // namespace ardane
