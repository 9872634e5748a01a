// Games that are stopped and taken up again, each time by another run of the program, through the real
// windows.
#include <gmock/gmock.h>

#include <QLineEdit>
#include <QListWidget>
#include <array>
#include <fstream>
#include <set>
#include <tuple>

#include "front/qt/demonstration/mouse.h"
#include "map/panel.h"
#include "persistence/score_file.h"
#include "program_test.h"
#include "whole_game_plan.h"

namespace ardane {
namespace {

using Names = std::set<std::string>;

/// What the player finds again: all of it but the question.
struct Standing {
  int stage = 0, level = 0, left = 0;
  bool learning = false;
  std::string name, signs;
  std::vector<bool> found;
  std::vector<int> statistics;
  Names layers;    ///< pictures to be seen on the map
  Names changing;  ///< those among them that show the question, or blink
};

std::string signs_of(Ecran_principal &screen) {
  std::string signs;
  for (int i = 6; i >= 0; --i) signs += screen.Digit(i).texte;
  for (int i = 3; i >= 1; --i) signs += screen.Reste(i).texte;
  return signs + screen.Boîte_restants.texte;
}

template <class Fiches>
void add(Standing &standing, const Fiches &table) {
  for (int i = 1; i <= Fiches::dernier; ++i) {
    standing.found.push_back(table(i).trouvée);
    if constexpr (requires { table(i).points_perdus(0); }) {
      for (int k = 0; k <= nombre_jeux; ++k) {
        standing.statistics.push_back(table(i).points_perdus(k));
        standing.statistics.push_back(table(i).trouvée_étape(k));
      }
    } else {
      standing.statistics.push_back(table(i).points_perdus);
      standing.statistics.push_back(table(i).trouvée_étape);
    }
  }
}

Names layers_of(Ecran_principal &screen) {
  Names names;
  for (const Contrôle &picture : screen.contrôles())
    if (picture.conteneur == &screen.Carte && picture.visible) names.insert(picture.nom);
  return names;
}

/// In stage Régions the members of the region asked; in stage Drapeaux the dots of plain towns, which stay
/// there as the stage before has left them.
Names changing_layers(Ecran_principal &screen, const GameState &g) {
  Names names;
  const Fiche_région &asked = g.TableRégions(g.RégionCourante);
  for (int k = 1; k <= asked.nombre_provinces; ++k)
    names.insert({screen.Pays(asked.membres(k)).nom, screen.rond(asked.membres(k)).nom});
  if (g.Etape == étape_drapeaux)
    for (int v = nombre_provinces + 1; v <= nombre_villes; ++v) names.insert(screen.RondVille(v).nom);
  return names;
}

Standing standing_of(Ecran_principal &screen, const GameState &g) {
  Standing standing;
  standing.stage = g.Etape;
  standing.level = g.Niveau;
  standing.left = reste_de_l_étape(g);
  standing.learning = g.ModeApprentissage;
  standing.name = g.Nom_joueur;
  standing.signs = signs_of(screen);
  add(standing, g.TableProvinces);
  add(standing, g.TableRégions);
  if (g.Etape == étape_villes) add(standing, g.TableVilles);
  standing.layers = layers_of(screen);
  standing.changing = changing_layers(screen, g);
  return standing;
}

/// The layers of one of two standings that the other should have too.
Names lasting_layers(const Standing &of, const Standing &other) {
  Names names = of.layers;
  for (const Names *changing : {&of.changing, &other.changing})
    for (const std::string &name : *changing) names.erase(name);
  return names;
}

/// A whole game that is stopped once in each stage: in the middle of a question that has cost something, of a
/// selection, of nothing.
class StoppedGamePlan : public WholeGamePlan {
 public:
  using WholeGamePlan::WholeGamePlan;

  void at_window(AutomaticPlayer &player, const std::string &name) override {
    if (name != "Sélection_partie") return WholeGamePlan::at_window(player, name);
    if (stopped_) {
      player.pick("Fichier", file() + ".CAI");
    } else {
      player.fill_in("Nom_fichier", QStringLiteral("Souper %1").arg(stops() + 1));
      player.then([this] { note(); });
    }
    player.click("Bouton_OK");
  }

  void at_map(AutomaticPlayer &player) override {
    if (stopped_ && left_) return take_up(player);
    if (stopped_) return leave(player);
    if (g().Etape != étape_repos && !stops_.contains(g().Etape)) look_at_stage();
    if (!time_to_stop()) return WholeGamePlan::at_map(player);
    settle_question();
    player.choose("menu_fichier", "Fichier_enregistrer");
  }

