#include "core/string_table.h"

#include <gtest/gtest.h>

#include "platform/fatal_error.h"

namespace ardane {
namespace {

TEST(StringTable, AStringIsFoundByItsNumberWhateverTheOrderOfTheLines) {
  const TableChaînes table("1046\tErreur\n1\t184\n21\tARDANE.INF\n");
  EXPECT_EQ(table.chaîne(1), "184");
  EXPECT_EQ(table.chaîne(21), "ARDANE.INF");
  EXPECT_EQ(table.chaîne(1046), "Erreur");
}

TEST(StringTable, AMissingNumberIsTheEmptyString) {
  const TableChaînes table("1\t184\n3\tx\n");
  for (const int numéro : {-1, 0, 2, 4, 7320}) EXPECT_EQ(table.chaîne(numéro), "") << numéro;
  EXPECT_EQ(TableChaînes().chaîne(1), "");
}

TEST(StringTable, OfTwoLinesWithOneNumberTheLastCounts) {
  EXPECT_EQ(TableChaînes("5\tfirst\n6\tother\n5\tsecond").chaîne(5), "second");
}

TEST(StringTable, BackslashNIsALineFeedAndADoubleBackslashABackslash) {
  const TableChaînes table("1\tun\\ndeux\n2\tC:\\\\nom\n3\tseul \\ ici\\\n");
  EXPECT_EQ(table.chaîne(1), "un\ndeux");
  EXPECT_EQ(table.chaîne(2), "C:\\nom");
  EXPECT_EQ(table.chaîne(3), "seul \\ ici\\");
}

TEST(StringTable, ATextMayHoldTabsAndBeEmpty) {
  const TableChaînes table("1\ta\tb\n2\t\n");
  EXPECT_EQ(table.chaîne(1), "a\tb");
  EXPECT_EQ(table.chaîne(2), "");
}

TEST(StringTable, LinesMayEndInCarriageReturnAndLineFeed) {
  EXPECT_EQ(TableChaînes("1\t184\r\n2\t1\r\n").chaîne(1), "184");
}

TEST(StringTable, LinesOfAnotherFormArePassedOver) {
  const TableChaînes table("\n# comment\nno tab here\nx1\tno\n1x\tno\n 2\tno\n99999999999\tno\n\tno\n4\tyes");
  for (const int numéro : {0, 1, 2}) EXPECT_EQ(table.chaîne(numéro), "") << numéro;
  EXPECT_EQ(table.chaîne(4), "yes");
}

TEST(RowField, ARowOfThreeFieldsGivesItsTailAsTheThirdAndNothingAsTheFourth) {
  EXPECT_EQ(Champ_ligne("Nom#12#fin de ligne", 1), "Nom");
  EXPECT_EQ(Champ_ligne("Nom#12#fin de ligne", 2), "12");
  EXPECT_EQ(Champ_ligne("Nom#12#fin de ligne", 3), "fin de ligne");
  EXPECT_EQ(Champ_ligne("Nom#12#fin de ligne", 4), "");
}

TEST(RowField, TheLastFieldOfARowEndingInTheSeparatorIsEmpty) {
  EXPECT_EQ(Champ_ligne("a#b#", 2), "b");
  EXPECT_EQ(Champ_ligne("a#b#", 3), "");
  EXPECT_EQ(Champ_ligne("a#b#", 4), "");
}

TEST(RowField, ARowWithoutSeparatorIsItsOwnFirstField) {
  EXPECT_EQ(Champ_ligne("seul", 1), "seul");
  EXPECT_EQ(Champ_ligne("seul", 2), "");
}

TEST(RowField, AnEmptyRowHasEmptyFieldsOnly) {
  for (const int n : {1, 2, 5}) EXPECT_EQ(Champ_ligne("", n), "") << n;
}

TEST(RowField, NeighbouringSeparatorsEncloseAnEmptyField) {
  EXPECT_EQ(Champ_ligne("##x", 1), "");
  EXPECT_EQ(Champ_ligne("##x", 2), "");
  EXPECT_EQ(Champ_ligne("##x", 3), "x");
}

TEST(RowField, ThereIsNoFieldBeforeTheFirst) {
  EXPECT_EQ(Champ_ligne("a#b", 0), "");
  EXPECT_EQ(Champ_ligne("a#b", -1), "");
}

TEST(LeadingDigits, LettersBehindTheDigitsAreLeftOut) {
  EXPECT_EQ(nombre_en_tête("82o"), 82);
  EXPECT_EQ(nombre_en_tête("3.9"), 3);
  EXPECT_EQ(nombre_en_tête("12 pixels"), 12);
}

TEST(LeadingDigits, LeadingZerosCountForNothing) {
  EXPECT_EQ(nombre_en_tête("01"), 1);
  EXPECT_EQ(nombre_en_tête("070"), 70);
}

TEST(LeadingDigits, BlanksBeforeTheDigitsAreSkipped) {
  EXPECT_EQ(nombre_en_tête("   42"), 42);
}

TEST(LeadingDigits, NoDigitIsZero) {
  for (const char *champ : {"", "  ", "o82", "-5", "+5", "#"}) EXPECT_EQ(nombre_en_tête(champ), 0) << champ;
}

TEST(LeadingDigits, ANumberBeyondSixteenBitsCountsAsTheLargest) {
  EXPECT_EQ(nombre_en_tête("32767"), 32767);
  EXPECT_EQ(nombre_en_tête("32768"), 32767);
  EXPECT_EQ(nombre_en_tête("99999999999999999999"), 32767);
}

}  // namespace
}  // namespace ardane
