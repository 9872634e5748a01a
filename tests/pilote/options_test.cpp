#include "front/pilote/options.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/paths.h"

namespace ardane {
namespace {

TEST(Options, without_any_the_screen_is_a_common_one_and_all_else_is_open) {
  const OptionsPilote options = lire_options({});
  EXPECT_EQ(options.écran.largeur, 1280);
  EXPECT_EQ(options.écran.hauteur, 1024);
  EXPECT_EQ(options.écran.couleurs, 32);
  EXPECT_FALSE(options.zone);
  EXPECT_TRUE(options.modes.empty());
  EXPECT_FALSE(options.date);
  EXPECT_FALSE(options.hasard);
  EXPECT_TRUE(options.programme.empty() && options.dossier.empty() && options.registre.empty());
  EXPECT_TRUE(options.secours.empty());
}

TEST(Options, all_of_them_are_read) {
  const OptionsPilote options =
      lire_options({"--programme", "/jeu", "--dossier", "/tmp", "--registre", "r é", "--écran", "800x600x16",
                    "--zone", "0,-5,800,570", "--modes", "640x480x8,800x600x16", "--date", "2024-02-29",
                    "--hasard", "4294967295", "--secours", "s é"});
  EXPECT_EQ(options.secours, "s é");
  EXPECT_EQ(options.programme, "/jeu");
  EXPECT_EQ(options.dossier, "/tmp");
  EXPECT_EQ(options.registre, "r é");
  EXPECT_EQ(options.écran.largeur, 800);
  EXPECT_EQ(options.écran.hauteur, 600);
  EXPECT_EQ(options.écran.couleurs, 16);
  EXPECT_EQ(options.zone, (Rect{0, -5, 800, 570}));
  ASSERT_EQ(options.modes.size(), 2U);
  EXPECT_EQ(options.modes[0].largeur, 640);
  EXPECT_EQ(options.modes[1].couleurs, 16);
  EXPECT_EQ(options.date, std::chrono::year(2024) / 2 / 29);
  EXPECT_EQ(options.hasard, 4294967295U);
}

TEST(Options, of_one_given_twice_the_last_counts) {
  EXPECT_EQ(lire_options({"--hasard", "1", "--hasard", "2"}).hasard, 2U);
  EXPECT_EQ(lire_options({"--modes", "640x480x8,800x600x16", "--modes", "800x600x16"}).modes.size(), 1U);
}

using Arguments_refusés = std::vector<std::string>;
class Options_refusées : public ::testing::TestWithParam<Arguments_refusés> {};

TEST_P(Options_refusées, are_told_in_a_sentence) {
  try {
    lire_options(GetParam());
    FAIL() << "accepted";
  } catch (const OptionRefusée &refusée) {
    EXPECT_TRUE(std::string(refusée.what()).ends_with('.')) << refusée.what();
  }
}

INSTANTIATE_TEST_SUITE_P(
    Options, Options_refusées,
    ::testing::Values(Arguments_refusés{"--inconnue", "1"}, Arguments_refusés{"démarrer"},
                      Arguments_refusés{"--hasard"}, Arguments_refusés{"--programme", ""},
                      Arguments_refusés{"--ecran", "800x600x16"}, Arguments_refusés{"--écran", "800x600"},
                      Arguments_refusés{"--écran", "800x600x16x1"}, Arguments_refusés{"--écran", "800x600x0"},
                      Arguments_refusés{"--écran", "-800x600x16"},
                      Arguments_refusés{"--écran", "800 x600x16"}, Arguments_refusés{"--zone", "0,0,800"},
                      Arguments_refusés{"--zone", "800,0,0,600"},
                      Arguments_refusés{"--zone", "0,600,800,600"},
                      Arguments_refusés{"--modes", "800x600x16,"}, Arguments_refusés{"--date", "2026-02-29"},
                      Arguments_refusés{"--date", "26-2-1"}, Arguments_refusés{"--date", "2026/02/01"},
                      Arguments_refusés{"--date", "2026-00-10"}, Arguments_refusés{"--hasard", "-1"},
                      Arguments_refusés{"--hasard", "4294967296"}, Arguments_refusés{"--hasard", "1.5"}));

TEST(Dossiers, the_program_lies_in_the_folder_of_the_executable) {
  OptionsPilote options;
  établir_dossiers(options, "sans importance");
  EXPECT_TRUE(std::filesystem::exists(chemin_natif(Joindre_chemin(options.programme, "pilote_test"))));
}

TEST(Dossiers, paths_are_those_of_the_folder_that_the_pilot_was_started_in) {
  OptionsPilote options;
  options.programme = "jeu/";
  options.registre = "réglages";
  options.secours = "secours";
  établir_dossiers(options, "");
  const std::filesystem::path processus = std::filesystem::current_path();
  EXPECT_EQ(options.programme, texte_du_chemin(processus / "jeu/"));
  EXPECT_EQ(options.registre, texte_du_chemin(processus / chemin_natif("réglages")));
  EXPECT_EQ(options.secours, texte_du_chemin(processus / "secours"));
}

TEST(Dossiers, the_current_folder_is_the_one_given_or_that_of_the_process) {
  OptionsPilote options;
  établir_dossiers(options, "");
  EXPECT_EQ(options.dossier, texte_du_chemin(std::filesystem::current_path()));
  options.dossier = texte_du_chemin(std::filesystem::temp_directory_path() / "." / "");
  établir_dossiers(options, "");
  EXPECT_EQ(options.dossier,
            texte_du_chemin(std::filesystem::canonical(std::filesystem::temp_directory_path())));
}

TEST(Dossiers, a_folder_that_is_not_there_is_refused) {
  OptionsPilote options;
  options.dossier = "/aucun dossier de ce nom";
  EXPECT_THROW(établir_dossiers(options, ""), OptionRefusée);
}

}  // namespace
}  // namespace ardane
