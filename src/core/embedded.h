// The text files of resources/ that the build turns into source, and the release.
#pragma once

#include <string_view>

namespace ardane {

std::string_view textes_incorporés();
std::string_view images_incorporées();
std::string_view blasons_incorporés();
std::string_view étendues_incorporées();
std::string_view version_incorporée();

}  // namespace ardane
