#include "platform/text.h"

#include <gtest/gtest.h>

namespace ardane {
namespace {

TEST(Text, CharactersAreTakenOneByOneAndPutTogetherAgain) {
  const std::string texte = "aé€😀\x7F\u07FF\uFFFF\U0010FFFF";
  std::u32string points;
  std::string rendu;
  for (std::string_view reste = texte; !reste.empty();) {
    points.push_back(prendre_caractère(reste).value());
    ajouter_caractère(rendu, points.back());
  }
  EXPECT_EQ(points, U"aé€😀\x7F\u07FF\uFFFF\U0010FFFF");
  EXPECT_EQ(rendu, texte);
}

TEST(Text, OfWhatIsNotUtf8OneByteIsTakenOff) {
  for (const char *faux : {"\x80z", "\xC1\xA1", "\xE2\x82", "\xE2\x82z", "\xE0\x80\xA9", "\xED\xA0\x80",
                           "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"}) {
    std::string_view reste = faux;
    EXPECT_EQ(prendre_caractère(reste), std::nullopt) << faux;
    EXPECT_EQ(reste, std::string_view(faux).substr(1));
    EXPECT_FALSE(est_utf8(faux)) << faux;
  }
}

TEST(Text, TheSignOfAnUnreadableCharacterIsACharacterLikeAnother) {
  EXPECT_TRUE(est_utf8("\uFFFD"));
  EXPECT_TRUE(est_utf8(""));
}

TEST(Text, CharactersAreCountedAndNotBytes) {
  EXPECT_EQ(nombre_de_caractères("Hélène"), 6U);
  EXPECT_EQ(nombre_de_caractères("日本😀"), 3U);
  EXPECT_EQ(nombre_de_caractères("a\x80\xE2\x82"), 4U) << "a byte that is no UTF-8 counts for itself";
  EXPECT_EQ(nombre_de_caractères(""), 0U);
}

TEST(Text, CuttingNeverSplitsACharacter) {
  EXPECT_EQ(premiers_caractères("Hélène", 2), "Hé");
  EXPECT_EQ(premiers_caractères("😀😀😀", 2), "😀😀");
  EXPECT_EQ(premiers_caractères("Ann", 20), "Ann");
  EXPECT_EQ(premiers_caractères("Ann", 0), "");
  EXPECT_EQ(premiers_caractères("", 5), "");
}

TEST(Text, BlanksGoFromBothEndsAndStayInside) {
  EXPECT_EQ(sans_blancs("  deux mots "), "deux mots");
  EXPECT_EQ(sans_blancs("   "), "");
  EXPECT_EQ(sans_blancs(""), "");
}

TEST(Text, UpperCaseKnowsEveryLetterOfWindows1252) {
  EXPECT_EQ(en_majuscules("abz Éàçœšžÿ ÷×ß 12"), "ABZ ÉÀÇŒŠŽŸ ÷×ß 12");
}

TEST(Text, UpperCaseLeavesOtherLettersAlone) {
  EXPECT_EQ(en_majuscules("łω日"), "łω日");
}

TEST(Text, UpperCaseKeepsBytesThatAreNoUtf8) {
  EXPECT_EQ(en_majuscules("a\xE9z"), "A\xE9Z");
}

TEST(Text, APieceIsCutOffAtTheNextSeparator) {
  std::string_view reste = "un#deux##";
  EXPECT_EQ(couper(reste, '#'), "un");
  EXPECT_EQ(couper(reste, '#'), "deux");
  EXPECT_EQ(couper(reste, '#'), "");
  EXPECT_EQ(reste, "");
  EXPECT_EQ(couper(reste, '#'), "");
}

}  // namespace
}  // namespace ardane
