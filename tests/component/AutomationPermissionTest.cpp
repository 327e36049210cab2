#include "tests/component/AutomationPermissionTest.h"

#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "permissions/AutomationPermission.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;
using testing::UnorderedElementsAre;
using Query = SimulatedAppleEvents::Query;

TEST_P(AutomationPermissionTest, TwoRefreshesShareOneQueryAndAreAnsweredInOrder) {
  machine().applications().launch(spotify);
  // Both callers are there before the query can end.
  machine().appleEvents().setQueryDuration(200ms);
  std::vector<std::pair<int, AutomationStatus>> answers;

  AutomationPermission::refreshStatus(spotify,
                                      [&](AutomationStatus s) { answers.push_back({1, s}); });
  AutomationPermission::refreshStatus(spotify,
                                      [&](AutomationStatus s) { answers.push_back({2, s}); });

  ASSERT_TRUE(runUntil([&] { return answers.size() == 2; }));
  EXPECT_THAT(answers,
              ElementsAre(Pair(1, AutomationStatus::granted), Pair(2, AutomationStatus::granted)));
  EXPECT_THAT(machine().appleEvents().queries(), ElementsAre(Query{spotify, false}));
}

TEST_P(AutomationPermissionTest, ACachedAnswerComesLaterOnTheMainQueueWithoutAQuery) {
  machine().applications().launch(spotify);
  bool isCached = false;
  AutomationPermission::refreshStatus(spotify, [&](AutomationStatus) { isCached = true; });
  ASSERT_TRUE(runUntil([&] { return isCached; }));
  const std::size_t queries = machine().appleEvents().queries().size();

  std::optional<AutomationStatus> answer;
  bool wasOnMainThread = false;
  AutomationPermission::refreshStatus(spotify, [&](AutomationStatus status) {
    answer = status;
    wasOnMainThread = platform().dispatch().isMainThread();
  });
  EXPECT_EQ(answer, std::nullopt);

  ASSERT_TRUE(runUntil([&] { return answer.has_value(); }));
  EXPECT_EQ(answer, AutomationStatus::granted);
  EXPECT_TRUE(wasOnMainThread);
  EXPECT_THAT(machine().appleEvents().queries(), SizeIs(queries));
}

TEST_P(AutomationPermissionTest, ATargetThatDoesNotRunStaysSoInTheCacheUntilInvalidated) {
  std::vector<AutomationStatus> answers;
  const auto refresh = [&] {
    const std::size_t before = answers.size();
    AutomationPermission::refreshStatus(spotify, [&](AutomationStatus s) { answers.push_back(s); });
    EXPECT_TRUE(runUntil([&] { return answers.size() == before + 1; }));
  };
  refresh();
  machine().applications().launch(spotify);
  refresh();
  AutomationPermission::invalidateAll();
  EXPECT_EQ(AutomationPermission::cachedStatus(spotify), std::nullopt);
  refresh();

  EXPECT_THAT(answers, ElementsAre(AutomationStatus::notRunning, AutomationStatus::notRunning,
                                   AutomationStatus::granted));
}

TEST_P(AutomationPermissionTest, RefreshingNoIdentifiersCallsBackWithAnEmptyMap) {
  std::optional<std::map<std::string, AutomationStatus>> results;
  AutomationPermission::refreshStatuses({}, [&](auto map) { results = std::move(map); });
  EXPECT_EQ(results, std::nullopt);

  ASSERT_TRUE(runUntil([&] { return results.has_value(); }));
  EXPECT_THAT(*results, IsEmpty());
}

TEST_P(AutomationPermissionTest, RefreshingSeveralIdentifiersCallsBackOnceWithAll) {
  machine().applications().launch(spotify);
  machine().applications().launch("com.denied");
  machine().appleEvents().setConsent("com.denied", SimulatedAppleEvents::notPermitted);
  int calls = 0;
  std::map<std::string, AutomationStatus> results;

  AutomationPermission::refreshStatuses({spotify, music, "com.denied", spotify}, [&](auto map) {
    ++calls;
    results = std::move(map);
  });

  ASSERT_TRUE(runUntil([&] { return calls > 0; }));
  EXPECT_THAT(results, UnorderedElementsAre(Pair(spotify, AutomationStatus::granted),
                                            Pair(music, AutomationStatus::notRunning),
                                            Pair("com.denied", AutomationStatus::denied)));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(calls, 1);
}

