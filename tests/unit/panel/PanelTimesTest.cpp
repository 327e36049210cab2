// What the panel costs as time passes: something while it is open, nothing while it is closed.

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/AppCoordinator.h"
#include "tests/component/SimulatedBrowsers.h"
#include "tests/component/SimulatedWorld.h"
#include "tests/support/ViewOutline.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

class PanelTimesTest : public testing::TestWithParam<std::uint64_t> {
 protected:
  PanelTimesTest() {
    browsers_.setStream(SimulatedChildScript().liveOn());
    browsers_.launch("com.apple.Safari", "Safari");
    machine().applications().install({"org.videolan.vlc", "VLC"});
    machine().applications().launch("org.videolan.vlc");
    machine().applications().install({"com.spotify.client", "Spotify"});
    machine().applications().launch("com.spotify.client");
    machine().userDefaults().setString("selectedTargetAppID", "vlc");
    machine().userDefaults().setBoolean("hasCompletedOnboarding", true);
    coordinator_->start();
    // The permission polls for as long as the program runs.
    time().run(1min);
  }

  SimulatedPlatform& machine() { return world_.machine(); }
  SimulatedDispatch& time() { return world_.time(); }
  SimulatedStatusItem& item() { return *machine().statusBar().items().at(0); }
  SimulatedPanel& panel() { return *machine().panels().panels().at(0); }

  int audioPolls() {
    return machine().audioObjects().reads(AudioObjects::systemObject,
                                          AudioObjects::processObjectList);
  }
  std::size_t scans() { return browsers_.scripts(SimulatedBrowsers::Kind::scan).size(); }
  /// How many things the scheduler has run in so much time.
  std::size_t workIn(Duration duration) {
    const std::size_t before = time().trace().size();
    time().run(duration);
    return time().trace().size() - before;
  }

 private:
  SimulatedWorld world_{GetParam()};
  SimulatedBrowsers browsers_{world_.machine()};
  const std::shared_ptr<AppCoordinator> coordinator_ = AppCoordinator::make();
};

TEST_P(PanelTimesTest, AnOpenPanelPollsAndScans) {
  item().leftClick();
  time().run(30s);
  EXPECT_GE(audioPolls(), 12);
  EXPECT_GE(scans(), 6U);
}

TEST_P(PanelTimesTest, AClosedPanelCostsNothing) {
  const std::size_t before = workIn(10min);
  item().leftClick();
  time().run(30s);
  EXPECT_GT(workIn(10min), 10 * before);
  item().leftClick();
  time().run(1min);

  const int polls = audioPolls();
  const std::size_t scanned = scans();
  const int contents = panel().contentChanges();
  // The player goes on, and what it tells is nobody's business.
  machine().audioObjects().add({.bundleID = "org.videolan.vlc"});
  machine().workspaceNotifications().post("NSWorkspaceDidActivateApplicationNotification");
  EXPECT_LE(workIn(10min), before + 1);
  EXPECT_EQ(audioPolls(), polls);
  EXPECT_EQ(scans(), scanned);
  EXPECT_EQ(panel().contentChanges(), contents);
}

TEST_P(PanelTimesTest, AnOpenPanelIsRenderedOnlyWhenSomethingHasChanged) {
  item().leftClick();
  time().run(30s);
  const int contents = panel().contentChanges();
  time().run(10min);
  EXPECT_EQ(panel().contentChanges(), contents);
}

TEST_P(PanelTimesTest, AChosenPlayersTrackIsThereAtOnce) {
  item().leftClick();
  time().run(3100ms);
  machine().childProcesses().write(
      "stream",
      R"({"payload":{"bundleIdentifier":"com.spotify.client","playing":true,"title":"Song","artist":"Artist"}})"
      "\n");
  time().runUntilIdle();
  const auto title = [this] { return texts(*part(panel().content(), {"now-playing"})).front(); };
  EXPECT_EQ(title(), "VLC");
  panel().click(*part(panel().content(), {"players", "spotify"}));
  time().runUntilIdle();
  EXPECT_EQ(title(), "Song");
  panel().click(*part(panel().content(), {"players", "vlc"}));
  time().runUntilIdle();
  EXPECT_EQ(title(), "VLC");
}

TEST_P(PanelTimesTest, TabsOfLongAgoAreNotListedBeforeTheyAreSeenAgain) {
  SimulatedBrowsers browsers(machine());
  browsers.setStream(SimulatedChildScript().liveOn());
  browsers.setTabs("com.apple.Safari", {{"https://www.youtube.com/watch?v=1", "Song"}});
  const auto listsTab = [this] {
    return part(panel().content(), {"players", "youtube-web"}) != nullptr;
  };
  item().leftClick();
  time().run(10s);
  EXPECT_TRUE(listsTab());
  item().leftClick();
  time().run(15s);
  item().leftClick();
  EXPECT_TRUE(listsTab()) << "seen at most twenty seconds ago";
  time().run(10s);
  item().leftClick();
  time().run(25s);
  item().leftClick();
  EXPECT_FALSE(listsTab());
  time().run(1s);
  EXPECT_TRUE(listsTab());
}

INSTANTIATE_TEST_SUITE_P(Seeds, PanelTimesTest, testing::Range<std::uint64_t>(0, 8));

}  // namespace
}  // namespace talmo::test
