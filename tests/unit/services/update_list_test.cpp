#include "services/update_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "core/resources.h"
#include "persistence/registry.h"
#include "support/fake_world.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

TEST(VersionLine, TheVersionIsTheFirstRunOfDigitsAndPointsFromTheEighthCharacter) {
  EXPECT_EQ(Extraire_version("Version 1.00 du 24/02/2007"), "1.00");
  EXPECT_EQ(Extraire_version("Version 10.2"), "10.2");
  EXPECT_EQ(Extraire_version("9999999 3.1"), "3.1");
  EXPECT_EQ(Extraire_version("1234567.8x9"), ".8");
  EXPECT_EQ(Extraire_version("Édition 2.0 du"), "2.0");
  EXPECT_EQ(Extraire_version("1234567"), "");
  EXPECT_EQ(Extraire_version("Version sans"), "");
  EXPECT_EQ(Extraire_version(""), "");
}

TEST(VersionLine, TheDateStandsBehindTheLastBlank) {
  EXPECT_EQ(Extraire_date("Version 1.00 du 24/02/2007"), "24/02/2007");
  EXPECT_EQ(Extraire_date("24/02/2007"), "24/02/2007");
  EXPECT_EQ(Extraire_date("Version 1.00 du 4/2/2007"), "04/02/2007");
  EXPECT_EQ(Extraire_date("Version 1.00 du 31/02/2007"), "01/01/1900");
  EXPECT_EQ(Extraire_date("Version 1.00"), "01/01/1900");
  EXPECT_EQ(Extraire_date("24/02/2007 "), "01/01/1900");
  EXPECT_EQ(Extraire_date(""), "01/01/1900");
}

TEST(PageField, FieldsStandBetweenSharpSigns) {
  EXPECT_EQ(Champ_page("Zaphora#2.10#15/03/2006#Titre", 1), "Zaphora");
  EXPECT_EQ(Champ_page("Zaphora#2.10#15/03/2006#Titre", 4), "Titre");
  EXPECT_EQ(Champ_page("Zaphora#2.10#15/03/2006#Titre#fin", 4), "Titre");
  EXPECT_EQ(Champ_page("Zaphora", 1), "Zaphora");
  EXPECT_EQ(Champ_page("Zaphora", 2), "");
  EXPECT_EQ(Champ_page("#b", 1), "");
  EXPECT_EQ(Champ_page("", 1), "");
}

class UpdateList : public testing::Test {
 protected:
  UpdateList() {
    g().Fin_de_ligne = "\r\n";
    g().Langue = 1;
    Charger_textes(m.c());
  }

  GameState &g() { return m.g(); }
  void poser(const std::string &clé, const std::string &nom, const std::string &texte) {
    m.registre.créer(clé);
    m.registre.écrire(clé, nom, texte);
  }
  void connaître(const std::string &jeu, const std::string &version) {
    poser(std::string(clé_des_mises_à_jour), jeu, version);
  }
  void installer(const std::string &jeu, const std::string &ligne) {
    poser(std::string(clé_de_famille) + "\\" + jeu, "version", ligne);
  }
  std::string connue(const std::string &jeu) {
    return m.registre.lire(clé_des_mises_à_jour, jeu).value_or("absente");
  }
  Fiche_jeu &ajouter(const Fiche_jeu &fiche) {
    g().TableJeux.redimensionner(++g().NombreJeux);
    g().TableJeux(g().NombreJeux) = fiche;
    return g().TableJeux(g().NombreJeux);
  }
  Fiche_jeu &jeu(int i) { return g().TableJeux(i); }
  std::vector<std::string> clés() {
    std::vector<std::string> clés;
    for (int i = 1; i <= g().NombreJeux; ++i) clés.push_back(jeu(i).clé);
    return clés;
  }
  void chercher(const std::string &page) {
    m.web.prévoir(page);
    Chercher_mises_à_jour(m.c());
  }
  /// The box without the invitation that it begins with.
  std::string nouvelles() {
    Annoncer_mises_à_jour(m.c());
    const std::string &texte = m.dernière_boîte().texte;
    EXPECT_EQ(texte.substr(0, message(g(), Message::nouvelles_versions_sur_le_site).size()),
              message(g(), Message::nouvelles_versions_sur_le_site));
    return texte.substr(message(g(), Message::nouvelles_versions_sur_le_site).size());
  }

  MondeFactice m;
};

