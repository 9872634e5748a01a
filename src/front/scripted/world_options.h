// What a scripted world is like.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/services.h"

namespace ardane {

struct OptionsMonde {
  std::string registre;  ///< file of the settings; empty for settings that live in memory
  Mode_écran écran{1280, 1024, 32};
  std::optional<Rect> zone;                         ///< work area; the whole screen otherwise
  std::vector<Mode_écran> modes;                    ///< display modes; the screen's own alone if empty
  std::optional<std::chrono::year_month_day> date;  ///< today; the system's date otherwise
  std::optional<std::uint32_t> hasard;              ///< seed of the random source; the clock otherwise
  bool hasard_nul = false;  ///< no random source: every draw is 0, the first candidate
};

}  // namespace ardane
