#include "platform/controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "platform/fatal_error.h"
#include "platform/window_layout.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class WindowsAsData : public testing::Test {
 protected:
  Contrôle &ajouter(const std::string &nom, Genre genre, int rang = -1) {
    Contrôle contrôle;
    contrôle.nom = nom;
    contrôle.genre = genre;
    contrôle.ordre_tabulation = rang;
    return fenêtre.ajouter(std::move(contrôle));
  }
  std::vector<std::string> ordre() {
    std::vector<std::string> noms;
    for (const Contrôle *contrôle : ordre_du_clavier(fenêtre)) noms.push_back(contrôle->nom);
    return noms;
  }

  Fenêtre fenêtre{"fenêtre"};
};

TEST_F(WindowsAsData, TheKeyboardVisitsRanksFirstThenTheOthersAsTheyWereMade) {
  ajouter("b", Genre::bouton);
  ajouter("étiquette", Genre::étiquette, 0);
  ajouter("c", Genre::texte, 7);
  ajouter("a", Genre::liste, 1);
  ajouter("compteur", Genre::texte).lecture_seule = true;
  ajouter("d", Genre::texte, 7).lecture_seule = true;
  ajouter("tableau", Genre::image);
  ajouter("pastille", Genre::image, 2);
  ajouter("e", Genre::barre);
  EXPECT_THAT(ordre(), ElementsAre("a", "pastille", "c", "d", "b", "e"));
}

TEST_F(WindowsAsData, AFocusThatCannotBeGoesToTheNextAndRoundToTheFirst) {
  Contrôle &un = ajouter("un", Genre::bouton);
  Contrôle &deux = ajouter("deux", Genre::bouton);
  Contrôle &trois = ajouter("trois", Genre::bouton);
  fenêtre.focus = &deux;
  rectifier_focus(fenêtre);
  EXPECT_EQ(fenêtre.focus, &deux);
  deux.visible = false;
  rectifier_focus(fenêtre);
  EXPECT_EQ(fenêtre.focus, &trois);
  trois.actif = false;
  rectifier_focus(fenêtre);
  EXPECT_EQ(fenêtre.focus, &un);
  un.actif = false;
  rectifier_focus(fenêtre);
  EXPECT_EQ(fenêtre.focus, nullptr);
}

TEST_F(WindowsAsData, WhatIsSpokenIsTheFirstThatIsThere) {
  Contrôle &contrôle = ajouter("nom", Genre::bouton);
  Contrôle &étiquette = ajouter("étiquette", Genre::étiquette);
  EXPECT_EQ(nom_à_dire(contrôle), "");
  contrôle.infobulle = "bulle";
  EXPECT_EQ(nom_à_dire(contrôle), "bulle");
  contrôle.texte = "légende";
  EXPECT_EQ(nom_à_dire(contrôle), "légende");
  contrôle.étiquette = &étiquette;
  EXPECT_EQ(nom_à_dire(contrôle), "légende") << "a label without words names nothing";
  étiquette.texte = "étiqueté";
  EXPECT_EQ(nom_à_dire(contrôle), "étiqueté");
  contrôle.nom_parlé = "parlé";
  EXPECT_EQ(nom_à_dire(contrôle), "parlé");
}

TEST_F(WindowsAsData, WhatIsTypedInABoxIsNoNameOfIt) {
  Contrôle &boîte = ajouter("boîte", Genre::texte);
  boîte.texte = "Ann";
  EXPECT_EQ(nom_à_dire(boîte), "");
  boîte.lecture_seule = true;
  EXPECT_EQ(nom_à_dire(boîte), "Ann");
}

TEST_F(WindowsAsData, OnlyATextBoxHasABorderByItsKind) {
  EXPECT_TRUE(est_bordé(ajouter("texte", Genre::texte)));
  Contrôle &étiquette = ajouter("étiquette", Genre::étiquette);
  EXPECT_FALSE(est_bordé(étiquette));
  étiquette.bord = Bord::avec;
  EXPECT_TRUE(est_bordé(étiquette));
  étiquette.bord = Bord::sans;
  EXPECT_FALSE(est_bordé(étiquette));
}

TEST_F(WindowsAsData, LineEndsOfEveryKindBecomeTheControls) {
  Contrôle &boîte = ajouter("boîte", Genre::texte);
  for (const char *texte : {"un\ndeux\n\n", "un\r\ndeux\r\n\r\n", "un\rdeux\r\r", "un\r\ndeux\n\r"}) {
    EXPECT_EQ(lignes_simples(texte), "un\ndeux\n\n");
    boîte.lignes_crlf = false;
    EXPECT_EQ(lignes_du_contrôle(boîte, texte), "un\ndeux\n\n");
    boîte.lignes_crlf = true;
    EXPECT_EQ(lignes_du_contrôle(boîte, texte), "un\r\ndeux\r\n\r\n");
  }
  EXPECT_EQ(lignes_simples(""), "");
}

