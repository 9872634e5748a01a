// No hidden global: the process's current folder belongs to whoever started the process.
#include <gtest/gtest.h>

#include <regex>

#include "house/sources.h"

namespace ardane {
namespace {

/// A call that changes the process's folder. `current_path` reads it where it takes nothing, or an error code
/// alone.
bool change_le_dossier(const std::string &ligne) {
  static const std::regex appel(
      R"re(\b(f?chdir|_w?chdir|SetCurrentDirectory[AW]?|setCurrent)\s*\(|\bcurrent_path\s*\((?!\s*(erreur\s*)?\)))re");
  return std::regex_search(ligne, appel);
}

TEST(House, NoSourceChangesTheFolderOfTheProcess) {
  pour_chaque_source(ARDANE_SOURCES, [](const std::filesystem::path &source) {
    pour_chaque_ligne(source, [&](const std::string &ligne) {
      EXPECT_FALSE(change_le_dossier(ligne)) << source << ": " << ligne;
    });
  });
}

TEST(House, OnlyTheFolderOfARunReadsTheFolderOfTheProcess) {
  pour_chaque_source(ARDANE_SOURCES, [](const std::filesystem::path &source) {
    if (source.filename() == "current_folder.cpp") return;
    pour_chaque_ligne(source, [&](const std::string &ligne) {
      EXPECT_EQ(ligne.find("current_path"), std::string::npos) << source << ": " << ligne;
    });
  });
}

TEST(House, TheCheckOfTheFolderKnowsAChangeFromALook) {
  EXPECT_TRUE(change_le_dossier("  std::filesystem::current_path(chemin_natif(dossier), erreur);"));
  EXPECT_TRUE(change_le_dossier("  if (chdir(dossier.c_str()) != 0) return;"));
  EXPECT_TRUE(change_le_dossier("  QDir::setCurrent(folder);"));
  EXPECT_FALSE(change_le_dossier("  return texte_du_chemin(fs::current_path(erreur));"));
  EXPECT_FALSE(change_le_dossier("  return fs::current_path();"));
  EXPECT_FALSE(change_le_dossier("  list().setCurrentRow(control().choix - 1);"));
}

}  // namespace
}  // namespace ardane