TEST_F(UpdateList, WithoutTheKeyItBeginsEmpty) {
  ajouter({"ancien", "", "", "", "", ""});
  Lire_mises_à_jour(m.c());
  EXPECT_EQ(g().NombreJeux, 0);
}

TEST_F(UpdateList, ItBeginsWithTheVersionsEverSeen) {
  connaître("Zaphora", "2.10");
  connaître("", "x");
  connaître("  ", "y");
  connaître("Belorne", "1.00");
  Lire_mises_à_jour(m.c());
  EXPECT_THAT(clés(), ElementsAre("Zaphora", "Belorne"));
  EXPECT_EQ(jeu(1).version_site, "2.10");
  EXPECT_EQ(jeu(1).libellé, "");
  EXPECT_EQ(jeu(1).version_locale, "");
  EXPECT_EQ(jeu(1).date_locale, "01/01/1900");
  EXPECT_EQ(jeu(1).date_site, "01/01/1900");
}

TEST_F(UpdateList, TheCatalogueAddsItsGamesAndRemembersTheirVersions) {
  Fusionner_catalogue(m.c());
  ASSERT_EQ(g().NombreJeux, 12);
  EXPECT_EQ(jeu(1).clé, "Ardane");
  EXPECT_EQ(jeu(1).version_site, "1.00");
  EXPECT_EQ(jeu(1).date_site, "24/02/2007");
  EXPECT_EQ(jeu(1).libellé, "L'Ardane et ses provinces");
  EXPECT_EQ(connue("Ardane"), "1.00");
  Fusionner_catalogue(m.c());
  EXPECT_EQ(g().NombreJeux, 12);
}

TEST_F(UpdateList, AGreaterVersionOfTheCatalogueBringsItsDateAndTitle) {
  ajouter({"Ardane", "Vieux titre", "", "01/01/1900", "0.90", "01/01/2030"});
  Fusionner_catalogue(m.c());
  EXPECT_EQ(jeu(1).version_site, "1.00");
  EXPECT_EQ(jeu(1).date_site, "24/02/2007");
  EXPECT_EQ(jeu(1).libellé, "L'Ardane et ses provinces");
}

TEST_F(UpdateList, ALaterDateOfTheSameVersionBringsTheTitle) {
  ajouter({"Ardane", "Vieux titre", "", "01/01/1900", "1.00", "23/02/2007"});
  Fusionner_catalogue(m.c());
  EXPECT_EQ(jeu(1).date_site, "24/02/2007");
  EXPECT_EQ(jeu(1).libellé, "L'Ardane et ses provinces");
}

TEST_F(UpdateList, NothingElseOfTheCatalogueIsTakenButATitleWhereThereIsNone) {
  ajouter({"Ardane", "Mon titre", "", "01/01/1900", "1.00", "25/02/2007"});
  ajouter({"Belorne", "", "", "01/01/1900", "9.00", "01/01/1900"});
  Fusionner_catalogue(m.c());
  EXPECT_EQ(jeu(1).libellé, "Mon titre");
  EXPECT_EQ(jeu(1).date_site, "25/02/2007");
  EXPECT_EQ(jeu(2).libellé, "La Bélorne et ses comtés");
  EXPECT_EQ(jeu(2).version_site, "9.00");
  EXPECT_EQ(jeu(2).date_site, "01/01/1900");
}

TEST_F(UpdateList, KeysOfTheCatalogueMustMatchExactly) {
  ajouter({"ARDANE", "", "", "01/01/1900", "1.00", "01/01/1900"});
  Fusionner_catalogue(m.c());
  EXPECT_EQ(g().NombreJeux, 13);
}

/// The same world over a catalogue of the test's own.
class OwnCatalogue : public UpdateList {
 protected:
  void fusionner(std::string_view lignes) {
    const Ressources propres{TableChaînes(lignes), {}};
    Contexte c{m.c().état, m.c().principale, m.c().plateforme, propres, m.c().dossier, m.c().secours};
    Fusionner_catalogue(c);
  }
};

TEST_F(OwnCatalogue, ABareKeyTakesItsVersionFromTheNextRow) {
  fusionner("6000\t2\n6001\tZaphora\n6002\t2.10\n6003\tBelorne#1.00#pas une date#Titre\n6004\t9.99\n");
  EXPECT_THAT(clés(), ElementsAre("Zaphora", "Belorne"));
  EXPECT_EQ(jeu(1).version_site, "2.10");
  EXPECT_EQ(jeu(1).date_site, "01/01/1900");
  EXPECT_EQ(jeu(1).libellé, "");
  EXPECT_EQ(jeu(2).version_site, "1.00");
  EXPECT_EQ(jeu(2).date_site, "01/01/1900");
  EXPECT_EQ(jeu(2).libellé, "Titre");
}

