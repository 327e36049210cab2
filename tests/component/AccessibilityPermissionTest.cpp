#include "tests/component/AccessibilityPermissionTest.h"

#include <string>

#include <gmock/gmock.h>

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* skipsThePrompt =
    "untrusted at launch, but this Mac has granted before; skipping the system prompt (stale cache "
    "or a differently-signed copy) and leaving it to the panel";
constexpr const char* offersRelaunch =
    "accessibility changed system-wide but we still read untrusted; offering relaunch (stale trust "
    "cache)";

TEST_P(AccessibilityPermissionTest, KnowsTheTrustOfTheMomentItWasMade) {
  EXPECT_TRUE(make()->isTrusted());
  setTrusted(false);
  EXPECT_FALSE(make()->isTrusted());
}

TEST_P(AccessibilityPermissionTest, DoesNotPromptWhoIsTrustedAndRemembersTheGrant) {
  const auto permission = make();
  permission->promptIfNeeded();
  EXPECT_TRUE(permission->isTrusted());
  EXPECT_EQ(machine().accessibility().prompts(), 0);
  EXPECT_TRUE(isGrantStored());
  EXPECT_THAT(machine().log().lines(), IsEmpty());
}

TEST_P(AccessibilityPermissionTest, ReadsTrustAnewBeforeItPrompts) {
  setTrusted(false);
  const auto permission = make();
  setTrusted(true);
  permission->promptIfNeeded();
  EXPECT_TRUE(permission->isTrusted());
  EXPECT_EQ(machine().accessibility().prompts(), 0);
  EXPECT_TRUE(isGrantStored());
  // The owner asked for it, and was not told of a change.
  EXPECT_THAT(changes, IsEmpty());
}

TEST_P(AccessibilityPermissionTest, PromptsOnAMachineThatNeverGranted) {
  setTrusted(false);
  const auto permission = make();
  permission->promptIfNeeded();
  EXPECT_EQ(machine().accessibility().prompts(), 1);
  EXPECT_FALSE(permission->isTrusted());
  EXPECT_FALSE(isGrantStored());
}

TEST_P(AccessibilityPermissionTest, DoesNotPromptOnAMachineThatGrantedBeforeAndSaysWhy) {
  setTrusted(false);
  machine().userDefaults().setBoolean(grantedBefore, true);
  const auto permission = make();
  permission->promptIfNeeded();
  EXPECT_EQ(machine().accessibility().prompts(), 0);
  EXPECT_FALSE(permission->isTrusted());
  EXPECT_TRUE(isGrantStored());
  EXPECT_THAT(machine().log().lines(),
              ElementsAre(SimulatedLog::Line{LogLevel::info, "nl.brelm.Talmo", "coordinator",
                                             skipsThePrompt}));
}

TEST_P(AccessibilityPermissionTest, DoesNotPromptUnderATestRunner) {
  machine().application().setEnvironmentVariable("XCTestConfigurationFilePath", "");
  setTrusted(false);
  const auto permission = make();
  permission->promptIfNeeded();
  permission->promptIfNeeded();
  EXPECT_EQ(machine().accessibility().prompts(), 0);
  EXPECT_FALSE(permission->isTrusted());
  EXPECT_THAT(machine().log().lines(), IsEmpty());
}

TEST_P(AccessibilityPermissionTest, TrustAtTheStartOfMonitoringIsRememberedWithoutAPrompt) {
  const auto permission = make();
  EXPECT_FALSE(isGrantStored());
  permission->startMonitoring();
  EXPECT_TRUE(isGrantStored());
}

TEST_P(AccessibilityPermissionTest, AGrantIsToldOnceAfterTheSystemsNotice) {
  setTrusted(false);
  const auto permission = make();
  permission->startMonitoring();
  setTrusted(true);
  notify();
  EXPECT_THAT(changes, ElementsAre(true));
  EXPECT_TRUE(permission->isTrusted());
  EXPECT_TRUE(isGrantStored());
  EXPECT_EQ(suspicions, 0);
  notify();
  EXPECT_THAT(changes, ElementsAre(true));
}

TEST_P(AccessibilityPermissionTest, ARevocationIsToldOnceAndTheGrantStaysRemembered) {
  const auto permission = make();
  permission->startMonitoring();
  setTrusted(false);
  notify();
  EXPECT_THAT(changes, ElementsAre(false));
  EXPECT_FALSE(permission->isTrusted());
  EXPECT_TRUE(isGrantStored());
}

TEST_P(AccessibilityPermissionTest, TheOwnerIsToldWhenAllIsStored) {
  setTrusted(false);
  const auto permission = make();
  permission->startMonitoring();
  notify();
  ASSERT_TRUE(permission->sawChangeWhileUntrusted());
  bool wasStored = false;
  permission->onChange = [&](bool isTrusted) {
    wasStored = isTrusted && permission->isTrusted() && isGrantStored() &&
                !permission->sawChangeWhileUntrusted();
  };
  setTrusted(true);
  notify();
  EXPECT_TRUE(wasStored);
}

TEST_P(AccessibilityPermissionTest, AStaleRecordIsSuspectedOncePerStretchWithoutTrust) {
  setTrusted(false);
  const auto permission = make();
  permission->startMonitoring();
  EXPECT_FALSE(permission->sawChangeWhileUntrusted());
  notify();
  notify();
  EXPECT_EQ(suspicions, 1);
  EXPECT_TRUE(permission->sawChangeWhileUntrusted());
  EXPECT_THAT(machine().log().messages("coordinator"), ElementsAre(offersRelaunch));

  setTrusted(true);
  notify();
  EXPECT_FALSE(permission->sawChangeWhileUntrusted());
  setTrusted(false);
  notify();
  notify();
  EXPECT_EQ(suspicions, 2);
  EXPECT_THAT(machine().log().messages(LogLevel::info),
              ElementsAre(offersRelaunch, offersRelaunch));
  EXPECT_THAT(changes, ElementsAre(true, false));
}

