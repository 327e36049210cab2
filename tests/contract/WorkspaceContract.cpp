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
  world().install(spotify, "Spotify");
  world().install(vlc, "VLC media player");
  const std::optional<std::string> first = workspace().urlForApplication(spotify);
  const std::optional<std::string> second = workspace().urlForApplication(vlc);
  EXPECT_NE(first.value_or(""), "");
  EXPECT_NE(second.value_or(""), "");
  EXPECT_NE(first, second);
}

TEST_P(WorkspaceContract, AnApplicationThatIsNotInstalledHasNoURL) {
  EXPECT_EQ(workspace().urlForApplication(spotify), std::nullopt);
  world().install(spotify, "Spotify");
  EXPECT_EQ(workspace().urlForApplication(vlc), std::nullopt);
  world().uninstall(spotify);
  EXPECT_EQ(workspace().urlForApplication(spotify), std::nullopt);
}

TEST_P(WorkspaceContract, AnApplicationThatDoesNotRunHasNoInstances) {
  EXPECT_EQ(processes(spotify), Processes{});
  world().install(spotify, "Spotify");
  EXPECT_EQ(processes(spotify), Processes{});
}

TEST_P(WorkspaceContract, ARunningApplicationIsGivenWithItsName) {
  world().install(vlc, "VLC media player");
  const ProcessIdentifier process = world().launch(vlc);
  EXPECT_EQ(
      workspace().runningApplications(vlc),
      (std::vector<RunningApplication>{
          {.bundleID = vlc, .localizedName = "VLC media player", .processIdentifier = process}}));
  EXPECT_EQ(processes(spotify), Processes{});
}

TEST_P(WorkspaceContract, AnApplicationCanRunThatIsNotInstalled) {
  const ProcessIdentifier process = world().launch(vlc);
  const std::vector<RunningApplication> running = workspace().runningApplications(vlc);
  ASSERT_EQ(running.size(), 1U);
  EXPECT_EQ(running[0].processIdentifier, process);
  EXPECT_NE(running[0].localizedName, "");
}

TEST_P(WorkspaceContract, InstancesAreGivenOldestFirst) {
  world().install(vlc, "VLC media player");
  const ProcessIdentifier first = world().launch(vlc);
  const ProcessIdentifier second = world().launch(vlc);
  const ProcessIdentifier third = world().launch(vlc);
  EXPECT_EQ(processes(vlc), (Processes{first, second, third}));
}

TEST_P(WorkspaceContract, AnInstanceThatQuitIsGone) {
  const ProcessIdentifier first = world().launch(vlc);
  const ProcessIdentifier second = world().launch(vlc);
  world().quit(first);
  EXPECT_EQ(processes(vlc), Processes{second});
  world().quit(second);
  EXPECT_EQ(processes(vlc), Processes{});
}

TEST_P(WorkspaceContract, TheApplicationInFrontIsTheOneThatWasBroughtThere) {
  EXPECT_EQ(workspace().frontmostApplication(), std::nullopt);
  world().launch(spotify);
  world().launch(vlc);
  world().bringToFront(vlc);
  EXPECT_EQ(workspace().frontmostApplication(), vlc);
  world().bringToFront(spotify);
  EXPECT_EQ(workspace().frontmostApplication(), spotify);
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
  world().install(spotify, "Spotify");
  world().install(vlc, "VLC media player");
  world().use(vlc, Date(1'700'000'000s));
  EXPECT_EQ(lastUsed(spotify), std::nullopt);
  EXPECT_EQ(workspace().lastUsedDate("file:///nowhere/nobody"), std::nullopt);
  EXPECT_EQ(workspace().lastUsedDate(""), std::nullopt);
}

TEST_P(WorkspaceContract, TheDateIsThatOfTheLatestUse) {
  world().install(spotify, "Spotify");
  world().install(vlc, "VLC media player");
  world().use(vlc, Date(1'700'000'000s));
  world().use(spotify, Date(1'600'000'000s));
  EXPECT_EQ(lastUsed(vlc), Date(1'700'000'000s));
  EXPECT_EQ(lastUsed(spotify), Date(1'600'000'000s));
  world().use(vlc, Date(1'710'000'000s));
  EXPECT_EQ(lastUsed(vlc), Date(1'710'000'000s));
}

TEST_P(WorkspaceContract, TheLocalPlayersAreAlwaysTheSame) {
  const std::vector<LocalPlayer> players = workspace().localPlayers();
  world().install(spotify, "Spotify");
  world().launch(vlc);
  EXPECT_EQ(workspace().localPlayers(), players);
}

}  // namespace talmo::test
