// Games without end in the real windows. A line at the end of each tells what one of its answers has cost;
// whoever reads it (soak.py) looks at the process meanwhile.
#include <QApplication>
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "core/game_state.h"
#include "front/qt/demonstration/offscreen.h"
#include "front/qt/demonstration/scratch_folder.h"
#include "whole_game_plan.h"

namespace ardane {
namespace {

struct Visit {
  const char *menu, *entry;
};

/// What a player does between two games.
constexpr std::array<Visit, 6> visits = {{{"menu_scores", "score_facile"},
                                          {"menu_paramétrer", "MenuFicheur"},
                                          {"menu_paramétrer", "MenuCouleurPréfectures"},
                                          {"menu_paramétrer", "MenuSon"},
                                          {"Menu_réviser", "Menu_liste"},
                                          {"menu_fichier", "Fichier_lire"}}};

/// Windows that are only looked at, and what closes them.
const std::map<std::string, const char *> ways_out = {{"Edition", "BTN_quit"},
                                                      {"Palette", "BoutonFermeture"},
                                                      {"Sélection_partie", "Bouton_annuler"},
                                                      {"Stats", "Command1"}};

double cpu_microseconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

/// One game after another at levels drawn by seed, each erring at questions of its own, and visits in
/// between, until the time is up or so many are played.
class EndlessPlan : public Plan {
 public:
  EndlessPlan(Programme &programme, std::uint32_t seed, std::time_t end, int games)
      : programme_(programme), random_(seed), end_(end), games_(games) {}

  void at_box(AutomaticPlayer &player, const QMessageBox &) override { player.accept(); }

  void at_window(AutomaticPlayer &player, const std::string &name) override {
    const auto way_out = ways_out.find(name);
    if (way_out != ways_out.end()) return player.click(way_out->second);
    if (name == "Affichage_scores" && looking_) {
      looking_ = false;
      return player.click("Command1");
    }
    game_->at_window(player, name);
  }

  void at_map(AutomaticPlayer &player) override {
    if (programme_.état().Etape != étape_repos) {
      note_answer();
      return game_->at_map(player);
    }
    if (game_ && !game_->has_ended()) return game_->at_map(player);
    if (game_) tell_game();
    if (games_ == 0 || std::time(nullptr) >= end_) return player.choose("menu_fichier", "fichier_quitter");
    visit_or_play(player);
  }

 private:
  int draw(int number) { return static_cast<int>(random_() % static_cast<std::uint32_t>(number)); }

  void note_answer() {
    const double now = cpu_microseconds();
    if (before_ > 0) answers_.push_back(now - before_);
    before_ = now;
  }

  void visit_or_play(AutomaticPlayer &player) {
    if (draw(3) > 0) {
      const Visit &visit = visits.at(static_cast<std::size_t>(draw(visits.size())));
      looking_ = visit.entry == std::string("score_facile");
      return player.choose(visit.menu, visit.entry);
    }
    const auto level = static_cast<std::size_t>(draw(levels.size()));
    game_.emplace(programme_, QStringLiteral("Élodie"), levels.at(level));
    game_->questions = first_ = draw(7 * 11 * 53);
    player.begin();
    game_->at_map(player);
  }

  void tell_game() {
    std::ranges::sort(answers_);
    std::printf("game: %d questions, %.0f µs\n", game_->questions - first_, answers_.at(answers_.size() / 2));
    std::fflush(stdout);
    game_.reset();
    --games_;
    answers_.clear();
    before_ = 0;
  }

  Programme &programme_;
  std::mt19937 random_;
  const std::time_t end_;
  int games_;  ///< still to be played
  std::optional<WholeGamePlan> game_;
  bool looking_ = false;
  int first_ = 0;
  double before_ = 0;
  std::vector<double> answers_;
};

int play(int seconds, int games, std::uint32_t seed) {
  const ScratchFolder scratch(QCoreApplication::applicationDirPath().toStdString());
  DesktopPlaces places = scratch.places();
  places.secours = scratch.path() / "secours";
  Desktop desktop(places, ressources_du_programme());
  EndlessPlan plan(desktop.programme(), seed, std::time(nullptr) + seconds, games);
  AutomaticPlayer player(desktop, plan);
  if (!player.start()) return 1;
  player.begin();
  desktop.play();
  if (player.trouble().empty()) return 0;
  std::printf("The player gave up: %s\n", player.trouble().c_str());
  return 1;
}

}  // namespace
}  // namespace ardane

int main(int argc, char **argv) {
  if (argc != 4) {
    std::fprintf(stderr, "Usage: desktop_soak SECONDS GAMES SEED\n");
    return 2;
  }
  const ardane::Offscreen platform;
  if (!platform.ready()) return 1;
  const QApplication application(argc, argv);
  return ardane::play(std::stoi(argv[1]), std::stoi(argv[2]),
                      static_cast<std::uint32_t>(std::stoul(argv[3])));
}