TEST_P(AccessibilityPermissionTest, NoticesDoNothingBeforeMonitoring) {
  setTrusted(false);
  const auto permission = make();
  setTrusted(true);
  notify();
  EXPECT_FALSE(permission->isTrusted());
  EXPECT_THAT(changes, IsEmpty());
}

TEST_P(AccessibilityPermissionTest, ItIsObservedOnceHoweverOftenMonitoringStarts) {
  const auto permission = make();
  for (int round = 0; round < 3; ++round) permission->startMonitoring();
  const int before = machine().accessibility().trustQuestions();
  notify();
  EXPECT_EQ(machine().accessibility().trustQuestions(), before + 1);
}

TEST_P(AccessibilityPermissionTest, WorksWithoutAnyoneListening) {
  setTrusted(false);
  const auto permission = AccessibilityPermission::make();
  permission->startMonitoring();
  notify();
  EXPECT_TRUE(permission->sawChangeWhileUntrusted());
  setTrusted(true);
  notify();
  EXPECT_TRUE(permission->isTrusted());
}

TEST_P(AccessibilityPermissionTest, AnObjectThatIsGoneHearsNothing) {
  auto permission = make();
  permission->startMonitoring();
  machine().distributedNotifications().post("com.apple.accessibility.api");
  // The notice has been heard, and the check is still to come.
  ASSERT_TRUE(world().runMainQueue());
  permission.reset();
  const int before = machine().accessibility().trustQuestions();
  setTrusted(false);
  notify();
  EXPECT_EQ(machine().accessibility().trustQuestions(), before);
  EXPECT_THAT(changes, IsEmpty());
}

TEST_P(AccessibilityPermissionTest, OpensItsPaneOfTheSettings) {
  AccessibilityPermission::openSystemSettings();
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre(settingsURL));
}

TEST_P(AccessibilityPermissionTest, ARelaunchStartsAnotherInstanceAndEndsThisOne) {
  AccessibilityPermission::relaunch();
  EXPECT_THAT(machine().workspace().newInstances(), ElementsAre(SimulatedBundle::bundleURL));
  // The other one comes first, and this one ends on the main queue.
  EXPECT_EQ(machine().application().terminations(), 0);
  ASSERT_TRUE(runUntil([&] { return machine().application().terminations() == 1; }));
  EXPECT_EQ(machine().application().terminationsOffTheMainThread(), 0);
}

TEST_P(AccessibilityPermissionTest, ARelaunchThatFailsEndsThisInstanceAllTheSame) {
  machine().workspace().setNewInstanceError("no such program");
  AccessibilityPermission::relaunch();
  ASSERT_TRUE(runUntil([&] { return machine().application().terminations() == 1; }));
  EXPECT_EQ(machine().application().terminationsOffTheMainThread(), 0);
  EXPECT_THAT(machine().workspace().newInstances(), ElementsAre(SimulatedBundle::bundleURL));
}

TEST_P(AccessibilityPermissionTest, AResetIsAwaitedAndThenTheSettingsAreOpened) {
  bool hadOpened = true;
  machine().childProcesses().setPrograms(
      [](const ChildProcessParameters&) { return SimulatedChildScript().wait(200ms).exit(0); });
  AccessibilityPermission::resetAndReopenSettings();
  ASSERT_TRUE(runUntil([&] { return !machine().childProcesses().launches().empty(); }));
  machine().dispatch().mainQueue().asyncAfter(
      50ms, [&] { hadOpened = !machine().workspace().openedURLs().empty(); });
  ASSERT_TRUE(runUntil([&] { return !machine().workspace().openedURLs().empty(); }));
  EXPECT_FALSE(hadOpened);
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre(settingsURL));
  const auto launches = machine().childProcesses().launches();
  ASSERT_EQ(launches.size(), 1U);
  EXPECT_EQ(launches[0].parameters,
            (ChildProcessParameters{.executable = "/usr/bin/tccutil",
                                    .arguments = {"reset", "Accessibility", "nl.brelm.Talmo"},
                                    .standardOutput = ChildOutput::nullDevice,
                                    .standardError = ChildOutput::nullDevice}));
  EXPECT_FALSE(launches[0].isRunning);
}

TEST_P(AccessibilityPermissionTest, AResetNamesTheBundle) {
  const auto namesOf = [&](std::optional<std::string> identifier) {
    machine().bundle().setIdentifier(std::move(identifier));
    const std::size_t before = machine().workspace().openedURLs().size();
    AccessibilityPermission::resetAndReopenSettings();
    EXPECT_TRUE(runUntil([&] { return machine().workspace().openedURLs().size() > before; }));
    return machine().childProcesses().launches().back().parameters.arguments.back();
  };
  EXPECT_EQ(namesOf("com.example.copy"), "com.example.copy");
  EXPECT_EQ(namesOf(std::nullopt), "nl.brelm.Talmo");
}

TEST_P(AccessibilityPermissionTest, AResetThatCannotBeStartedOpensTheSettingsInSilence) {
  machine().childProcesses().setPrograms([](const ChildProcessParameters&) {
    return SimulatedChildScript::launchFailure("no such file");
  });
  AccessibilityPermission::resetAndReopenSettings();
  ASSERT_TRUE(runUntil([&] { return !machine().workspace().openedURLs().empty(); }));
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre(settingsURL));
  EXPECT_EQ(machine().childProcesses().launches().size(), 1U);
  EXPECT_THAT(machine().log().lines(), IsEmpty());
}

}  // namespace
}  // namespace talmo::test
