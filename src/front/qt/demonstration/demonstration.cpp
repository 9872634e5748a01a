#include "front/qt/demonstration/demonstration.h"

#include <QApplication>
#include <array>
#include <cstdio>
#include <map>
#include <utility>

#include "core/chooser_modes.h"
#include "core/game_state.h"
#include "core/paths.h"
#include "front/qt/appearance.h"
#include "front/qt/demonstration/album.h"
#include "front/qt/demonstration/automatic_player.h"
#include "front/qt/demonstration/offscreen.h"
#include "front/qt/demonstration/scratch_folder.h"
#include "persistence/score_file.h"

namespace ardane {
namespace {

constexpr int half_way = nombre_provinces / 2;
/// Pixels of the map: the towns below lie in the south.
constexpr int middle_of_the_map = 330;
/// A wrong click before each so many-th answer.
constexpr int mistake_every = 9;

/// What the stopped game is kept as.
const QString saved_game = QStringLiteral("Souper");

constexpr int card_to_show = 55;

/// What is looked at after the game, in this order.
const std::array<std::pair<const char *, const char *>, 5> visits = {{
    {"menu_paramétrer", "menu_définir"},
    {"Menu_réviser", "Menu_révision"},
    {"menu_paramétrer", "MenuFicheur"},
    {"menu_paramétrer", "MenuCouleurPréfectures"},
    {"menu_fichier", "fichier_quitter"},
}};

/// Windows that are only looked at, and what closes them.
const std::map<std::string, const char *> ways_out = {
    {"Stats", "Command1"}, {"Pompe", "BTN_OK"}, {"Edition", "BTN_quit"}, {"Palette", "BoutonFermeture"}};

/// A game of the stage Provinces by somebody who knows the country, and slips now and then. Half way it is
/// stopped and taken up again; afterwards the north is tried out as a configuration of its own, and a look is
/// taken at the windows around the game.
class Demonstration : public Plan {
 public:
  Demonstration(const GameState &state, Album &album) : g_(state), album_(album) {}

  void at_box(AutomaticPlayer &player, const QMessageBox &box) override;
  void at_window(AutomaticPlayer &player, const std::string &name) override;
  void at_map(AutomaticPlayer &player) override;

  int mistakes() const { return mistakes_; }
  /// The score when the last question was answered.
  int score() const { return score_; }

 private:
  void new_game(AutomaticPlayer &player);
  void choose_file(AutomaticPlayer &player);
  void between_games(AutomaticPlayer &player);
  void look_at_scores(AutomaticPlayer &player);
  void configure(AutomaticPlayer &player);
  void answer(AutomaticPlayer &player);
  int other_province() const;
  void tell_progress() const;

