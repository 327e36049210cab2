#include "tests/component/AudioActivityTest.h"

#include <cstddef>
#include <memory>
#include <vector>

#include <gmock/gmock.h>

namespace talmo::test {
namespace {

using testing::Each;
using testing::IsEmpty;
using Objects = AudioObjects;

TEST_P(AudioActivityTest, HasTheApplicationsThatSoundWhenItStarts) {
  EXPECT_THAT(activity().activeBundleIDs().get(), IsEmpty());
  audio().add({.bundleID = "com.a"});
  audio().add({.bundleID = "com.b"});
  audio().add({.isRunningOutput = false, .bundleID = "com.silent"});
  activity().startPolling();
  EXPECT_THAT(activity().activeBundleIDs().get(), IsEmpty())
      << "nothing is read on the main thread";
  EXPECT_TRUE(waitFor({"com.a", "com.b"}));
}

TEST_P(AudioActivityTest, SeesByItselfWhatBeginsToSoundLater) {
  activity().startPolling();
  ASSERT_TRUE(runUntil([&] { return polls() == 1; }));
  audio().add({.bundleID = "com.a"});
  EXPECT_TRUE(waitFor({"com.a"}));
}

TEST_P(AudioActivityTest, SkipsWhatIsMissingOrUnreadable) {
  audio().add({.isRunningOutput = std::nullopt, .bundleID = "com.noOutput"});
  audio().add(
      {.bundleID = "com.unreadableOutput", .unreadable = {Objects::processIsRunningOutput}});
  audio().add({.bundleID = "com.unreadableBundle", .unreadable = {Objects::processBundleID}});
  audio().add({.bundleID = ""});
  audio().add({});
  pollOnce();
  EXPECT_THAT(active(), IsEmpty());
  EXPECT_THAT(machine().log().lines(), IsEmpty());
}

TEST_P(AudioActivityTest, CountsASubprocessForItsApplication) {
  const ProcessIdentifier browser = machine().applications().launch("com.browser");
  audio().add({.bundleID = "com.browser.helper", .process = 7});
  audio().setResponsibleProcess(7, browser);
  pollOnce();
  EXPECT_EQ(active(), (Set{"com.browser", "com.browser.helper"}));
}

TEST_P(AudioActivityTest, CountsASubprocessWithoutABundleForItsApplication) {
  const ProcessIdentifier browser = machine().applications().launch("com.browser");
  audio().add({.process = 7});
  audio().add({.process = 8, .unreadable = {Objects::processBundleID}});
  audio().setResponsibleProcess(7, browser);
  pollOnce();
  EXPECT_EQ(active(), (Set{"com.browser"}));
}

TEST_P(AudioActivityTest, AProcessResponsibleForItselfAddsOnlyItsOwnBundle) {
  const ProcessIdentifier process = machine().applications().launch("com.application");
  audio().add({.bundleID = "com.object", .process = process});
  pollOnce();
  EXPECT_EQ(active(), (Set{"com.object"}));
}

TEST_P(AudioActivityTest, AddsNobodyForASubprocessWhoseResponsibleIsNoApplication) {
  const ProcessIdentifier unnamed = machine().applications().launch("");
  const std::vector<ProcessIdentifier> responsible = {0, -1, 12345, unnamed};
  for (std::size_t i = 0; i < responsible.size(); ++i) {
    const auto process = static_cast<ProcessIdentifier>(i + 1);
    audio().add({.process = process});
    audio().setResponsibleProcess(process, responsible[i]);
  }
  pollOnce();
  EXPECT_THAT(active(), IsEmpty());
}

TEST_P(AudioActivityTest, MapsNothingWithoutAProcessOrASystemThatKnows) {
  const ProcessIdentifier browser = machine().applications().launch("com.browser");
  audio().setResponsibleProcess(7, browser);
  audio().add({.bundleID = "com.a"});
  audio().add({.bundleID = "com.b", .process = 7, .unreadable = {Objects::processPID}});
  pollOnce();
  EXPECT_EQ(active(), (Set{"com.a", "com.b"}));

  audio().setKnowsResponsibleProcesses(false);
  const auto object = audio().add({.bundleID = "com.c", .process = 7});
  pollOnce();
  EXPECT_EQ(active(), (Set{"com.a", "com.b", "com.c"}));
  EXPECT_EQ(audio().reads(object, Objects::processPID), 0);
}

TEST_P(AudioActivityTest, ReadsEachPropertyOnceAPollAndNothingOfTheSilent) {
  const auto sounding = audio().add({.bundleID = "com.a", .process = 7});
  const auto silent = audio().add({.isRunningOutput = false, .bundleID = "com.b", .process = 8});
  pollOnce();
  for (const auto selector :
       {Objects::processIsRunningOutput, Objects::processBundleID, Objects::processPID}) {
    EXPECT_EQ(audio().reads(sounding, selector), 1);
  }
  EXPECT_EQ(audio().reads(silent, Objects::processIsRunningOutput), 1);
  EXPECT_EQ(audio().reads(silent, Objects::processBundleID), 0);
  EXPECT_EQ(audio().reads(silent, Objects::processPID), 0);
}

TEST_P(AudioActivityTest, AFailedSizeQueryIsLoggedAndKeepsWhatSoundedBefore) {
  audio().add({.bundleID = "com.a"});
  pollOnce();
  audio().setListSizeStatus(-50);
  activity().startPolling();
  const std::string line = "process object list size query failed: -50";
  ASSERT_TRUE(runUntil([&] { return machine().log().contains(line); }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(active(), (Set{"com.a"}));
  EXPECT_THAT(machine().log().messages("audio-activity"), Each(line));
  EXPECT_THAT(machine().log().messages(LogLevel::error), Each(line));
  EXPECT_THAT(machine().log().messages(LogLevel::error), testing::Not(IsEmpty()));
  EXPECT_EQ(polls(), 1) << "the list itself is not asked for";
}

TEST_P(AudioActivityTest, AFailedListQueryIsLoggedAndEmpty) {
  audio().add({.bundleID = "com.a"});
  audio().setListStatus(560947818);
  activity().startPolling();
  const std::string line = "process object list query failed: 560947818";
  ASSERT_TRUE(runUntil([&] { return machine().log().contains(line); }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_THAT(active(), IsEmpty());
  EXPECT_THAT(machine().log().messages(LogLevel::error), Each(line));
}

TEST_P(AudioActivityTest, EndsWithoutAWordWhilePollsAreUnderWay) {
  audio().add({.bundleID = "com.a"});
  activity().startPolling();
  activity().startPolling();
  endActivity();
  ASSERT_TRUE(world().runMainQueue());
  // Another one works on the same machine.
  const std::shared_ptr<AudioActivity> other = AudioActivity::make();
  other->startPolling();
  EXPECT_TRUE(runUntil([&] { return other->activeBundleIDs().get() == Set{"com.a"}; }));
}

TEST_P(AudioActivityTest, StoppingTwiceOrBeforeTheStartDoesNothing) {
  activity().stopPolling();
  audio().add({.bundleID = "com.a"});
  activity().startPolling();
  activity().stopPolling();
  activity().stopPolling();
  // The poll that was under way is still published.
  EXPECT_TRUE(waitFor({"com.a"}));
}

}  // namespace
}  // namespace talmo::test