  /// Another run of the program.
  void go_on_in(Programme &programme, QWidget &map) {
    WholeGamePlan::go_on_in(programme);
    map_ = &map;
    left_ = stopped_;
  }

  std::size_t stops() const { return stops_.size(); }

 private:
  QString file() const { return QStringLiteral("Souper %1").arg(stops()); }

  bool is_fresh() const { return errors_ == 0 && g().ResteRégion == g().TailleRégion; }
  bool has_found_enough() const { return at_start_.left - reste_de_l_étape(g()) >= (at_start_.left + 2) / 3; }

  bool time_to_stop() const {
    if (g().Etape == étape_repos || stops_.contains(g().Etape) || map_seen_.isNull()) return false;
    switch (g().Etape) {
      case étape_drapeaux: return is_fresh();
      case étape_régions: return g().ResteRégion < g().TailleRégion;
      default: return errors_ > 0;
    }
  }

  /// What comes back of a stage of flags, and how the map looks where only answers change it.
  void look_at_stage() {
    if (at_start_.stage != g().Etape) {
      at_start_ = standing_of(screen(), g());
      map_seen_ = {};
    }
    if (is_fresh() && has_found_enough()) map_seen_ = map_->grab().toImage();
  }

  /// The question is paid for, the chooser is up: what stands now goes into the file.
  void note() {
    before_ = standing_of(screen(), g());
    if (g().Etape == étape_drapeaux) {
      before_.left = at_start_.left;
      before_.found = at_start_.found;
      before_.layers = at_start_.layers;
    }
    stops_.insert(g().Etape);
    stopped_ = true;
  }

  void leave(AutomaticPlayer &player) {
    EXPECT_EQ(g().Etape, étape_repos) << "the game that is kept is gone from the screen";
    EXPECT_FALSE(screen().que_faire.visible);
    player.choose("menu_fichier", "fichier_quitter");
  }

  void take_up(AutomaticPlayer &player) {
    if (g().Etape == étape_repos) return player.choose("menu_fichier", "Fichier_lire");
    stopped_ = left_ = false;
    expect_as_before();
  }

  void expect_as_before() {
    SCOPED_TRACE("stage " + std::to_string(before_.stage));
    const Standing now = standing_of(screen(), g());
    EXPECT_EQ(now.stage, before_.stage);
    EXPECT_EQ(now.level, before_.level);
    EXPECT_EQ(now.learning, before_.learning);
    EXPECT_EQ(now.name, before_.name);
    EXPECT_EQ(now.left, before_.left);
    EXPECT_EQ(now.found, before_.found);
    EXPECT_EQ(now.statistics, before_.statistics);
    EXPECT_EQ(lasting_layers(now, before_), lasting_layers(before_, now));
    if (g().Etape != étape_drapeaux) EXPECT_EQ(now.signs, before_.signs);
    if (g().Etape == étape_provinces || g().Etape == étape_villes)
      EXPECT_TRUE(map_->grab().toImage() == map_seen_);
    expect_question();
  }

  void expect_question() {
    if (g().Etape == étape_régions) {
      EXPECT_FALSE(g().TableRégions(g().RégionCourante).trouvée);
      EXPECT_EQ(screen().Texte_à_chercher.texte, g().TableRégions(g().RégionCourante).nom);
    } else {
      EXPECT_NE(g().ProvinceCourante, 0);
      EXPECT_FALSE(g().TableProvinces(g().ProvinceCourante).trouvée);
    }
    EXPECT_TRUE(screen().que_faire.visible);
  }