  const GameState &g_;
  Album &album_;
  bool started_ = false, stopped_ = false, ended_ = false, erred_ = false, counted_ = false;
  std::size_t visits_ = 0;  ///< made of those after the game
  int answers_ = 0, mistakes_ = 0, score_ = 0;
};

void Demonstration::at_box(AutomaticPlayer &player, const QMessageBox &box) {
  album_.add(to_utf8(box.windowTitle()));
  player.accept();
}

void Demonstration::at_window(AutomaticPlayer &player, const std::string &name) {
  if (name == "nouvelle_partie") return new_game(player);
  if (name == "Sélection_partie") return choose_file(player);
  if (name == "Affichage_scores") return look_at_scores(player);
  const auto way_out = ways_out.find(name);
  if (way_out == ways_out.end()) return player.give_up("fenêtre inattendue : " + name);
  album_.add(name);
  player.click(way_out->second);
}

/// The statistics first, above them.
void Demonstration::look_at_scores(AutomaticPlayer &player) {
  album_.add("Affichage_scores");
  ended_ = true;
  player.click(std::exchange(counted_, true) ? "Command1" : "BoutonStatistiques");
}

void Demonstration::new_game(AutomaticPlayer &player) {
  player.fill_in("boîte_nom_joueur", QStringLiteral("Ardan"));
  player.click("niveau_facile");
  player.then([this] { album_.add("nouvelle_partie"); });
  player.click("bouton_sortie");
}

void Demonstration::choose_file(AutomaticPlayer &player) {
  const bool keeps = g_.Mode_sélection == choix_nouveau_nom;
  if (keeps)
    player.fill_in("Nom_fichier", saved_game);
  else
    player.pick("Fichier", saved_game + QStringLiteral(".CAI"));
  player.then([this, keeps] { album_.add(keeps ? "enregistrer" : "reprendre"); });
  player.click("Bouton_OK");
}

void Demonstration::at_map(AutomaticPlayer &player) {
  switch (g_.Etape) {
    case étape_provinces: return answer(player);
    case étape_paramétrage_défini: return configure(player);
    case étape_révision:
      if (g_.ProvinceFiche == 0) return player.click(province(card_to_show));
      return between_games(player);
    case étape_repos: return between_games(player);
    default: player.give_up("la partie s'est arrêtée à l'étape " + std::to_string(g_.Etape));
  }
}

void Demonstration::between_games(AutomaticPlayer &player) {
  if (ended_) {
    const auto &[menu, entry] = visits.at(visits_++);
    return player.choose(menu, entry);
  }
  if (stopped_) return player.choose("menu_fichier", "Fichier_lire");
  if (started_) return player.give_up("la partie s'est arrêtée avant sa fin");
  started_ = true;
  album_.add("carte");
  player.choose("menu_fichier", "fichier_nouveau");
}

void Demonstration::configure(AutomaticPlayer &player) {
  for (int p = 1; p <= nombre_provinces; ++p)
    if (g_.TableVilles(p).y > middle_of_the_map) player.click(province(p));
  player.then([this] { album_.add("paramétrage"); });
  player.click("BTN(2)");
}

void Demonstration::answer(AutomaticPlayer &player) {
  if (answers_ == half_way && !stopped_) {
    stopped_ = true;
    return player.choose("menu_fichier", "Fichier_enregistrer");
  }
  const int wrong = (answers_ + 1) % mistake_every == 0 && !erred_ ? other_province() : 0;
  erred_ = wrong != 0;
  if (erred_) {
    ++mistakes_;
    return player.click(province(wrong));
  }
  ++answers_;
  if (answers_ == half_way) album_.add("milieu");
  if (answers_ == nombre_provinces) album_.add("fin");
  score_ = g_.Score;
  tell_progress();
  player.click(province(g_.ProvinceCourante));
}

/// The next province still to be found after the one that is asked; 0 for none.
int Demonstration::other_province() const {
  const int asked = g_.ProvinceCourante;
  for (int p = asked % nombre_provinces + 1; p != asked; p = p % nombre_provinces + 1)
    if (!g_.TableProvinces(p).trouvée) return p;
  return 0;
}

void Demonstration::tell_progress() const {
  if (answers_ % 10 != 0) return;
  std::printf("Province %d sur %d : %s. Score : %d\n", answers_, nombre_provinces,
              g_.TableProvinces(g_.ProvinceCourante).nom.c_str(), g_.Score);
  std::fflush(stdout);
}

int play(const QDir &folder) {
  const ScratchFolder scratch(chemin_natif(to_utf8(QCoreApplication::applicationDirPath())));
  Desktop desktop(scratch.places(), ressources_du_programme());
  GameState &g = desktop.programme().état();
  Album album(folder);
  Demonstration plan(g, album);
  AutomaticPlayer player(desktop, plan);
  std::printf("Démonstration : une partie du jeu des provinces, au niveau Facile.\n");
  if (!player.start()) return 1;
  g.Ordre_jeux.remplir(0);
  g.Ordre_jeux(1) = étape_provinces;
  // A game taken up finds its stages in the score file.
  Ecrire_scores(desktop.programme().contexte(), false);
  player.begin();
  desktop.play();
  if (!player.trouble().empty()) {
    std::printf("La démonstration s'est arrêtée : %s.\n", player.trouble().c_str());
    return 1;
  }
  std::printf("Partie finie : %d erreurs, score %d.\n", plan.mistakes(), plan.score());
  return album.complete() ? 0 : 1;
}

}  // namespace

int demonstrate(int argc, char **argv, const std::string &folder) {
  const QDir pictures(QDir(to_qt(folder)).absolutePath());
  const Offscreen platform;
  if (!pictures.mkpath(QStringLiteral(".")) || !platform.ready()) {
    std::fprintf(stderr, "Impossible d'écrire dans le dossier %s\n", folder.c_str());
    return 1;
  }
  const QApplication application(argc, argv);
  return play(pictures);
}

}  // namespace ardane
