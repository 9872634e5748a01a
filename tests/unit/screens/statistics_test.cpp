#include "screens/statistics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text_encoding.h"
#include "platform/window_layout.h"
#include "screens/statistics_file.h"
#include "support/fake_world.h"
#include "support/refused_file.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

constexpr Couleur vert{0, 255, 0}, rouge{255, 0, 0};
constexpr Teinte neutre = Couleur_système::barre_de_défilement;

class Statistics : public testing::Test {
 protected:
  Statistics() {
    m.démarrer();
    m.nouvelle_partie(1);
    m.oublier();
  }
  Stats &f() {
    if (!fenêtre) {
      fenêtre = std::make_unique<Stats>(m.c());
      fenêtre->ouverte = true;
    }
    return *fenêtre;
  }
  Contrôle &k(std::string_view nom) { return contrôle(f(), nom); }
  Contrôle &k(std::string_view nom, int i) { return contrôle(f(), indexé(nom, i)); }
  void montrer(std::string_view bouton) { cliquer(f(), k(bouton)); }
  GameState &g() { return m.g(); }
  std::vector<int> premiers(int nombre) {
    return {g().OrdreTableau.begin() + 1, g().OrdreTableau.begin() + 1 + nombre};
  }
  void exclure(int province) {
    g().TableProvinces(province).inhibée = true;
    m.nouvelle_partie(1);
  }
  /// Provinces 1 to `nombre` alone are in play.
  void ne_jouer_qu_avec(int nombre) {
    for (int p = nombre + 1; p <= nombre_provinces; ++p) g().TableProvinces(p).inhibée = true;
    m.nouvelle_partie(1);
  }

  MondeFactice m;
  std::unique_ptr<Stats> fenêtre;
};

TEST_F(Statistics, WithNothingLostTheTablesAreInTableOrder) {
  Trier_provinces(g());
  EXPECT_THAT(premiers(4), ElementsAre(1, 2, 3, 4));
  Trier_régions(g());
  EXPECT_THAT(premiers(3), ElementsAre(1, 2, 3));
  Trier_villes(g());
  EXPECT_THAT(premiers(3), ElementsAre(1, 2, 3));
}

TEST_F(Statistics, TheMostCostlyComesFirstAndTiesStayInTableOrder) {
  g().TableProvinces(50).points_perdus(0) = 7;
  g().TableProvinces(3).points_perdus(0) = 7;
  g().TableProvinces(110).points_perdus(0) = 1023;
  g().TableProvinces(1).points_perdus(0) = -1;
  Trier_provinces(g());
  EXPECT_THAT(premiers(4), ElementsAre(110, 3, 50, 2));
  EXPECT_EQ(g().OrdreTableau(110), 1);
  g().TableVilles(300).points_perdus = 2;
  g().TableVilles(200).points_perdus = 2;
  Trier_villes(g());
  EXPECT_THAT(premiers(3), ElementsAre(200, 300, 1));
}

TEST_F(Statistics, AProvinceIsRankedByItsTotalAlone) {
  g().TableProvinces(9).points_perdus(étape_villes) = 500;
  g().TableProvinces(8).points_perdus(0) = 1;
  Trier_provinces(g());
  EXPECT_THAT(premiers(2), ElementsAre(8, 1));
}

TEST_F(Statistics, WhatIsLeftOutOfPlayHasNoRow) {
  exclure(2);
  EXPECT_EQ(nombre_de_lignes(g(), Tableau::provinces), 109);
  Trier_provinces(g());
  EXPECT_THAT(premiers(3), ElementsAre(1, 3, 4));
  Trier_villes(g());
  EXPECT_THAT(premiers(nombre_de_lignes(g(), Tableau::villes)), testing::Not(testing::Contains(2)));
}

TEST_F(Statistics, ACellIsColouredByWhatTheObjectCostAndToldInWords) {
  const struct {
    Coût coût;
    int étape;
    Teinte fond;
    const char *mots;
  } cas[] = {{{0, true, false}, étape_villes, vert, "trouvé du premier coup"},
             {{0, true, true}, étape_villes, vert, "trouvé du premier coup"},
             {{5, true, false}, étape_villes, neutre, "trouvé"},
             {{0, false, true}, étape_villes, neutre, "pas joué"},
             {{5, false, true}, étape_villes, neutre, "pas joué"},
             {{0, false, false}, étape_villes, rouge, "pas trouvé"},
             {{5, false, false}, étape_villes, rouge, "pas trouvé"},
             {{5, false, false}, étape_drapeaux, neutre, "pas joué"}};
  g().Ordre_jeux(4) = aucun_jeu;
  for (const auto &c : cas) {
    EXPECT_EQ(couleur_de_cellule(g(), c.coût, c.étape), c.fond);
    EXPECT_EQ(mots_de_cellule(g(), c.coût, c.étape), c.mots);
  }
}

