// What `ardane --secours` tells and does about what score files held before.
#pragma once

#include <filesystem>
#include <string>

namespace ardane {

struct Rescue {
  int code = 0;      ///< the program's exit code: 1 if nothing was given back that was asked for
  std::string text;  ///< French lines
};

/// Everything that is kept in the lifeline's folder, an interrupted game too.
Rescue list_earlier_scores(const std::filesystem::path &lifeline);

/// Puts a content back into its file. What the file holds now is kept like any other.
Rescue give_scores_back(const std::filesystem::path &lifeline, int number);

}  // namespace ardane
