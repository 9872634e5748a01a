// Runs the contract over the front ends that this build has.
#include <gtest/gtest.h>

#ifdef ARDANE_DESKTOP
#include <QApplication>

#include "front/qt/demonstration/offscreen.h"
#endif

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
#ifdef ARDANE_DESKTOP
  const ardane::Offscreen platform;
  if (!platform.ready()) return 1;
  const QApplication application(argc, argv);
#endif
  return RUN_ALL_TESTS();
}
