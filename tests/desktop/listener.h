// A screen reader, as far as the toolkit knows: it is told of what changes.
#pragma once

#include <QAccessible>
#include <string>
#include <vector>

namespace ardane {

/// Listens for as long as it lives; one at a time.
class Listener {
 public:
  Listener();
  ~Listener();
  Listener(const Listener &) = delete;
  Listener &operator=(const Listener &) = delete;

  /// Names of what such an event was about, in order.
  std::vector<std::string> heard(QAccessible::Event kind) const;
  void forget() { heard_.clear(); }
  void hear(const QAccessibleEvent &event);
  /// Hears nothing more.
  static void leave();

 private:
  struct Heard {
    QAccessible::Event kind;
    std::string name;
  };
  std::vector<Heard> heard_;
};

}  // namespace ardane
