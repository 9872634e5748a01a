// Runs the window tests on Qt's offscreen platform.
#include <gtest/gtest.h>

#include <QApplication>

#include "crash_child.h"
#include "offscreen.h"

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  const ardane::Offscreen platform;
  QApplication application(argc, argv);
  if (argc == 3 && std::string_view(argv[1]) == crash_option) return crash(argv[2]);
  return RUN_ALL_TESTS();
}
