#include "core/gazetteer.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "core/embedded.h"
#include "map/layers.h"
#include "map/map_reset.h"
#include "map/visibility_rules.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

/// The loaders over a string table of the test's own.
class Lecteur {
 public:
  explicit Lecteur(const std::string &texte) : ressources_{TableChaînes(texte), CatalogueImages()} {}
  GameState &g() { return m_.g(); }
  Contexte &c() { return contexte_; }
  void lire_tables() {
    Lire_régions(contexte_);
    Lire_provinces(contexte_);
    Lire_capitales(contexte_);
    Lire_villes(contexte_);
  }

 private:
  MondeFactice m_;
  Ressources ressources_;
  Contexte contexte_{m_.g(), m_.e(), m_.c().plateforme, ressources_, m_.c().dossier, m_.c().secours};
};

// Texts.

constexpr const char *textes_courts =
    "1\t3\n2\t1\n11\tARDANE.HLP\n21\tARDANE.INF\n1000\tVersion\n1001\tun\n1002\tdeux\n1003\ttrois\n"
    "1004\ttoo high\n1250\tother language\n1251\tother language\n";

TEST(TextLoading, MessagesAreReadFrom1000UpToTheHighestIndex) {
  Lecteur l(textes_courts);
  Charger_textes(l.c());
  EXPECT_EQ(l.g().Nombre_messages, 3);
  EXPECT_EQ(l.g().Messages.dernier(), 3);
  EXPECT_EQ(l.g().Messages(0), "Version");
  EXPECT_EQ(l.g().Messages(3), "trois");
  EXPECT_THROW(message(l.g(), Message::courage), ErreurFatale);
}

TEST(TextLoading, ALanguageOf0Becomes1) {
  Lecteur l(textes_courts);
  l.g().Langue = 0;
  Charger_textes(l.c());
  EXPECT_EQ(l.g().Langue, 1);
  EXPECT_EQ(l.g().Messages(1), "un");
}

TEST(TextLoading, ALanguageOf2WithOneLanguageBecomes1) {
  Lecteur l(textes_courts);
  l.g().Langue = 2;
  Charger_textes(l.c());
  EXPECT_EQ(l.g().Langue, 1);
  EXPECT_EQ(l.g().Messages(1), "un");
}

TEST(TextLoading, TheSecondOfTwoLanguagesLies250Higher) {
  Lecteur l(std::string(textes_courts) + "2\t2\n12\tEN.HLP\n22\tEN.INF\n");
  l.g().Langue = 2;
  Charger_textes(l.c());
  EXPECT_EQ(l.g().Langue, 2);
  EXPECT_EQ(l.g().Messages(1), "other language");
  EXPECT_EQ(l.g().Fichiers_aide(2), "EN.HLP");
  EXPECT_EQ(l.g().Fichiers_info_noms(2), "EN.INF");
}

TEST(TextLoading, HelpAndInformationFilesAreNamedByLanguageFromIndex1) {
  Lecteur l(textes_courts);
  Charger_textes(l.c());
  EXPECT_EQ(l.g().Nombre_langues, 1);
  EXPECT_EQ(l.g().Fichiers_aide(1), "ARDANE.HLP");
  EXPECT_EQ(l.g().Fichiers_info_noms(1), "ARDANE.INF");
  EXPECT_EQ(l.g().Fichiers_aide(0), "");
  EXPECT_EQ(l.g().Fichiers_info.dernier(), 1);
}

TEST(TextLoading, AMissingMessageIsEmpty) {
  Lecteur l("1\t2\n2\t1\n1000\tVersion\n1002\tdeux\n");
  Charger_textes(l.c());
  EXPECT_EQ(l.g().Messages(1), "");
  EXPECT_EQ(l.g().Messages(2), "deux");
}

TEST(TextLoading, AnEmptyTableLeavesOneEmptyMessageAndNoLanguage) {
  Lecteur l("");
  Charger_textes(l.c());
  EXPECT_EQ(l.g().Nombre_messages, 0);
  EXPECT_EQ(l.g().Messages(0), "");
  EXPECT_EQ(l.g().Nombre_langues, 0);
  EXPECT_EQ(l.g().Langue, 1);
  EXPECT_THROW(message(l.g(), Message::erreur), ErreurFatale);
}

