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

// The folders that each folder may include besides itself.
const Dessous &dessous() {
  static const Dessous table = {
      {"platform", {}},
      {"core", {"platform"}},
      {"map", {"platform", "core"}},
      {"persistence", {"platform", "core", "map"}},
      {"play", {"platform", "core", "map", "persistence"}},
      {"services", {"platform", "core", "map", "persistence", "play"}},
      {"configuration", {"platform", "core", "map", "persistence", "play"}},
      {"screens", {"platform", "core", "map", "persistence", "play"}},
      {"startup", {"platform", "core", "map", "persistence", "play", "services", "configuration", "screens"}},
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

/// Complaints about the sources right in a folder of src/ (the front ends below platform/ stand on top).
std::string fautes(const std::filesystem::path &racine, const std::string &dossier,
                   const std::set<std::string> &permis) {
  std::string plaintes;
  for (const auto &entrée : std::filesystem::directory_iterator(racine / dossier)) {
    if (!est_source(entrée.path())) continue;
    pour_chaque_inclusion(entrée.path(), [&](const std::string &inclus) {
      const auto barre = inclus.find('/');
      const std::string cible = inclus.substr(0, barre);
      const bool monte = barre != std::string::npos && dessous().contains(cible) && cible != dossier &&
                         !permis.contains(cible);
      const bool façade = inclus.starts_with("platform/qt/") || inclus.starts_with("platform/pilote/");
      if (monte || façade) plaintes += entrée.path().string() + " includes " + inclus + "\n";
    });
  }
  return plaintes;
}

TEST(House, NoIncludeGoesUp) {
  for (const auto &[dossier, permis] : dessous()) EXPECT_EQ(fautes(ARDANE_SOURCES, dossier, permis), "");
}

TEST(House, EveryFolderOfTheSourcesHasItsPlaceInTheOrder) {
  for (const auto &entrée : std::filesystem::directory_iterator(ARDANE_SOURCES))
    EXPECT_TRUE(!entrée.is_directory() || dessous().contains(entrée.path().filename())) << entrée.path();
}

TEST(House, OnlyTheDesktopFrontEndKnowsAToolkit) {
  for (const auto &entrée : std::filesystem::recursive_directory_iterator(ARDANE_SOURCES)) {
    const bool bureau = entrée.path().string().find("platform/qt/") != std::string::npos;
    if (bureau || !est_source(entrée.path())) continue;
    pour_chaque_inclusion(entrée.path(), [&](const std::string &inclus) {
      EXPECT_FALSE(inclus.size() > 1 && inclus[0] == 'Q' &&
                   std::isupper(static_cast<unsigned char>(inclus[1])))
          << entrée.path() << " includes " << inclus;
    });
  }
}

}  // namespace
}  // namespace ardane
