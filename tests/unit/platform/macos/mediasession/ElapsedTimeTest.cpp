#include <gtest/gtest.h>

#include "platform/macos/mediasession/ElapsedTime.h"

namespace talmo::test {
namespace {

TEST(ElapsedTime, GoesOnAtTheRate) {
  EXPECT_DOUBLE_EQ(elapsedTimeNow(10, 2.5, 1, 200), 12.5);
  EXPECT_DOUBLE_EQ(elapsedTimeNow(10, 2.5, 2, 200), 15);
  EXPECT_DOUBLE_EQ(elapsedTimeNow(10, 0, 1, 200), 10);
  EXPECT_DOUBLE_EQ(elapsedTimeNow(10, 1000, 1, std::nullopt), 1010);
}

TEST(ElapsedTime, EndsWithTheTrack) {
  EXPECT_DOUBLE_EQ(elapsedTimeNow(10, 1000, 1, 200), 200);
  EXPECT_DOUBLE_EQ(elapsedTimeNow(201.5, 1, 1, 200), 201.5);
}

TEST(ElapsedTime, DoesNotBeginBeforeTheTrack) {
  EXPECT_DOUBLE_EQ(elapsedTimeNow(1, -30, 1, 200), 0);
  EXPECT_DOUBLE_EQ(elapsedTimeNow(10, 30, -1, std::nullopt), 0);
}

}  // namespace
}  // namespace talmo::test
