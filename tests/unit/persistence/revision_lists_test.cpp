#include "persistence/revision_lists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text_encoding.h"
#include "support/fake_world.h"
#include "support/refused_file.h"
#include "support/table_values.h"

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class RevisionLists : public testing::Test {
 protected:
  RevisionLists() { m.démarrer(); }

  /// The lines of a list, each of which ended in CR LF.
  std::vector<std::string> lignes(const std::string &nom) {
    const std::string texte = depuis_windows_1252(lire_fichier(m.dossier.fichier(nom)));
    std::vector<std::string> lignes;
    std::size_t début = 0;
    for (std::size_t fin = texte.find("\r\n"); fin != std::string::npos; fin = texte.find("\r\n", début)) {
      lignes.push_back(texte.substr(début, fin - début));
      début = fin + 2;
    }
    EXPECT_EQ(début, texte.size()) << "the last line ends, too";
    return lignes;
  }
  std::vector<std::string> provinces() {
    cliquer(m.e(), m.e().menu("Menu_liste"));
    return lignes("ARDANE.TXT");
  }
  std::vector<std::string> villes() {
    cliquer(m.e(), m.e().menu("Menu_liste_souspréf"));
    return lignes("ARDANE_SP.TXT");
  }
  /// The towns of a province beside its capital.
  std::vector<Fiche_ville *> autres_villes(int province) {
    std::vector<Fiche_ville *> villes;
    for (int v = 111; v <= nombre_villes; ++v)
      if (m.g().TableVilles(v).province == province) villes.push_back(&m.g().TableVilles(v));
    return villes;
  }

  MondeFactice m;
};

TEST_F(RevisionLists, BothBeginWithTheGameItsVersionAndALine) {
  const std::string titre = "L'Ardane et ses provinces , Version 1.00 du 24/02/2007";
  const std::string filet = "--------------------";
  for (const auto &liste : {provinces(), villes()})
    EXPECT_THAT(std::vector(liste.begin(), liste.begin() + 3), ElementsAre(titre, "", filet));
}

TEST_F(RevisionLists, AProvinceHasFiveLines) {
  const std::vector<std::string> liste = provinces();
  ASSERT_THAT(liste, SizeIs(3 + 5 * 110));
  const GameState &g = m.g();
  for (int p = 1; p <= nombre_provinces; ++p) {
    const auto ligne = [&](int i) { return liste.at(static_cast<std::size_t>(3 + 5 * (p - 1) + i)); };
    EXPECT_EQ(ligne(0), g.TableProvinces(p).nom);
    EXPECT_EQ(ligne(1), "Capitale : " + g.TableVilles(p).nom);
    EXPECT_EQ(ligne(3), "Région : " + g.TableRégions(g.TableProvinces(p).région).nom);
    EXPECT_EQ(ligne(4), "--------------------");
  }
}

TEST_F(RevisionLists, TheOtherTownsStandUnderAHeadingForNoneOneOrSeveral) {
  const auto villes = autres_villes(1);
  ASSERT_THAT(villes, SizeIs(2));
  EXPECT_EQ(provinces().at(5), "Autres villes : : " + villes[0]->nom + ", " + villes[1]->nom);
  villes[1]->province = 2;
  m.g().VillesParProvince.relever(m.g().TableVilles);
  EXPECT_EQ(provinces().at(5), "Autre ville : " + villes[0]->nom);
  villes[0]->province = 2;
  m.g().VillesParProvince.relever(m.g().TableVilles);
  EXPECT_EQ(provinces().at(5), "Pas de grande ville dans cette province");
}

TEST_F(RevisionLists, EveryTownStandsWithItsProvinceByNameOfTheTown) {
  const std::vector<std::string> liste = villes();
  ASSERT_THAT(liste, SizeIs(3 + 330));
  EXPECT_TRUE(std::is_sorted(liste.begin() + 3, liste.end(), [](const std::string &a, const std::string &b) {
    return a.substr(0, a.find(" : ")) < b.substr(0, b.find(" : "));
  }));
  const std::string attendue = m.g().TableVilles(1).nom + " : " + m.g().TableProvinces(1).nom;
  EXPECT_THAT(liste, testing::Contains(attendue));
}

TEST_F(RevisionLists, AccentedCapitalsComeAfterZ) {
  m.g().TableVilles(20).nom = "Éa";
  m.g().TableVilles(21).nom = "Zz";
  m.g().TableVilles(22).nom = "Ab";
  const std::vector<std::string> liste = villes();
  const auto place = [&](const std::string &nom) {
    return std::find_if(liste.begin(), liste.end(),
                        [&](const std::string &ligne) { return ligne.starts_with(nom + " : "); }) -
           liste.begin();
  };
  EXPECT_LT(place("Ab"), place("Zz"));
  EXPECT_LT(place("Zz"), place("Éa"));
}

TEST_F(RevisionLists, TheEndIsToldWithThePath) {
  provinces();
  ASSERT_THAT(m.boîtes.montrées, SizeIs(1));
  EXPECT_EQ(m.dernière_boîte().icône, Icône::information);
  EXPECT_EQ(m.dernière_boîte().titre, "Révision");
  EXPECT_EQ(m.dernière_boîte().texte,
            "La liste demandée a été écrite dans le fichier " + m.dossier.fichier("ARDANE.TXT"));
  villes();
  EXPECT_EQ(m.dernière_boîte().texte,
            "La liste demandée a été écrite dans le fichier " + m.dossier.fichier("ARDANE_SP.TXT"));
}

TEST_F(RevisionLists, WrittenTwiceThereIsOneFileOfTheSameContent) {
  const auto première = provinces();
  EXPECT_EQ(provinces(), première);
  EXPECT_EQ(villes(), villes());
}

TEST_F(RevisionLists, AGameUnderWayStaysAsItIs) {
  m.nouvelle_partie(1);
  m.répondre_faux();
  const auto province = m.g().ProvinceCourante;
  const auto score = m.g().Score;
  provinces();
  villes();
  EXPECT_EQ(m.g().ProvinceCourante, province);
  EXPECT_EQ(m.g().Score, score);
  EXPECT_EQ(m.g().Etape, étape_provinces);
  EXPECT_EQ(m.g().NbErreurs, 1);
}

TEST_F(RevisionLists, TheCapitalStandsInTheSecondListAndNeverAmongTheOtherTowns) {
  const std::vector<std::string> par_province = provinces(), par_ville = villes();
  for (int p = 1; p <= nombre_provinces; ++p) {
    const std::string &capitale = m.g().TableVilles(p).nom;
    EXPECT_THAT(", " + par_province.at(static_cast<std::size_t>(5 * p)) + ",",
                testing::Not(testing::HasSubstr(" " + capitale + ",")))
        << p;
    EXPECT_THAT(par_ville, testing::Contains(capitale + " : " + m.g().TableProvinces(p).nom)) << p;
  }
}

TEST_F(RevisionLists, OneThatCannotBeWrittenIsToldAndTheOlderOneStays) {
  attendre_refus_d_écrire(m, m.dossier.fichier("ARDANE.TXT"), [this] { Ecrire_liste_des_provinces(m.c()); });
  attendre_refus_d_écrire(m, m.dossier.fichier("ARDANE_SP.TXT"), [this] { Ecrire_liste_des_villes(m.c()); });
}

}  // namespace
}  // namespace ardane
