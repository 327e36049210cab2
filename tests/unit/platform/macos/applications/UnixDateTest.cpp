#include <chrono>
#include <limits>
#include <optional>

#include <gtest/gtest.h>

#include "platform/macos/applications/UnixDate.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

TEST(UnixDate, IsSoManySecondsAfterTheEpoch) {
  EXPECT_EQ(dateFromUnixTime(0), Date(0s));
  EXPECT_EQ(dateFromUnixTime(1'700'000'000), Date(1'700'000'000s));
  EXPECT_EQ(dateFromUnixTime(-86'400), Date(-86'400s));
  EXPECT_EQ(dateFromUnixTime(1.5), Date(1500ms));
}

TEST(UnixDate, ReachesAsFarAsADateDoes) {
  EXPECT_EQ(dateFromUnixTime(9.22e9), Date(9'220'000'000s));
  EXPECT_EQ(dateFromUnixTime(-9.22e9), Date(-9'220'000'000s));
}

TEST(UnixDate, IsNothingForADistantPastOrFuture) {
  // What `NSDate` calls so: the first of January of the years 1 and 4001.
  EXPECT_EQ(dateFromUnixTime(-62'135'769'600.0), std::nullopt);
  EXPECT_EQ(dateFromUnixTime(64'092'211'200.0), std::nullopt);
  EXPECT_EQ(dateFromUnixTime(9.3e9), std::nullopt);
}

TEST(UnixDate, IsNothingForWhatIsNoNumber) {
  EXPECT_EQ(dateFromUnixTime(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
  EXPECT_EQ(dateFromUnixTime(std::numeric_limits<double>::infinity()), std::nullopt);
}

}  // namespace
}  // namespace talmo::test
