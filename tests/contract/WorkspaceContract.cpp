#include "tests/contract/WorkspaceContract.h"

#include <chrono>

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Processes = std::vector<ProcessIdentifier>;

}  // namespace

std::vector<ProcessIdentifier> WorkspaceContract::processes(const std::string& bundleID) {
  std::vector<ProcessIdentifier> found;
  for (const RunningApplication& application : workspace().runningApplications(bundleID)) {
    found.push_back(application.processIdentifier);
  }
  return found;
}

std::optional<Date> WorkspaceContract::lastUsed(const std::string& bundleID) {
  return workspace().lastUsedDate(workspace().urlForApplication(bundleID).value_or(""));
}

TEST_P(WorkspaceContract, AnInstalledApplicationHasAURL) {
  world().install(plexamp, "Plexamp");
  world().install(deezer, "Deezer for Linux");
  const std::optional<std::string> first = workspace().urlForApplication(plexamp);
  const std::optional<std::string> second = workspace().urlForApplication(deezer);
  EXPECT_NE(first.value_or(""), "");
  EXPECT_NE(second.value_or(""), "");
  EXPECT_NE(first, second);
}

TEST_P(WorkspaceContract, AnApplicationThatIsNotInstalledHasNoURL) {
  EXPECT_EQ(workspace().urlForApplication(plexamp), std::nullopt);
  world().install(plexamp, "Plexamp");
  EXPECT_EQ(workspace().urlForApplication(deezer), std::nullopt);
  world().uninstall(plexamp);
  EXPECT_EQ(workspace().urlForApplication(plexamp), std::nullopt);
}

TEST_P(WorkspaceContract, AnApplicationThatDoesNotRunHasNoInstances) {
  EXPECT_EQ(processes(plexamp), Processes{});
  world().install(plexamp, "Plexamp");
  EXPECT_EQ(processes(plexamp), Processes{});
}

TEST_P(WorkspaceContract, ARunningApplicationIsGivenWithItsName) {
  world().install(deezer, "Deezer for Linux");
  const ProcessIdentifier process = world().launch(deezer);
  EXPECT_EQ(workspace().runningApplications(deezer),
            (std::vector<RunningApplication>{{.bundleID = deezer,
                                              .localizedName = "Deezer for Linux",
                                              .processIdentifier = process}}));
  EXPECT_EQ(processes(plexamp), Processes{});
}

TEST_P(WorkspaceContract, AProcessIsTracedToItsApplication) {
  world().install(deezer, "Deezer for Linux");
  const ProcessIdentifier process = world().launch(deezer);
  EXPECT_EQ(
      workspace().runningApplication(process),
      (RunningApplication{
          .bundleID = deezer, .localizedName = "Deezer for Linux", .processIdentifier = process}));
  EXPECT_EQ(workspace().runningApplication(0), std::nullopt);
  world().quit(process);
  EXPECT_EQ(workspace().runningApplication(process), std::nullopt);
}

TEST_P(WorkspaceContract, AnApplicationCanRunThatIsNotInstalled) {
  const ProcessIdentifier process = world().launch(deezer);
  const std::vector<RunningApplication> running = workspace().runningApplications(deezer);
  ASSERT_EQ(running.size(), 1U);
  EXPECT_EQ(running[0].processIdentifier, process);
  EXPECT_NE(running[0].localizedName, "");
}

TEST_P(WorkspaceContract, InstancesAreGivenOldestFirst) {
  world().install(deezer, "Deezer for Linux");
  const ProcessIdentifier first = world().launch(deezer);
  const ProcessIdentifier second = world().launch(deezer);
  const ProcessIdentifier third = world().launch(deezer);
  EXPECT_EQ(processes(deezer), (Processes{first, second, third}));
}

TEST_P(WorkspaceContract, AnInstanceThatQuitIsGone) {
  const ProcessIdentifier first = world().launch(deezer);
  const ProcessIdentifier second = world().launch(deezer);
  world().quit(first);
  EXPECT_EQ(processes(deezer), Processes{second});
  world().quit(second);
  EXPECT_EQ(processes(deezer), Processes{});
}

TEST_P(WorkspaceContract, TheApplicationInFrontIsTheOneThatWasBroughtThere) {
  EXPECT_EQ(workspace().frontmostApplication(), std::nullopt);
  world().launch(plexamp);
  world().launch(deezer);
  world().bringToFront(deezer);
  EXPECT_EQ(workspace().frontmostApplication(), deezer);
  world().bringToFront(plexamp);
  EXPECT_EQ(workspace().frontmostApplication(), plexamp);
  world().bringToFront("");
  EXPECT_EQ(workspace().frontmostApplication(), std::nullopt);
}

TEST_P(WorkspaceContract, AnUnknownApplicationIsNowhere) {
  for (const char* bundleID : {unknown, ""}) {
    EXPECT_EQ(workspace().urlForApplication(bundleID), std::nullopt);
    EXPECT_EQ(processes(bundleID), Processes{});
  }
}

TEST_P(WorkspaceContract, AnApplicationThatWasNeverUsedHasNoDate) {
  world().install(plexamp, "Plexamp");
  world().install(deezer, "Deezer for Linux");
  world().use(deezer, Date(1'700'000'000s));
  EXPECT_EQ(lastUsed(plexamp), std::nullopt);
  EXPECT_EQ(workspace().lastUsedDate("file:///nowhere/nobody"), std::nullopt);
  EXPECT_EQ(workspace().lastUsedDate(""), std::nullopt);
}

TEST_P(WorkspaceContract, TheDateIsThatOfTheLatestUse) {
  world().install(plexamp, "Plexamp");
  world().install(deezer, "Deezer for Linux");
  world().use(deezer, Date(1'700'000'000s));
  world().use(plexamp, Date(1'600'000'000s));
  EXPECT_EQ(lastUsed(deezer), Date(1'700'000'000s));
  EXPECT_EQ(lastUsed(plexamp), Date(1'600'000'000s));
  world().use(deezer, Date(1'710'000'000s));
  EXPECT_EQ(lastUsed(deezer), Date(1'710'000'000s));
}

TEST_P(WorkspaceContract, TheLocalPlayersAreAlwaysTheSame) {
  const std::vector<LocalPlayer> players = workspace().localPlayers();
  world().install(plexamp, "Plexamp");
  world().launch(deezer);
  EXPECT_EQ(workspace().localPlayers(), players);
}

}  // namespace talmo::test
