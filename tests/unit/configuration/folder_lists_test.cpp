#include "configuration/folder_lists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/window_layout.h"
#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class FolderLists : public testing::Test {
 protected:
  FolderLists() {
    placer(fenêtre, {"Lecteur", Genre::liste, 0, 0, 100, 22});
    placer(fenêtre, {"Répertoire", Genre::liste, 0, 0, 100, 100});
    placer(fenêtre, {"Fichier", Genre::liste, 0, 0, 100, 100});
    monter({});
  }

  /// The lists over these drives.
  void monter(std::vector<std::string> lecteurs) {
    listes.emplace(fenêtre, ".SCI", std::move(lecteurs));
    listes->changement = [this] { ouverts.push_back(listes->dossier()); };
  }

  void dossier(const std::string &nom) { fs::create_directory(chemin_natif(ici.fichier(nom))); }
  void fichier(const std::string &nom) { écrire_fichier(ici.fichier(nom), ""); }
  void ouvrir() { listes->ouvrir(ici.chemin()); }
  Contrôle &lecteurs() { return contrôle(fenêtre, "Lecteur"); }
  Contrôle &dossiers() { return contrôle(fenêtre, "Répertoire"); }
  Contrôle &fichiers() { return contrôle(fenêtre, "Fichier"); }
  static void choisir_nom(Contrôle &liste, std::string_view nom) {
    const auto place = std::find(liste.éléments.begin(), liste.éléments.end(), nom);
    ASSERT_NE(place, liste.éléments.end()) << nom;
    choisir(liste, static_cast<int>(place - liste.éléments.begin()) + 1);
  }

  DossierTemporaire ici;
  Fenêtre fenêtre{"choix"};
  std::optional<Listes_de_dossier> listes;
  std::vector<std::string> ouverts;  ///< what `changement` has told
};

TEST_F(FolderLists, FoldersStandInTheirListAfterTheWayUpAndFilesOfTheKindInTheirs) {
  for (const char *nom : {"zoo", "Ardane", "bois"}) dossier(nom);
  for (const char *nom : {"b.SCI", "A.SCI", "c.sci", "d.Sci", "e.CAI", "f", "SCI", "g.SCI.txt"}) fichier(nom);
  ouvrir();
  EXPECT_THAT(dossiers().éléments, ElementsAre("..", "Ardane", "bois", "zoo"));
  EXPECT_THAT(fichiers().éléments, ElementsAre("A.SCI", "b.SCI", "c.sci", "d.Sci"));
}

TEST_F(FolderLists, NamesAreSortedAsInCapitals) {
  for (const char *nom : {"élan.SCI", "Z.SCI", "Été.SCI", "a.SCI", "A.SCI", "b 2.SCI", "B 10.SCI"})
    fichier(nom);
  ouvrir();
  EXPECT_THAT(fichiers().éléments,
              ElementsAre("A.SCI", "a.SCI", "B 10.SCI", "b 2.SCI", "Z.SCI", "élan.SCI", "Été.SCI"));
}

TEST_F(FolderLists, WhatBeginsWithAPointIsNotShown) {
  dossier(".caché");
  fichier(".x.SCI");
  fichier(".SCI");
  ouvrir();
  EXPECT_THAT(dossiers().éléments, ElementsAre(".."));
  EXPECT_THAT(fichiers().éléments, IsEmpty());
}

TEST_F(FolderLists, AFolderIsAFolderWhateverItsName) {
  dossier("b.SCI");
  fs::create_directory_symlink(chemin_natif(ici.fichier("b.SCI")), chemin_natif(ici.fichier("lien.SCI")));
  ouvrir();
  EXPECT_THAT(dossiers().éléments, ElementsAre("..", "b.SCI", "lien.SCI"));
  EXPECT_THAT(fichiers().éléments, IsEmpty());
}

TEST_F(FolderLists, ManyFilesComeInOrder) {
  constexpr int nombre = 200;
  for (int i = nombre; i >= 1; --i) fichier("partie " + std::to_string(1000 + i) + ".SCI");
  ouvrir();
  ASSERT_THAT(fichiers().éléments, SizeIs(nombre));
  EXPECT_EQ(fichiers().éléments.at(0), "partie 1001.SCI");
  EXPECT_EQ(fichiers().éléments.at(nombre - 1), "partie 1200.SCI");
  EXPECT_TRUE(std::is_sorted(fichiers().éléments.begin(), fichiers().éléments.end()));
}

