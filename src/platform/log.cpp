#include "platform/log.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace ardane {

void consigner(std::string_view phrase) {
  std::string ligne = "ardane : ";
  ligne += phrase;
  std::replace_if(
      ligne.begin(), ligne.end(), [](char c) { return (c >= '\0' && c < ' ') || c == '\x7F'; }, '?');
  ligne.push_back('\n');
  std::fputs(ligne.c_str(), stderr);
}

}  // namespace ardane
