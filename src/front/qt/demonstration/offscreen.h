// Qt's offscreen platform, made to hold the whole map.
#pragma once

#include <QTemporaryFile>

namespace ardane {

/// To be made before the QApplication and to live as long: chooses a screen of 1280 x 1024 of Qt's offscreen
/// platform, whose own is too small for the map. Leaves alone a platform that QT_QPA_PLATFORM asks for by
/// another name, so that what is played can be watched on a desktop.
class Offscreen {
 public:
  Offscreen();
  /// False if the temporary file that describes the screen cannot be written.
  bool ready() const { return ready_; }

 private:
  QTemporaryFile configuration_;
  bool ready_ = true;
};

}  // namespace ardane
