#include "pages.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <stdexcept>
#include <string>

namespace ardane {
namespace {

namespace fs = std::filesystem;

const std::string separator = "·";

std::string text_of(const fs::path &file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

[[noreturn]] void complain(const std::string &page, const std::string &what) {
  throw std::runtime_error(page + ": " + what);
}

/// The value of an attribute of a tag, "<h2 id="fin">" less its brackets; empty without it.
std::string attribute(std::string_view tag, const std::string &name) {
  const std::string mark = " " + name + "=\"";
  const std::size_t begin = tag.find(mark);
  if (begin == std::string_view::npos) return {};
  tag.remove_prefix(begin + mark.size());
  return std::string(tag.substr(0, tag.find('"')));
}

std::string element_of(std::string_view tag) {
  return std::string(tag.substr(0, tag.find(' ')));
}

/// The text between tags, its blanks made one each.
std::string decoded(const std::string &page, std::string_view source) {
  static const std::map<std::string_view, char> entities = {
      {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}};
  std::string text;
  for (std::size_t i = 0; i < source.size(); ++i) {
    const char c = source[i];
    const bool blank = c == ' ' || c == '\n' || c == '\t' || c == '\r';
    if (blank) {
      if (text.empty() || text.back() != ' ') text += ' ';
    } else if (c == '&') {
      const std::size_t end = std::min(source.find(';', i), source.size());
      const auto entity = entities.find(source.substr(i + 1, end - i - 1));
      if (entity == entities.end()) complain(page, "an unknown entity");
      text += entity->second;
      i = end;
    } else {
      text += c;
    }
  }
  return text;
}

/// Reads one page from its first tag to its last.
class Reader {
 public:
  explicit Reader(std::string page) : page_(std::move(page)) {}

  std::vector<Section> read(std::string_view source) {
    while (!source.empty()) {
      const std::size_t open = std::min(source.find('<'), source.size());
      take_text(decoded(page_, source.substr(0, open)));
      source.remove_prefix(open);
      if (source.empty()) break;
      const std::size_t close = source.find('>');
      if (close == std::string_view::npos) complain(page_, "a tag without its end");
      take_tag(source.substr(1, close - 1));
      source.remove_prefix(close + 1);
    }
    finish();
    return std::move(sections_);
  }

 private:
  void take_tag(std::string_view tag) {
    const std::string element = element_of(tag);
    if (element == "meta" && attribute(tag, "name") == "keywords") keywords_ = attribute(tag, "content");
    if (element == "h1" || element == "h2") begin_section(element, tag);
    if (element == "/h1" || element == "/h2") field_ = &Section::text;
    // Below the rule stand links to the pages before and after.
    if (element == "hr") field_ = nullptr;
    static const std::vector<std::string> parting = {"p", "li", "tr", "td", "th", "br"};
    if (std::ranges::find(parting, element) != parting.end()) part();
  }

  void begin_section(const std::string &element, std::string_view tag) {
    if ((element == "h1") != sections_.empty()) complain(page_, "one h1, before all h2");
    Section section;
    section.page = page_;
    section.anchor = element == "h1" ? "" : attribute(tag, "id");
    if (element == "h2" && section.anchor.empty()) complain(page_, "an h2 without an id");
    sections_.push_back(section);
    field_ = &Section::heading;
  }

  void take_text(const std::string &text) {
    if (field_ == nullptr) return;
    std::string &into = sections_.back().*field_;
    const bool doubled = text.starts_with(' ') && (into.empty() || into.ends_with(' '));
    into += doubled ? text.substr(1) : text;
  }

  /// Parts what stands in paragraphs and cells of their own.
  void part() {
    if (field_ != &Section::text) return;
    std::string &text = sections_.back().text;
    trim(text);
    if (text.empty()) return;
    const bool ended = std::string_view(".:;?!").find(text.back()) != std::string_view::npos;
    text += ended || text.ends_with(separator) ? " " : " " + separator + " ";
  }

  static void trim(std::string &text) {
    while (text.ends_with(' ')) text.pop_back();
  }

  void finish() {
    if (sections_.empty()) complain(page_, "no h1");
    for (Section &section : sections_) {
      trim(section.heading);
      trim(section.text);
      if (section.text.ends_with(separator)) section.text.resize(section.text.size() - separator.size());
      trim(section.text);
      section.title = sections_.front().heading;
    }
    sections_.front().keywords = keywords_;
  }

  const std::string page_;
  std::string keywords_;
  std::vector<Section> sections_;
  std::string Section::*field_ = nullptr;
};

/// Each entry of the list of words becomes a keyword of the section it leads to.
void add_entries(const std::string &list, std::vector<Section> &sections) {
  static const std::regex entry("<a href=\"([^\"#]*)#?([^\"]*)\">([^<]*)</a>");
  // Below the rule stand links to other pages.
  const std::string entries = list.substr(0, list.find("<hr>"));
  for (std::sregex_iterator it(entries.begin(), entries.end(), entry), end; it != end; ++it) {
    const auto leads_to = [&](const Section &s) { return s.page == (*it)[1] && s.anchor == (*it)[2]; };
    const auto section = std::ranges::find_if(sections, leads_to);
    if (section == sections.end()) complain(page_of_entries, (*it)[3].str() + " leads to no section");
    if (!section->keywords.empty()) section->keywords += ", ";
    section->keywords += decoded(page_of_entries, (*it)[3].str());
  }
}

}  // namespace

std::vector<Section> sections_of(const fs::path &folder) {
  std::map<std::string, fs::path> pages;
  for (const auto &entry : fs::directory_iterator(folder))
    if (entry.path().extension() == ".html") pages[entry.path().filename().string()] = entry.path();
  std::vector<Section> sections;
  for (const auto &[name, file] : pages) {
    if (name == page_of_entries) continue;
    for (Section &section : Reader(name).read(text_of(file))) sections.push_back(std::move(section));
  }
  if (pages.contains(page_of_entries)) add_entries(text_of(pages[page_of_entries]), sections);
  return sections;
}

}  // namespace ardane
