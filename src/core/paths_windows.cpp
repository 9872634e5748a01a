// Windows only: a root for each drive and for each machine of the network, and names that are devices.
#include <algorithm>
#include <array>

#include "core/paths.h"
#include "platform/text.h"

namespace ardane {
namespace {

constexpr std::string_view signes_interdits = R"(<>:"/\|?*)";

/// Whatever follows the first point of such a name.
constexpr std::array appareils = std::to_array<std::string_view>(
    {"CON",  "PRN",  "AUX",  "NUL",  "COM0", "COM1", "COM2",   "COM3",   "COM4",
     "COM5", "COM6", "COM7", "COM8", "COM9", "LPT0", "LPT1",   "LPT2",   "LPT3",
     "LPT4", "LPT5", "LPT6", "LPT7", "LPT8", "LPT9", "CONIN$", "CONOUT$"});

}  // namespace

std::filesystem::path en_noms(const std::filesystem::path &absolu) {
  std::u8string racine = absolu.root_name().u8string();
  std::erase_if(racine, [](char8_t c) { return c == u8':' || c == u8'\\' || c == u8'/'; });
  return racine / absolu.relative_path();
}

std::filesystem::path depuis_noms(const std::filesystem::path &noms) {
  const std::u8string première = noms.empty() ? std::u8string() : noms.begin()->u8string();
  const bool est_un_lecteur = première.size() == 1;
  const std::u8string racine = est_un_lecteur ? première + u8":\\" : u8"\\\\" + première + u8"\\";
  return racine / noms.lexically_relative(première);
}

bool est_nom_de_fichier(std::string_view nom) {
  const bool a_un_signe_interdit = std::ranges::any_of(nom, [](char c) {
    return (c >= '\0' && c < ' ') || signes_interdits.find(c) != std::string_view::npos;
  });
  if (nom.empty() || a_un_signe_interdit) return false;
  const std::string tête = en_majuscules(sans_blancs(nom.substr(0, nom.find('.'))));
  return std::ranges::find(appareils, tête) == appareils.end();
}

}  // namespace ardane
