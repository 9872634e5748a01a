// What the contract asks of a front end: the player's gestures in the window on top, and what the player
// finds there.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "map/main_window.h"
#include "platform/services.h"

namespace ardane {

class Driver {
 public:
  Driver() = default;
  virtual ~Driver() = default;
  Driver(const Driver &) = delete;
  Driver &operator=(const Driver &) = delete;

  virtual Façade &windows() = 0;
  virtual Boîtes &boxes() = 0;
  /// The main window, which alone has a map and whose procedure the timer calls; not shown yet.
  virtual Ecran_principal &main_window() = 0;

  // Gestures. Each returns false, and nothing happens, if the player cannot make it.
  virtual bool click(const std::string &control) = 0;
  virtual bool double_click(const std::string &control) = 0;
  /// A click on a pixel of the map.
  virtual bool click_map(int x, int y) = 0;
  virtual bool press_enter(const std::string &control) = 0;
  /// Replaces the text of a text box; "\n" is a line end.
  virtual bool type(const std::string &control, const std::string &text) = 0;
  /// Selects an item of a list, from 1.
  virtual bool select(const std::string &control, int rank) = 0;
  virtual bool move_bar(const std::string &control, int value) = 0;
  virtual bool choose(const std::string &menu_entry) = 0;
  /// The close control of the window manager.
  virtual bool close() = 0;
  /// Answers the box that is up: "ok", "oui", "non".
  virtual bool answer(const std::string &word) = 0;
  /// The timer's beat.
  virtual bool beat() = 0;

  // What the player finds.
  virtual bool shows(const std::string &control) = 0;
  virtual std::string text(const std::string &control) = 0;
  virtual bool marked(const std::string &control) = 0;
  virtual std::vector<std::string> items(const std::string &control) = 0;
  /// Rank of the selected item, from 1; 0 for none.
  virtual int choice(const std::string &control) = 0;
  virtual int value(const std::string &control) = 0;
  /// The control that has the keyboard, of the window on top; empty for none.
  virtual std::string focus() = 0;
  /// What takes the next gesture: a window's name, "boîte", or nothing.
  virtual std::string top() = 0;

  /// What the player does next while a modal window or a box waits; the first said is the first done.
  virtual void then(std::function<void()> step) = 0;
  /// True once all of that has been done.
  virtual bool all_done() const = 0;
};

/// A front end that the contract is tested on.
struct FrontEnd {
  std::string_view name;
  std::unique_ptr<Driver> (*make)();
  friend std::ostream &operator<<(std::ostream &out, const FrontEnd &end) { return out << end.name; }
};

std::unique_ptr<Driver> make_pilot_driver();
std::unique_ptr<Driver> make_desktop_driver();

}  // namespace ardane
