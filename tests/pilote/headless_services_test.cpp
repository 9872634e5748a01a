#include "front/pilote/headless_services.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <sstream>

namespace ardane {
namespace {

using ::testing::AllOf;
using ::testing::Ge;
using ::testing::Lt;

TEST(EcranScripté, by_itself_works_on_all_of_its_only_mode) {
  const EcranScripté écran{Options{}};
  EXPECT_EQ(écran.zone_de_travail(), (Rect{0, 0, 1280, 1024}));
  ASSERT_EQ(écran.modes().size(), 1U);
  EXPECT_EQ(écran.modes()[0].hauteur, 1024);
  EXPECT_EQ(écran.bits_par_pixel(), 32);
}

TEST(EcranScripté, is_what_the_options_say) {
  Options options;
  options.écran = {800, 600, 16};
  options.zone = Rect{0, 0, 800, 572};
  options.modes = {{640, 480, 8}, {800, 600, 16}};
  EcranScripté écran(options);
  EXPECT_EQ(écran.largeur(), 800);
  EXPECT_EQ(écran.hauteur(), 600);
  EXPECT_EQ(écran.bits_par_pixel(), 16);
  EXPECT_EQ(écran.zone_de_travail().bas, 572);
  EXPECT_EQ(écran.modes().size(), 2U);
  écran.placer_curseur({3, -4});
  EXPECT_EQ(écran.curseur(), (Point{3, -4}));
}

TEST(HorlogeScriptée, a_given_day_stands_still_at_midnight) {
  Options options;
  options.date = std::chrono::year(2024) / 2 / 29;
  const HorlogeScriptée horloge(options);
  EXPECT_EQ(horloge.aujourd_hui(), std::chrono::year(2024) / 2 / 29);
  EXPECT_EQ(horloge.heure().count(), 0);
}

TEST(HorlogeScriptée, by_itself_tells_the_time_of_the_system) {
  const HorlogeScriptée horloge{Options{}};
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
  Options options;
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
  Options options;
  options.hasard = 7;
  HasardScripté hasard(options), témoin(options);
  hasard.prévoir(0.25F);
  hasard.prévoir(0.5F);
  EXPECT_EQ(hasard.tirer(), 0.25F);
  EXPECT_EQ(hasard.tirer(), 0.5F);
  EXPECT_EQ(hasard.tirer(), témoin.tirer());
  hasard.prévoir(0.75F);
  hasard.oublier();
  EXPECT_EQ(hasard.tirer(), témoin.tirer());
}

TEST(WebScripté, only_the_next_page_comes_and_each_request_is_told) {
  std::ostringstream sortie;
  Journal journal(sortie);
  WebScripté web(journal);
  EXPECT_FALSE(web.lire_page("a.htm"));
  web.prévoir("contenu");
  EXPECT_EQ(web.lire_page("jeux/b.htm"), "contenu");
  EXPECT_FALSE(web.lire_page("c.htm"));
  web.prévoir("contenu");
  web.prévoir(std::nullopt);
  EXPECT_FALSE(web.lire_page("d.htm"));
  EXPECT_EQ(sortie.str(),
            "{\"page\":\"a.htm\"}\n{\"page\":\"jeux/b.htm\"}\n{\"page\":\"c.htm\"}\n{\"page\":\"d.htm\"}\n");
}

TEST(SonÉcrit, tells_the_file_without_its_folder) {
  std::ostringstream sortie;
  Journal journal(sortie);
  SonÉcrit(journal).jouer("/jeu/été/carte_ok.wav");
  EXPECT_EQ(sortie.str(), "{\"son\":\"carte_ok.wav\"}\n");
}

TEST(AideÉcrite, tells_the_file_and_the_context) {
  std::ostringstream sortie;
  Journal journal(sortie);
  AideÉcrite(journal).ouvrir("/jeu/ARDANE.HLP", 65);
  EXPECT_EQ(sortie.str(), "{\"aide\":{\"fichier\":\"/jeu/ARDANE.HLP\",\"contexte\":65}}\n");
}

}  // namespace
}  // namespace ardane