TEST_F(WindowsAsData, AControlTakenOffLeavesNothingThatPointsAtIt) {
  Contrôle &cadre = ajouter("cadre", Genre::cadre);
  Contrôle &dedans = ajouter("dedans", Genre::bouton);
  dedans.conteneur = &cadre;
  dedans.clic = [] {};
  Contrôle &autre = ajouter("autre", Genre::texte);
  autre.étiquette = &dedans;
  fenêtre.focus = fenêtre.bouton_défaut = fenêtre.bouton_annulation = &dedans;
  const auto avant = fenêtre.révision();
  fenêtre.retirer(cadre);
  EXPECT_NE(fenêtre.révision(), avant);
  EXPECT_EQ(fenêtre.contrôles().size(), 1U);
  EXPECT_EQ(fenêtre.focus, nullptr);
  EXPECT_EQ(fenêtre.bouton_défaut, nullptr);
  EXPECT_EQ(fenêtre.bouton_annulation, nullptr);
  EXPECT_EQ(autre.étiquette, nullptr);
  // Who still holds them can tell, until the front end has let go.
  EXPECT_TRUE(cadre.retiré);
  EXPECT_TRUE(dedans.retiré);
  EXPECT_FALSE(dedans.clic);
  fenêtre.oublier_retirés();
  EXPECT_EQ(fenêtre.chercher("dedans"), nullptr);
}

TEST_F(WindowsAsData, ManyTakenOffAtOnceGoWithWhatLiesInThemAndTheOthersStayInTheirOrder) {
  Contrôle &cadre = ajouter("cadre", Genre::cadre);
  Contrôle &premier = ajouter("premier", Genre::bouton);
  Contrôle &reste = ajouter("reste", Genre::texte);
  Contrôle &dedans = ajouter("dedans", Genre::bouton);
  Contrôle &dernier = ajouter("dernier", Genre::bouton);
  dedans.conteneur = &cadre;
  reste.étiquette = fenêtre.focus = &premier;
  fenêtre.retirer(std::array{&premier, &cadre});
  EXPECT_TRUE(cadre.retiré && premier.retiré && dedans.retiré);
  EXPECT_FALSE(reste.retiré || dernier.retiré);
  EXPECT_EQ(reste.étiquette, nullptr);
  EXPECT_EQ(fenêtre.focus, nullptr);
  EXPECT_EQ(&fenêtre.contrôles().front(), &reste);
  EXPECT_EQ(&fenêtre.contrôles().back(), &dernier);
  fenêtre.retirer(std::span<Contrôle *const>());
  EXPECT_EQ(fenêtre.contrôles().size(), 2U);
}

TEST_F(WindowsAsData, OfManyNoneIsTakenOffWhereOneCannotBe) {
  Fenêtre autre("autre");
  Contrôle &étranger = autre.ajouter({.nom = "étranger"});
  Contrôle &bouton = ajouter("bouton", Genre::bouton);
  EXPECT_THROW(fenêtre.retirer(std::array{&bouton, &étranger}), ErreurFatale);
  EXPECT_FALSE(bouton.retiré || étranger.retiré);
  EXPECT_EQ(fenêtre.contrôles().size(), 1U);
}

TEST_F(WindowsAsData, ABarKeepsWithinItsRangeAndTellsOfAMove) {
  Contrôle &barre = ajouter("barre", Genre::barre);
  std::vector<int> valeurs;
  barre.changement = [&] { valeurs.push_back(barre.valeur); };
  fixer_bornes(barre, 2, 9);
  fixer_valeur(barre, 12);
  fixer_valeur(barre, 9);
  fixer_bornes(barre, 2, 5);
  EXPECT_THAT(valeurs, ElementsAre(2, 9, 5));
}

TEST_F(WindowsAsData, AControlThatAWindowDoesNotHaveIsAFatalError) {
  try {
    contrôle(fenêtre, "absent");
    FAIL() << "found";
  } catch (const ErreurFatale &erreur) {
    EXPECT_THAT(erreur.what(), HasSubstr("Contrôle inconnu : absent"));
    EXPECT_THAT(erreur.what(), Not(HasSubstr("platform/"))) << "the place is told by its file alone";
  }
}

TEST_F(WindowsAsData, MenuEntriesStayAndSoDoTheControlsOfOthers) {
  Contrôle &menu = ajouter("menu", Genre::menu);
  EXPECT_THROW(fenêtre.retirer(menu), ErreurFatale);
  Fenêtre autre("autre");
  EXPECT_THROW(autre.retirer(ajouter("bouton", Genre::bouton)), ErreurFatale);
  EXPECT_EQ(fenêtre.contrôles().size(), 2U);
}

TEST_F(WindowsAsData, WhatRunsMayTakeItselfAway) {
  std::vector<std::string> dits;
  Contrôle &bouton = ajouter("bouton", Genre::bouton);
  bouton.clic = [&dits, this, mot = std::string("un mot qui ne tient pas dans la fonction même")] {
    fenêtre.retirer(*fenêtre.chercher("bouton"));
    fenêtre.oublier_retirés();
    dits.push_back(mot);
  };
  cliquer(fenêtre, bouton);
  EXPECT_THAT(dits, ElementsAre("un mot qui ne tient pas dans la fonction même"));
  EXPECT_THAT(fenêtre.contrôles(), IsEmpty());
}

}  // namespace
}  // namespace ardane