TEST_P(AutomationPermissionTest, ABlockingStatusGivesUpAtItsTimeoutAndTheAnswerIsCachedLater) {
  machine().applications().launch(spotify);
  machine().appleEvents().setQueryDuration(400ms);
  const std::shared_ptr<Queue> queue =
      machine().dispatch().makeSerialQueue("test", QualityOfService::utility);
  std::atomic<bool> isDone = false;
  std::optional<AutomationStatus> answer = AutomationStatus::denied;

  queue->async([&] {
    answer = AutomationPermission::blockingStatus(spotify, 50ms);
    isDone = true;
  });

  ASSERT_TRUE(runUntil([&] { return isDone.load(); }));
  EXPECT_EQ(answer, std::nullopt);
  ASSERT_TRUE(runUntil([&] { return AutomationPermission::cachedStatus(spotify).has_value(); }));
  EXPECT_EQ(AutomationPermission::cachedStatus(spotify), AutomationStatus::granted);
}

TEST_P(AutomationPermissionTest, ABlockingStatusWaitsForTheQueryWhileTheMainQueueRuns) {
  machine().applications().launch(spotify);
  machine().appleEvents().setQueryDuration(50ms);
  const std::shared_ptr<Queue> queue =
      machine().dispatch().makeSerialQueue("test", QualityOfService::utility);
  std::atomic<int> done = 0;
  std::optional<AutomationStatus> first;
  std::optional<AutomationStatus> second;

  queue->async([&] {
    first = AutomationPermission::blockingStatus(spotify);
    second = AutomationPermission::blockingStatus(spotify);
    ++done;
  });

  ASSERT_TRUE(runUntil([&] { return done == 1; }));
  EXPECT_EQ(first, AutomationStatus::granted);
  EXPECT_EQ(second, AutomationStatus::granted);
  EXPECT_THAT(machine().appleEvents().queries(), SizeIs(1));
}

TEST_P(AutomationPermissionTest, AnIdentifierWithoutATargetIsNotDetermined) {
  std::optional<AutomationStatus> answer;
  AutomationPermission::refreshStatus("", [&](AutomationStatus status) { answer = status; });

  ASSERT_TRUE(runUntil([&] { return answer.has_value(); }));
  EXPECT_EQ(answer, AutomationStatus::notDetermined);
}

TEST_P(AutomationPermissionTest, AnUnknownResultIsLoggedAndNotDetermined) {
  machine().applications().launch(spotify);
  machine().appleEvents().setConsent(spotify, -1712);
  std::optional<AutomationStatus> answer;
  AutomationPermission::refreshStatus(spotify, [&](AutomationStatus status) { answer = status; });

  ASSERT_TRUE(runUntil([&] { return answer.has_value(); }));
  EXPECT_EQ(answer, AutomationStatus::notDetermined);
  EXPECT_THAT(machine().log().messages("automation"),
              ElementsAre("unexpected AE permission status -1712 for com.spotify.client"));
}

