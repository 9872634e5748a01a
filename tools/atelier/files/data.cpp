#include "files/data.h"

#include <charconv>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace atelier {
namespace {

std::vector<std::string> lines_of(const std::filesystem::path &fichier) {
  std::ifstream in(fichier, std::ios::binary);
  if (!in) throw std::runtime_error(fichier.string() + ": cannot be read");
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> fields_of(const std::string &line) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == '|')
      fields.emplace_back();
    else
      fields.back() += c;
  }
  return fields;
}

/// Reads the gazetteer line by line; every failure names the line.
class Gazetteer_reader {
 public:
  Gazetteer_reader(const std::filesystem::path &fichier, Données &données)
      : fichier_(fichier), données_(données) {}

  void read() {
    for (const std::string &line : lines_of(fichier_)) {
      ++number_;
      if (line.empty() || line.front() == '#') continue;
      take(fields_of(line));
    }
    finish_province();
    require(static_cast<int>(données_.régions.size()) == nombre_régions + 1, "20 regions are wanted");
    require(static_cast<int>(données_.provinces.size()) == nombre_provinces + 1, "110 provinces are wanted");
  }

 private:
  void require(bool condition, const char *what) const {
    if (!condition) throw std::runtime_error(fichier_.string() + ":" + std::to_string(number_) + ": " + what);
  }

  int number(const std::string &field) const {
    int value = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    require(error == std::errc() && end == field.data() + field.size(), "a number is wanted");
    return value;
  }

  Indice indice(const std::string &field) const {
    constexpr std::string_view letters = "cirlmfpd";
    require(field.size() == 1 && letters.find(field) != std::string_view::npos,
            "the hint is one letter of cirlmfpd");
    return static_cast<Indice>(field.front());
  }

  void finish_province() const {
    if (données_.provinces.size() < 2) return;
    const Province &last = données_.provinces.back();
    require(!last.capitale.nom.empty() && last.villes.size() == 2,
            "a province has one capital and two cities");
  }

  void take(const std::vector<std::string> &fields) {
    const std::string &kind = fields.front();
    if (kind == "région") {
      require(fields.size() == 4 && number(fields[1]) == static_cast<int>(données_.régions.size()),
              "région|number|name|character, numbers in order");
      données_.régions.push_back({fields[2], fields[3], {}});
    } else if (kind == "province") {
      finish_province();
      const int n = static_cast<int>(données_.provinces.size());
      require(fields.size() == 4 && number(fields[1]) == n, "province|number|name|hint, numbers in order");
      require(données_.régions.size() > 1, "a province stands below its region");
      données_.provinces.push_back(
          {fields[2], indice(fields[3]), static_cast<int>(données_.régions.size()) - 1, {}, {}});
      données_.régions.back().provinces.push_back(n);
    } else {
      require(fields.size() == 3 && données_.provinces.size() > 1, "capitale|name|hint or ville|name|hint");
      Province &province = données_.provinces.back();
      const Ville ville{fields[1], indice(fields[2])};
      if (kind == "capitale" && province.capitale.nom.empty())
        province.capitale = ville;
      else if (kind == "ville")
        province.villes.push_back(ville);
      else
        require(false, "an unknown kind of line, or a second capital");
    }
  }

  std::filesystem::path fichier_;
  Données &données_;
  int number_ = 0;
};

std::string unescaped(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    ++i;
    result += text[i] == 'n' ? '\n' : text[i];
  }
  return result;
}

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n')
      result += "\\n";
    else if (c == '\\')
      result += "\\\\";
    else
      result += c;
  }
  return result;
}

}  // namespace

Données lire_données(const std::filesystem::path &dossier) {
  Données données;
  données.dossier = dossier;
  données.régions.resize(1);
  données.provinces.resize(1);
  Gazetteer_reader(dossier / "gazetteer.txt", données).read();
  données.messages = lire_textes(dossier / "messages.txt");
  return données;
}

std::map<int, std::string> lire_textes(const std::filesystem::path &fichier) {
  std::map<int, std::string> textes;
  for (const std::string &line : lines_of(fichier)) {
    if (line.empty() || line.front() == '#') continue;
    int number = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
    if (error != std::errc() || end == line.data() + line.size() || *end != '\t')
      throw std::runtime_error(fichier.string() + ": not a numbered text: " + line);
    const auto behind_tab = static_cast<std::size_t>(end - line.data()) + 1;
    if (!textes.emplace(number, unescaped(std::string_view(line).substr(behind_tab))).second)
      throw std::runtime_error(fichier.string() + ": number twice: " + std::to_string(number));
  }
  return textes;
}

void écrire_textes(const std::filesystem::path &fichier, const std::map<int, std::string> &textes) {
  std::ofstream out(fichier, std::ios::binary);
  for (const auto &[number, text] : textes) out << number << '\t' << escaped(text) << '\n';
  out.close();
  if (!out) throw std::runtime_error(fichier.string() + ": cannot be written");
}

}  // namespace atelier
