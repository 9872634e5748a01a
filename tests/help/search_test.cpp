// The search of the help by itself: words, the file of the index, the order of what is found.
#include "front/help/search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace ardane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> folded(std::string_view text) {
  std::vector<std::string> words;
  for (const Word &word : words_of(text)) words.push_back(word.folded);
  return words;
}

TEST(HelpWords, CompareWithoutCaseAccentsAndLigatures) {
  EXPECT_THAT(folded("Étapes ÇA œuvre Œil Æ naïf où Ÿ"),
              ElementsAre("etapes", "ca", "oeuvre", "oeil", "ae", "naif", "ou", "y"));
  EXPECT_THAT(folded("e\xCC\x81tape"), ElementsAre("etape")) << "an accent of its own after the letter";
}

TEST(HelpWords, ApostrophesHyphensAndNoBreakBlanksPartThem) {
  EXPECT_THAT(folded("l'œil, l’arrêt ; là-bas : 1 023 points"),
              ElementsAre("l", "oeil", "l", "arret", "la", "bas", "1", "023", "points"));
  EXPECT_THAT(folded(" … «»!"), IsEmpty());
  EXPECT_THAT(folded(""), IsEmpty());
}

TEST(HelpWords, KnowTheirPlaceInBytes) {
  const std::string text = "d’œufs.";
  const std::vector<Word> words = words_of(text);
  ASSERT_EQ(words.size(), 2U);
  EXPECT_EQ(text.substr(words[1].place.begin, words[1].place.end - words[1].place.begin), "œufs");
}

TEST(HelpWords, BytesThatAreNoTextPartWords) {
  EXPECT_THAT(folded("bon\xFFjour \xC3"), ElementsAre("bon", "jour"));
}

TEST(HelpWords, ThoseThatSayNothingAreKnown) {
  for (const char *word : {"comment", "ma", "la", "l", "d", "qu", "est", "une"})
    EXPECT_TRUE(is_stop_word(word)) << word;
  for (const char *word : {"son", "partie", "score", "7"}) EXPECT_FALSE(is_stop_word(word)) << word;
}

Section section(const std::string &page, const std::string &anchor, const std::string &heading,
                const std::string &text, const std::string &keywords = "") {
  return {page, anchor, "Titre", heading, keywords, text};
}

TEST(HelpIndexFile, IsReadAsItWasWritten) {
  const std::vector<Section> sections = {section("a.html", "", "Un", "Texte un.", "mot"),
                                         section("b-2.html", "là", "Deux", "")};
  const SearchIndex index = parse_index(index_text(sections));
  EXPECT_EQ(index.trouble, "");
  EXPECT_EQ(index.sections, sections);
}

struct Damage {
  const char *name;
  std::string bytes;
  const char *trouble;
};

const std::string whole =
    index_text({section("a.html", "", "Un", "Texte."), section("a.html", "b", "Deux", "Texte.")});

std::string changed(const std::string &from, const std::string &to) {
  std::string text = whole;
  return text.replace(text.find(from), from.size(), to);
}

class DamagedHelpIndex : public testing::TestWithParam<Damage> {};

TEST_P(DamagedHelpIndex, IsRefusedWhole) {
  const SearchIndex index = parse_index(GetParam().bytes);
  EXPECT_THAT(index.sections, IsEmpty());
  EXPECT_EQ(index.trouble, GetParam().trouble);
}

INSTANTIATE_TEST_SUITE_P(
    File, DamagedHelpIndex,
    testing::Values(Damage{"Empty", "", "est vide"},
                    Damage{"Foreign", "Cher journal,\n", "n’est pas un index de l’aide"},
                    Damage{"Picture", std::string("\x89PNG\r\n\x1A\n\0\0", 10),
                           "n’est pas un index de l’aide"},
                    Damage{"NotUtf8", changed("Texte", "\xE9"), "n’est pas un index de l’aide"},
                    Damage{"HeadAlone", whole.substr(0, whole.find('\n') + 1), "est incomplet"},
                    Damage{"HeadWithoutNumber", "Index de l’aide\n", "est incomplet"},
                    Damage{"OddNumber", changed("\t2\n", "\t2 x\n"), "est incomplet"},
                    Damage{"LessThanNothing", changed("\t2\n", "\t-2\n"), "est incomplet"},
                    Damage{"MoreThanAreThere", changed("\t2\n", "\t99999999999999999999\n"), "est incomplet"},
                    Damage{"LastByteGone", whole.substr(0, whole.size() - 1), "est incomplet"},
                    Damage{"HalfGone", whole.substr(0, whole.size() / 2), "est incomplet"},
                    Damage{"FieldGone", changed("\tUn\t", "\t"), "est abîmé"},
                    Damage{"FieldTooMany", changed("\tUn\t", "\tUn\tUn\t"), "est abîmé"},
                    Damage{"NoHeading", changed("\tUn\t", "\t\t"), "est abîmé"},
                    Damage{"PageElsewhere", changed("a.html", "../a.html"), "est abîmé"},
                    Damage{"PageWithoutName", changed("a.html", ".html"), "est abîmé"}),
    [](const auto &tested) { return tested.param.name; });

