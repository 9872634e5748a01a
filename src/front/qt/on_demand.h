// Sound and network come in modules of their own, beside the program, loaded when first asked for: their
// libraries would double the time and the memory of a start, and many a game needs neither.
#pragma once

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

class WebOnDemand : public Web {
 public:
  std::optional<std::string> lire_page(const std::string &page) override;

 private:
  std::unique_ptr<Web> reader_;
  bool asked_ = false;
};

}  // namespace ardane