TEST_F(Statistics, ARegionIsOutOfPlayWhenAllItsProvincesAre) {
  const int région = g().TableProvinces(1).région;
  EXPECT_FALSE(Région_hors_jeu(g(), région));
  for (int p = 1; p <= nombre_provinces; ++p)
    if (g().TableProvinces(p).région == région) g().TableProvinces(p).inhibée = true;
  EXPECT_TRUE(Région_hors_jeu(g(), région));
  EXPECT_TRUE(coût_de_région(g(), région).hors_jeu);
}

TEST_F(Statistics, ItOpensOnTheProvincesWithFourColumns) {
  g().TableProvinces(7).points_perdus = Table<std::int32_t, 0, nombre_jeux>({60, 10, 20, 30, 0});
  g().TableProvinces(7).trouvée_étape(étape_drapeaux) = true;
  EXPECT_EQ(f().titre, "Statistiques");
  EXPECT_EQ(k("Baratin").texte, message(g(), Message::explication_des_statistiques));
  EXPECT_EQ(k("EntêteColonne1").texte, "Province : ");
  EXPECT_EQ(k("EntêteVilles").texte, "Recherche des villes");
  EXPECT_EQ(k("EntêteDrapeaux").texte, "Recherche des drapeaux");
  EXPECT_EQ(k("EntêteProvinces").texte, "Recherche des provinces");
  EXPECT_FALSE(k("EntêtePerteColonne1").visible);
  EXPECT_EQ(k("NomProvince", 1).texte, g().TableProvinces(7).nom);
  EXPECT_EQ(k("PerteVilles", 1).texte, "20");
  EXPECT_EQ(k("PerteDrapeaux", 1).texte, "30");
  EXPECT_EQ(k("PerteProvinces", 1).texte, "10");
  EXPECT_EQ(k("PerteDrapeaux", 1).fond, neutre);
  EXPECT_EQ(k("PerteVilles", 1).fond, Teinte(rouge));
  EXPECT_FALSE(k("BoutonProvinces").actif);
  EXPECT_TRUE(k("BoutonRégions").actif && k("BoutonVilles").actif);
}

TEST_F(Statistics, RegionsAndTownsHaveTwoColumns) {
  g().TableRégions(3).points_perdus = 40;
  g().TableVilles(2).points_perdus = 50;
  g().TableVilles(2).trouvée_étape = true;
  montrer("BoutonRégions");
  EXPECT_EQ(k("EntêteColonne1").texte, "Régions");
  EXPECT_EQ(k("EntêtePerteColonne1").texte, "Points perdus");
  EXPECT_FALSE(k("EntêteVilles").visible || k("EntêteDrapeaux").visible || k("EntêteProvinces").visible);
  EXPECT_EQ(k("NomColonne1", 1).texte, g().TableRégions(3).nom);
  EXPECT_EQ(k("PerteColonne1", 1).texte, "40");
  EXPECT_FALSE(k("NomProvince", 1).visible || k("PerteProvinces", 1).visible);
  montrer("BoutonVilles");
  EXPECT_EQ(k("EntêteColonne1").texte, "Ville");
  EXPECT_EQ(k("NomColonne1", 1).texte, g().TableVilles(2).nom + " (" + g().TableProvinces(2).nom + ")");
  EXPECT_EQ(k("PerteColonne1", 1).nom_parlé, "50, trouvé");
  EXPECT_FALSE(k("BoutonVilles").actif);
}

TEST_F(Statistics, EighteenRowsFitAndTheRestIsScrolledTo) {
  for (int i = 1; i <= 18; ++i) EXPECT_TRUE(k("NomProvince", i).visible) << i;
  EXPECT_FALSE(k("NomProvince", 19).visible);
  EXPECT_NEAR(k("NomProvince", 18).haut, 120 + 17 * 16.8, 1e-9);
  const Contrôle &barre = k("BarreVerticale");
  EXPECT_TRUE(barre.visible);
  EXPECT_EQ(barre.max, 92);
  EXPECT_EQ(barre.petit_pas, 1);
  EXPECT_EQ(barre.grand_pas, 3);
  EXPECT_EQ(barre.gauche, 389);
}

