// The first law of the house: a folder includes only folders below it.
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <string>

#include "house/sources.h"

namespace ardane {
namespace {

using Dessous = std::map<std::string, std::set<std::string>>;

const std::set<std::string> tout_sauf_les_façades = {
    "platform", "core", "map", "persistence", "play", "services", "configuration", "screens", "startup"};

const std::set<std::string> &sous_le_pilote() {
  static const std::set<std::string> dessous = [] {
    std::set<std::string> tout = tout_sauf_les_façades;
    tout.insert("front/scripted");
    return tout;
  }();
  return dessous;
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
      {"front/scripted", {"platform", "core"}},
      {"front/pilote", sous_le_pilote()},
      {"front/qt", tout_sauf_les_façades},
  };
  return table;
}

template <class F>
void pour_chaque_inclusion(const std::filesystem::path &fichier, F &&dire) {
  static const std::regex inclusion(R"re(^\s*#include\s*[<"]([^>"]+)[>"])re");
  pour_chaque_ligne(fichier, [&](const std::string &ligne) {
    std::smatch trouvé;
    if (std::regex_search(ligne, trouvé, inclusion)) dire(trouvé[1].str());
  });
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
  pour_chaque_source([](const std::filesystem::path &source) {
    const std::string dossier = dossier_de(source.lexically_relative(ARDANE_SOURCES).generic_string());
    ASSERT_NE(dossier, "") << source << " has no place in the order of the folders";
    EXPECT_EQ(fautes(source, dossier), "");
  });
}

TEST(House, TheCheckOfIncludesKnowsTheFolderOfEachPath) {
  EXPECT_EQ(dossier_de("front/qt/modules/sound_module.cpp"), "front/qt");
  EXPECT_EQ(dossier_de("map/layers.h"), "map");
  EXPECT_EQ(dossier_de("mapped/layers.h"), "");
  EXPECT_EQ(dossier_de("vector"), "");
}

TEST(House, OnlyTheDesktopFrontEndKnowsAToolkit) {
  pour_chaque_source([](const std::filesystem::path &source) {
    if (source.string().find("front/qt/") != std::string::npos) return;
    pour_chaque_inclusion(source, [&](const std::string &inclus) {
      EXPECT_FALSE(inclus.size() > 1 && inclus[0] == 'Q' &&
                   std::isupper(static_cast<unsigned char>(inclus[1])))
          << source << " includes " << inclus;
    });
  });
}

}  // namespace
}  // namespace ardane
