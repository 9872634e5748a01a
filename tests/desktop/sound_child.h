// The child process that plays a sound and ends.
#pragma once

#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

#include "front/qt/on_demand.h"

namespace ardane {

inline constexpr std::string_view sound_option = "--son";
inline constexpr int sound_code = 7;
inline constexpr int no_sound_code = 8;  ///< the library of sounds has not even been loaded

/// Has a sound played and ends at the end of its input, with one of those codes.
inline int play_and_end(const std::string &file) {
  SoundOnDemand sound;
  sound.jouer(file);
  std::cin.ignore(std::numeric_limits<std::streamsize>::max());
  std::ifstream maps("/proc/self/maps");
  const std::string loaded{std::istreambuf_iterator<char>(maps), {}};
  return loaded.find("/ardane-son.so") != std::string::npos ? sound_code : no_sound_code;
}

}  // namespace ardane