  QWidget *map_ = nullptr;
  bool stopped_ = false, left_ = false;
  std::set<int> stops_;  ///< stages that were stopped
  Standing at_start_, before_;
  QImage map_seen_;  ///< at the last question not yet touched, once enough has been found
};

// --- Whole games

struct Configuration {
  const char *name;
  std::string_view file;
  int provinces;  ///< in play: as many, from the first
  std::array<int, nombre_jeux> stages;
};

constexpr Configuration the_default = {"under_the_default_configuration",
                                       nom_fichier_scores,
                                       nombre_provinces,
                                       {étape_provinces, étape_régions, étape_villes, étape_drapeaux}};
constexpr Configuration named = {"of_some_provinces_under_a_named_configuration",
                                 "Classe.SCI",
                                 45,
                                 {étape_drapeaux, étape_villes, étape_provinces, étape_régions}};
constexpr Configuration temporary = {"under_a_temporary_configuration",
                                     nom_fichier_temporaire,
                                     nombre_provinces,
                                     {étape_villes, étape_drapeaux, étape_régions, étape_provinces}};

/// A rank in `levels`, 0 for learning, and what is played.
using Game_to_stop = std::tuple<int, Configuration>;

class StoppedGame : public testing::TestWithParam<Game_to_stop> {
 protected:
  static const char *level() { return levels.at(static_cast<std::size_t>(std::get<int>(GetParam()))); }
  static const Configuration &configuration() { return std::get<Configuration>(GetParam()); }

  /// Puts the configuration into the program's hands, as the panel would.
  void configure(Programme &programme) {
    GameState &g = programme.état();
    for (int p = 1; p <= nombre_provinces; ++p) g.TableProvinces(p).inhibée = p > configuration().provinces;
    for (int rank = 1; rank <= nombre_jeux; ++rank)
      g.Ordre_jeux(rank) =
          static_cast<std::int16_t>(configuration().stages.at(static_cast<std::size_t>(rank - 1)));
    g.Fichier_lancement = configuration().file;
    if (configuration().file != nom_fichier_temporaire)
      g.Fichier_lancement = programme.contexte().dossier.complet(g.Fichier_lancement);
    ASSERT_TRUE(Ecrire_scores(programme.contexte(), true));
  }

  /// Runs the program once, to its end.
  void run(StoppedGamePlan &plan, Desktop &desktop, bool first) {
    AutomaticPlayer player(desktop, plan);
    ASSERT_TRUE(player.start());
    if (first) configure(desktop.programme());
    plan.go_on_in(desktop.programme(),
                  *desktop.renderer().frame(desktop.programme().principale())->findChild<QWidget *>("Carte"));
    player.begin();
    desktop.play();
    ASSERT_EQ(player.trouble(), "");
  }

  std::vector<std::string> kept_games() const {
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(folder.path()))
      if (entry.path().extension() == ".CAI") names.push_back(entry.path().filename());
    return names;
  }

  const ScratchFolder folder{ARDANE_RESOURCES};
};

std::string name_of_stopped(const testing::TestParamInfo<Game_to_stop> &game) {
  return std::string(levels.at(static_cast<std::size_t>(std::get<int>(game.param)))) + "_" +
         std::get<Configuration>(game.param).name;
}

INSTANTIATE_TEST_SUITE_P(EveryLevel, StoppedGame,
                         testing::Combine(testing::Range(0, 5),
                                          testing::Values(the_default, named, temporary)),
                         name_of_stopped);

TEST_P(StoppedGame, GoesOnInAnotherRunOfTheProgramAsItStoodAndCanBePlayedToItsEnd) {
  auto desktop = std::make_unique<Desktop>(folder.places(), ressources_du_programme());
  StoppedGamePlan plan(desktop->programme(), "Élodie", level());
  for (std::size_t stops = 0; stops < nombre_jeux; ++stops) {
    ASSERT_NO_FATAL_FAILURE(run(plan, *desktop, stops == 0));
    ASSERT_EQ(plan.stops(), stops + 1);
    EXPECT_THAT(kept_games(), testing::ElementsAre("Souper " + std::to_string(stops + 1) + ".CAI"));
    desktop = std::make_unique<Desktop>(folder.places(), ressources_du_programme());
  }
  ASSERT_NO_FATAL_FAILURE(run(plan, *desktop, false));
  EXPECT_TRUE(plan.has_ended());
  EXPECT_THAT(kept_games(), testing::IsEmpty());
  const GameState &g = desktop->programme().état();
  if (std::get<int>(GetParam()) == 0) {
    EXPECT_EQ(g.Nombre_scores(1), 0);
  } else {
    ASSERT_EQ(g.Nombre_scores(g.Niveau), 1);
    EXPECT_EQ(g.Meilleurs_scores(g.Niveau, 1).nom, "Élodie");
    EXPECT_EQ(g.Meilleurs_scores(g.Niveau, 1).score, plan.expected_score);
  }
}

// --- The window that names and picks the files

class GameChooser : public ProgramTest {
 protected:
  DesktopPlaces places() const override {
    DesktopPlaces places = folder.places();
    places.fichier = started_with;
    return places;
  }
  /// A game with one answer missed, worth one point.
  void begin_game() {
    start();
    order().choose("menu_fichier", "fichier_nouveau");
    order().fill_in("boîte_nom_joueur", "Zoé");
    order().click("niveau_moyen");
    order().click("bouton_sortie");
    order().then([this] { order().click(province(state().ProvinceCourante % nombre_provinces + 1)); });
    play();
    ASSERT_EQ(state().Score, score_de_départ - 1);
  }
  void save_as(const QString &name) {
    order().choose("menu_fichier", "Fichier_enregistrer");
    order().fill_in("Nom_fichier", name);
    order().click("Bouton_OK");
    play();
  }
  static QString focus() {
    const QWidget *holder = QApplication::activeModalWidget()->focusWidget();
    return holder == nullptr ? QString() : holder->objectName();
  }
  static QString chosen(const char *list) {
    const auto *items = QApplication::activeModalWidget()->findChild<QListWidget *>(QString::fromUtf8(list));
    return items->selectedItems().isEmpty() ? QString() : items->selectedItems().front()->text();
  }
  void write(const QString &text) {
    order().then([text] { type(*QApplication::activeModalWidget(), text); });
  }
  bool kept(const char *name) const { return std::filesystem::exists(folder.path() / name); }