TEST_P(AutomationPermissionTest, ARefreshNeverPromptsAndARequestDoes) {
  machine().applications().launch(spotify);
  machine().appleEvents().setConsent(spotify, SimulatedAppleEvents::wouldRequireConsent);
  machine().appleEvents().setAnswer(spotify, SimulatedAppleEvents::notPermitted);
  std::optional<AutomationStatus> refreshed;
  AutomationPermission::refreshStatus(spotify, [&](AutomationStatus s) { refreshed = s; });
  ASSERT_TRUE(runUntil([&] { return refreshed.has_value(); }));
  EXPECT_EQ(refreshed, AutomationStatus::notDetermined);
  EXPECT_EQ(machine().appleEvents().prompts(), 0);

  std::optional<AutomationStatus> requested;
  bool wasOnMainThread = false;
  AutomationPermission::request(spotify, [&](AutomationStatus status) {
    requested = status;
    wasOnMainThread = platform().dispatch().isMainThread();
  });

  ASSERT_TRUE(runUntil([&] { return requested.has_value(); }));
  EXPECT_EQ(requested, AutomationStatus::denied);
  EXPECT_TRUE(wasOnMainThread);
  EXPECT_EQ(machine().appleEvents().prompts(), 1);
  EXPECT_EQ(AutomationPermission::cachedStatus(spotify), AutomationStatus::denied);
  EXPECT_THAT(machine().log().messages("automation"),
              ElementsAre("automation request for com.spotify.client → denied"));
}

TEST_P(AutomationPermissionTest, InvalidatingDropsOneAnswer) {
  machine().applications().launch(spotify);
  machine().applications().launch(music);
  std::optional<std::map<std::string, AutomationStatus>> results;
  AutomationPermission::refreshStatuses({spotify, music}, [&](auto map) { results = map; });
  ASSERT_TRUE(runUntil([&] { return results.has_value(); }));

  AutomationPermission::invalidate(spotify);

  EXPECT_EQ(AutomationPermission::cachedStatus(spotify), std::nullopt);
  EXPECT_EQ(AutomationPermission::cachedStatus(music), AutomationStatus::granted);
}

TEST_P(AutomationPermissionTest, AnInvalidationDuringAQueryDoesNotLoseItsAnswerOrItsWaiter) {
  machine().applications().launch(spotify);
  machine().appleEvents().setQueryDuration(100ms);
  std::optional<AutomationStatus> answer;
  AutomationPermission::refreshStatus(spotify, [&](AutomationStatus status) { answer = status; });
  AutomationPermission::invalidate(spotify);
  AutomationPermission::invalidateAll();

  ASSERT_TRUE(runUntil([&] { return answer.has_value(); }));
  EXPECT_EQ(AutomationPermission::cachedStatus(spotify), AutomationStatus::granted);
}

TEST_P(AutomationPermissionTest, ARefreshWithoutACompletionFillsTheCache) {
  machine().applications().launch(spotify);
  AutomationPermission::refreshStatus(spotify, {});
  EXPECT_TRUE(runUntil([&] { return AutomationPermission::cachedStatus(spotify).has_value(); }));
}

TEST_P(AutomationPermissionTest, ARefreshSeesTheAnswerOfARequestThatWasFaster) {
  machine().applications().launch(spotify);
  machine().appleEvents().setConsent(spotify, SimulatedAppleEvents::wouldRequireConsent);
  machine().appleEvents().setQueryDuration(300ms);
  // The query queue is busy with another identifier while the request is answered.
  AutomationPermission::refreshStatus(music, {});
  AutomationPermission::refreshStatus("com.other", {});
  bool isRequested = false;
  AutomationPermission::request(spotify, [&](AutomationStatus) { isRequested = true; });
  std::optional<AutomationStatus> answer;
  AutomationPermission::refreshStatus(spotify, [&](AutomationStatus status) { answer = status; });

  ASSERT_TRUE(runUntil([&] { return answer.has_value() && isRequested; }));
  EXPECT_EQ(answer, AutomationStatus::granted);
  EXPECT_THAT(
      machine().appleEvents().queries(),
      UnorderedElementsAre(Query{music, false}, Query{"com.other", false}, Query{spotify, true}));
}

TEST_P(AutomationPermissionTest, OpensTheAutomationPane) {
  AutomationPermission::openSettings();
  EXPECT_THAT(machine().workspace().openedURLs(),
              ElementsAre("x-apple.systempreferences:com.apple.preference.security"
                          "?Privacy_Automation"));
}

}  // namespace
}  // namespace talmo::test
