// Figures of the running desktop program, on whatever display it is given: clicks, scrolling, painting, rest.
//
//     desktop_figures [--secours|- [MILLISECONDS]]
//
// With --secours the game under way is kept on the disk meanwhile, as it is for a player. The number is the
// pause between the clicks of a game; there is none otherwise.
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QListWidget>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "core/game_state.h"
#include "front/qt/demonstration/mouse.h"
#include "front/qt/demonstration/scratch_folder.h"
#include "map/layers.h"
#include "map/visibility_rules.h"
#include "script.h"
#include "timing.h"

namespace {

using namespace ardane;
using namespace std::chrono_literals;

long voluntary_switches() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;)
    if (long n = 0; word == "voluntary_ctxt_switches:" && status >> n) return n;
  return 0;
}

class Figures {
 public:
  Figures(Desktop &desktop, Script &script, std::filesystem::path folder, std::chrono::milliseconds pace)
      : folder_(std::move(folder)),
        pace_(pace),
        desktop_(desktop),
        script_(script),
        g_(desktop.programme().état()),
        main_(desktop.programme().principale()),
        view_(*desktop.renderer().frame(main_)->findChild<QWidget *>("Carte")) {}

  void measure() {
    rest("Wake-ups a second at rest, nothing blinking");
    clicks(étape_régions, "Click to last damage, stage Régions");
    clicks(étape_villes, "Click to last damage, stage Villes");
    clicks(étape_drapeaux, "Click to last damage, stage Drapeaux");
    clicks(étape_provinces, "Click to last damage, stage Provinces");
    boxes();
    chooser();
    scrolling();
    painting();
    cards();
    statistics();
  }

 private:
  void start_game(int stage) {
    g_.Ordre_jeux.remplir(0);
    g_.Ordre_jeux(1) = static_cast<std::int16_t>(stage);
    g_.PartieVierge = true;  // the game before is dropped without a question
    script_.player.choose("menu_fichier", "fichier_nouveau");
    script_.player.fill_in("boîte_nom_joueur", QStringLiteral("Mesure"));
    script_.player.click("bouton_sortie");
    script_.run();
  }

  /// The province to click next: a member of the region asked that is not yet selected, or the one asked.
  int next_answer() const {
    if (g_.Etape != étape_régions) return g_.ProvinceCourante;
    const Fiche_région &region = g_.TableRégions(g_.RégionCourante);
    for (int k = 1; k <= region.nombre_provinces; ++k)
      if (!est_sélectionnée(g_, region.membres(k))) return region.membres(k);
    return 0;
  }

  void clicks(int stage, const char *what) {
    start_game(stage);
    std::vector<double> right;
    for (int i = 0; i < 90; ++i) {
      const QPoint pixel =
          free_place(desktop_.programme(), province(next_answer())).value_or(QPoint());  // out of sight
      let_pass(pace_);
      right.push_back(timed([&] { click(view_, pixel); }));
    }
    print_row(what, right, "ms");
  }

  /// The stage of the first position, changed again and again.
  void boxes() {
    g_.PartieVierge = true;
    script_.player.choose("menu_paramétrer", "menu_définir");
    script_.run();
    std::vector<double> clicks;
    for (int i = 0; i < 90; ++i) {
      QWidget &box = *control("Bouton(" + std::to_string((i + 1) % nombre_jeux + 1) + ")");
      clicks.push_back(timed([&] { click(box); }));
    }
    script_.player.click("BTN(2)");
    script_.run();
    print_row("Click on a box of the panel to last damage", clicks, "ms");
  }

  void chooser() {
    for (int i = 0; i < files; ++i) std::ofstream(folder_ / ("Partie du soir " + std::to_string(i) + ".CAI"));
    std::vector<double> openings, choices;
    for (int i = 0; i < 20; ++i) open_chooser(openings, choices);
    print_row("Chooser over 10,000 files, opening to last damage", openings, "ms");
    print_row("Click on a row of its list to last damage", choices, "ms");
  }

  void open_chooser(std::vector<double> &openings, std::vector<double> &choices) {
    auto *entry = desktop_.renderer().frame(main_)->findChild<QAction *>("Fichier_lire");
    openings.push_back(in_window([&] { entry->trigger(); },
                                 [&](QWidget &window) {
                                   auto &list = *window.findChild<QListWidget *>("Fichier");
                                   for (int row = 0; row < 5; ++row)
                                     choices.push_back(timed([&] { click(list, *list.item(row)); }));
                                   click(*window.findChild<QWidget *>("Bouton_annuler"));
                                 }));
  }

  /// Opens a modal window, does something in it that closes it, and says how long it took to come up.
  static double in_window(const std::function<void()> &open, const std::function<void(QWidget &)> &deed) {
    QElapsedTimer timer;
    double opening = 0;
    settle();
    QTimer::singleShot(0, qApp, [&] {
      QWidget *window = QApplication::activeModalWidget();
      while (!window->isActiveWindow()) QApplication::processEvents();
      settle();
      opening = static_cast<double>(timer.nsecsElapsed()) / 1e6;
      deed(*window);
    });
    timer.start();
    open();
    return opening;
  }

