#include "front/help/search_index.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <sstream>

#include "platform/text.h"

namespace ardane {
namespace {

constexpr std::string_view signature = "Index de l’aide";
/// Thirty times the index of today. Whoever put something larger there did not mean it to be read.
constexpr std::size_t largest_file = 1 << 20;

constexpr std::array<std::string Section::*, 6> fields = {
    &Section::page, &Section::anchor, &Section::title, &Section::heading, &Section::keywords, &Section::text};

/// A page of the help's own folder: the viewer opens what the index names.
bool is_page(std::string_view name) {
  const auto plain = [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-'; };
  constexpr std::string_view suffix = ".html";
  return name.size() > suffix.size() && name.ends_with(suffix) &&
         std::ranges::all_of(name.substr(0, name.size() - suffix.size()), plain);
}

bool read_section(std::string_view line, Section &section) {
  if (std::ranges::count(line, '\t') != static_cast<std::ptrdiff_t>(fields.size()) - 1) return false;
  for (const auto field : fields) section.*field = couper(line, '\t');
  return is_page(section.page) && !section.heading.empty();
}

SearchIndex refused(const char *why) {
  return {{}, why};
}

}  // namespace

std::string index_text(const std::vector<Section> &sections) {
  std::ostringstream text;
  text << signature << '\t' << sections.size() << '\n';
  for (const Section &section : sections)
    for (const auto field : fields) text << section.*field << (field == fields.back() ? '\n' : '\t');
  return text.str();
}

SearchIndex parse_index(std::string_view text) {
  if (text.empty()) return refused("est vide");
  std::string_view head = couper(text, '\n');
  if (couper(head, '\t') != signature || !est_utf8(text)) return refused("n’est pas un index de l’aide");
  std::size_t announced = 0;
  const auto number = std::from_chars(head.data(), head.data() + head.size(), announced);
  const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n'));
  const bool is_number = number.ec == std::errc{} && number.ptr == head.data() + head.size();
  if (!is_number || announced == 0 || lines != announced || !text.ends_with('\n'))
    return refused("est incomplet");
  SearchIndex index;
  index.sections.resize(announced);
  for (Section &section : index.sections)
    if (!read_section(couper(text, '\n'), section)) return refused("est abîmé");
  return index;
}

SearchIndex read_index(const std::filesystem::path &file) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return refused("manque");
  std::ifstream in(file, std::ios::binary);
  std::string text(largest_file + 1, '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (in.bad() || !in.is_open()) return refused("ne peut pas être lu");
  text.resize(static_cast<std::size_t>(in.gcount()));
  if (text.size() > largest_file) return refused("est trop grand pour un index de l’aide");
  return parse_index(text);
}

}  // namespace ardane
