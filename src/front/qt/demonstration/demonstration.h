// A game that plays itself, for a machine without a screen.
#pragma once

#include <string>

namespace ardane {

/// Plays a whole game of the stage Provinces at the level Facile, on Qt's offscreen platform unless
/// QT_QPA_PLATFORM says otherwise, with settings and files of its own. Writes a line of progress as it goes,
/// and pictures of the screens into `folder`, which is made if absent. Returns the process's exit code.
int demonstrate(int argc, char **argv, const std::string &folder);

}  // namespace ardane
