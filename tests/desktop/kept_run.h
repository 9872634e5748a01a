// A run of the whole program that keeps its game under way.
#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QTest>
#include <filesystem>

#include "crash_child.h"
#include "front/qt/appearance.h"
#include "persistence/lifeline.h"
#include "program_test.h"
#include "started_program.h"

namespace ardane {

/// What the next start asks about a game of Zoé's begins so.
inline constexpr const char *question = "La partie de Zoé s'est interrompue à ";

class KeptRun : public ProgramTest {
 protected:
  DesktopPlaces places() const override {
    DesktopPlaces kept = folder.places();
    kept.secours = folder.path() / "secours";
    return kept;
  }
  bool game_on_disk() const { return std::filesystem::exists(places().secours / "partie"); }

  /// Two questions answered, an error made at the third.
  void play_a_little() {
    order().choose("menu_fichier", "fichier_nouveau");
    order().fill_in("boîte_nom_joueur", "Zoé");
    order().click("niveau_facile");
    order().click("bouton_sortie");
    play();
    for (const bool right : {true, true, false}) {
      order().click(province(right ? state().ProvinceCourante : another_province()));
      play();
    }
  }
  /// One that is still to be found, and not the one asked.
  int another_province() {
    int p = 1;
    while (p == state().ProvinceCourante || state().TableProvinces(p).trouvée) ++p;
    return p;
  }
  /// What the program puts off after an event is done.
  void rest() {
    ASSERT_TRUE(QTest::qWaitFor([this] {
      const auto kept = game_on_disk() ? Secours({places().secours}).partie_interrompue() : std::nullopt;
      return kept && kept->score == state().Score;
    }));
  }
  void play_a_little_and_die() {
    start();
    play_a_little();
    rest();
    die();
  }
  /// A run in a process of its own, over the same folder, that ends in a way of `crash`.
  void end_in_a_child(QProcess &child, const char *way) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(to_qt(std::string(crash_folder)), to_qt(folder.path().string()));
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {to_qt(std::string(crash_option)), way});
    ASSERT_TRUE(child.waitForFinished(end_ms));
  }
};

}  // namespace ardane
