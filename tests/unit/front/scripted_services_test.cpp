#include "front/scripted/scripted_services.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>

#include "support/fake_world.h"

namespace ardane {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::Lt;

TEST(EcranScripté, by_itself_works_on_all_of_its_only_mode) {
  Témoin personne;
  const EcranScripté écran({}, personne);
  EXPECT_EQ(écran.zone_de_travail(), (Rect{0, 0, 1280, 1024}));
  ASSERT_EQ(écran.modes().size(), 1U);
  EXPECT_EQ(écran.modes()[0].hauteur, 1024);
  EXPECT_EQ(écran.bits_par_pixel(), 32);
}

TEST(EcranScripté, is_what_the_options_say) {
  OptionsMonde options;
  options.écran = {800, 600, 16};
  options.zone = Rect{0, 0, 800, 572};
  options.modes = {{640, 480, 8}, {800, 600, 16}};
  Témoin personne;
  EcranScripté écran(options, personne);
  EXPECT_EQ(écran.largeur(), 800);
  EXPECT_EQ(écran.hauteur(), 600);
  EXPECT_EQ(écran.bits_par_pixel(), 16);
  EXPECT_EQ(écran.zone_de_travail().bas, 572);
  EXPECT_EQ(écran.modes().size(), 2U);
  écran.placer_curseur({3, -4});
  EXPECT_EQ(écran.curseur(), (Point{3, -4}));
}

TEST(HorlogeScriptée, a_given_day_stands_still_at_midnight) {
  OptionsMonde options;
  options.date = std::chrono::year(2024) / 2 / 29;
  const HorlogeScriptée horloge(options);
  EXPECT_EQ(horloge.aujourd_hui(), std::chrono::year(2024) / 2 / 29);
  EXPECT_EQ(horloge.heure().count(), 0);
}

TEST(HorlogeScriptée, by_itself_tells_the_time_of_the_system) {
  const HorlogeScriptée horloge{OptionsMonde{}};
  const auto jour = [](std::time_t t) {
    const std::tm *lu = std::localtime(&t);
    return std::chrono::sys_days(std::chrono::year(lu->tm_year + 1900) / (lu->tm_mon + 1) / lu->tm_mday);
  };
  const auto avant = jour(std::time(nullptr));
  const auto lu = std::chrono::sys_days(horloge.aujourd_hui());
  EXPECT_THAT(lu, AllOf(Ge(avant), ::testing::Le(jour(std::time(nullptr)))));
  EXPECT_THAT(horloge.heure(), AllOf(Ge(std::chrono::seconds(0)), Lt(std::chrono::hours(24))));
}

TEST(HasardScripté, a_seed_gives_the_same_draws_for_ever) {
  OptionsMonde options;
  options.hasard = 7;
  HasardScripté un(options), autre(options);
  std::vector<float> premiers;
  for (int i = 0; i < 1000; ++i) {
    const float tirage = un.tirer();
    EXPECT_THAT(tirage, AllOf(Ge(0.0F), Lt(1.0F)));
    EXPECT_EQ(tirage, autre.tirer());
    premiers.push_back(tirage);
  }
  un.semer();
  EXPECT_EQ(un.tirer(), premiers.front());
  EXPECT_NE(premiers[0], premiers[1]);
}

TEST(HasardScripté, draws_foreseen_come_first_and_in_order) {
  OptionsMonde options;
  options.hasard = 7;
  HasardScripté hasard(options), témoin(options);
  hasard.suite = {0.25F, 0.5F};
  EXPECT_EQ(hasard.tirer(), 0.25F);
  EXPECT_EQ(hasard.tirer(), 0.5F);
  EXPECT_EQ(hasard.tirer(), témoin.tirer());
  hasard.suite = {0.75F};
  hasard.suite.clear();
  EXPECT_EQ(hasard.tirer(), témoin.tirer());
}

TEST(HasardScripté, without_a_source_what_is_not_foreseen_is_the_first_candidate) {
  OptionsMonde options;
  options.hasard_nul = true;
  HasardScripté hasard(options);
  hasard.semer();
  hasard.suite = {0.25F};
  EXPECT_EQ(hasard.tirer(), 0.25F);
  EXPECT_EQ(hasard.tirer(), 0.0F);
  EXPECT_EQ(hasard.tirages, 2);
  EXPECT_EQ(hasard.semailles, 1);
}

TEST(WebScripté, only_the_next_page_comes_and_each_request_is_told) {
  Relevé relevé;
  WebScripté web(relevé);
  EXPECT_FALSE(web.lire_page("a.htm"));
  web.prévoir("contenu");
  EXPECT_EQ(web.lire_page("jeux/b.htm"), "contenu");
  EXPECT_FALSE(web.lire_page("c.htm"));
  web.prévoir("contenu");
  web.prévoir(std::nullopt);
  EXPECT_FALSE(web.lire_page("d.htm"));
  EXPECT_THAT(relevé.pages, ElementsAre("a.htm", "jeux/b.htm", "c.htm", "d.htm"));
}

TEST(SonScripté, tells_the_file_without_its_folder) {
  Relevé relevé;
  SonScripté(relevé).jouer("/jeu/été/carte_ok.wav");
  EXPECT_THAT(relevé.son.joués, ElementsAre("carte_ok.wav"));
}

TEST(AideScriptée, tells_the_file_and_the_context) {
  Relevé relevé;
  AideScriptée(relevé).ouvrir("/jeu/ARDANE.HLP", 65);
  EXPECT_THAT(relevé.aide.ouvertures, ElementsAre(std::pair(std::string("/jeu/ARDANE.HLP"), 65)));
}

}  // namespace
}  // namespace ardane
