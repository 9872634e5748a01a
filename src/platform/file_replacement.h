// Writing a whole file so that it is never seen half written.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace ardane {

/// Puts `octets` in the place of a file, or makes it, through a new file beside it that takes its name once
/// it is complete: what stood there stays until then, and on every failure. A link stays a link, and the file
/// keeps its permissions. When it returns the disk has both, so that a power cut takes nothing back.
///
/// Nothing if that is done, otherwise why not, as the end of a French sentence. A file that its owner has
/// write-protected, and whatever is no plain file, is not replaced; the folder must be there.
std::optional<std::string_view> remplacer_fichier(const std::filesystem::path &fichier,
                                                  std::string_view octets);

/// Deletes what processes that were killed while they replaced a file have left in a folder. A folder that
/// cannot be read is passed over.
void balayer_provisoires(const std::filesystem::path &dossier);

}  // namespace ardane