  void cards() {
    g_.PartieVierge = true;
    script_.player.choose("Menu_réviser", "Menu_révision");
    script_.run();
    std::vector<double> openings;
    for (int p = 1; p <= 30; ++p) {
      const QPoint pixel = free_place(desktop_.programme(), province(p)).value_or(QPoint());
      openings.push_back(in_window([&] { click(view_, pixel); },
                                   [](QWidget &window) { click(*window.findChild<QWidget *>("BTN_OK")); }));
    }
    print_row("Click on the map to the last damage of a card", openings, "ms");
  }

  void statistics() {
    start_game(étape_villes);
    for (int v = 1; v <= nombre_villes; ++v) g_.TableVilles(v).points_perdus = v * 53 % 211;
    constexpr std::array tables = {"BoutonRégions", "BoutonVilles", "BoutonProvinces"};
    std::array<std::vector<double>, tables.size()> shown, scrolled;
    const double opening =
        in_window([&] { desktop_.programme().contexte().plateforme.fenêtres.ouvrir_modale("Stats"); },
                  [&](QWidget &window) {
                    auto &bar = *window.findChild<QAbstractSlider *>("BarreVerticale");
                    for (int round = 0; round < 30; ++round)
                      for (std::size_t i = 0; i < tables.size(); ++i) {
                        shown[i].push_back(timed([&] { click(*window.findChild<QWidget *>(tables[i])); }));
                        for (const int row : {1, 0}) scrolled[i].push_back(timed([&] { bar.setValue(row); }));
                      }
                    click(*window.findChild<QWidget *>("Command1"));
                  });
    print_row("Statistics, opening to last damage", {opening}, "ms");
    for (std::size_t i = 0; i < tables.size(); ++i) {
      print_row((std::string("Click on ") + tables[i] + " to last damage").c_str(), shown[i], "ms");
      print_row("One row of that table scrolled, to last damage", scrolled[i], "ms");
    }
  }

  void scrolling() {
    QWidget *bar = control("barre_v");
    if (bar == nullptr) return;
    auto *slider = static_cast<QAbstractSlider *>(bar);
    std::vector<double> steps;
    steps.reserve(60);
    for (int i = 0; i < 60; ++i) steps.push_back(timed([&] { slider->setValue(i % 2 == 0 ? 40 : 10); }));
    print_row("One scroll step, model and paint", steps, "ms");
  }

  void painting() {
    for (Contrôle &picture : main_.contrôles())
      if (picture.conteneur == &main_.Carte && picture.image &&
          picture.nom.find("(0)") == std::string::npos && !picture.nom.starts_with("Drapeau"))
        picture.visible = true;
    main_.image_région.visible = true;
    desktop_.renderer().sync();
    settle();
    std::vector<double> in_memory, on_screen;
    QImage target(view_.size(), QImage::Format_RGB32);
    for (int i = 0; i < 60; ++i) {
      QElapsedTimer timer;
      timer.start();
      view_.render(&target, {}, {}, {});
      in_memory.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
      on_screen.push_back(timed([&] { view_.repaint(); }));
    }
    print_row("Paint of the whole viewport, every layer shown", in_memory, "ms");
    print_row("The same, sent to the display and shown there", on_screen, "ms");
  }

  void rest(const char *what) {
    constexpr std::chrono::seconds time = 6s;
    let_pass(1s);  // what the program puts off until the map is up
    const long before = voluntary_switches();
    let_pass(time);
    print_row(what, {static_cast<double>(voluntary_switches() - before) / static_cast<double>(time.count())},
              "a second");
  }

  static void let_pass(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
  }

  QWidget *control(const std::string &name) const {
    return desktop_.renderer().frame(main_)->findChild<QWidget *>(QString::fromStdString(name));
  }

  static constexpr int files = 10'000;

  const std::filesystem::path folder_;
  const std::chrono::milliseconds pace_;
  Desktop &desktop_;
  Script &script_;
  GameState &g_;
  Ecran_principal &main_;
  QWidget &view_;
};

}  // namespace

int main(int argc, char **argv) {
  QApplication application(argc, argv);
  const ScratchFolder scratch(QCoreApplication::applicationDirPath().toStdString());
  DesktopPlaces places = scratch.places();
  const bool kept = argc > 1 && std::string_view(argv[1]) == "--secours";
  if (kept) places.secours = scratch.path() / "secours";
  Desktop desktop(places, ressources_du_programme());
  Script script(desktop);
  if (!script.player.start()) return 1;
  Figures figures(desktop, script, scratch.path(), argc > 2 ? std::stoi(argv[2]) * 1ms : 0ms);
  std::printf("| %-52s | %8s | %8s |\n", "What", "median", "p95");
  figures.measure();
  return 0;
}