TEST(TextLoading, LoadingTwiceOnlyOverwrites) {
  Lecteur l(textes_courts);
  Charger_textes(l.c());
  Charger_textes(l.c());
  EXPECT_EQ(l.g().Messages(2), "deux");
  EXPECT_EQ(l.g().Messages.dernier(), 3);
}

// Rows.

TEST(RowLoading, AProvinceRowFillsItsFields) {
  Lecteur l("2001\tNom de un#0#132#80#19\n2110\tNom de cent dix#0#600#007#20\n");
  Lire_provinces(l.c());
  const Fiche_province &première = l.g().TableProvinces(1);
  EXPECT_EQ(première.nom, "Nom de un");
  EXPECT_EQ(première.encart, 0);
  EXPECT_EQ(première.gauche, 132);
  EXPECT_EQ(première.haut, 80);
  EXPECT_EQ(première.région, 19);
  EXPECT_EQ(l.g().TableProvinces(110).haut, 7);
  EXPECT_EQ(l.g().TableProvinces(110).région, 20);
}

TEST(RowLoading, ARegionRowFillsItsFields) {
  Lecteur l("5020\tLes Marches#0#12#345\n");
  Lire_régions(l.c());
  const Fiche_région &région = l.g().TableRégions(20);
  EXPECT_EQ(région.nom, "Les Marches");
  EXPECT_EQ(région.encart, 0);
  EXPECT_EQ(région.gauche, 12);
  EXPECT_EQ(région.haut, 345);
}

TEST(RowLoading, ACapitalAt070And100IsStoredAtTheCornerOfItsDot) {
  Lecteur l("4003\tVille#070#100\n");
  Lire_capitales(l.c());
  const Fiche_ville &ville = l.g().TableVilles(3);
  EXPECT_EQ(ville.nom, "Ville");
  EXPECT_EQ(ville.x, 66);
  EXPECT_EQ(ville.y, 96);
  EXPECT_TRUE(ville.capitale);
  EXPECT_EQ(ville.province, 3);
}

TEST(RowLoading, AnotherCityComesFromTheRow6990AboveItsIndex) {
  Lecteur l("7101\tPremière#01#140#104\n7320\tDernière#110#20#30\n");
  Lire_villes(l.c());
  const Fiche_ville &première = l.g().TableVilles(111);
  EXPECT_EQ(première.nom, "Première");
  EXPECT_EQ(première.province, 1);
  EXPECT_EQ(première.x, 136);
  EXPECT_EQ(première.y, 100);
  EXPECT_FALSE(première.capitale);
  EXPECT_EQ(l.g().TableVilles(330).nom, "Dernière");
  EXPECT_EQ(l.g().TableVilles(330).province, 110);
}

TEST(RowLoading, AProvinceFieldReadsByItsLeadingDigits) {
  Lecteur l("7101\ta#82o#1#1\n7102\tb#01#1#1\n7103\tc##1#1\n");
  Lire_villes(l.c());
  EXPECT_EQ(l.g().TableVilles(111).province, 82);
  EXPECT_EQ(l.g().TableVilles(112).province, 1);
  EXPECT_EQ(l.g().TableVilles(113).province, 0);
}

TEST(RowLoading, AMissingRowGivesAnEmptyNameAndZeroCoordinates) {
  Lecteur l("");
  l.lire_tables();
  EXPECT_EQ(l.g().TableProvinces(1).nom, "");
  EXPECT_EQ(l.g().TableProvinces(1).gauche, 0);
  EXPECT_EQ(l.g().TableProvinces(1).région, 0);
  EXPECT_EQ(l.g().TableRégions(1).nom, "");
  EXPECT_EQ(l.g().TableRégions(1).haut, 0);
  // The centre of the dot is at 0, its corner 4 pixels off.
  EXPECT_EQ(l.g().TableVilles(1).x, -4);
  EXPECT_EQ(l.g().TableVilles(1).province, 1);
  EXPECT_EQ(l.g().TableVilles(111).nom, "");
  EXPECT_EQ(l.g().TableVilles(111).y, -4);
}