TEST_F(OwnCatalogue, WithoutACountThereIsNoCatalogue) {
  fusionner("6001\tZaphora#2.10#15/03/2006#Titre\n");
  EXPECT_EQ(g().NombreJeux, 0);
}

TEST_F(UpdateList, TableAndStoreBothEndWithTheGreaterVersion) {
  connaître("a", "2.00");
  connaître("b", "1.00");
  ajouter({"a", "", "", "01/01/1900", "1.50", "01/01/1900"});
  ajouter({"b", "", "", "01/01/1900", "1.50", "01/01/1900"});
  ajouter({"c", "", "", "01/01/1900", "0.10", "01/01/1900"});
  Ecrire_mises_à_jour(m.c());
  EXPECT_EQ(jeu(1).version_site, "2.00");
  EXPECT_EQ(connue("a"), "2.00");
  EXPECT_EQ(connue("b"), "1.50");
  EXPECT_EQ(connue("c"), "0.10");
}

TEST_F(UpdateList, VersionsAreComparedByteByByte) {
  connaître("a", "1.9");
  ajouter({"a", "", "", "01/01/1900", "1.10", "01/01/1900"});
  connaître("b", "9.00");
  ajouter({"b", "", "", "01/01/1900", "10.00", "01/01/1900"});
  Ecrire_mises_à_jour(m.c());
  EXPECT_EQ(jeu(1).version_site, "1.9");
  EXPECT_EQ(jeu(2).version_site, "9.00");
}

TEST_F(UpdateList, WhatIsInstalledFillsTheLocalFields) {
  installer("Zaphora", "Version 2.00 du 15/03/2006");
  m.registre.créer(R"(HKEY_CURRENT_USER\Software\Mirabonde\Belorne)");
  ajouter({"Zaphora", "Titre", "", "01/01/1900", "2.10", "16/03/2006"});
  ajouter({"Belorne", "", "", "01/01/1900", "1.00", "01/01/1900"});
  ajouter({"Ailleurs", "", "", "01/01/1900", "1.00", "01/01/1900"});
  Lire_versions_locales(m.c());
  EXPECT_EQ(jeu(1).version_locale, "2.00");
  EXPECT_EQ(jeu(1).date_locale, "15/03/2006");
  EXPECT_EQ(jeu(1).version_site, "2.10");
  EXPECT_EQ(jeu(2).version_locale, "0.00");
  EXPECT_EQ(jeu(2).date_locale, "01/01/1900");
  EXPECT_EQ(jeu(3).version_locale, "");
}

TEST_F(UpdateList, AFullListTakesNoFurtherVersionEverSeen) {
  constexpr int plein = std::numeric_limits<std::int16_t>::max();
  for (int i = 0; i <= plein; ++i) connaître(std::to_string(i), "1.00");
  Lire_mises_à_jour(m.c());
  EXPECT_EQ(g().NombreJeux, plein);
}

TEST_F(UpdateList, AFullListTakesNothingThatIsInstalled) {
  constexpr std::int16_t plein = std::numeric_limits<std::int16_t>::max();
  installer("Zaphora", "Version 2.00 du 15/03/2006");
  g().TableJeux.redimensionner(plein);
  g().NombreJeux = plein;
  Lire_versions_locales(m.c());
  EXPECT_EQ(g().NombreJeux, plein);
}

TEST_F(UpdateList, NothingChangedLeavesTheStoreAlone) {
  installer("Zaphora", "Version 2.00 du 15/03/2006");
  ajouter({"Zaphora", "", "", "01/01/1900", "2.10", "01/01/1900"});
  Lire_versions_locales(m.c());
  EXPECT_FALSE(m.registre.existe(clé_des_mises_à_jour));
}

TEST_F(UpdateList, AGreaterLocalVersionRaisesTheLatestAndTheStore) {
  connaître("Zaphora", "2.10");
  installer("Zaphora", "Version 3.00 du 15/03/2006");
  ajouter({"Zaphora", "", "", "01/01/1900", "2.10", "01/01/2006"});
  Lire_versions_locales(m.c());
  EXPECT_EQ(jeu(1).version_site, "3.00");
  EXPECT_EQ(jeu(1).date_site, "01/01/2006");
  EXPECT_EQ(connue("Zaphora"), "3.00");
}

