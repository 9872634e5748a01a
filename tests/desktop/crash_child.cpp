#include "crash_child.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <stdexcept>

#include "core/table.h"
#include "front/qt/demonstration/scratch_folder.h"
#include "platform/fatal_error.h"
#include "stage.h"

namespace {

using namespace ardane;

/// Says so if the program unwinds after the error instead of ending.
struct Witness {
  ~Witness() { std::puts("destructeur"); }
};

void tell_box() {
  auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
  if (box == nullptr) return;
  std::printf("%d|%s|%s|%s|%d\n", box->icon(), box->windowTitle().toUtf8().constData(),
              box->text().toUtf8().constData(), box->informativeText().toUtf8().constData(),
              static_cast<int>(box->buttons().size()));
  std::fflush(stdout);
  box->buttons().front()->click();
}

void fail(std::string_view way) {
  if (way == "indice") {
    Table<int, 1, 3> table;
    table(4) = 1;
  }
  if (way == "inconnue") throw 7;
  throw ErreurFatale("Panne", Lieu{"src/play/regle.cpp", 12});
}

/// The folder of the settings is a file; or they cannot be read for a moment.
void start_without_settings(std::string_view way) {
  const ScratchFolder folder(ARDANE_RESOURCES);
  DesktopPlaces places = folder.places();
  places.registre = folder.path() / (way == "réglages" ? "ardane.pts" : "moment") / "registre";
  if (way != "réglages") std::filesystem::create_directories(places.registre);
  Desktop desktop(places, ressources_du_programme());
  if (way != "réglages") std::filesystem::remove(places.registre);
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, tell_box);
  look.start();
  desktop.start();
}

}  // namespace

int crash(std::string_view way) {
  const Witness witness;
  if (way.starts_with("réglages")) start_without_settings(way);
  Stage stage;
  Fenêtre window("fenêtre");
  Contrôle &button = place(window, "bouton", Genre::bouton, {0, 0, 50, 20});
  button.clic = [&] { fail(way); };
  QTimer::singleShot(0, [&] {
    QTimer::singleShot(0, tell_box);
    stage.widget<QPushButton>(window, "bouton")->click();
  });
  if (way == "boucle") {
    stage.dispatcher.run([&] { stage.renderer.montrer_modale(window); });
  } else {
    stage.renderer.montrer(window);
    QApplication::exec();
  }
  std::puts("suite");
  return 3;
}
