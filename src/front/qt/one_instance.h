// One run of the program for each player and file of settings: two would write each other's scores away.
#pragma once

#include <QObject>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace ardane {

/// Held from its making to its end. Nothing of it stays behind, however the program ends.
class OneInstance : public QObject {
 public:
  enum class Place : std::uint8_t {
    first,    ///< no other runs, and each later one asks this one to come to the front
    second,   ///< another runs and has come to the front
    unknown,  ///< the system does not tell, or whoever runs does not answer
  };

  /// `patience`: how long another instance, which may be starting, is waited for.
  explicit OneInstance(const std::filesystem::path &settings,
                       std::chrono::milliseconds patience = std::chrono::seconds(10));
  ~OneInstance() override;

  Place place() const { return place_; }

  /// From now on the event loop hears of later instances. Each hands over what its desktop has given it to
  /// activate a window with; empty if that is nothing.
  void listen(std::function<void(const std::string &token)> asked_to_front);

 private:
  struct Link;
  void answer();

  std::unique_ptr<Link> link_;
  Place place_ = Place::unknown;
  std::function<void(const std::string &)> asked_to_front_;
};

}  // namespace ardane
