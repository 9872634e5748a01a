// Sound and network come in modules of their own, beside the program, loaded when first asked for: their
// libraries would double the time and the memory of a start, and many a game needs neither.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/services.h"

namespace ardane {

class SoundOnDemand : public Son {
 public:
  void jouer(const std::string &chemin) override;

 private:
  std::unique_ptr<Son> player_;
  bool asked_ = false;
};

/// The hourglass stands while a page is waited for.
class WebOnDemand : public Web {
 public:
  static constexpr const char *publisher = "https://www.mirabonde.example/";
  static constexpr std::chrono::milliseconds patience = std::chrono::seconds(5);

  explicit WebOnDemand(Ecran &screen, std::string site = publisher,
                       std::chrono::milliseconds time_limit = patience)
      : screen_(screen), site_(std::move(site)), time_limit_(time_limit) {}

  std::optional<std::string> lire_page(const std::string &page) override;

 private:
  Ecran &screen_;
  const std::string site_;
  const std::chrono::milliseconds time_limit_;
  std::unique_ptr<Web> reader_;
  bool asked_ = false;
};

}  // namespace ardane
