#include "screens/welcome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/window_layout.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::StartsWith;

class Welcome : public testing::Test {
 protected:
  Welcome() { m.démarrer(); }
  void régler_écran(int largeur, int hauteur, int bits, std::vector<Mode_écran> modes) {
    m.écran.taille = {largeur, hauteur};
    m.écran.bits = bits;
    m.écran.modes_listés = std::move(modes);
    fenêtre = std::make_unique<Patience>(m.c());
  }
  Contrôle &k(std::string_view nom) { return contrôle(*fenêtre, nom); }
  std::string conseil() { return k("Conseil").texte; }
  std::string mode_affiché() {
    const std::string &texte = k("Commentaire").texte;
    return texte.substr(message(m.g(), Message::bienvenue).size());
  }

  MondeFactice m;
  std::unique_ptr<Patience> fenêtre;
};

constexpr Couleur rouge_du_conseil{255, 0, 0}, noir{0, 0, 0}, bleu{0, 0, 255};

TEST_F(Welcome, ItGreetsTellsTheScreenAndMeasuresIt) {
  régler_écran(1280, 1024, 32, {});
  EXPECT_EQ(fenêtre->titre, "Chargement du programme en cours...  (Version 1.00 du 24/02/2007)");
  EXPECT_THAT(k("Commentaire").texte, StartsWith("Bienvenue\n"));
  EXPECT_EQ(mode_affiché(), "1280x1024  [ Couleurs 32 bits]");
  EXPECT_EQ(k("Adresse").texte, message(m.g(), Message::dernières_versions_sur_le_site));
  EXPECT_EQ(k("Adresse").couleur, Teinte(bleu));
  EXPECT_EQ(m.g().Largeur_écran, 1280);
  EXPECT_EQ(m.g().Hauteur_écran, 1024);
  EXPECT_EQ(m.g().Couleurs_écran, 32);
  EXPECT_EQ(fenêtre->gauche, 390);
  EXPECT_EQ(fenêtre->haut, 371);
  EXPECT_FALSE(fenêtre->fermable);
}

TEST_F(Welcome, EveryDepthHasItsWordsAndAnUnknownOneLeavesTheBracketOpen) {
  const std::pair<int, const char *> profondeurs[] = {{4, "16  Couleurs]"},       {8, "256 Couleurs]"},
                                                      {16, "65536 Couleurs]"},    {24, " Couleurs 24 bits]"},
                                                      {32, " Couleurs 32 bits]"}, {15, ""}};
  for (const auto &[bits, mots] : profondeurs) {
    régler_écran(1024, 768, bits, {});
    EXPECT_EQ(mode_affiché(), std::string("1024x768  [") + mots);
  }
}

TEST_F(Welcome, AWideScreenWithoutAWiderModeIsFine) {
  régler_écran(768, 600, 32, {{768, 600, 32}});
  EXPECT_EQ(conseil(), "Cette résolution est convenable pour jouer confortablement");
  EXPECT_EQ(k("Conseil").couleur, Teinte(noir));
}

TEST_F(Welcome, AWideScreenWithAWiderModeHearsOfItInBlack) {
  régler_écran(800, 600, 32, {{800, 600, 32}, {1024, 768, 32}});
  EXPECT_EQ(conseil(), message(m.g(), Message::résolution_possible) + "1024x768  [ Couleurs 32 bits] ; " +
                           message(m.g(), Message::résolution_actuelle_satisfaisante));
  EXPECT_EQ(k("Conseil").couleur, Teinte(noir));
}

TEST_F(Welcome, ANarrowScreenWithAWiderModeIsAdvisedInRed) {
  régler_écran(640, 480, 16, {{800, 600, 16}});
  EXPECT_EQ(conseil(), message(m.g(), Message::résolution_possible) + "800x600  [65536 Couleurs]" +
                           message(m.g(), Message::éviterait_de_se_déplacer));
  EXPECT_EQ(k("Conseil").couleur, Teinte(rouge_du_conseil));
}

TEST_F(Welcome, ANarrowScreenWithoutAWiderModeHearsNothing) {
  régler_écran(640, 480, 16, {{640, 480, 32}});
  EXPECT_EQ(conseil(), "");
  EXPECT_EQ(k("Conseil").couleur, Teinte(rouge_du_conseil));
}

TEST_F(Welcome, AWiderModeOf8BitsIsIgnored) {
  régler_écran(640, 480, 8, {{1600, 1200, 8}});
  EXPECT_FALSE(Chercher_mode_supérieur(m.c()));
  EXPECT_EQ(m.g().Modes_écran(0).largeur, 640);
  EXPECT_EQ(m.g().Modes_écran(0).couleurs, 8);
}

TEST_F(Welcome, OfModesThatAllHave8BitsOrANegativeSizeNoneIsKept) {
  for (const Mode_écran &mode : {Mode_écran{1600, 1200, 8}, Mode_écran{-1600, -1200, 32}}) {
    régler_écran(640, 480, 32, std::vector<Mode_écran>(40, mode));
    EXPECT_EQ(m.g().Nombre_modes, 36);
    EXPECT_EQ(m.g().Modes_écran(0).largeur, 640);
    EXPECT_EQ(conseil(), "");
  }
}

TEST_F(Welcome, TheWidestThenTheDeepestThenTheFirstModeIsTold) {
  régler_écran(640, 480, 16,
               {{800, 1, 32}, {1024, 2, 16}, {1024, 3, 32}, {1024, 4, 32}, {1000, 5, 32}, {-1, -1, 32}});
  EXPECT_EQ(m.g().Modes_écran(0).largeur, 1024);
  EXPECT_EQ(m.g().Modes_écran(0).hauteur, 3);
  EXPECT_EQ(m.g().Modes_écran(0).couleurs, 32);
}

TEST_F(Welcome, AnyNumberOfModesIsKeptTheArrayGrowingByTens) {
  const std::pair<int, int> cas[] = {{0, 36}, {36, 36}, {37, 46}, {46, 46}, {47, 56}, {500, 506}};
  for (const auto &[nombre, capacité] : cas) {
    std::vector<Mode_écran> modes;
    for (int i = 1; i <= nombre; ++i) modes.push_back({1000 + i, i, 32});
    régler_écran(640, 480, 32, modes);
    EXPECT_EQ(m.g().Nombre_modes, capacité) << nombre;
    for (int i = 1; i <= nombre; ++i) EXPECT_EQ(m.g().Modes_écran(i).largeur, 1000 + i);
    if (nombre > 0) EXPECT_EQ(m.g().Modes_écran(0).largeur, 1000 + nombre);
  }
}

TEST_F(Welcome, ItStandsWhileTheProgramLoadsAndGoesWhenTheMapIsThere) {
  MondeFactice autre;
  autre.boîtes.pendant = [&](const Boîte &boîte) {
    if (boîte.titre == "Création du fichier Info")
      EXPECT_THAT(autre.façade.ouvertes, testing::ElementsAre("Patience"));
  };
  ASSERT_TRUE(autre.programme.Démarrage(autre.dossier.chemin()));
  EXPECT_THAT(autre.façade.ouvertes, testing::ElementsAre("Patience", "Ecran_principal"));
  ASSERT_EQ(autre.monde.façade.fenêtres().size(), 1U);
  EXPECT_EQ(autre.monde.façade.fenêtres().front()->nom, "Ecran_principal");
}

}  // namespace
}  // namespace ardane
