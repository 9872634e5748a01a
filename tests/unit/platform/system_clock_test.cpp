#include "platform/system_clock.h"

#include <gtest/gtest.h>

namespace ardane {
namespace {

TEST(SystemClock, TellsARealDateAndATimeOfDay) {
  const HorlogeSystème clock;
  EXPECT_TRUE(clock.aujourd_hui().ok());
  EXPECT_GE(clock.heure().count(), 0);
  EXPECT_LT(clock.heure().count(), 86'400);
}

}  // namespace
}  // namespace ardane