  std::string started_with;
  const int owed = 1022;  ///< what a question costs that is given up after its first error
};

TEST_F(GameChooser, TakesANameAndTheEnterKeyAtOnce) {
  begin_game();
  order().choose("menu_fichier", "Fichier_enregistrer");
  order().then([] { EXPECT_EQ(focus(), "Nom_fichier"); });
  write("Souper");
  order().press(Qt::Key_Return);
  play();
  EXPECT_TRUE(kept("Souper.CAI"));
  EXPECT_EQ(state().Etape, étape_repos);
}

TEST_F(GameChooser, TheTabKeyGoesFromTheNameOverTheListsToTheButtons) {
  begin_game();
  order().choose("menu_fichier", "Fichier_enregistrer");
  QStringList met;
  for (int i = 0; i < 6; ++i) {
    order().then([&met] { met += focus(); });
    order().press(Qt::Key_Tab);
  }
  order().click("Bouton_annuler");
  play();
  EXPECT_EQ(met, (QStringList{"Nom_fichier", "Répertoire", "Fichier", "Bouton_OK", "Bouton_annuler",
                              "Nom_fichier"}));
  EXPECT_EQ(state().Etape, étape_provinces) << "the game goes on where nothing was saved";
}

TEST_F(GameChooser, KeysAloneGoIntoAFolderAndTakeUpTheGameThatLiesThere) {
  std::filesystem::create_directory(folder.path() / "parties");
  begin_game();
  order().choose("menu_fichier", "Fichier_enregistrer");
  order().press(Qt::Key_Tab);
  write("p");
  order().then([] { EXPECT_EQ(chosen("Répertoire"), "parties"); });
  order().press(Qt::Key_Return);
  for (int back = 0; back < 4; ++back) order().press(Qt::Key_Tab);
  write("Souper");
  order().press(Qt::Key_Return);
  order().answer(Réponse::non);  // saved games stay where they were
  play();
  ASSERT_TRUE(kept("parties/Souper.CAI"));
  end();
  start();
  order().choose("menu_fichier", "Fichier_lire");
  order().then([] { EXPECT_EQ(focus(), "Répertoire"); });
  order().press(Qt::Key_End);
  order().then([] { EXPECT_EQ(chosen("Répertoire"), "parties"); });
  order().press(Qt::Key_Return);
  order().press(Qt::Key_Tab);
  write("so");
  order().then([] { EXPECT_EQ(chosen("Fichier"), "Souper.CAI"); });
  order().press(Qt::Key_Return);
  order().answer(Réponse::non);
  play();
  EXPECT_EQ(state().Etape, étape_provinces);
  EXPECT_EQ(state().Score, score_de_départ - 1 - owed);
  EXPECT_FALSE(kept("parties/Souper.CAI"));
}

TEST_F(GameChooser, AnArrowChoosesTheOnlyFileThereIs) {
  begin_game();
  save_as("Souper");
  order().choose("menu_fichier", "Fichier_lire");
  order().press(Qt::Key_Tab);
  order().then([] { EXPECT_EQ(chosen("Fichier"), ""); });
  order().press(Qt::Key_Down);
  order().then([] { EXPECT_EQ(chosen("Fichier"), "Souper.CAI"); });
  order().press(Qt::Key_Return);
  play();
  EXPECT_EQ(state().Etape, étape_provinces);
}

TEST_F(GameChooser, TheFirstArrowChoosesTheFirstRow) {
  begin_game();
  for (const char *name : {"a.CAI", "b.CAI", "c.CAI"}) std::ofstream(folder.path() / name) << '\n';
  order().choose("menu_fichier", "Fichier_enregistrer");
  order().press(Qt::Key_Tab);
  order().press(Qt::Key_Tab);
  const std::vector<std::pair<Qt::Key, QString>> steps{{Qt::Key_Down, "a.CAI"}, {Qt::Key_Down, "b.CAI"},
                                                       {Qt::Key_Up, "a.CAI"},   {Qt::Key_Up, "a.CAI"},
                                                       {Qt::Key_End, "c.CAI"},  {Qt::Key_Home, "a.CAI"}};
  for (const auto &[key, row] : steps) {
    order().press(key);
    order().then([expected = row] { EXPECT_EQ(chosen("Fichier"), expected); });
  }
  order().click("Bouton_annuler");
  play();
}

TEST_F(GameChooser, ADoubleClickTakesUpTheGame) {
  begin_game();
  save_as("Souper");
  order().choose("menu_fichier", "Fichier_lire");
  order().open("Fichier", "Souper.CAI");
  play();
  EXPECT_EQ(state().Nom_joueur, "Zoé");
  EXPECT_EQ(state().Score, score_de_départ - 1 - owed);
  EXPECT_FALSE(kept("Souper.CAI"));
}

TEST_F(GameChooser, TheGameThatTheProgramIsStartedWithIsTakenUp) {
  begin_game();
  save_as("Souper");
  end();
  started_with = (folder.path() / "Souper.CAI").string();
  ASSERT_TRUE(order().start());
  EXPECT_THAT(script().told, testing::IsEmpty());
  EXPECT_EQ(state().Nom_joueur, "Zoé");
  EXPECT_EQ(state().Score, score_de_départ - 1 - owed);
  EXPECT_FALSE(kept("Souper.CAI"));
  const int left = state().ProvincesRestantes;
  order().click(province(state().ProvinceCourante));
  play();
  EXPECT_EQ(state().ProvincesRestantes, left - 1);
}

TEST_F(GameChooser, DoubleClicksOpenFoldersAndTakeANameThatThereIs) {
  std::filesystem::create_directory(folder.path() / "parties");
  std::ofstream(folder.path() / "Dîner.CAI") << "autre chose";
  begin_game();
  order().choose("menu_fichier", "Fichier_enregistrer");
  order().open("Répertoire", "parties");
  order().open("Répertoire", "..");
  order().open("Fichier", "Dîner.CAI");
  order().then([] {
    EXPECT_EQ(QApplication::activeModalWidget()->findChild<QLineEdit *>("Nom_fichier")->text(), "Dîner.CAI");
  });
  order().click("Bouton_OK");
  order().answer(Réponse::ok);  // what is there is not written over
  order().click("Bouton_annuler");
  play();
  EXPECT_EQ(state().Etape, étape_provinces);
  EXPECT_EQ(std::filesystem::file_size(folder.path() / "Dîner.CAI"), 11U);
}

TEST_F(GameChooser, WithoutAChoiceABoxSaysSoAndTheWindowStays) {
  begin_game();
  save_as("Souper");
  order().choose("menu_fichier", "Fichier_lire");
  order().click("Bouton_OK");
  order().answer(Réponse::ok);
  order().pick("Fichier", "Souper.CAI");
  order().click("Bouton_OK");
  play();
  EXPECT_EQ(state().Etape, étape_provinces);
}

TEST_F(GameChooser, TheCloseControlAndTheCancelButtonLeaveTheFileAlone) {
  begin_game();
  save_as("Souper");
  order().choose("menu_fichier", "Fichier_lire");
  order().pick("Fichier", "Souper.CAI");
  order().then([] { QApplication::activeModalWidget()->close(); });
  order().choose("menu_fichier", "Fichier_lire");
  order().pick("Fichier", "Souper.CAI");
  order().click("Bouton_annuler");
  play();
  EXPECT_EQ(state().Etape, étape_repos);
  EXPECT_TRUE(kept("Souper.CAI"));
}

}  // namespace
}  // namespace ardane
