#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "players/PlayerDetection.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Record = PlayerDetection::Record;

const Date today{1'700'000'000s};
const Date yesterday = today - 24h;
const Date lastYear = today - 24h * 365;

Record record(const char* id, std::size_t index, std::optional<Date> date = std::nullopt) {
  return {.app = {.id = id, .displayName = id, .bundleID = id, .method = ScriptingBridge{}},
          .index = index,
          .date = date};
}

std::vector<std::string> ranked(const std::vector<Record>& records) {
  std::vector<std::string> ids;
  for (const TargetApp& app : PlayerDetection::ranked(records)) ids.push_back(app.id);
  return ids;
}

/// What ranking two records gives, which must not depend on the order that they come in.
std::vector<std::string> rankedBothWays(const Record& a, const Record& b) {
  EXPECT_EQ(ranked({a, b}), ranked({b, a}));
  return ranked({a, b});
}

TEST(PlayerRanking, OfTwoDatesTheLaterComesFirst) {
  EXPECT_THAT(rankedBothWays(record("a", 0, lastYear), record("b", 1, yesterday)),
              ElementsAre("b", "a"));
  EXPECT_THAT(rankedBothWays(record("a", 0, today), record("b", 1, today - 1ns)),
              ElementsAre("a", "b"));
  EXPECT_THAT(rankedBothWays(record("a", 0, today - 1ns), record("b", 1, today)),
              ElementsAre("b", "a"));
}

TEST(PlayerRanking, OfEqualDatesTheLowerIndexComesFirst) {
  EXPECT_THAT(rankedBothWays(record("a", 3, today), record("b", 7, today)), ElementsAre("a", "b"));
}

TEST(PlayerRanking, ADatedPlayerComesBeforeAnUndatedOneWhateverItsDateAndIndex) {
  EXPECT_THAT(rankedBothWays(record("a", 0), record("b", 14, Date::min())), ElementsAre("b", "a"));
  EXPECT_THAT(rankedBothWays(record("a", 0, Date{}), record("b", 14)), ElementsAre("a", "b"));
}

TEST(PlayerRanking, WithoutDatesTheLowerIndexComesFirst) {
  EXPECT_THAT(rankedBothWays(record("a", 1), record("b", 0)), ElementsAre("b", "a"));
}

TEST(PlayerRanking, RecordsThatAreEqualInBothKeepTheirOrder) {
  EXPECT_THAT(ranked({record("a", 5), record("x", 2, today), record("b", 5), record("c", 5),
                      record("y", 2, today)}),
              ElementsAre("x", "y", "a", "b", "c"));
}

TEST(PlayerRanking, EveryArrangementOfTheSameRecordsIsRankedTheSame) {
  std::vector<Record> records{record("a", 0), record("b", 1, lastYear), record("c", 2, yesterday),
                              record("d", 3), record("e", 4, yesterday)};
  const auto byIndex = [](const Record& one, const Record& other) {
    return one.index < other.index;
  };
  do {
    EXPECT_THAT(ranked(records), ElementsAre("c", "e", "b", "a", "d"));
  } while (std::ranges::next_permutation(records, byIndex).found);
}

TEST(PlayerRanking, OfNothingIsNothing) {
  EXPECT_THAT(ranked({}), IsEmpty());
}

TEST(PlayerDetection, RunsOnItsOwnQueue) {
  test::SimulatedWorld world;
  world.machine().applications().install({"org.videolan.vlc", "VLC"});
  bool isDetected = false;
  PlayerDetection::detect([&](const auto&) { isDetected = true; });
  EXPECT_TRUE(world.runUntil([&] { return isDetected; }));
  EXPECT_THAT(world.time().trace(), Contains("nl.brelm.talmo.player-detection"));
}

TEST(PlayerDetection, AnswersAtOnceWhenCalledSynchronously) {
  test::SimulatedWorld world;
  world.machine().applications().install({"org.videolan.vlc", "VLC"});
  world.machine().applications().install({"com.apple.Music", "Music"});
  const std::vector<TargetApp> players = PlayerDetection::detectSync();
  ASSERT_EQ(players.size(), 2U);
  EXPECT_EQ(players[0].displayName, "Apple Music");
  EXPECT_EQ(players[1].displayName, "VLC");
}

}  // namespace
}  // namespace talmo