TEST_F(FolderLists, ANameThatIsNoTextIsListedAndLeadsToItsFolder) {
  dossier("\xFF\xFE");
  fichier("\xE9t\xE9.SCI");
  ouvrir();
  EXPECT_THAT(fichiers().éléments, ElementsAre("\xE9t\xE9.SCI"));
  choisir(dossiers(), 2);
  dossiers().double_clic();
  EXPECT_EQ(listes->dossier(), ici.fichier("\xFF\xFE"));
  EXPECT_THAT(dossiers().éléments, ElementsAre(".."));
}

TEST_F(FolderLists, OpeningTellsOnceWhenTheListsAreThere) {
  fichier("a.SCI");
  listes->changement = [this] {
    ouverts.push_back(listes->dossier());
    EXPECT_THAT(fichiers().éléments, SizeIs(1));
  };
  ouvrir();
  EXPECT_THAT(ouverts, ElementsAre(ici.chemin()));
}

TEST_F(FolderLists, SeparatorsAtTheEndAreNoPartOfAFolder) {
  listes->ouvrir(ici.chemin() + "//");
  EXPECT_EQ(listes->dossier(), ici.chemin());
}

TEST_F(FolderLists, NothingLiesAboveTheRoot) {
  for (const char *racine : {"", "/", "//"}) {
    listes->ouvrir(racine);
    EXPECT_EQ(listes->dossier(), "/");
    ASSERT_THAT(dossiers().éléments, testing::Not(IsEmpty()));
    EXPECT_NE(dossiers().éléments.at(0), "..");
  }
}

TEST_F(FolderLists, ADoubleClickOrTheEnterKeyGoesInAndUp) {
  dossier("zoo");
  for (const auto aller : {&Contrôle::double_clic, &Contrôle::entrée}) {
    ouvrir();
    choisir_nom(dossiers(), "zoo");
    (dossiers().*aller)();
    EXPECT_EQ(listes->dossier(), ici.fichier("zoo"));
    choisir_nom(dossiers(), "..");
    (dossiers().*aller)();
    EXPECT_EQ(listes->dossier(), ici.chemin());
  }
  EXPECT_THAT(ouverts, SizeIs(6));
}

TEST_F(FolderLists, FromAFolderOfTheRootTheWayUpIsTheRoot) {
  listes->ouvrir("/usr");
  choisir_nom(dossiers(), "..");
  dossiers().double_clic();
  EXPECT_EQ(listes->dossier(), "/");
}

TEST_F(FolderLists, ASingleChoiceOnlySelects) {
  dossier("zoo");
  ouvrir();
  choisir_nom(dossiers(), "zoo");
  EXPECT_EQ(listes->dossier(), ici.chemin());
  EXPECT_EQ(dossiers().choix, 2);
}

TEST_F(FolderLists, WithoutAChoiceNothingIsOpened) {
  ouvrir();
  dossiers().double_clic();
  dossiers().entrée();
  EXPECT_THAT(ouverts, SizeIs(1));
}

TEST_F(FolderLists, InAnotherFolderNothingIsSelected) {
  dossier("zoo");
  dossier("zoo/zoo");
  fichier("a.SCI");
  fichier("zoo/a.SCI");
  ouvrir();
  choisir_nom(fichiers(), "a.SCI");
  choisir_nom(dossiers(), "zoo");
  dossiers().double_clic();
  EXPECT_EQ(dossiers().choix, 0);
  EXPECT_EQ(fichiers().choix, 0);
}

TEST_F(FolderLists, TheFolderAsItIsNowKeepsWhatIsSelected) {
  dossier("zoo");
  fichier("m.SCI");
  ouvrir();
  choisir_nom(dossiers(), "zoo");
  choisir_nom(fichiers(), "m.SCI");
  dossier("bois");
  fichier("a.SCI");
  listes->actualiser();
  EXPECT_THAT(dossiers().éléments, ElementsAre("..", "bois", "zoo"));
  EXPECT_EQ(élément_choisi(dossiers()), "zoo");
  EXPECT_EQ(élément_choisi(fichiers()), "m.SCI");
  EXPECT_THAT(ouverts, SizeIs(1)) << "the folder is the same";
}

TEST_F(FolderLists, AFileThatComesOrGoesIsSeenAtTheNextTick) {
  ouvrir();
  fichier("a.SCI");
  listes->suivre();
  EXPECT_THAT(fichiers().éléments, ElementsAre("a.SCI"));
  fs::remove(chemin_natif(ici.fichier("a.SCI")));
  listes->suivre();
  EXPECT_THAT(fichiers().éléments, IsEmpty());
}

