// The child process that plays a sound and ends.
#pragma once

#include <string>
#include <string_view>

#include "front/qt/on_demand.h"

namespace ardane {

inline constexpr std::string_view sound_option = "--son";
inline constexpr int sound_code = 7;

/// Has a sound played and ends at once, with that code.
inline int play_and_end(const std::string &file) {
  SoundOnDemand sound;
  sound.jouer(file);
  return sound_code;
}

}  // namespace ardane