TEST_F(Statistics, AtTheBarsMaximumTheLastObjectStandsInTheLastVisibleRow) {
  fixer_valeur(k("BarreVerticale"), 92);
  EXPECT_EQ(k("NomProvince", 18).texte, g().TableProvinces(110).nom);
  EXPECT_EQ(k("NomProvince", 1).texte, g().TableProvinces(93).nom);
  montrer("BoutonVilles");
  EXPECT_EQ(k("BarreVerticale").valeur, 0);
  EXPECT_EQ(k("BarreVerticale").gauche, 245);
  fixer_valeur(k("BarreVerticale"), 330);
  EXPECT_EQ(k("BarreVerticale").valeur, 312);
  EXPECT_EQ(k("NomColonne1", 18).texte,
            g().TableVilles(330).nom + " (" + g().TableProvinces(g().TableVilles(330).province).nom + ")");
}

TEST_F(Statistics, RowsOfATableGoWithIt) {
  f();
  EXPECT_NE(f().chercher("NomProvince(110)"), nullptr);
  montrer("BoutonRégions");
  EXPECT_EQ(f().chercher("NomProvince(2)"), nullptr);
  EXPECT_NE(f().chercher("NomColonne1(20)"), nullptr);
  EXPECT_EQ(f().chercher("NomColonne1(21)"), nullptr);
  montrer("BoutonProvinces");
  EXPECT_EQ(f().chercher("NomColonne1(2)"), nullptr);
  EXPECT_FALSE(k("NomColonne1", 1).visible || k("PerteColonne1", 1).visible);
}

TEST_F(Statistics, AShortTableShowsNoBarButTheProvincesKeepThatOfTheTableBefore) {
  ne_jouer_qu_avec(9);
  EXPECT_FALSE(k("BarreVerticale").visible);
  montrer("BoutonVilles");
  ASSERT_GT(g().VillesEnJeu, 18);
  EXPECT_TRUE(k("BarreVerticale").visible);
  montrer("BoutonProvinces");
  EXPECT_TRUE(k("BarreVerticale").visible) << "a quirk: nobody hides it here";
  EXPECT_FALSE(k("NomProvince", 9).texte.empty());
  montrer("BoutonRégions");
  EXPECT_FALSE(k("BarreVerticale").visible);
}

TEST_F(Statistics, TheBarThatStaysMovesTheShortTableOutOfTheTop) {
  ne_jouer_qu_avec(9);
  montrer("BoutonVilles");
  montrer("BoutonProvinces");
  fixer_valeur(k("BarreVerticale"), 2);
  EXPECT_EQ(k("NomProvince", 1).texte, g().TableProvinces(3).nom);
  EXPECT_EQ(k("NomProvince", 7).texte, g().TableProvinces(9).nom);
  EXPECT_EQ(k("NomProvince", 8).texte, g().TableProvinces(8).nom) << "rows below the last keep their texts";
}

TEST_F(Statistics, AfterTheFileIsWrittenScrollingReadsTheOrderOfTheTowns) {
  g().TableVilles(5).points_perdus = 9;
  const std::string avant = k("NomProvince", 1).texte;
  montrer("BoutonSauvegarde");
  EXPECT_EQ(g().OrdreTableau(1), 5);
  EXPECT_EQ(k("NomProvince", 1).texte, avant);
  fixer_valeur(k("BarreVerticale"), 1);
  EXPECT_EQ(k("NomProvince", 1).texte, g().TableProvinces(1).nom);
  montrer("BoutonRégions");
  montrer("BoutonSauvegarde");
  montrer("BoutonProvinces");
  EXPECT_EQ(k("NomProvince", 1).texte, avant);
}

TEST_F(Statistics, ATownsNumberBeyondTheTableOfProvincesIsAFatalError) {
  g().TableVilles(200).points_perdus = 9;
  f();
  montrer("BoutonSauvegarde");
  EXPECT_THROW(
      {
        fixer_valeur(k("BarreVerticale"), 1);
        fixer_valeur(k("BarreVerticale"), 0);
      },
      ErreurFatale);
}

