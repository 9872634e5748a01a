// A player who knows the answers, and plays a game of the stage Provinces with mouse and keys.
#pragma once

#include <QObject>
#include <QPoint>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/gazetteer.h"
#include "front/qt/desktop.h"

class QMessageBox;

namespace ardane {

/// From the map at rest to the closing of the main window: opens the new game dialog by the menu, fills it
/// in, answers every question with a click on the map, some wrongly at first, accepts boxes, closes the top
/// ten and quits by the menu. It acts from the event loop, one thing at a time, in whatever window is on top.
class AutomaticPlayer : public QObject {
 public:
  struct Plan {
    QString name = QStringLiteral("Ardan");
    std::string level = "niveau_facile";  ///< name of the option in the new game dialog
    int mistake_every = 9;                ///< a wrong click before each so many-th answer; 0 for none
  };

  AutomaticPlayer(Desktop &desktop, Plan plan);

  /// A screen is up that deserves a picture: a window's name, "carte", "milieu", "fin", or a box's title.
  std::function<void(const std::string &screen)> seen;
  /// A province has been found.
  std::function<void(int found)> found;

  /// To be called before the event loop runs.
  void begin();

  /// Why the player gave up; empty if the game was played to its end.
  const std::string &trouble() const { return trouble_; }
  int mistakes() const { return mistakes_; }
  int boxes() const { return boxes_; }
  /// The score when the last question was answered.
  int score() const { return score_; }

 private:
  void later();
  void step();
  void accept(QMessageBox &box);
  void fill_in_new_game(QWidget &dialog);
  void close_top_ten(QWidget &window);
  void answer();
  void choose_from_menu(const char *menu, const char *entry);
  QWidget &map_widget() const;
  QPoint scrolled() const;
  /// Where on the map's widget a click reaches the province; nothing if that is out of sight.
  std::optional<QPoint> free_pixel(int province) const;
  /// A click in a scroll bar's trough that brings the province nearer; false if there is none.
  bool scroll_towards(int province);
  void give_up(const std::string &why);
  void find_pixels();
  int other_province(int asked) const;

  Desktop &desktop_;
  const Plan plan_;
  std::array<std::vector<QPoint>, nombre_provinces + 1> pixels_;  ///< of each province, the middle first
  bool started_ = false, ended_ = false, erred_ = false;
  int answers_ = 0, mistakes_ = 0, boxes_ = 0, score_ = 0;
  int asked_before_ = 0;
  int steps_left_ = 20'000;
  const char *entry_ = nullptr;  ///< to choose in the menu that is coming up
  std::string trouble_;
};

}  // namespace ardane
