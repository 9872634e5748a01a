// A player of whole games: knows every answer, errs by plan, uses what help the level offers, and counts by
// hand what it all must cost.
#pragma once

#include <QObject>
#include <QPoint>
#include <array>
#include <string>
#include <vector>

#include "core/gazetteer.h"
#include "front/qt/desktop.h"

class QMessageBox;

namespace ardane {

class WholeGamePlayer : public QObject {
 public:
  /// `level`: name of the option in the new game dialog.
  WholeGamePlayer(Desktop &desktop, std::string level);

  /// To be called before the event loop runs: from the map at rest to the closing of the main window.
  void begin();

  /// Why the player gave up; empty if the game was played to its end.
  std::string trouble;
  int expected_score = 999999;
  int mistakes = 0, helps = 0, passes = 0, given_up = 0, wrong_selections = 0;

 private:
  void step();
  void stop(const std::string &why);
  void in_dialog(QWidget &dialog);
  void accept(QMessageBox &box);
  void choose_from_menu(const char *menu, const char *entry);
  void answer();
  void answer_object();
  void answer_region();
  void err();
  bool wants_to_err() const;
  bool seek_help();
  void end_question();
  void pay(int cost);
  bool press_province(int province);
  bool press_town(int town);
  bool press_right();
  bool press_wrong();
  int other_province() const;
  int other_town() const;
  void find_pixels();

  Desktop &desktop_;
  const std::string level_;
  std::array<std::vector<QPoint>, nombre_provinces + 1> pixels_;
  int question_ = 0;  ///< questions ended so far: each has its own plan
  int errors_ = 0;    ///< on the present question
  bool started_ = false, ended_ = false, hesitated_ = false;
  int steps_left_ = 40'000;
  const char *entry_ = nullptr;
};

}  // namespace ardane
