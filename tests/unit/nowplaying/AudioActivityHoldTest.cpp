#include <chrono>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "nowplaying/AudioActivityHold.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Set = std::set<std::string>;

struct Row {
  Duration at;
  Set observed;
  Set result;
};

void check(AudioActivityHold hold, const std::vector<Row>& rows) {
  const Uptime start(1000s);
  for (const Row& row : rows) {
    EXPECT_EQ(hold.update(row.observed, start + row.at), row.result) << row.at.count();
  }
}

TEST(AudioActivityHold, KeepsAnIdentifierForFourSecondsAfterItWasLastObserved) {
  check({}, {{0s, {"a"}, {"a"}}, {2s, {}, {"a"}}, {4s, {}, {"a"}}, {4s + 1ns, {}, {}}});
  check({}, {{0s, {"a"}, {"a"}}, {6s, {}, {}}});
}

TEST(AudioActivityHold, CountsFromTheLastObservationOfEachIdentifier) {
  check({}, {{0s, {"a", "b"}, {"a", "b"}},
             {3s, {"b"}, {"a", "b"}},
             {5s, {}, {"b"}},
             {7s, {"c"}, {"b", "c"}},
             {8s, {"a"}, {"a", "c"}}});
}

TEST(AudioActivityHold, IsEmptyWhenNothingWasObserved) {
  check({}, {{0s, {}, {}}, {2s, {}, {}}});
}

TEST(AudioActivityHold, LingersAsLongAsItIsTold) {
  check({.linger = 1s}, {{0s, {"a"}, {"a"}}, {1s, {}, {"a"}}, {1001ms, {}, {}}});
  check({.linger = 0s}, {{0s, {"a"}, {"a"}}, {1ns, {"b"}, {"b"}}});
}

TEST(AudioActivityHold, ForgetsWhatIsOver) {
  AudioActivityHold hold;
  hold.update({"a"}, Uptime(10s));
  hold.update({"b"}, Uptime(15s));
  EXPECT_EQ(hold.lastSeen, (std::map<std::string, Uptime>{{"b", Uptime(15s)}}));
}

}  // namespace
}  // namespace talmo::test
