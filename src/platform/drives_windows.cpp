// Windows only: one bit a letter.

#include "platform/drives.h"
#include "platform/windows_headers.h"

namespace ardane {

std::vector<std::string> lecteurs_du_système() {
  std::vector<std::string> lecteurs;
  const DWORD présents = GetLogicalDrives();
  for (char lettre = 'A'; lettre <= 'Z'; ++lettre)
    if ((présents >> (lettre - 'A') & 1U) != 0) lecteurs.push_back(std::string(1, lettre) + ":\\");
  return lecteurs;
}

}  // namespace ardane
