#include "core/table.h"

#include <gtest/gtest.h>

#include <string>

namespace ardane {
namespace {

TEST(CheckedArray, KeepsAValueAtEachOfItsIndices) {
  Table<int, 1, 3> table;
  for (int i = 1; i <= 3; ++i) table(i) = 10 * i;
  EXPECT_EQ(table(1), 10);
  EXPECT_EQ(table(3), 30);
}

TEST(CheckedArray, StartsEmpty) {
  const Table<int, 0, 2> nombres;
  const Table<std::string, 0, 2> textes;
  for (int i = 0; i <= 2; ++i) {
    EXPECT_EQ(nombres(i), 0);
    EXPECT_EQ(textes(i), "");
  }
}

TEST(CheckedArray, CanBeMadeFromItsElements) {
  constexpr Table<int, 2, 4> table({20, 30, 40});
  EXPECT_EQ(table(2), 20);
  EXPECT_EQ(table(4), 40);
}

TEST(CheckedArray, AnIndexBeyondEitherEndIsAFatalError) {
  Table<int, 1, 3> table;
  const auto &constante = table;
  for (const long i : {0L, 4L, -1L, 1L << 40}) {
    EXPECT_THROW(table(i), ErreurFatale) << i;
    EXPECT_THROW(constante(i), ErreurFatale) << i;
  }
}

TEST(CheckedArray, TheErrorNamesTheIndexTheBoundsAndThePlaceOfTheCall) {
  Table<int, 1, 3> table;
  try {
    table(7);
    FAIL() << "index 7 was taken";
  } catch (const ErreurFatale &erreur) {
    const std::string texte = erreur.what();
    EXPECT_NE(texte.find("Indice 7 hors des bornes 1 à 3"), std::string::npos) << texte;
    EXPECT_NE(texte.find("table_test.cpp"), std::string::npos) << texte;
  }
}

TEST(CheckedArray, FillingReachesEveryElement) {
  Table<int, 5, 8> table;
  table.remplir(9);
  int somme = 0;
  for (const int valeur : table) somme += valeur;
  EXPECT_EQ(somme, 36);
}

TEST(CheckedArrayOfTwoIndices, ChecksBoth) {
  Table2<int, 0, 0, 1, 4> table;
  table(0, 4) = 7;
  EXPECT_EQ(table(0, 4), 7);
  EXPECT_EQ(table.ligne(0)(4), 7);
  EXPECT_THROW(table(1, 1), ErreurFatale);
  EXPECT_THROW(table(-1, 1), ErreurFatale);
  EXPECT_THROW(table(0, 0), ErreurFatale);
  EXPECT_THROW(table(0, 5), ErreurFatale);
}

TEST(GrowingArray, HasNoIndexAtAllBeforeItIsDimensioned) {
  TableauDynamique<int, 0> tableau;
  EXPECT_EQ(tableau.dernier(), -1);
  EXPECT_THROW(tableau(0), ErreurFatale);
}

TEST(GrowingArray, DimensioningEmptiesIt) {
  TableauDynamique<int, 1> tableau;
  tableau.dimensionner(2);
  tableau(2) = 5;
  tableau.dimensionner(3);
  EXPECT_EQ(tableau.dernier(), 3);
  EXPECT_EQ(tableau(2), 0);
  EXPECT_THROW(tableau(0), ErreurFatale);
  EXPECT_THROW(tableau(4), ErreurFatale);
}

TEST(GrowingArray, GrowingKeepsWhatItHolds) {
  TableauDynamique<int, 0> tableau;
  tableau.dimensionner(1);
  tableau(1) = 5;
  tableau.redimensionner(36);
  EXPECT_EQ(tableau(1), 5);
  EXPECT_EQ(tableau(36), 0);
}

TEST(GrowingArray, AnElementIsAddedBehindTheLast) {
  TableauDynamique<int, 1> tableau;
  tableau.ajouter(5);
  tableau.ajouter(6);
  EXPECT_EQ(tableau.dernier(), 2);
  EXPECT_EQ(tableau(1), 5);
  EXPECT_EQ(tableau(2), 6);
}

TEST(GrowingArray, AnUpperBoundBelowTheLowerLeavesNoElement) {
  TableauDynamique<int, 1> tableau;
  tableau.dimensionner(4);
  tableau.dimensionner(-3);
  EXPECT_EQ(tableau.dernier(), 0);
  EXPECT_THROW(tableau(1), ErreurFatale);
}

}  // namespace
}  // namespace ardane
