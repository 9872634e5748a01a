// Windows only.

#include "platform/windows_headers.h"
#include "platform/windows_text.h"

namespace ardane {

std::wstring texte_large(std::string_view utf8) {
  const int octets = static_cast<int>(utf8.size());
  std::wstring large(utf8.size(), L'\0');  // at most one unit a byte
  const int unités = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), octets, large.data(), octets);
  large.resize(static_cast<std::size_t>(unités));
  return large;
}

std::string texte_utf8(std::wstring_view large) {
  const int unités = static_cast<int>(large.size());
  std::string utf8(3 * large.size(), '\0');  // at most three bytes a unit
  const int octets = WideCharToMultiByte(CP_UTF8, 0, large.data(), unités, utf8.data(),
                                         static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(octets));
  return utf8;
}

}  // namespace ardane
