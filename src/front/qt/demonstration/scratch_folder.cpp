#include "front/qt/demonstration/scratch_folder.h"

#include <array>

#include "core/paths.h"
#include "front/qt/appearance.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

bool ships_with_the_program(const fs::path &file) {
  static constexpr std::array<std::string_view, 2> folders = {"aide", "images"};
  static constexpr std::array<std::string_view, 2> suffixes = {".pts", ".wav"};
  return std::ranges::find(folders, file.filename().string()) != folders.end() ||
         std::ranges::find(suffixes, file.extension().string()) != suffixes.end();
}

/// A link, or where the system gives none a copy.
void put(const fs::path &shipped, const fs::path &place) {
  std::error_code error;
  fs::create_symlink(shipped, place, error);
  if (error) fs::copy(shipped, place, fs::copy_options::recursive);
}

}  // namespace

ScratchFolder::ScratchFolder(const fs::path &programme) {
  for (const fs::directory_entry &entry : fs::directory_iterator(programme))
    if (ships_with_the_program(entry.path()))
      put(fs::canonical(entry.path()), path() / entry.path().filename());
}

fs::path ScratchFolder::path() const {
  return chemin_natif(to_utf8(folder_.path()));
}

DesktopPlaces ScratchFolder::places() const {
  return {texte_du_chemin(path()), path() / "registre", texte_du_chemin(path()), true};
}

}  // namespace ardane
