// Figures of the real window at a scale, on whatever display it is given: painting, clicks, resizing.
//
//     window_figures SCALE
#include <QApplication>
#include <QImage>
#include <cstdlib>

#include "core/game_state.h"
#include "front/qt/demonstration/mouse.h"
#include "front/qt/demonstration/scratch_folder.h"
#include "script.h"
#include "timing.h"

namespace {

using namespace ardane;

class WindowFigures {
 public:
  WindowFigures(Desktop &desktop, Script &script, double scale)
      : desktop_(desktop),
        script_(script),
        main_(desktop.programme().principale()),
        frame_(*desktop.renderer().frame(main_)),
        scale_(scale) {}

  void measure() {
    const QSize size = script_.window_for(scale_);
    frame_.resize(size);
    settle();
    std::printf("Scale %.3f, window of %d x %d\n", desktop_.renderer().scale().value(), frame_.width(),
                frame_.height());
    clicks();
    painting();
    resizing(size);
  }

 private:
  void clicks() {
    GameState &g = desktop_.programme().état();
    g.Ordre_jeux.remplir(0);
    g.Ordre_jeux(1) = étape_provinces;
    script_.player.choose("menu_fichier", "fichier_nouveau");
    script_.player.fill_in("boîte_nom_joueur", QStringLiteral("Mesure"));
    script_.player.click("bouton_sortie");
    script_.run();
    std::vector<double> right;
    for (int i = 0; i < 90; ++i) {
      const auto place = free_place(desktop_.programme(), province(g.ProvinceCourante));
      if (!place) continue;  // out of sight
      const QPoint pixel = desktop_.renderer().scale().rect(QRectF(*place, QSizeF(1, 1))).center();
      right.push_back(timed([&] { click(map(), pixel); }));
    }
    print_row("Click to last damage, stage Provinces", right, "ms");
  }

  void painting() {
    std::vector<double> in_memory, on_screen, anew;
    QImage target(map().size(), QImage::Format_RGB32);
    for (int i = 0; i < 60; ++i) {
      QElapsedTimer timer;
      timer.start();
      map().render(&target, {}, {}, {});
      in_memory.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
      on_screen.push_back(timed([&] { map().repaint(); }));
      main_.image_région.visible = false;
      desktop_.renderer().sync();
      settle();
      main_.image_région.visible = true;
      anew.push_back(timed([&] { desktop_.renderer().sync(); }));
    }
    print_row("Paint of the whole viewport", in_memory, "ms");
    print_row("The same, sent to the display and shown there", on_screen, "ms");
    print_row("The same, put together and filtered anew", anew, "ms");
  }

  void resizing(QSize size) {
    std::vector<double> steps;
    for (int i = 0; i < 60; ++i) {
      const int less = 4 * (i % 10 + 1);
      steps.push_back(timed([&] { frame_.resize(size - QSize(less, less)); }));
    }
    print_row("One step of a resize to last damage", steps, "ms");
  }

  QWidget &map() const { return *frame_.findChild<QWidget *>("Carte"); }

  Desktop &desktop_;
  Script &script_;
  Ecran_principal &main_;
  QWidget &frame_;
  const double scale_;
};

}  // namespace

int main(int argc, char **argv) {
  QApplication application(argc, argv);
  if (argc < 2) return std::fprintf(stderr, "window_figures SCALE\n"), 2;
  const ScratchFolder scratch(QCoreApplication::applicationDirPath().toStdString());
  DesktopPlaces places = scratch.places();
  places.sans_cadre = false;
  Desktop desktop(places, ressources_du_programme());
  Script script(desktop);
  if (!script.player.start()) return 1;
  std::printf("| %-52s | %8s | %8s |\n", "What", "median", "p95");
  WindowFigures(desktop, script, std::atof(argv[1])).measure();
  return 0;
}
