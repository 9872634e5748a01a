// Runs the tests of the windows, with settings of their own.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include "crash_child.h"
#include "front/qt/demonstration/offscreen.h"
#include "sound_child.h"

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir settings;
  const ardane::Offscreen platform;
  if (!settings.isValid() || !platform.ready()) return 1;
  qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
  qputenv("XDG_STATE_HOME", settings.path().toLocal8Bit());
  const QApplication application(argc, argv);
  if (argc == 3 && std::string_view(argv[1]) == crash_option) return crash(argv[2]);
  if (argc == 3 && std::string_view(argv[1]) == ardane::sound_option) return ardane::play_and_end(argv[2]);
  return RUN_ALL_TESTS();
}
