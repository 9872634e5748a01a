#include "persistence/card_format.h"

#include <gtest/gtest.h>

namespace ardane {
namespace {

std::string compté(std::size_t longueur, const std::string &octets) {
  return std::string{static_cast<char>(longueur & 0xFF), static_cast<char>(longueur >> 8)} + octets;
}

std::string case_de(std::string contenu) {
  contenu.resize(650, '\0');
  return contenu;
}

TEST(CardFormat, ACardIsTwoCountedTextsInASlotOf650Bytes) {
  std::string octets;
  Placer_fiche(octets, 1, {"Été", "a\r\nb"});
  EXPECT_EQ(octets, case_de(compté(3, "\xC9t\xE9") + compté(4, "a\r\nb")));
}

TEST(CardFormat, TheCardOfAProvinceBeginsAtItsOwnSlot) {
  std::string octets;
  Placer_fiche(octets, 3, {"c", ""});
  EXPECT_EQ(octets.size(), 3U * 650);
  EXPECT_EQ(octets.substr(2 * 650), case_de(compté(1, "c") + compté(0, "")));
  EXPECT_EQ(Fiche_du_fichier(octets, 3), (Fiche_information{"c", ""}));
}

TEST(CardFormat, WritingACardLeavesTheOthersAlone) {
  std::string octets(111 * 650, 'x');
  Placer_fiche(octets, 2, {"b", "bb"});
  EXPECT_EQ(octets.size(), 111U * 650);
  EXPECT_EQ(octets.substr(0, 650), std::string(650, 'x'));
  EXPECT_EQ(octets.substr(2 * 650), std::string(109 * 650, 'x'));
}

TEST(CardFormat, ACutFileIsPadded) {
  std::string octets(700, 'x');
  Placer_fiche(octets, 4, {"d", ""});
  EXPECT_EQ(octets.size(), 4U * 650);
  EXPECT_EQ(octets[699], 'x');
  EXPECT_EQ(octets[700], '\0');
}

TEST(CardFormat, ASlotThatEndsEarlyButHoldsItsCardIsRead) {
  EXPECT_EQ(Fiche_du_fichier(compté(1, "t") + compté(2, "ab"), 1), (Fiche_information{"t", "ab"}));
}

TEST(CardFormat, ACardThatIsNotThereWholeIsNone) {
  const std::string entière = compté(1, "t") + compté(2, "ab");
  for (std::size_t n = 0; n < entière.size(); ++n)
    EXPECT_FALSE(Fiche_du_fichier(entière.substr(0, n), 1)) << n;
  EXPECT_FALSE(Fiche_du_fichier(case_de(entière), 2));
}

TEST(CardFormat, OfACardThatIsNotWholeTheRestIsThere) {
  const std::string entière = compté(5, "titre") + compté(5, "texte");
  const std::pair<std::size_t, Fiche_information> coupées[] = {
      {0, {"", ""}},        {1, {"", ""}},           {6, {"", ""}},
      {7, {"titre", ""}},   {8, {"titre", ""}},      {9, {"titre", ""}},
      {10, {"titre", "t"}}, {13, {"titre", "text"}}, {14, {"titre", "texte"}}};
  for (const auto &[octets, restes] : coupées)
    EXPECT_EQ(Restes_de_fiche(entière.substr(0, octets), 1), restes) << octets;
  EXPECT_EQ(Restes_de_fiche(case_de(entière), 2), (Fiche_information{"", ""}));
  EXPECT_EQ(Restes_de_fiche(compté(5, "titre") + compté(3, "texte"), 1), (Fiche_information{"titre", "tex"}));
}

TEST(CardFormat, ATextThatPassesTheSlotEndsWhereThePaddingBegins) {
  EXPECT_EQ(Restes_de_fiche(case_de(compté(1, "t") + compté(647, "abc")), 1),
            (Fiche_information{"t", "abc"}));
  EXPECT_EQ(Restes_de_fiche(case_de(compté(647, "abc")), 1), (Fiche_information{"", ""}));
}

TEST(CardFormat, LengthsThatPassTheSlotAreNoCard) {
  const auto lisible = [](std::size_t l1, std::size_t l2) {
    std::string octets = case_de(compté(l1, std::string(l1, 't')));
    octets.resize(650 * 2, 'y');
    if (2 + l1 + 1 < 650) octets.replace(2 + l1, 2, compté(l2, ""));
    return Fiche_du_fichier(octets, 1).has_value();
  };
  EXPECT_TRUE(lisible(0, 646));
  EXPECT_FALSE(lisible(0, 647));
  EXPECT_TRUE(lisible(646, 0));
  EXPECT_FALSE(lisible(647, 0));
  EXPECT_FALSE(lisible(65535, 0));
  EXPECT_TRUE(lisible(100, 546));
  EXPECT_FALSE(lisible(100, 547));
  EXPECT_FALSE(lisible(10, 65535));
}

TEST(CardFormat, TheLengthOfACardCountsBytesOfTheFile) {
  EXPECT_EQ(Longueur_de_fiche({"", ""}), 4U);
  EXPECT_EQ(Longueur_de_fiche({"Été", "œ"}), 8U);
  EXPECT_EQ(Longueur_de_fiche({"", std::string(10'000, 'a')}), 10'004U);
}

TEST(CardFormat, EveryByteOfTheCodePageReadsAndWritesBackUnchanged) {
  std::string octets;
  for (int o = 0; o < 256; ++o) octets.push_back(static_cast<char>(o));
  const std::string fichier = case_de(compté(1, "t") + compté(256, octets));
  std::string copie;
  Placer_fiche(copie, 1, *Fiche_du_fichier(fichier, 1));
  EXPECT_EQ(copie, fichier);
}

TEST(CardFormat, WhatHasNoPlaceInTheCodePageIsAQuestionMark) {
  std::string octets;
  Placer_fiche(octets, 1, {"", "\xF0\x9F\x99\x82"});
  EXPECT_EQ(Fiche_du_fichier(octets, 1)->texte, "?");
}

}  // namespace
}  // namespace ardane
