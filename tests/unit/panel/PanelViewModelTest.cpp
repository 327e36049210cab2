#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "panel/PanelViewModel.h"
#include "players/TargetAppRegistry.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo::test {
namespace {

using enum HighlightDirection;
using testing::ElementsAre;
using testing::IsEmpty;

class PanelViewModelTest : public testing::Test {
 protected:
  void list(const std::vector<std::string>& ids) {
    std::vector<TargetApp> players;
    for (const std::string& id : ids) players.push_back(TargetAppRegistry::app(id).value());
    model.detectedPlayers.set(players);
  }

  void setTabs(const std::vector<std::string>& ids) {
    WebTabDetection::Matches tabs;
    for (const std::string& id : ids) tabs[id].targetID = id;
    model.webTabs.set(tabs);
  }

  /// Moves the highlight and tells where it is then.
  std::optional<std::string> moved(HighlightDirection direction) {
    model.moveHighlight(direction);
    return model.keyboardHighlightedRowID.get();
  }

  SimulatedWorld world;
  PanelViewModel model;
};

TEST_F(PanelViewModelTest, IsEmptyAtFirst) {
  EXPECT_THAT(model.detectedPlayers.get(), IsEmpty());
  EXPECT_FALSE(model.isPanelOpen.get());
  EXPECT_EQ(model.permissionWarning.get(), PermissionWarningKind::none);
  EXPECT_EQ(model.selectedTargetID.get(), std::nullopt);
  EXPECT_EQ(model.automationWarning.get(), std::nullopt);
  EXPECT_EQ(model.browserPrimer.get(), std::nullopt);
  EXPECT_THAT(model.webTabs.get(), IsEmpty());
  EXPECT_EQ(model.keyboardHighlightedRowID.get(), std::nullopt);
  EXPECT_FALSE(model.isRoutingOff.get());
  EXPECT_THAT(model.visibleWebApps(), IsEmpty());
  EXPECT_THAT(model.navigableRowIDs(), IsEmpty());
}

TEST_F(PanelViewModelTest, WebPlayersWithATabAreListedInTheRegistrysOrder) {
  setTabs({"youtube-web", "soundcloud-web"});
  EXPECT_THAT(model.navigableRowIDs(), ElementsAre("soundcloud-web", "youtube-web"));
  setTabs({"youtube-web", "unknown-web"});
  EXPECT_THAT(model.navigableRowIDs(), ElementsAre("youtube-web"));
}

TEST_F(PanelViewModelTest, APinnedWebPlayerIsListedWithoutATabToo) {
  model.selectedTargetID.set("youtube-web");
  EXPECT_THAT(model.navigableRowIDs(), ElementsAre("youtube-web"));
  setTabs({"soundcloud-web"});
  EXPECT_THAT(model.navigableRowIDs(), ElementsAre("soundcloud-web", "youtube-web"));
  EXPECT_EQ(moved(up), "youtube-web");
}

TEST_F(PanelViewModelTest, DetectedPlayersComeFirst) {
  setTabs({"soundcloud-web"});
  list({"vlc", "spotify"});
  EXPECT_THAT(model.navigableRowIDs(), ElementsAre("vlc", "spotify", "soundcloud-web"));
}

TEST_F(PanelViewModelTest, WithoutRowsTheHighlightStaysWhereItIs) {
  EXPECT_EQ(moved(down), std::nullopt);
  EXPECT_EQ(moved(up), std::nullopt);
  model.keyboardHighlightedRowID.set("spotify");
  EXPECT_EQ(moved(down), "spotify");
}

TEST_F(PanelViewModelTest, TheHighlightMovesAndWraps) {
  list({"vlc", "spotify", "music"});
  for (const char* id : {"vlc", "spotify", "music", "vlc"}) EXPECT_EQ(moved(down), id);
  for (const char* id : {"music", "spotify", "vlc", "music"}) EXPECT_EQ(moved(up), id);
}

TEST_F(PanelViewModelTest, TheFirstUpHighlightsTheLastRow) {
  list({"vlc", "spotify"});
  EXPECT_EQ(moved(up), "spotify");
}

TEST_F(PanelViewModelTest, ASingleRowKeepsTheHighlight) {
  list({"vlc"});
  for (const auto direction : {up, up, down, down, up}) EXPECT_EQ(moved(direction), "vlc");
}

TEST_F(PanelViewModelTest, FromTheLastPlayerTheHighlightGoesOnToTheWebPlayers) {
  list({"vlc", "spotify"});
  model.keyboardHighlightedRowID.set("spotify");
  EXPECT_EQ(moved(down), "vlc");
  setTabs({"youtube-web"});
  model.keyboardHighlightedRowID.set("spotify");
  EXPECT_EQ(moved(down), "youtube-web");
  EXPECT_EQ(moved(down), "vlc");
}

TEST_F(PanelViewModelTest, AHighlightWhoseRowHasGoneStartsAnew) {
  list({"vlc", "spotify", "music"});
  model.keyboardHighlightedRowID.set("deezer");
  EXPECT_EQ(moved(down), "vlc");
  model.keyboardHighlightedRowID.set("deezer");
  EXPECT_EQ(moved(up), "music");
}

TEST_F(PanelViewModelTest, EveryChangeOfEveryFieldIsTold) {
  int changes = 0;
  model.observe([&changes] { ++changes; });
  const std::vector<std::function<void()>> sets{
      [this] { list({"vlc"}); },
      [this] { model.isPanelOpen.set(true); },
      [this] { model.permissionWarning.set(PermissionWarningKind::needsGrant); },
      [this] { model.selectedTargetID.set("vlc"); },
      [this] { model.automationWarning.set(AutomationWarning{.name = "VLC"}); },
      [this] { model.browserPrimer.set(BrowserPrimer{.name = "Safari"}); },
      [this] { setTabs({"youtube-web"}); },
      [this] { model.keyboardHighlightedRowID.set("vlc"); },
      [this] { model.isRoutingOff.set(true); }};
  for (std::size_t field = 0; field < sets.size(); ++field) {
    sets[field]();
    EXPECT_EQ(changes, static_cast<int>(field) + 1) << field;
    // The same value again is no change.
    sets[field]();
    EXPECT_EQ(changes, static_cast<int>(field) + 1) << field;
  }
}

TEST_F(PanelViewModelTest, WarningsAndPrimersAreComparedFieldByField) {
  const AutomationWarning warning{.name = "n", .explanation = "e", .title = "t"};
  EXPECT_EQ(warning, (AutomationWarning{.name = "n", .explanation = "e", .title = "t"}));
  EXPECT_NE(warning, (AutomationWarning{.name = "x", .explanation = "e", .title = "t"}));
  EXPECT_NE(warning, (AutomationWarning{.name = "n", .explanation = "x", .title = "t"}));
  EXPECT_NE(warning, (AutomationWarning{.name = "n", .explanation = "e", .title = "x"}));
  const BrowserPrimer primer{.bundleID = "b", .name = "n"};
  EXPECT_EQ(primer, (BrowserPrimer{.bundleID = "b", .name = "n"}));
  EXPECT_NE(primer, (BrowserPrimer{.bundleID = "x", .name = "n"}));
  EXPECT_NE(primer, (BrowserPrimer{.bundleID = "b", .name = "x"}));
}

}  // namespace
}  // namespace talmo::test