TEST(RowLoading, ARowShortOfFieldsGivesZeroForTheMissingOnes) {
  Lecteur l("2001\tProvince#0#132\n4001\tCapitale\n5001\tRégion#0\n7101\tVille#5#12\n");
  l.lire_tables();
  EXPECT_EQ(l.g().TableProvinces(1).gauche, 132);
  EXPECT_EQ(l.g().TableProvinces(1).haut, 0);
  EXPECT_EQ(l.g().TableProvinces(1).région, 0);
  EXPECT_EQ(l.g().TableVilles(1).nom, "Capitale");
  EXPECT_EQ(l.g().TableVilles(1).x, -4);
  EXPECT_EQ(l.g().TableRégions(1).nom, "Région");
  EXPECT_EQ(l.g().TableRégions(1).gauche, 0);
  EXPECT_EQ(l.g().TableVilles(111).province, 5);
  EXPECT_EQ(l.g().TableVilles(111).x, 8);
  EXPECT_EQ(l.g().TableVilles(111).y, -4);
}

TEST(RowLoading, LoadingLeavesTheGameStateOfTheRecordsAlone) {
  Lecteur l("2001\tProvince#0#1#2#3\n");
  l.g().TableProvinces(1).inhibée = true;
  l.g().TableProvinces(1).points_perdus(0) = 12;
  l.lire_tables();
  EXPECT_TRUE(l.g().TableProvinces(1).inhibée);
  EXPECT_EQ(l.g().TableProvinces(1).points_perdus(0), 12);
}

TEST(TownsOfAProvince, AreListedAscendingWithTheCapitalFirst) {
  Lecteur l("7101\ta#2#1#1\n7105\tb#2#1#1\n7320\tc#110#1#1\n");
  l.lire_tables();
  const auto villes = [&](int province) {
    const auto liste = l.g().VillesParProvince(province);
    return std::vector<int>(liste.begin(), liste.end());
  };
  EXPECT_EQ(villes(1), (std::vector<int>{1}));
  EXPECT_EQ(villes(2), (std::vector<int>{2, 111, 115}));
  EXPECT_EQ(villes(110), (std::vector<int>{110, 330}));
  EXPECT_EQ(villes(0).size(), 217U);  // the rows that are missing
}

TEST(TownsOfAProvince, BeforeTheRowsAreReadNoProvinceHasOne) {
  const Villes_par_province aucune;
  EXPECT_TRUE(aucune(1).empty());
  EXPECT_TRUE(aucune(110).empty());
}

TEST(TownsOfAProvince, AProvinceThatDoesNotExistEndsTheProgram) {
  Lecteur l("7101\ta#111#1#1\n");
  EXPECT_THROW(Lire_villes(l.c()), ErreurFatale);
  EXPECT_THROW(l.g().VillesParProvince(111), ErreurFatale);
  EXPECT_THROW(l.g().VillesParProvince(-1), ErreurFatale);
}

/// The program's own table with other rows in place of some.
class ProgrammeAbîmé {
 public:
  explicit ProgrammeAbîmé(const std::string &lignes)
      : ressources_{TableChaînes(std::string(textes_incorporés()) + "\n" + lignes),
                    CatalogueImages(images_incorporées())},
        programme_(m_.monde.monde(), ressources_, m_.dossier.chemin()) {}
  Programme &démarrer() {
    EXPECT_TRUE(programme_.Démarrage(m_.dossier.chemin()));
    return programme_;
  }

 private:
  MondeFactice m_;
  Ressources ressources_;
  Programme programme_;
};

TEST(RowLoading, TheGameStartsAndAStageBeginsWithRowsMissingOrShort) {
  ProgrammeAbîmé abîmé("2001\t\n2050\tCourte#0\n4002\t\n4060\tCourte#12\n5003\t\n7101\t\n7200\tCourte\n");
  Programme &programme = abîmé.démarrer();
  Contexte &c = programme.contexte();
  for (const int étape : {1, 2, 3, 4, 5, 6, 7}) {
    c.état.Etape = static_cast<std::int16_t>(étape);
    c.état.Niveau = 1;
    EXPECT_NO_THROW({
      RemiseAZéroCarte(c);
      RedessinerCarte(c);
    }) << étape;
  }
  EXPECT_EQ(c.état.TableProvinces(50).nom, "Courte");
  EXPECT_EQ(c.état.TableVilles(111).province, 0);
}

