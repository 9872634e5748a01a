#include "screens/palette.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/resources.h"
#include "platform/window_layout.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

class PaletteWindow : public testing::Test {
 protected:
  PaletteWindow() { m.démarrer(); }
  /// Opens the palette of a menu entry and clicks there.
  void choisir_dans(std::string_view entrée, std::string_view cible) {
    m.façade.joueur = [&](Fenêtre &fenêtre) {
      EXPECT_EQ(fenêtre.nom, "Palette");
      cliquer(fenêtre, contrôle(fenêtre, cible));
      EXPECT_FALSE(fenêtre.ouverte);
    };
    cliquer(m.e(), m.e().menu(entrée));
    m.façade.joueur = nullptr;
  }
  const std::string &image(const Contrôle &contrôle) { return m.c().ressources.images.nom(contrôle.image); }

  MondeFactice m;
};

TEST_F(PaletteWindow, FortySwatchesStandInFiveRowsOfEight) {
  Palette palette(m.c());
  EXPECT_EQ(palette.largeur, 132);
  EXPECT_EQ(palette.hauteur, 99);
  EXPECT_FALSE(palette.avec_titre || palette.fermable);
  for (int n = 1; n <= 40; ++n) {
    const Contrôle &pastille = contrôle(palette, indexé("ChoixCouleur", n));
    EXPECT_EQ(pastille.gauche, 8 + 16 * ((n - 1) % 8)) << n;
    EXPECT_EQ(pastille.haut, 24 + 16 * ((n - 1) / 8)) << n;
    EXPECT_EQ(pastille.largeur, 7);
    EXPECT_EQ(pastille.hauteur, 8);
    EXPECT_EQ(image(pastille), indexé("ChoixCouleur", n));
  }
}

TEST_F(PaletteWindow, ASwatchSaysItsColour) {
  Palette palette(m.c());
  const std::pair<int, const char *> noms[] = {{1, "Noir"},        {8, "Gris - 80%"}, {16, "Gris 50%"},
                                               {21, "Vert d'eau"}, {26, "Or"},        {33, "Rose saumon"},
                                               {39, "Lavande"},    {40, "Blanc"}};
  for (const auto &[n, nom] : noms) {
    EXPECT_EQ(contrôle(palette, indexé("ChoixCouleur", n)).infobulle, nom);
    EXPECT_EQ(nom_à_dire(contrôle(palette, indexé("ChoixCouleur", n))), nom);
  }
}

TEST_F(PaletteWindow, TheColourOfTheCapitalsGoesToAllOfThemAndTheirTemplate) {
  const std::string autre = image(m.e().RondVille(111));
  choisir_dans("MenuCouleurPréfectures", "ChoixCouleur(5)");
  EXPECT_EQ(m.g().Palette_cible, 2);
  for (int v = 0; v <= nombre_provinces; ++v) EXPECT_EQ(image(m.e().RondPref(v)), "ChoixCouleur(5)") << v;
  EXPECT_EQ(image(m.e().RondVille(111)), autre);
  EXPECT_EQ(image(m.e().RondVille(0)), autre);
}

TEST_F(PaletteWindow, TheColourOfTheOtherTownsGoesToAllOfThemAndTheirTemplate) {
  choisir_dans("MenuCouleurSousPréfectures", "ChoixCouleur(40)");
  EXPECT_EQ(m.g().Palette_cible, 1);
  EXPECT_EQ(image(m.e().RondVille(0)), "ChoixCouleur(40)");
  for (int v = 111; v <= nombre_villes; ++v) EXPECT_EQ(image(m.e().RondVille(v)), "ChoixCouleur(40)") << v;
  EXPECT_NE(image(m.e().RondPref(1)), "ChoixCouleur(40)");
}

TEST_F(PaletteWindow, BothFamiliesCanHaveTheSameColour) {
  choisir_dans("MenuCouleurPréfectures", "ChoixCouleur(9)");
  choisir_dans("MenuCouleurSousPréfectures", "ChoixCouleur(9)");
  EXPECT_EQ(image(m.e().RondPref(3)), image(m.e().RondVille(300)));
}

TEST_F(PaletteWindow, AChoiceDuringAGameChangesTheMarkersOnTheMapAndLaterOnes) {
  m.nouvelle_partie(1);
  const bool visible = m.e().RondPref(4).visible;
  const double gauche = m.e().RondPref(4).gauche;
  choisir_dans("MenuCouleurPréfectures", "ChoixCouleur(17)");
  EXPECT_EQ(image(m.e().RondPref(4)), "ChoixCouleur(17)");
  EXPECT_EQ(m.e().RondPref(4).visible, visible);
  EXPECT_EQ(m.e().RondPref(4).gauche, gauche);
  m.nouvelle_partie(2);
  EXPECT_EQ(image(m.e().RondPref(4)), "ChoixCouleur(17)");
}

TEST_F(PaletteWindow, ItsClosingPictureChangesNothingAndEscapePressesIt) {
  const std::string avant = image(m.e().RondPref(1));
  choisir_dans("MenuCouleurPréfectures", "BoutonFermeture");
  EXPECT_EQ(image(m.e().RondPref(1)), avant);
  Palette palette(m.c());
  palette.ouverte = true;
  presser(palette.bouton_annulation);
  EXPECT_FALSE(palette.ouverte);
}

TEST_F(PaletteWindow, AnotherTargetThanTheTwoFamiliesChangesNothing) {
  const std::string avant = image(m.e().RondVille(0)) + image(m.e().RondPref(0));
  m.g().Palette_cible = 3;
  Palette palette(m.c());
  palette.ouverte = true;
  cliquer(palette, contrôle(palette, "ChoixCouleur(2)"));
  EXPECT_FALSE(palette.ouverte);
  EXPECT_EQ(image(m.e().RondVille(0)) + image(m.e().RondPref(0)), avant);
}

TEST_F(PaletteWindow, TheNextStartShowsTheDesignedMarkers) {
  const std::string avant = image(m.e().RondPref(1));
  choisir_dans("MenuCouleurPréfectures", "ChoixCouleur(2)");
  MondeFactice suivant;
  suivant.démarrer();
  EXPECT_EQ(suivant.c().ressources.images.nom(suivant.e().RondPref(1).image), avant);
}

}  // namespace
}  // namespace ardane
