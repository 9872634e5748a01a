// The first law of the house: a folder includes only folders below it. It holds for the program and for the
// atelier.
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

std::set<std::string> et_aussi(std::set<std::string> dossiers, const std::set<std::string> &autres) {
  dossiers.insert(autres.begin(), autres.end());
  return dossiers;
}

// The folders that each folder of the program may include besides itself.
const Dessous &dessous_du_programme() {
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
      {"front/help", {"platform"}},
      {"front/pilote", et_aussi(tout_sauf_les_façades, {"front/scripted"})},
      {"front/qt", et_aussi(tout_sauf_les_façades, {"front/help"})},
      {"front/qt/demonstration", et_aussi(tout_sauf_les_façades, {"front/qt"})},
      {"front/qt/ardane", et_aussi(tout_sauf_les_façades, {"front/qt", "front/qt/demonstration"})},
  };
  return table;
}

// The same for the rooms of the atelier, and for what stands before them.
const Dessous &dessous_de_l_atelier() {
  static const Dessous table = {
      {"numbers", {}},
      {"drawing", {"numbers"}},
      {"files", {"numbers", "drawing"}},
      {"terrain", {"numbers", "drawing", "files"}},
      {"country", {"numbers", "drawing", "files", "terrain"}},
      {"chart", {"numbers", "drawing", "files", "terrain", "country"}},
      {"armorial", {"numbers", "drawing", "files"}},
      {"marks", {"numbers", "drawing", "files"}},
      {"voices", {"numbers"}},
      {"main.cpp", {"files", "chart", "armorial", "marks", "voices"}},
  };
  return table;
}

struct Maison {
  std::filesystem::path racine;
  const Dessous &dessous;
};

Maison programme() {
  return {ARDANE_SOURCES, dessous_du_programme()};
}

Maison atelier() {
  return {ATELIER_SOURCES, dessous_de_l_atelier()};
}

template <class F>
void pour_chaque_inclusion(const std::filesystem::path &fichier, F &&dire) {
  static const std::regex inclusion(R"re(^\s*#include\s*[<"]([^>"]+)[>"])re");
  pour_chaque_ligne(fichier, [&](const std::string &ligne) {
    std::smatch trouvé;
    if (std::regex_search(ligne, trouvé, inclusion)) dire(trouvé[1].str());
  });
}

/// The innermost entry of the table that a path below the root lies in; empty if it lies in none.
std::string dossier_de(const Maison &maison, const std::string &chemin) {
  std::string trouvé;
  for (const auto &[dossier, permis] : maison.dessous)
    if ((chemin == dossier || chemin.starts_with(dossier + "/")) && dossier.size() > trouvé.size())
      trouvé = dossier;
  return trouvé;
}

std::string dossier_de(const Maison &maison, const std::filesystem::path &source) {
  return dossier_de(maison, source.lexically_relative(maison.racine).generic_string());
}

/// Complaints about a source: what it includes lies neither in its own folder nor in one below.
std::string fautes(const Maison &maison, const std::filesystem::path &source, const std::string &dossier) {
  std::string plaintes;
  pour_chaque_inclusion(source, [&](const std::string &inclus) {
    const std::string cible = dossier_de(maison, inclus);
    if (!cible.empty() && cible != dossier && !maison.dessous.at(dossier).contains(cible))
      plaintes += source.string() + " includes " + inclus + "\n";
  });
  return plaintes;
}

void aucune_inclusion_ne_monte(const Maison &maison) {
  for (const auto &[dossier, permis] : maison.dessous)
    EXPECT_TRUE(std::filesystem::exists(maison.racine / dossier)) << dossier;
  pour_chaque_source(maison.racine, [&](const std::filesystem::path &source) {
    const std::string dossier = dossier_de(maison, source);
    ASSERT_NE(dossier, "") << source << " has no place in the order of the folders";
    EXPECT_EQ(fautes(maison, source, dossier), "");
  });
}

void seuls_connaissent_une_boîte_à_outils(const Maison &maison, const std::set<std::string> &dossiers) {
  pour_chaque_source(maison.racine, [&](const std::filesystem::path &source) {
    if (dossiers.contains(dossier_de(maison, source))) return;
    pour_chaque_inclusion(source, [&](const std::string &inclus) {
      EXPECT_FALSE(inclus.size() > 1 && inclus[0] == 'Q' &&
                   std::isupper(static_cast<unsigned char>(inclus[1])))
          << source << " includes " << inclus;
    });
  });
}

TEST(House, NoIncludeGoesUp) {
  aucune_inclusion_ne_monte(programme());
}

TEST(House, NoIncludeOfTheAtelierGoesUp) {
  aucune_inclusion_ne_monte(atelier());
}

TEST(House, TheCheckOfIncludesKnowsTheFolderOfEachPath) {
  const auto dossier = [](const char *chemin) { return dossier_de(programme(), std::string(chemin)); };
  EXPECT_EQ(dossier("front/qt/modules/sound_module.cpp"), "front/qt");
  EXPECT_EQ(dossier("map/layers.h"), "map");
  EXPECT_EQ(dossier("mapped/layers.h"), "");
  EXPECT_EQ(dossier("vector"), "");
}

TEST(House, OnlyTheDesktopFrontEndAndWhatStandsOnItKnowAToolkit) {
  seuls_connaissent_une_boîte_à_outils(programme(),
                                       {"front/qt", "front/qt/demonstration", "front/qt/ardane"});
}

TEST(House, OnlyTheFilesOfTheAtelierKnowAToolkit) {
  seuls_connaissent_une_boîte_à_outils(atelier(), {"files"});
}

}  // namespace
}  // namespace ardane
