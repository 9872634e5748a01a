// A player who plays by himself: works the program's real windows by mouse and keys.
#pragma once

#include <QObject>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>

#include "front/qt/demonstration/map_target.h"
#include "front/qt/demonstration/plan.h"
#include "front/qt/desktop.h"
#include "platform/services.h"

class QListWidget;
class QListWidgetItem;

namespace ardane {

/// Carries out orders, one each turn of the event loop, in whatever window, menu or box is then in front;
/// when none is left it asks its plan for more. An order that a player could not carry out - a control that
/// is not there, is hidden or disabled, or cannot be reached by a click - makes it give up.
class AutomaticPlayer : public QObject {
 public:
  enum class Hand : std::uint8_t { mouse, keys };

  /// The plan must outlive the player.
  AutomaticPlayer(Desktop &desktop, Plan &plan, Hand hand = Hand::mouse);

  /// Starts the program, the boxes of a first start answered by order or by plan. False if it ended at once.
  bool start();
  /// From now on acts from whatever event loop runs, until the program has ended or `rest` is called. Gives
  /// up after more orders than any game takes, counted anew each time this is called.
  void begin();
  void rest();

  /// Forgets its orders and closes whatever is in front, the main window last.
  void give_up(const std::string &why);
  /// Why it gave up; empty if it did not.
  const std::string &trouble() const { return trouble_; }

  // Orders, carried out in the order given.

  /// Opens a menu of the main window's bar and chooses one of its entries.
  void choose(const std::string &menu, const std::string &entry);
  /// Clicks in the middle of a control of the window in front.
  void click(const std::string &control);
  /// Replaces what stands in a text box of the window in front.
  void fill_in(const std::string &control, const QString &text);
  /// Clicks, or double clicks, on an item of a list of the window in front.
  void pick(const std::string &list, const QString &item);
  void open(const std::string &list, const QString &item);
  /// Presses a key in what has the focus of the window in front.
  void press(Qt::Key key);
  /// Answers the message box in front by that button.
  void answer(Réponse button);
  /// Presses the default button of the message box in front.
  void accept();
  /// Clicks on the map, scrolled by its bars where the target is out of sight.
  void click(MapTarget target);
  /// Does something else at its turn.
  void then(std::function<void()> deed) { orders_.push_back(std::move(deed)); }

 private:
  void turn();
  void ask_plan();
  void close_what_is_in_front();
  /// The window in front; that of a box included.
  QWidget *front() const;
  QWidget *usable(const std::string &control);
  void click_entry(QWidget *menu, const std::string &entry);
  void click_button(QWidget *button);
  using OnItem = void (*)(QListWidget &list, QListWidgetItem &item);
  void work_item(const std::string &list, const QString &item, OnItem deed);
  void reach(MapTarget target);
  void reach_by_keys(QWidget &map, MapTarget target);
  /// Takes the map's cursor by arrows to a place of the viewport.
  void travel(QWidget &map, QPoint place);
  /// Gives a control the focus by Tab, and by arrows within a group of options.
  bool focus(QWidget &control);
  void click_by_keys(QWidget &control);
  void choose_by_keys(const std::string &menu, const std::string &entry);
  /// A click in a scroll bar's trough that brings a place nearer; false if there is none.
  bool scroll_towards(QPoint place);

  static constexpr int most_orders = 100'000;

  Desktop &desktop_;
  Plan &plan_;
  const Hand hand_;
  QTimer turn_;
  std::deque<std::function<void()>> orders_;
  const QWidget *seen_in_front_ = nullptr;  ///< at the turn before, to compare with
  bool starting_ = false;
  int orders_left_ = most_orders;
  std::string trouble_;
};

}  // namespace ardane
