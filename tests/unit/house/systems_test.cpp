// What is of one system stands in the files named for it.
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "house/sources.h"

namespace ardane {
namespace {

/// A header with ".h" in angle brackets is a system's, since C++ and Qt have theirs without; and so is a
/// question to the preprocessor which system this is.
bool est_d_un_système(const std::string &ligne) {
  static const std::regex signe(
      R"re(^\s*#include\s*<[^>]+\.h>|^\s*#.*\b(__linux__|__unix__|_WIN32|_WIN64)\b)re");
  return std::regex_search(ligne, signe);
}

bool est_nommé_pour_un_système(const std::filesystem::path &source) {
  static const std::regex nom(R"re(.*_(linux|windows|other)\.cpp|windows_headers\.h)re");
  return std::regex_match(source.filename().string(), nom);
}

TEST(House, WhatIsOfOneSystemStandsInFilesNamedForIt) {
  pour_chaque_source(ARDANE_SOURCES, [](const std::filesystem::path &source) {
    if (est_nommé_pour_un_système(source)) return;
    pour_chaque_ligne(source, [&](const std::string &ligne) {
      EXPECT_FALSE(est_d_un_système(ligne)) << source << ": " << ligne;
    });
  });
}

TEST(House, EachFileNamedForASystemHasOneForTheOthers) {
  std::set<std::string> noms;
  pour_chaque_source(ARDANE_SOURCES, [&](const auto &source) { noms.insert(source.string()); });
  static const std::regex système(R"re(_(linux|windows)\.cpp$)re");
  for (const std::string &nom : noms) {
    if (!std::regex_search(nom, système) || nom.ends_with("windows_text_windows.cpp")) continue;
    EXPECT_TRUE(noms.contains(std::regex_replace(nom, système, "_other.cpp"))) << nom;
  }
}

TEST(House, TheCheckOfSystemsKnowsTheirHeaders) {
  EXPECT_TRUE(est_d_un_système("#include <unistd.h>"));
  EXPECT_TRUE(est_d_un_système("#include <sys/stat.h>"));
  EXPECT_TRUE(est_d_un_système("#if !defined(__linux__)"));
  EXPECT_TRUE(est_d_un_système("#ifdef _WIN32"));
  EXPECT_FALSE(est_d_un_système("#include <cstdio>"));
  EXPECT_FALSE(est_d_un_système("#include <QWidget>"));
  EXPECT_FALSE(est_d_un_système("#include \"core/paths.h\""));
}

}  // namespace
}  // namespace ardane
