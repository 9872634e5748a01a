#include "crash_child.h"

#include <QMessageBox>
#include <QPushButton>
#include <QSessionManager>
#include <QTimer>
#include <array>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "core/game_state.h"
#include "core/paths.h"
#include "front/qt/demonstration/scratch_folder.h"
#include "front/qt/end_signals.h"
#include "platform/fatal_error.h"
#include "play/question_selection.h"
#include "script.h"
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
  if (QGuiApplication::overrideCursor() != nullptr) std::printf("sablier|");
  std::printf("%d|%s|%s|%s|%d\n", box->icon(), box->windowTitle().toUtf8().constData(),
              box->text().toUtf8().constData(), box->informativeText().toUtf8().constData(),
              static_cast<int>(box->buttons().size()));
  std::fflush(stdout);
  box->findChild<QPushButton *>(QStringLiteral("ok"))->click();
}

void fail(std::string_view way) {
  if (way == "indice") {
    Table<int, 1, 3> table;
    table(4) = 1;
  }
  if (way == "inconnue") throw 7;
  throw ErreurFatale("Panne <b>", Lieu{"src/play/regle.cpp", 12});
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

/// The same of the error's box alone, text and small print.
void tell_words() {
  auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
  if (box == nullptr || box->objectName() != "erreur_fatale") return;
  std::printf("%s|%s\n", box->text().toUtf8().constData(), box->informativeText().toUtf8().constData());
  std::fflush(stdout);
  box->buttons().front()->click();
}

int region_of_more_than_ten(const GameState &g) {
  int r = 1;
  while (g.TableRégions(r).nombre_provinces < 11) ++r;
  return r;
}

/// The real program over the folder that the test names.
struct Run {
  const std::filesystem::path folder = std::getenv(std::string(crash_folder).c_str());
  const std::string programme = texte_du_chemin(folder);
  Desktop desktop{{programme, folder / "registre", programme, true, false, folder / "secours"},
                  ressources_du_programme()};
  Script script{desktop};
  GameState &g = desktop.programme().état();

  void start_game(const char *level) {
    script.player.choose("menu_fichier", "fichier_nouveau");
    script.player.fill_in("boîte_nom_joueur", "Zoé");
    script.player.click(level);
    script.player.click("bouton_sortie");
    script.run();
  }
};

/// Selects ten provinces of a region and takes one out again.
void play_to_the_error() {
  Run run;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, tell_words);
  look.start();
  AutomaticPlayer &player = run.script.player;
  if (!player.start()) return;
  GameState &g = run.g;
  g.Ordre_jeux = Ordre_de_jeu({étape_régions, 0, 0, 0});
  run.start_game("niveau_moyen");
  const int r = region_of_more_than_ten(g);
  Poser_question(run.desktop.programme().contexte(), r);
  for (int k = 1; k <= 10; ++k) player.click(province(g.TableRégions(r).membres(k)));
  player.click(province(g.TableRégions(r).membres(1)));
  run.script.run();
}

/// The desktop asks all its programs to be ready for the end of the session. Only who refuses looks at the
/// manager, which none but the toolkit can make.
void end_the_session() {
  alignas(QSessionManager) std::array<std::byte, sizeof(QSessionManager)> nobody{};
  Q_EMIT qApp->commitDataRequest(reinterpret_cast<QSessionManager &>(nobody));
}

void play_to_the_signal(std::string_view way) {
  Run run;
  const EndSignals signals([&] { run.desktop.end_unasked(); });
  AutomaticPlayer &player = run.script.player;
  if (!player.start()) return;
  run.start_game("niveau_facile");
  player.click(province(run.g.ProvinceCourante));
  run.script.run();
  if (way == "signal sous une boîte") {
    player.choose("menu_fichier", "fichier_quitter");
    player.then([] { std::raise(SIGTERM); });
    run.script.run();
    return;
  }
  player.click(province(run.g.ProvinceCourante));
  run.script.run();
  if (way == "signal de fin de session")
    end_the_session();
  else
    std::raise(SIGTERM);
  run.desktop.play();
}

/// In a procedure that lets events through, as the wait for a page does, or under the box of an error.
void meet_the_signal(bool at_an_error) {
  Dispatcher dispatcher;
  const EndSignals signals([&] {
    dispatcher.end_when_idle([&] {
      std::puts("fin");
      dispatcher.run([] { std::puts("suite"); });
    });
  });
  dispatcher.run([&] {
    std::raise(SIGTERM);
    if (at_an_error) fail("fatale");
    QCoreApplication::processEvents();
    std::puts("travail");
  });
  QApplication::exec();
}

}  // namespace

int crash(std::string_view way) {
  if (way == "partie") play_to_the_error();
  if (way == "travail" || way == "erreur") meet_the_signal(way == "erreur");
  if (way.starts_with("signal")) play_to_the_signal(way);
  const Witness witness;
  if (way.starts_with("réglages")) start_without_settings(way);
  Stage stage;
  Fenêtre window("fenêtre");
  Contrôle &button = place(window, "bouton", Genre::bouton, {0, 0, 50, 20});
  button.clic = [&] {
    stage.screen.sablier(true);
    fail(way);
  };
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