TEST_F(FolderLists, AFolderInWhichNothingHasHappenedIsNotReadAgain) {
  const auto dater = [&](std::chrono::hours depuis) {
    fs::last_write_time(chemin_natif(ici.chemin()), fs::file_time_type::clock::now() - depuis);
  };
  dater(std::chrono::hours(2));
  const auto date = fs::last_write_time(chemin_natif(ici.chemin()));
  ouvrir();
  fichier("a.SCI");
  fs::last_write_time(chemin_natif(ici.chemin()), date);
  listes->suivre();
  EXPECT_THAT(fichiers().éléments, IsEmpty());
  dater(std::chrono::hours(1));
  listes->suivre();
  EXPECT_THAT(fichiers().éléments, ElementsAre("a.SCI"));
}

TEST_F(FolderLists, WhatIsGoneIsNoLongerSelected) {
  fichier("a.SCI");
  fichier("m.SCI");
  ouvrir();
  choisir_nom(fichiers(), "m.SCI");
  fs::remove(chemin_natif(ici.fichier("m.SCI")));
  listes->actualiser();
  EXPECT_THAT(fichiers().éléments, ElementsAre("a.SCI"));
  EXPECT_EQ(fichiers().choix, 0);
}

TEST_F(FolderLists, AFolderThatIsGoneHasNothingButTheWayUp) {
  dossier("passager");
  listes->ouvrir(ici.fichier("passager"));
  fs::remove(chemin_natif(ici.fichier("passager")));
  listes->actualiser();
  EXPECT_THAT(dossiers().éléments, ElementsAre(".."));
  choisir(dossiers(), 1);
  dossiers().entrée();
  EXPECT_EQ(listes->dossier(), ici.chemin());
}

TEST_F(FolderLists, AFolderThatMayNotBeReadHasNothingButTheWayUp) {
  dossier("secret");
  fichier("secret/a.SCI");
  const Protégé sans_lecture(chemin_natif(ici.fichier("secret")), Protégé::Contre::lecture);
  listes->ouvrir(ici.fichier("secret"));
  EXPECT_THAT(dossiers().éléments, ElementsAre(".."));
  EXPECT_THAT(fichiers().éléments, IsEmpty());
}

// --- Drives

TEST_F(FolderLists, WithoutDrivesTheirListIsNotSeen) {
  EXPECT_FALSE(lecteurs().visible);
  EXPECT_EQ(dossiers().haut, 0);
  EXPECT_EQ(dossiers().hauteur, 100);
}

TEST_F(FolderLists, DrivesStandAboveTheFoldersNoMoreThanThreeOfThemSeen) {
  monter({"A/"});
  EXPECT_TRUE(lecteurs().visible);
  EXPECT_EQ(lecteurs().hauteur, 22);
  monter({"A/", "B/", "C/", "D/"});
  EXPECT_EQ(lecteurs().hauteur, 58);
  EXPECT_GE(dossiers().haut, lecteurs().haut + lecteurs().hauteur);
  EXPECT_EQ(dossiers().haut + dossiers().hauteur, 100);
}

TEST_F(FolderLists, TheDriveOfTheOpenFolderIsSelectedInWhateverCaseItIsWritten) {
  dossier("Bois");
  monter({"/", Joindre_chemin(ici.chemin(), ""), "/ailleurs/"});
  listes->ouvrir(ici.fichier("Bois"));
  EXPECT_EQ(lecteurs().choix, 2);
  listes->ouvrir(ici.fichier("BOIS"));
  EXPECT_EQ(lecteurs().choix, 2);
  listes->ouvrir("/");
  EXPECT_EQ(lecteurs().choix, 1);
}

TEST_F(FolderLists, AnotherDriveOpensItsTopmostFolder) {
  dossier("d");
  fs::create_directory(chemin_natif(ici.fichier("d/sous")));
  monter({"/", ici.fichier("d")});
  ouvrir();
  choisir_nom(lecteurs(), ici.fichier("d"));
  EXPECT_EQ(listes->dossier(), ici.fichier("d"));
  EXPECT_THAT(dossiers().éléments, ElementsAre("..", "sous"));
  EXPECT_EQ(ouverts.back(), ici.fichier("d"));
}

TEST_F(FolderLists, WithoutAFolderTheFirstDriveIsOpened) {
  monter({ici.chemin(), "/"});
  listes->ouvrir("");
  EXPECT_EQ(listes->dossier(), ici.chemin());
}

}  // namespace
}  // namespace ardane
