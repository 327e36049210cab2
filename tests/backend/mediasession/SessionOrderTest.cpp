#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/mediasession/SessionOrder.h"

namespace talmo::test {
namespace {

/// Players as they are seen in turn: "a+ b- c. d?" is a playing, b paused, c stopped and d silent.
std::vector<SessionOrder::Seen> seen(const std::string& words) {
  std::vector<SessionOrder::Seen> players;
  std::istringstream stream(words);
  std::string word;
  while (stream >> word) {
    const char mark = word.back();
    word.pop_back();
    std::optional<PlaybackStatus> status;
    if (mark == '+') status = PlaybackStatus::playing;
    if (mark == '-') status = PlaybackStatus::paused;
    if (mark == '.') status = PlaybackStatus::stopped;
    players.push_back({word, status});
  }
  return players;
}

struct Row {
  const char* name;
  /// What is seen, one look after the other.
  std::vector<const char*> looks;
  /// The owner after each look; "" for none.
  std::vector<const char*> owners;
  /// The order in the end, with "+" for those that were playing.
  const char* order;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.name;
}

class SessionOrderTest : public testing::TestWithParam<Row> {};

TEST_P(SessionOrderTest, GivesTheSessionToItsOwner) {
  SessionOrder order;
  ASSERT_EQ(GetParam().looks.size(), GetParam().owners.size());
  for (std::size_t look = 0; look < GetParam().looks.size(); ++look) {
    const std::vector<SessionOrder::Seen> players = seen(GetParam().looks[look]);
    order = order.observe(players);
    EXPECT_EQ(order.owner(players).value_or(""), GetParam().owners[look]) << "look " << look;
  }
  std::string text;
  for (const SessionOrder::Entry& entry : order.entries) {
    text += (text.empty() ? "" : " ") + entry.name + (entry.wasPlaying ? "+" : "");
  }
  EXPECT_EQ(text, GetParam().order);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SessionOrderTest,
    testing::Values(
        Row{"NobodyIsThere", {"", ""}, {"", ""}, ""},
        Row{"ThePlayerThatPlays", {"a. b+"}, {"b"}, "b+"},
        Row{"TheLastToStart", {"a+ b-", "a+ b+"}, {"a", "b"}, "b+ a+"},
        Row{"AnEarlierNameMakesNoLaterStart",
            {"a- b+", "a+ b+", "a+ b+"},
            {"b", "a", "a"},
            "a+ b+"},
        Row{"ThePausedOneKeepsItWhileAnotherPlaysOn",
            {"a+ b.", "a+ b+", "a+ b-", "a+ b-"},
            {"a", "b", "b", "b"},
            "b a+"},
        Row{"ThePausedOneGivesItToWhoStartsNext",
            {"a+ b+", "a- b+", "a- b-", "a- b+"},
            {"a", "a", "a", "b"},
            "b+ a"},
        Row{"TheNextInOrderWhenTheOwnerQuits",
            {"a+", "a+ b+", "a+ b+ c+", "a- b-", "a-", ""},
            {"a", "b", "c", "b", "a", ""},
            ""},
        Row{"AStoppedOwnerGivesItUpAndKeepsItsPlace",
            {"a+ b.", "a- b+", "a- b.", "a- b-"},
            {"a", "b", "a", "b"},
            "b a"},
        Row{"AllStopped", {"a+ b+", "a. b."}, {"a", ""}, "a b"},
        Row{"OneThatNeverPlayedWhenItIsPausedAndAlone", {"a-", "a."}, {"a", ""}, ""},
        Row{"OneThatNeverPlayedWhenTheOthersStopped", {"a. b- c-"}, {"b"}, ""},
        Row{"OneThatNeverPlayedAfterThoseThatDid", {"a- b+", "a- b-", "a-"}, {"b", "b", "a"}, ""},
        Row{"SeveralAtOnceInTheOrderGiven",
            {"a- b- c-", "b+ a+ c-", "b+ a+ c+"},
            {"a", "b", "c"},
            "c+ b+ a+"},
        Row{"ASilentPlayerKeepsItsPlace", {"a+ b+", "a? b+", "a+ b+"}, {"a", "b", "a"}, "a+ b+"},
        Row{"ASilentPlayerThatNeverPlayedIsNobody", {"a?", "a? b-"}, {"", "b"}, ""},
        Row{"ASecondStartAfterAPause",
            {"a+ b.", "a+ b+", "a- b+", "a+ b+"},
            {"a", "b", "b", "a"},
            "a+ b+"}),
    [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

TEST(SessionOrder, IsTheSameWhenNothingChanges) {
  const SessionOrder order = SessionOrder().observe(seen("a+ b+"));
  EXPECT_EQ(order.observe(seen("a+ b+")), order);
  EXPECT_NE(order.observe(seen("a- b+")), order);
}

}  // namespace
}  // namespace talmo::test