class HelpIndexOnDisk : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "aide-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    file = std::filesystem::path(name) / index_file;
  }
  void TearDown() override { std::filesystem::remove_all(file.parent_path()); }
  void write(const std::string &bytes) const { std::ofstream(file, std::ios::binary) << bytes; }

  std::filesystem::path file;
};

TEST_F(HelpIndexOnDisk, IsRead) {
  write(whole);
  EXPECT_EQ(read_index(file).sections.size(), 2U);
}

TEST_F(HelpIndexOnDisk, ThatIsNotThereIsTold) {
  EXPECT_EQ(read_index(file).trouble, "manque");
  std::filesystem::create_directory(file);
  EXPECT_EQ(read_index(file).trouble, "manque");
}

TEST_F(HelpIndexOnDisk, ThatCannotBeReadIsTold) {
  std::filesystem::create_symlink("/proc/self/mem", file);
  EXPECT_EQ(read_index(file).trouble, "ne peut pas être lu");
}

TEST_F(HelpIndexOnDisk, OfAnySizeIsNotReadToItsEnd) {
  write(whole);
  std::filesystem::resize_file(file, std::uintmax_t{1} << 32);
  EXPECT_EQ(read_index(file).trouble, "est trop grand pour un index de l’aide");
}

std::vector<std::string> found(const std::vector<Section> &sections, const char *asked) {
  std::vector<std::string> headings;
  for (const Hit &hit : search(sections, Query(asked))) headings.push_back(hit.section->heading);
  return headings;
}

TEST(HelpSearchOrder, HeadingsBeforeKeywordsBeforeText) {
  const std::vector<Section> sections = {section("a.html", "t", "Texte", "La lampe."),
                                         section("a.html", "m", "Mots", "", "lampe"),
                                         section("a.html", "", "La lampe", "")};
  EXPECT_THAT(found(sections, "lampe"), ElementsAre("La lampe", "Mots", "Texte"));
}

TEST(HelpSearchOrder, AllWordsBeforeSome) {
  const std::vector<Section> sections = {section("a.html", "a", "Lampe", "La lampe."),
                                         section("a.html", "b", "Ailleurs", "Une lampe et un anneau."),
                                         section("a.html", "c", "Plus loin", "Une lampe.")};
  EXPECT_THAT(found(sections, "lampe anneau"), ElementsAre("Ailleurs", "Lampe"));
  EXPECT_THAT(found(sections, "lampe zéro"), ElementsAre("Lampe"))
      << "some have a word, one is worth showing";
}

TEST(HelpSearchOrder, ThePagesTitleIsASectionsTooThatHasAnotherOfTheWords) {
  const Section beside = section("a.html", "a", "Un", "Un anneau.");
  const Section titled{"b.html", "b", "La lampe", "Deux", "", "Un anneau."};
  EXPECT_THAT(found({beside, titled}, "lampe anneau"), ElementsAre("Deux", "Un"));
  EXPECT_THAT(found({beside, titled}, "lampe"), IsEmpty()) << "of which none says anything of it";
}

TEST(HelpSearchOrder, RareWordsWeighMore) {
  std::vector<Section> sections(9, section("a.html", "a", "Partie", "Partie"));
  sections.push_back(section("a.html", "b", "Rare", "Anneau."));
  EXPECT_EQ(found(sections, "anneau partie").front(), "Partie") << "a heading is worth more";
  sections.back().heading = "Anneau";
  EXPECT_EQ(found(sections, "anneau partie").front(), "Anneau");
}