TEST_F(Statistics, ATownsNumberBeyondTheTableOfRegionsIsAFatalErrorToo) {
  g().TableVilles(200).points_perdus = 9;
  montrer("BoutonRégions");
  montrer("BoutonSauvegarde");
  EXPECT_THROW(
      {
        fixer_valeur(k("BarreVerticale"), 1);
        fixer_valeur(k("BarreVerticale"), 0);
      },
      ErreurFatale);
}

TEST_F(Statistics, ZerosInFrontBecomeBlanksAndANegativeNumberStays) {
  EXPECT_EQ(Sans_zéros("000000"), "     0");
  EXPECT_EQ(Sans_zéros("000125"), "   125");
  EXPECT_EQ(Sans_zéros("999999"), "999999");
  EXPECT_EQ(Sans_zéros("100000"), "100000");
  EXPECT_EQ(Sans_zéros("-00005"), "-00005");
}

class StatisticsFile : public Statistics {
 protected:
  std::string texte() {
    Ecrire_statistiques(m.c());
    return depuis_windows_1252(lire_fichier(fichier));
  }
  std::string fichier = m.dossier.fichier("ARDA_STA.TXT");
};

TEST_F(StatisticsFile, ThreeTablesStandOneUnderTheOther) {
  ne_jouer_qu_avec(1);
  Fiche_province &p = g().TableProvinces(1);
  p.points_perdus = Table<std::int32_t, 0, nombre_jeux>({125, 125, 0, 0, 0});
  p.trouvée_étape(étape_drapeaux) = true;
  std::size_t plus_longue_province = 0, plus_longue_région = 0, plus_longue_ville = 0;
  for (int i = 1; i <= nombre_provinces; ++i)
    plus_longue_province =
        std::max(plus_longue_province, vers_windows_1252_au_mieux(g().TableProvinces(i).nom).size());
  for (int i = 1; i <= nombre_régions; ++i)
    plus_longue_région =
        std::max(plus_longue_région, vers_windows_1252_au_mieux(g().TableRégions(i).nom).size());
  for (int i = 1; i <= nombre_villes; ++i)
    plus_longue_ville =
        std::max(plus_longue_ville, vers_windows_1252_au_mieux(g().TableVilles(i).nom).size());
  const auto blancs = [](std::size_t plus_long, const std::string &nom) {
    return std::string(plus_long - vers_windows_1252_au_mieux(nom).size() + 5, ' ') + "\t";
  };
  std::string attendu = "Recherche des provinces/Recherche des drapeaux/Recherche des villes\r\n" + p.nom +
                        blancs(plus_longue_province, p.nom) + "   125\t     0\t------\r\n\r\n\r\nRégions\r\n";
  const std::string région = g().TableRégions(p.région).nom;
  attendu += région + blancs(plus_longue_région, région) + "------\r\n\r\n\r\nRecherche des villes\r\n";
  for (int v = 1; v <= nombre_villes; ++v) {
    const Fiche_ville &ville = g().TableVilles(v);
    if (ville.province == 1)
      attendu += ville.nom + " (" + p.nom + ")" + blancs(plus_longue_ville, ville.nom) + "------\r\n";
  }
  EXPECT_EQ(texte(), attendu);
}

TEST_F(StatisticsFile, ItsEndIsToldWithThePath) {
  texte();
  ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
  EXPECT_EQ(m.dernière_boîte().icône, Icône::information);
  EXPECT_EQ(m.dernière_boîte().titre, "Statistiques");
  EXPECT_EQ(m.dernière_boîte().texte, "Vos statistiques ont été enregistrées dans le fichier " + fichier);
}

TEST_F(StatisticsFile, OneThatCannotBeWrittenIsToldAndTheOlderOneStays) {
  attendre_refus_d_écrire(m, fichier, [this] { Ecrire_statistiques(m.c()); });
}

TEST_F(StatisticsFile, TownsOfEqualPointsStandInTableOrder) {
  g().TableVilles(40).points_perdus = g().TableVilles(12).points_perdus = 3;
  const std::string liste = texte();
  EXPECT_LT(liste.find(g().TableVilles(12).nom + " ("), liste.find(g().TableVilles(40).nom + " ("));
}

}  // namespace
}  // namespace ardane
