#include "core/resources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "core/gazetteer.h"

namespace ardane {
namespace {

constexpr std::string_view catalogue_court =
    "rondjaune|marks/jaune.gif|20|20\n"
    "Graphismes.Pays(2)|pays/002.gif|64|37\n"
    "Graphismes.Pays(10)|pays/010.gif|12|200\n";

TEST(PictureCatalogue, APictureIsFoundByItsNameWithItsSizeAndFile) {
  const CatalogueImages catalogue(catalogue_court);
  const Image image = catalogue.chercher("rondjaune");
  ASSERT_TRUE(image);
  EXPECT_EQ(image.largeur, 20);
  EXPECT_EQ(image.hauteur, 20);
  EXPECT_EQ(catalogue.nom(image), "rondjaune");
  EXPECT_EQ(catalogue.fichier(image), "marks/jaune.gif");
}

TEST(PictureCatalogue, ARankBeyondTheCatalogueIsAFatalErrorToldInFrench) {
  const CatalogueImages catalogue(catalogue_court);
  Image étrangère;
  étrangère.rang = 4;
  EXPECT_THROW(catalogue.nom(étrangère), ErreurFatale);
  try {
    catalogue.fichier(étrangère);
    FAIL() << "there is no fourth picture";
  } catch (const ErreurFatale &erreur) {
    EXPECT_THAT(erreur.what(), testing::StartsWith("Indice 4 hors des bornes 0 à 3"));
  }
}

TEST(PictureCatalogue, NoPictureHasNeitherNameNorFile) {
  EXPECT_EQ(CatalogueImages().nom(Image{}), "");
  EXPECT_EQ(CatalogueImages(catalogue_court).fichier(Image{}), "");
}

TEST(PictureCatalogue, APictureOfAFamilyIsFoundByItsIndex) {
  const CatalogueImages catalogue(catalogue_court);
  EXPECT_EQ(catalogue.chercher("Graphismes.Pays", 2).largeur, 64);
  EXPECT_EQ(catalogue.chercher("Graphismes.Pays", 10).hauteur, 200);
  EXPECT_FALSE(catalogue.chercher("Graphismes.Pays", 1));
}

TEST(PictureCatalogue, AnUnknownNameIsNoPictureWithoutSizeAndFile) {
  const CatalogueImages catalogue(catalogue_court);
  const Image image = catalogue.chercher("rondjaun");
  EXPECT_FALSE(image);
  EXPECT_EQ(image, Image{});
  EXPECT_EQ(catalogue.fichier(image), "");
  EXPECT_FALSE(CatalogueImages().chercher("rondjaune"));
}

TEST(PictureCatalogue, LinesOfAnotherFormArePassedOver) {
  const CatalogueImages catalogue(
      "\nsans taille\na|f.gif|20\nb|f.gif|x|20\nc|f.gif|20|2o\nd|f.gif|0|20\ne|f.gif|20|-1\n"
      "f|f.gif|40000|20\ng|g.gif|7|8");
  EXPECT_EQ(catalogue.toutes().size(), 1U);
  EXPECT_EQ(catalogue.nom(catalogue.toutes().at(0)), "g");
}

TEST(PictureCatalogue, AllPicturesComeInTheOrderOfTheCatalogue) {
  const CatalogueImages catalogue(catalogue_court);
  std::string noms;
  for (const Image image : catalogue.toutes()) noms += catalogue.nom(image) + " ";
  EXPECT_EQ(noms, "rondjaune Graphismes.Pays(2) Graphismes.Pays(10) ");
}

// The pictures that the program was built with.

TEST(ProgramPictures, EveryPictureHasItsOwnNameAndAFile) {
  const CatalogueImages &catalogue = ressources_du_programme().images;
  std::set<std::string> noms;
  for (const Image image : catalogue.toutes()) {
    EXPECT_TRUE(noms.insert(catalogue.nom(image)).second) << catalogue.nom(image);
    EXPECT_NE(catalogue.fichier(image), "") << catalogue.nom(image);
  }
}

TEST(ProgramPictures, EveryProvinceHasItsShapeAndItsOutlineOfOneSize) {
  const CatalogueImages &catalogue = ressources_du_programme().images;
  for (int i = 1; i <= nombre_provinces; ++i) {
    const Image pays = catalogue.chercher("Graphismes.Pays", i);
    const Image inv = catalogue.chercher("Graphismes.Inv", i);
    ASSERT_TRUE(pays && inv) << i;
    EXPECT_EQ(pays.largeur, inv.largeur) << i;
    EXPECT_EQ(pays.hauteur, inv.hauteur) << i;
  }
}

TEST(ProgramPictures, EveryRegionHasItsLayer) {
  const CatalogueImages &catalogue = ressources_du_programme().images;
  for (int i = 1; i <= nombre_régions; ++i) EXPECT_TRUE(catalogue.chercher("Graphismes.Région", i)) << i;
}

TEST(ProgramPictures, MapAndMarkersHaveTheirDesignedSizes) {
  const CatalogueImages &catalogue = ressources_du_programme().images;
  const struct {
    const char *nom;
    int largeur, hauteur;
  } tailles[] = {
      {"image_région(0)", 602, 662}, {"rondjaune", 20, 20},    {"rondnoir", 20, 20},
      {"Rondcible", 23, 23},         {"RondRouge", 16, 16},    {"étoilejaune", 16, 16},
      {"étoilerouge", 16, 16},       {"BoutonEtoile", 19, 19}, {"RondPref(0)", 7, 8},
      {"RondVille(0)", 7, 8},
  };
  for (const auto &t : tailles) {
    const Image image = catalogue.chercher(t.nom);
    EXPECT_EQ(image.largeur, t.largeur) << t.nom;
    EXPECT_EQ(image.hauteur, t.hauteur) << t.nom;
  }
}

}  // namespace
}  // namespace ardane
