// What the module of the web offers to whoever loads it.
#pragma once

#include "platform/services.h"

namespace ardane {

constexpr int longest_page = 1'000'000;  ///< in bytes

/// A reader of that site's pages, for the caller to delete. A page that is not there whole within the time,
/// or is longer than that, is given up.
using Make_web = Web *(const char *site, int time_limit_ms);

}  // namespace ardane