TEST_F(UpdateList, AnInstalledGameThatNoListNamesIsAdded) {
  installer("Zaphora", "Version 2.00 du 15/03/2006");
  m.registre.créer(R"(HKEY_CURRENT_USER\Software\Mirabonde\Vide)");
  connaître("autre", "1.00");
  Lire_versions_locales(m.c());
  EXPECT_THAT(clés(), ElementsAre("Zaphora", "Vide"));
  EXPECT_EQ(jeu(1).version_locale, "2.00");
  EXPECT_EQ(jeu(1).version_site, "2.00");
  EXPECT_EQ(jeu(1).date_site, "15/03/2006");
  EXPECT_EQ(jeu(2).version_locale, "0.00");
  EXPECT_EQ(jeu(2).version_site, "");
  EXPECT_EQ(jeu(2).date_site, "01/01/1900");
  EXPECT_EQ(connue("Zaphora"), "2.00");
}

TEST_F(UpdateList, WithoutTheFamilysKeyNothingIsRead) {
  ajouter({"Zaphora", "", "", "01/01/1900", "2.10", "01/01/1900"});
  Lire_versions_locales(m.c());
  EXPECT_EQ(jeu(1).version_locale, "");
}

TEST_F(UpdateList, WithoutNewsTheBoxIsTheInvitationAlone) {
  ajouter({"a", "", "1.00", "02/01/2007", "1.00", "01/01/2007"});
  EXPECT_EQ(nouvelles(), "");
  EXPECT_EQ(m.dernière_boîte().icône, Icône::information);
  EXPECT_EQ(m.dernière_boîte().titre, "Publicité gratuite...");
}

TEST_F(UpdateList, TheNewsAreALineAGameInTheOrderOfTheList) {
  ajouter({"a", "Titre a", "1.00", "01/01/2007", "1.10", "24/02/2007"});
  ajouter({"b", "  ", "1.00", "01/01/2007", "1.00", "02/01/2007"});
  ajouter({"c", "Titre c", "2.00", "01/01/2007", "1.00", "01/01/2007"});
  ajouter({"d", "Titre d", "", "01/01/1900", "1.00", "01/01/1900"});
  EXPECT_EQ(nouvelles(),
            "\r\n\r\nVous y trouverez notamment les mises à jour suivantes :\r\n\r\n"
            "Titre a : version 1.10 du 24/02/2007\r\n"
            "b : version 1.00 du 02/01/2007\r\n"
            "Titre d : version 1.00\r\n");
}

TEST_F(UpdateList, AGameWithoutAnyVersionIsNewsWithoutALine) {
  ajouter({"a", "Titre", "", "01/01/1900", "", "01/01/1900"});
  EXPECT_EQ(nouvelles(), "\r\n\r\nVous y trouverez notamment les mises à jour suivantes :\r\n\r\n");
}

TEST_F(UpdateList, AGameThatIsNotInstalledCountsAsNews) {
  Fusionner_catalogue(m.c());
  installer("Ardane", "Version 1.00 du 24/02/2007");
  Lire_versions_locales(m.c());
  const std::string texte = nouvelles();
  EXPECT_THAT(texte, Not(HasSubstr("L'Ardane")));
  EXPECT_THAT(texte, HasSubstr("La Bélorne et ses comtés : version 2.30 du 11/11/2006\r\n"));
}

TEST_F(UpdateList, ThePageIsThePublishersListOfGames) {
  chercher("");
  EXPECT_THAT(m.pages, ElementsAre("jeux/listejeux.htm"));
}

TEST_F(UpdateList, APageWithoutCommentsChangesNothingAndTheBoxStillShows) {
  ajouter({"a", "", "1.00", "01/01/2007", "1.00", "01/01/2007"});
  chercher("<html>Zaphora#2.10#15/03/2006#Titre</html>");
  EXPECT_EQ(g().NombreJeux, 1);
  EXPECT_THAT(m.boîtes.montrées, SizeIs(1));
}

TEST_F(UpdateList, AFetchThatFailsShowsWhatIsKnown) {
  ajouter({"a", "Titre a", "1.00", "01/01/2007", "1.10", "01/01/1900"});
  Chercher_mises_à_jour(m.c());
  EXPECT_THAT(m.dernière_boîte().texte, HasSubstr("Titre a : version 1.10\r\n"));
}