TEST(HelpSearchOrder, BeginningsAndOtherFormsOfAWordFitLessWell) {
  const std::vector<Section> sections = {section("a.html", "a", "Enregistrée", ""),
                                         section("a.html", "b", "Enregistrerions", ""),
                                         section("a.html", "c", "Enregistrer", "")};
  EXPECT_THAT(found(sections, "enregistrer"), ElementsAre("Enregistrer", "Enregistrerions", "Enregistrée"));
  EXPECT_THAT(found(sections, "enreg"), ElementsAre("Enregistrée", "Enregistrerions", "Enregistrer"));
  EXPECT_THAT(found(sections, "registre"), IsEmpty());
}

TEST(HelpSearchOrder, NothingIsFoundByNothing) {
  const std::vector<Section> sections = {section("a.html", "a", "Un", "Texte")};
  for (const char *asked : {"", "   ", "comment la ma", "?!", "zzz"})
    EXPECT_THAT(found(sections, asked), IsEmpty()) << asked;
  EXPECT_THAT(found({}, "texte"), IsEmpty());
}

TEST(HelpSearchOrder, AQuestionAsLongAsABookIsAnswered) {
  const std::vector<Section> sections = {section("a.html", "a", "Un", "Texte")};
  std::string asked;
  for (int i = 0; i < 20000; ++i) asked += "texte " + std::to_string(i) + " ";
  EXPECT_THAT(found(sections, asked.c_str()), ElementsAre("Un"));
  EXPECT_EQ(Query(asked).size(), 32U) << "which is soon looked for";
}

std::string bold(const Excerpt &excerpt) {
  std::string text = excerpt.text;
  for (auto span = excerpt.found.rbegin(); span != excerpt.found.rend(); ++span) {
    text.insert(span->end, "]");
    text.insert(span->begin, "[");
  }
  return text;
}

TEST(HelpExcerpt, ShowsTheWordsFoundInAShortTextWhole) {
  EXPECT_EQ(bold(excerpt("Les étapes, l’œil.", Query("etape oeil"))), "Les [étapes], l’[œil].");
  EXPECT_EQ(bold(excerpt("Les étapes.", Query("etape étapes"))), "Les [étapes].");
  EXPECT_EQ(bold(excerpt("", Query("oeil"))), "");
}

TEST(HelpExcerpt, ShowsThePieceOfALongTextThatHasMost) {
  std::string text = "Lampe au début. ";
  for (int i = 0; i < 60; ++i) text += "Rien du tout. ";
  text += "Une lampe, un anneau.";
  const std::string shown = bold(excerpt(text, Query("lampe anneau")));
  EXPECT_TRUE(shown.starts_with("… ")) << shown;
  EXPECT_TRUE(shown.ends_with("Une [lampe], un [anneau].")) << shown;
  EXPECT_LT(shown.size(), 220U);
}

TEST(HelpExcerpt, ShowsThePieceThatHasMostThoughAWordComesAgainBehindIt) {
  std::string filling;
  for (int i = 0; i < 60; ++i) filling += "Rien du tout. ";
  const std::string text = filling + "Une lampe, un anneau. " + filling + "Lampe à la fin.";
  EXPECT_THAT(bold(excerpt(text, Query("lampe anneau"))), HasSubstr("Une [lampe], un [anneau]."));
}

TEST(HelpExcerpt, CutsNoWord) {
  std::string filling;
  for (int i = 0; i < 60; ++i) filling += "Rien du tout. ";
  for (std::size_t shift = 1; shift < 15; ++shift) {
    const std::string text = std::string(shift, 'x') + " " + filling + "Une lampe. " + filling;
    std::string shown = excerpt(text, Query("lampe")).text;
    ASSERT_TRUE(shown.starts_with("… ") && shown.ends_with(" …")) << shown;
    EXPECT_LT(shown.size(), 220U);
    shown = shown.substr(4, shown.size() - 8);
    const std::size_t begin = text.find(shown);
    ASSERT_NE(begin, std::string::npos);
    EXPECT_EQ(text[begin - 1], ' ') << shown;
    EXPECT_TRUE(text[begin + shown.size()] == ' ' || text[begin + shown.size()] == '.') << shown;
  }
}

TEST(HelpExcerpt, ShowsTheBeginningWhereNothingIsFound) {
  std::string text;
  for (int i = 0; i < 60; ++i) text += "Été comme hiver. ";
  const std::string shown = bold(excerpt(text, Query("lampe")));
  EXPECT_TRUE(shown.starts_with("Été comme hiver. ")) << shown;
  EXPECT_TRUE(shown.ends_with(" …")) << shown;
}

}  // namespace
}  // namespace ardane
