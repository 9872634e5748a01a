// What went wrong and does not concern the player, or concerns him less than whoever looks for the cause.
#pragma once

#include <string_view>

namespace ardane {

/// Writes one line to the standard error stream. `phrase` is French, without a full stop; control characters
/// in it, such as a file's name may hold, become question marks.
void consigner(std::string_view phrase);

}  // namespace ardane
