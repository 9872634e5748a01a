#include "platform/log.h"

#include <gtest/gtest.h>

namespace ardane {
namespace {

TEST(Log, ASentenceIsOneLineOfTheErrorStream) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  consigner("Le fichier « été » est refusé");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "ardane : Le fichier « été » est refusé\n");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(Log, ALineEndOrAnEscapeInANameDoesNotBreakTheLine) {
  testing::internal::CaptureStderr();
  consigner(std::string_view("a\nb\r\x1B[2J\x7F\0c", 10));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "ardane : a?b??[2J??\n");
}

}  // namespace
}  // namespace ardane