TEST(RowLoading, ThirteenProvincesInOneRegionEndTheProgram) {
  std::string lignes;
  for (int i = 2001; i <= 2013; ++i) lignes += std::to_string(i) + "\tNom#0#1#1#20\n";
  ProgrammeAbîmé abîmé(lignes);
  EXPECT_THROW(RemiseAZéroCarte(abîmé.démarrer().contexte()), ErreurFatale);
}

// The country that the program was built with.

class Country : public testing::Test {
 protected:
  void SetUp() override { m.démarrer(); }
  MondeFactice m;
};

TEST_F(Country, EveryProvinceHasItsCapitalAndExactlyTwoOtherCities) {
  std::array<int, nombre_provinces + 1> autres{};
  for (int v = 1; v <= nombre_villes; ++v) {
    const Fiche_ville &ville = m.g().TableVilles(v);
    EXPECT_EQ(ville.capitale, v <= nombre_provinces) << v;
    if (v <= nombre_provinces)
      EXPECT_EQ(ville.province, v);
    else
      ++autres.at(static_cast<std::size_t>(ville.province));
  }
  EXPECT_EQ(autres[0], 0);
  for (std::size_t i = 1; i <= nombre_provinces; ++i) EXPECT_EQ(autres[i], 2) << i;
}

TEST_F(Country, EveryProvinceBelongsToARegionAndNoRegionHasMoreThanTwelve) {
  std::array<int, nombre_régions + 1> provinces{};
  for (int i = 1; i <= nombre_provinces; ++i)
    ++provinces.at(static_cast<std::size_t>(m.g().TableProvinces(i).région));
  EXPECT_EQ(provinces[0], 0);
  for (std::size_t r = 1; r <= nombre_régions; ++r) {
    EXPECT_GE(provinces[r], 1) << r;
    EXPECT_LE(provinces[r], plus_grande_région) << r;
  }
}

TEST_F(Country, FourteenCapitalsDoNotBearTheNameOfTheirProvince) {
  int autres_noms = 0;
  for (int i = 1; i <= nombre_provinces; ++i)
    if (m.g().TableVilles(i).nom != m.g().TableProvinces(i).nom) ++autres_noms;
  EXPECT_EQ(autres_noms, 14);
}

TEST_F(Country, ElevenCityRowsHaveTheLetterBehindTheirProvince) {
  const TableChaînes &table = m.c().ressources.chaînes;
  for (int id = 7101; id <= 7320; ++id) {
    const std::string champ(Champ_ligne(table.chaîne(id), 2));
    const bool à_la_lettre = id >= 7263 && id <= 7283 && (id - 7263) % 2 == 0;
    EXPECT_EQ(champ.find('o') != std::string::npos, à_la_lettre) << id;
  }
}

TEST_F(Country, EveryObjectHasANameAndLiesOnTheMapPicture0) {
  for (int i = 1; i <= nombre_provinces; ++i) {
    EXPECT_NE(m.g().TableProvinces(i).nom, "") << i;
    EXPECT_EQ(m.g().TableProvinces(i).encart, 0) << i;
  }
  for (int r = 1; r <= nombre_régions; ++r) {
    EXPECT_NE(m.g().TableRégions(r).nom, "") << r;
    EXPECT_EQ(m.g().TableRégions(r).encart, 0) << r;
  }
  for (int v = 1; v <= nombre_villes; ++v) EXPECT_NE(m.g().TableVilles(v).nom, "") << v;
}

TEST_F(Country, All185MessagesAreThere) {
  EXPECT_EQ(m.g().Nombre_messages, 184);
  EXPECT_EQ(m.g().Messages.dernier(), 184);
}

}  // namespace
}  // namespace ardane
