// The first law of the house: a folder includes only folders below it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace ardane {
namespace {

using Dessous = std::map<std::string, std::set<std::string>>;

const std::set<std::string> tout_sauf_les_façades = {
    "platform", "core", "map", "persistence", "play", "services", "configuration", "screens", "startup"};

std::set<std::string> tout_jusqu_au_bureau(std::set<std::string> dossiers) {
  dossiers.merge(std::set(tout_sauf_les_façades));
  dossiers.insert("front/qt");
  return dossiers;
}

// The folders that each folder may include besides itself.
const Dessous &dessous() {
  static const Dessous table = {
      {"platform", {}},
      {"core", {"platform"}},
      {"map", {"platform", "core"}},
      {"persistence", {"platform", "core"}},
      {"play", {"platform", "core", "map", "persistence"}},
      {"services", {"platform", "core", "map", "persistence", "play"}},
      {"configuration", {"platform", "core", "map", "persistence", "play"}},
      {"screens", {"platform", "core", "map", "persistence", "play"}},
      {"startup", {"platform", "core", "map", "persistence", "play", "services", "configuration", "screens"}},
      {"front/pilote", tout_sauf_les_façades},
      {"front/qt", tout_sauf_les_façades},
      {"front/demonstration", tout_jusqu_au_bureau({})},
      {"front/ardane", tout_jusqu_au_bureau({"front/demonstration"})},
  };
  return table;
}

bool est_source(const std::filesystem::path &chemin) {
  return chemin.extension() == ".h" || chemin.extension() == ".cpp";
}

template <class F>
void pour_chaque_inclusion(const std::filesystem::path &fichier, F &&dire) {
  static const std::regex inclusion(R"re(^\s*#include\s*[<"]([^>"]+)[>"])re");
  std::ifstream source(fichier);
  std::smatch trouvé;
  for (std::string ligne; std::getline(source, ligne);)
    if (std::regex_search(ligne, trouvé, inclusion)) dire(trouvé[1].str());
}

/// The folder of the table that a path below src/ lies in; empty if it lies in none.
std::string dossier_de(const std::string &chemin) {
  for (const auto &[dossier, permis] : dessous())
    if (chemin.starts_with(dossier + "/")) return dossier;
  return {};
}

/// Complaints about a source: what it includes lies neither in its own folder nor in one below.
std::string fautes(const std::filesystem::path &source, const std::string &dossier) {
  std::string plaintes;
  pour_chaque_inclusion(source, [&](const std::string &inclus) {
    const std::string cible = dossier_de(inclus);
    if (!cible.empty() && cible != dossier && !dessous().at(dossier).contains(cible))
      plaintes += source.string() + " includes " + inclus + "\n";
  });
  return plaintes;
}

TEST(House, NoIncludeGoesUp) {
  for (const auto &entrée : std::filesystem::recursive_directory_iterator(ARDANE_SOURCES)) {
    if (!est_source(entrée.path())) continue;
    const std::string dossier = dossier_de(entrée.path().lexically_relative(ARDANE_SOURCES).generic_string());
    ASSERT_NE(dossier, "") << entrée.path() << " has no place in the order of the folders";
    EXPECT_EQ(fautes(entrée.path(), dossier), "");
  }
}

TEST(House, TheCheckOfIncludesKnowsTheFolderOfEachPath) {
  EXPECT_EQ(dossier_de("front/qt/modules/sound_module.cpp"), "front/qt");
  EXPECT_EQ(dossier_de("map/layers.h"), "map");
  EXPECT_EQ(dossier_de("mapped/layers.h"), "");
  EXPECT_EQ(dossier_de("vector"), "");
}

TEST(House, OnlyTheDesktopFrontEndKnowsAToolkit) {
  for (const auto &entrée : std::filesystem::recursive_directory_iterator(ARDANE_SOURCES)) {
    if (!est_source(entrée.path())) continue;
    const std::string dossier = dossier_de(entrée.path().lexically_relative(ARDANE_SOURCES).generic_string());
    if (dossier == "front/qt" || dessous().at(dossier).contains("front/qt")) continue;
    pour_chaque_inclusion(entrée.path(), [&](const std::string &inclus) {
      EXPECT_FALSE(inclus.size() > 1 && inclus[0] == 'Q' &&
                   std::isupper(static_cast<unsigned char>(inclus[1])))
          << entrée.path() << " includes " << inclus;
    });
  }
}

}  // namespace
}  // namespace ardane
