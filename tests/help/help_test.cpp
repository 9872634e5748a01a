// The pages of the help as they ship: every link leads somewhere, every context has its place, nothing is
// fetched.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path folder = AIDE;

std::string text_of(const fs::path &file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::map<std::string, std::string> pages() {
  std::map<std::string, std::string> found;
  for (const auto &entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".html") found[entry.path().filename().string()] = text_of(entry.path());
  }
  return found;
}

std::vector<std::string> matches(const std::string &text, const std::string &pattern) {
  const std::regex expression(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator it(text.begin(), text.end(), expression), end; it != end; ++it) {
    found.push_back((*it)[1].str());
  }
  return found;
}

bool leads_somewhere(const std::string &target) {
  const std::size_t hash = target.find('#');
  const fs::path file = folder / target.substr(0, hash);
  if (!fs::is_regular_file(file)) return false;
  if (hash == std::string::npos) return true;
  return text_of(file).find("id=\"" + target.substr(hash + 1) + "\"") != std::string::npos;
}

TEST(Help, HasItsPages) {
  EXPECT_GE(pages().size(), 14U);
  EXPECT_EQ(pages().count("index.html"), 1U);
}

TEST(Help, HasNoBrokenLinkOrPicture) {
  for (const auto &[name, text] : pages()) {
    for (const std::string &target : matches(text, "(?:href|src)=\"([^\"]*)\"")) {
      EXPECT_TRUE(leads_somewhere(target)) << name << " -> " << target;
    }
  }
}

TEST(Help, NeedsNoNetwork) {
  for (const auto &[name, text] : pages()) {
    EXPECT_EQ(text.find("://"), std::string::npos) << name;
    EXPECT_EQ(text.find("<script"), std::string::npos) << name;
  }
  EXPECT_EQ(text_of(folder / "style.css").find("url("), std::string::npos);
}

TEST(Help, LeadsFromTheContentsToEveryPage) {
  std::set<std::string> reached;
  std::vector<std::string> waiting{"index.html"};
  while (!waiting.empty()) {
    const std::string page = waiting.back();
    waiting.pop_back();
    if (!reached.insert(page).second) continue;
    for (const std::string &target : matches(text_of(folder / page), "href=\"([^\"#]*\\.html)")) {
      waiting.push_back(target);
    }
  }
  for (const auto &[name, text] : pages()) EXPECT_EQ(reached.count(name), 1U) << name;
}

TEST(Help, KnowsTheContextsThatTheWindowsAskFor) {
  std::ifstream in(folder / "contextes.txt");
  std::map<int, std::string> contexts;
  int number = 0;
  std::string target;
  while (in >> number >> target) contexts[number] = target;
  for (const int context : {10, 20, 65, 90}) {
    ASSERT_EQ(contexts.count(context), 1U) << context;
    EXPECT_TRUE(leads_somewhere(contexts[context])) << contexts[context];
    EXPECT_TRUE(contexts[context].ends_with("#contexte-" + std::to_string(context)));
  }
}

/// What a reader reads: text, titles, what stands for pictures; not what he is to type.
std::string read_text(const std::string &page) {
  std::string text;
  for (const std::string &said : matches(page, "(?:alt|content)=\"([^\"]*)\"")) text += said + "\n";
  return text + std::regex_replace(page, std::regex("<code>[^<]*</code>|<[^>]*>"), "");
}

TEST(Help, IsSetAsAFrenchPrinterWould) {
  // A no-break blank is C2 A0; the quotation marks are C2 AB and C2 BB.
  const std::regex typewritten(
      "'|\"|--| - |[^\xA0][;?!:]|[^\xA0]\xC2\xBB|\xC2\xAB(?!\xC2\xA0)|[0-9] [0-9]|[0-9](e|è|i)me");
  for (const auto &[name, text] : pages()) {
    const std::string said = read_text(text);
    std::smatch found;
    const bool wrong = std::regex_search(said, found, typewritten);
    EXPECT_FALSE(wrong) << name << ": ..."
                        << said.substr(static_cast<std::size_t>(std::max(found.position() - 40, 0L)), 50);
  }
}

TEST(Help, ClosesWhatItOpens) {
  for (const auto &[name, text] : pages()) {
    for (const char *tag :
         {"html", "head", "body", "h1", "h2", "p", "ul", "ol", "li", "table", "tr", "td", "th", "a", "b"}) {
      const std::string element = tag;
      EXPECT_EQ(matches(text, "(<" + element + "[ >])").size(), matches(text, "(</" + element + ">)").size())
          << name << ": " << element;
    }
  }
}

}  // namespace
