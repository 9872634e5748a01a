// Sound files, before a library is trusted with them.
#pragma once

#include <filesystem>

namespace ardane {

/// True for a plain file that is a WAV of uncompressed samples, as the game's own are: one or two channels of
/// 8, 16, 24 or 32 bits at 8,000 to 192,000 Hz, 16 MB at most. Of a rate that no sound has, some libraries
/// die.
bool is_playable(const std::filesystem::path &file);

}  // namespace ardane
