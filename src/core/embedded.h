// The two text files of resources/ that the build turns into source.
#pragma once

#include <string_view>

namespace ardane {

std::string_view textes_incorporés();
std::string_view images_incorporées();

}  // namespace ardane
