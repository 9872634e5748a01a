// Windows only: the display driver's list. It has a mode once for every rate.

#include "front/qt/monitor_modes.h"
#include "platform/windows_headers.h"

namespace ardane {

std::vector<Mode_écran> monitor_modes() {
  std::vector<Mode_écran> modes;
  DEVMODEW mode{};
  mode.dmSize = sizeof mode;
  for (DWORD rank = 0; EnumDisplaySettingsW(nullptr, rank, &mode); ++rank)
    modes.push_back({static_cast<int>(mode.dmPelsWidth), static_cast<int>(mode.dmPelsHeight),
                     static_cast<int>(mode.dmBitsPerPel)});
  return modes;
}

}  // namespace ardane