TEST_F(UpdateList, RowsOfThePageAreAdded) {
  chercher("<html><!--Zaphora#2.10#15/03/2006#La Zaphora#fin--> <!--Belorne#3.00#1/2/2007#Titre-->");
  ASSERT_THAT(clés(), ElementsAre("Zaphora", "Belorne"));
  EXPECT_EQ(jeu(1).version_site, "2.10");
  EXPECT_EQ(jeu(1).date_site, "15/03/2006");
  EXPECT_EQ(jeu(1).libellé, "La Zaphora");
  EXPECT_EQ(jeu(1).version_locale, "");
  EXPECT_EQ(jeu(1).date_locale, "01/01/1900");
  EXPECT_EQ(jeu(2).date_site, "01/02/2007");
  EXPECT_EQ(connue("Zaphora"), "2.10");
}

TEST_F(UpdateList, RowsThatAreNoneArePassedOverAndThoseBehindThemAreRead) {
  chercher(
      "<html><!-- remarque --><!----><!--a#1#pas une date#t--><!--b#1#31/02/2007#t--><!-- #1#01/01/2007#t-->"
      "<!--c# #01/01/2007#t--><!--d#1#01/01/2007# --><!--e#1#01/01/2007--><!--f#1#01/01/2007#t-->");
  EXPECT_THAT(clés(), ElementsAre("f"));
}

TEST_F(UpdateList, ACommentAtTheVeryBeginningIsNotLookedAt) {
  chercher("<!--a#1#01/01/2007#t--><!--b#1#01/01/2007#t-->");
  EXPECT_THAT(clés(), ElementsAre("b"));
}

TEST_F(UpdateList, VersionAndDateOfAPageRowMoveEachByItself) {
  ajouter({"a", "vieux", "", "01/01/1900", "2.00", "01/01/2007"});
  ajouter({"b", "vieux", "", "01/01/1900", "1.00", "01/01/2007"});
  chercher(" <!--a#1.00#02/01/2007#neuf--><!--b#2.00#31/12/2006#neuf-->");
  EXPECT_EQ(jeu(1).version_site, "2.00");
  EXPECT_EQ(jeu(1).date_site, "02/01/2007");
  EXPECT_EQ(jeu(1).libellé, "neuf");
  EXPECT_EQ(jeu(2).version_site, "2.00");
  EXPECT_EQ(jeu(2).date_site, "01/01/2007");
}

TEST_F(UpdateList, AKeyInOtherLettersMergesFromThePageAndMakesASecondRecordOfTheInstalled) {
  ajouter({"Zaphora", "", "", "01/01/1900", "2.00", "01/01/2007"});
  installer("ZAPHORA", "Version 2.00 du 15/03/2006");
  chercher("<x><!-- zaphora #2.10#15/03/2007#Titre-->");
  EXPECT_THAT(clés(), ElementsAre("Zaphora", "ZAPHORA"));
  EXPECT_EQ(jeu(1).version_site, "2.10");
  EXPECT_EQ(jeu(2).version_locale, "2.00");
}

TEST_F(UpdateList, ACommentThatIsNeverClosedEndsThePage) {
  chercher("<x><!--a#1#01/01/2007#t--><!--b#1#01/01/2007#t");
  EXPECT_THAT(clés(), ElementsAre("a"));
  chercher("<x><!-->");
  EXPECT_THAT(clés(), ElementsAre("a"));
}

TEST_F(UpdateList, ThePageMayBeInEitherEncoding) {
  chercher("<x><!--a#1#01/01/2007#\xC9t\xE9-->");
  EXPECT_EQ(jeu(1).libellé, "Été");
  chercher("<x><!--a#1#01/01/2007#Été d'Œuf-->");
  EXPECT_EQ(jeu(1).libellé, "Été d'Œuf");
}

TEST_F(UpdateList, WithTheUnknownDateTheLineEndsBehindTheVersion) {
  connaître("Zaphora", "2.10");
  Lire_mises_à_jour(m.c());
  EXPECT_THAT(nouvelles(), HasSubstr("Zaphora : version 2.10\r\n"));
}

TEST_F(UpdateList, AFullListTakesNoMore) {
  g().NombreJeux = 32767;
  g().TableJeux.redimensionner(32767);
  chercher("<x><!--neuf#1#01/01/2007#t-->");
  EXPECT_EQ(g().NombreJeux, 32767);
}

}  // namespace
}  // namespace ardane
