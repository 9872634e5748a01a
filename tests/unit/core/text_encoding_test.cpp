#include "core/text_encoding.h"

#include <gtest/gtest.h>

namespace ardane {
namespace {

TEST(TextEncoding, FrenchLettersAreOneByteInWindows1252) {
  EXPECT_EQ(vers_windows_1252("été œuvre Île €"), "\xE9t\xE9 \x9Cuvre \xCEle \x80");
  EXPECT_EQ(depuis_windows_1252("\xE9t\xE9 \x9Cuvre \xCEle \x80"), "été œuvre Île €");
}

TEST(TextEncoding, EveryByteReadsAndWritesBackUnchanged) {
  std::string octets;
  for (int o = 0; o < 256; ++o) octets.push_back(static_cast<char>(o));
  EXPECT_EQ(vers_windows_1252(depuis_windows_1252(octets)), octets);
}

TEST(TextEncoding, ACharacterWithoutAPlaceIsRefusedOrBecomesAQuestionMark) {
  EXPECT_EQ(vers_windows_1252("Łódź"), std::nullopt);
  EXPECT_EQ(vers_windows_1252_au_mieux("Łódź 日本 😀"),
            "?\xF3"
            "d? ?? ?");
}

TEST(TextEncoding, BytesThatAreNotUtf8AreRefusedOrBecomeQuestionMarks) {
  const struct {
    const char *cas;
    std::string texte;
    std::string au_mieux;
  } cas[] = {
      {"a lone continuation byte", "a\x80z", "a?z"},
      {"a sequence cut by the end", "a\xC3", "a?"},
      {"a sequence of three cut by the end", "a\xE2\x82", "a??"},
      {"a sequence cut by a letter", "a\xC3z", "a?z"},
      {"a letter in more bytes than it needs", "\xC1\xA1", "??"},
      {"an overlong sequence of three", "\xE0\x80\xA9", "???"},
      {"half of a surrogate pair", "\xED\xA0\x80", "???"},
      {"beyond the last code point", "\xF4\x90\x80\x80", "????"},
      {"a byte that never occurs", "\xFF", "?"},
  };
  for (const auto &c : cas) {
    EXPECT_EQ(vers_windows_1252(c.texte), std::nullopt) << c.cas;
    EXPECT_EQ(vers_windows_1252_au_mieux(c.texte), c.au_mieux) << c.cas;
  }
}

TEST(TextEncoding, TheEmptyTextStaysEmpty) {
  EXPECT_EQ(vers_windows_1252(""), "");
  EXPECT_EQ(vers_windows_1252_au_mieux(""), "");
  EXPECT_EQ(depuis_windows_1252(""), "");
}

}  // namespace
}  // namespace ardane
