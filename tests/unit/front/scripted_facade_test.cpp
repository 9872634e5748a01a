#include "front/scripted/scripted_facade.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::ElementsAre;

class ScriptedWindows : public testing::Test {
 protected:
  Relevé relevé;
  FaçadeScriptée façade{relevé, relevé};
  BoîtesScriptées boîtes{relevé, relevé};
  Fenêtre dessous{"dessous"}, dessus{"dessus"};
};

TEST_F(ScriptedWindows, ABoxIsUpUntilThePlayerHasAnswered) {
  const Boîte *vue = nullptr;
  relevé.boîtes.réponses = {Réponse::non};
  relevé.boîtes.pendant = [&](const Boîte &) { vue = boîtes.affichée(); };
  const Boîte question{Icône::question, "Titre", "Texte ?", Boutons::oui_non};
  EXPECT_EQ(boîtes.montrer(question), Réponse::non);
  EXPECT_EQ(vue, &question);
  EXPECT_EQ(boîtes.affichée(), nullptr);
  ASSERT_EQ(relevé.boîtes.montrées.size(), 1U);
  EXPECT_EQ(relevé.boîtes.montrées[0].texte, "Texte ?");
}

TEST_F(ScriptedWindows, AModalWindowIsOnTopWhileThePlayerIsInItAndClosesAfterwards) {
  Fenêtre *vue = nullptr;
  relevé.façade.joueur = [&](Fenêtre &) { vue = façade.dessus(); };
  façade.montrer(dessous);
  façade.montrer_modale(dessus);
  EXPECT_EQ(vue, &dessus);
  EXPECT_FALSE(dessus.ouverte);
  EXPECT_THAT(façade.fenêtres(), ElementsAre(&dessous));
  EXPECT_THAT(relevé.façade.ouvertes, ElementsAre("dessous", "dessus"));
  façade.retirer(dessous);
  EXPECT_FALSE(dessous.ouverte);
  EXPECT_EQ(façade.dessus(), nullptr);
}

TEST_F(ScriptedWindows, APictureOfTheMapStandsWhereItsContainersPutIt) {
  Contrôle vue;
  vue.gauche = 10;
  vue.haut = 20;
  Contrôle image;
  image.conteneur = &vue;
  image.gauche = 1.5;
  image.haut = 2;
  image.largeur = 30;
  image.hauteur = 40;
  dessous.gauche = 100;
  dessous.haut = 200;
  EXPECT_EQ(façade.rectangle(dessous, image), (Rect{111, 222, 141, 262}));
}

TEST_F(ScriptedWindows, WhatLosesTheFocusIsTold) {
  Contrôle premier, second;
  int perdus = 0;
  premier.perte_du_focus = [&] { ++perdus; };
  façade.montrer(dessous);
  façade.porter_focus(dessous, premier);
  EXPECT_EQ(perdus, 0);
  dessous.focus = &second;
  façade.suivre();
  EXPECT_EQ(perdus, 1);
}

TEST_F(ScriptedWindows, AFocusThatComesBackElsewhereIsTold) {
  Contrôle premier, second;
  int perdus = 0;
  premier.perte_du_focus = [&] { ++perdus; };
  façade.montrer(dessous);
  façade.porter_focus(dessous, premier);
  dessous.activation = [&] { dessous.focus = &second; };
  façade.montrer_modale(dessus);
  façade.suivre();
  EXPECT_EQ(perdus, 1);
}

TEST(ScriptedWorld, KeepsItsSettingsInAFileWhereOneIsNamed) {
  const DossierTemporaire dossier;
  OptionsMonde options = options_factices();
  options.registre = dossier.fichier("registre");
  Relevé relevé;
  MondeScripté(options, relevé, relevé).registre->créer("HKEY_CURRENT_USER\\Clé");
  EXPECT_TRUE(MondeScripté(options, relevé, relevé).registre->existe("HKEY_CURRENT_USER\\Clé"));
  EXPECT_FALSE(MondeScripté(options_factices(), relevé, relevé).registre->existe("HKEY_CURRENT_USER\\Clé"));
}

}  // namespace
}  // namespace ardane
