// What every view of the panel shows in every state, word for word.

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Preferences.h"
#include "panel/AutomationWarningRow.h"
#include "panel/BrowserPrimerRow.h"
#include "panel/Equalizer.h"
#include "panel/FooterRow.h"
#include "panel/GearMenuButton.h"
#include "panel/NowPlayingCard.h"
#include "panel/PanelView.h"
#include "panel/PermissionWarningRow.h"
#include "panel/PlayerRow.h"
#include "panel/PlayersSection.h"
#include "panel/RowIcon.h"
#include "players/TargetAppRegistry.h"
#include "tests/component/SimulatedWorld.h"
#include "tests/support/ViewOutline.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* spotify = "com.spotify.client";
constexpr const char* accessibilitySettings =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";
constexpr const char* automationSettings =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Automation";

class PanelViewTest : public testing::Test {
 protected:
  SimulatedPlatform& machine() { return world_.machine(); }
  SimulatedDispatch& time() { return world_.time(); }

  static TargetApp app(const std::string& id) { return TargetAppRegistry::app(id).value(); }

  static void addTab(PanelViewModel& model, const std::string& id, const std::string& bundleID,
                     const std::string& name) {
    WebTabDetection::Matches tabs = model.webTabs.get();
    tabs[id] = {
        .targetID = id, .browserBundleID = bundleID, .browserName = name, .url = "https://"};
    model.webTabs.set(tabs);
  }

  std::string row(const TargetApp& app, const PanelViewModel& model,
                  const std::set<std::string>& active = {}) {
    return outline(playerRow(app, model, active, {}));
  }

  static Image image(int width) {
    return {.width = width,
            .height = 1,
            .pixels = std::make_shared<const std::vector<std::uint8_t>>(4 * width)};
  }

 private:
  SimulatedWorld world_;
};

TEST_F(PanelViewTest, APermissionThatIsNeededIsGrantedInTheSettings) {
  const View row = permissionWarningRow(PermissionWarningKind::needsGrant);
  EXPECT_EQ(outline(row), R"(warning permission-warning ->
  warningSymbol symbol <symbol exclamationmark.triangle.fill>
  group buttons
    prominentButton open-settings action
      label text "Grant Accessibility Access…"
)");
  part(row, {"buttons", "open-settings"})->action();
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre(accessibilitySettings));
}

TEST_F(PanelViewTest, APermissionThatWantsANewStartReopensAndStillLeadsToTheSettings) {
  for (const auto kind :
       {PermissionWarningKind::needsReopen, PermissionWarningKind::mayNeedReopen}) {
    EXPECT_EQ(outline(permissionWarningRow(kind)), R"(warning permission-warning ->
  warningSymbol symbol <symbol exclamationmark.triangle.fill>
  group buttons
    prominentButton relaunch action
      label text "Already allowed? Reopen Talmo"
    linkButton open-settings action
      label text "Grant Accessibility Access…"
)");
  }
  const View row = permissionWarningRow(PermissionWarningKind::mayNeedReopen);
  part(row, {"buttons", "open-settings"})->action();
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre(accessibilitySettings));
  EXPECT_THAT(machine().workspace().newInstances(), IsEmpty());
  part(row, {"buttons", "relaunch"})->action();
  time().runUntilIdle();
  EXPECT_THAT(machine().workspace().newInstances(), ElementsAre(machine().bundle().url()));
  EXPECT_EQ(machine().application().terminations(), 1);
}

TEST_F(PanelViewTest, AnAutomationWarningLeadsToItsSettings) {
  const View row = automationWarningRow(
      {.name = "Player", .explanation = "What it would allow.", .title = "What is wrong"});
  EXPECT_EQ(outline(row), R"(warning automation-warning
  label title "What is wrong"
  body explanation "What it would allow."
  linkButton open-settings action
    symbol symbol <symbol arrow.up.forward.app>
    label text "Open Automation settings for Player"
)");
  part(row, {"open-settings"})->action();
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre(automationSettings));
}

TEST_F(PanelViewTest, ATrackThatPlaysHasItsArtworkAndAChip) {
  const NowPlayingTrack track{
      .title = "Song", .artist = "Artist", .artwork = image(7), .isPlaying = true};
  const View card = nowPlayingCard(track, app("spotify"));
  EXPECT_EQ(outline(card), R"(card now-playing ->
  artwork artwork <picture>
  group texts
    title title "Song"
    detail detail "Artist"
    chip chip ->
      label text "Playing"
)");
  EXPECT_EQ(part(card, {"artwork"})->image, image(7));
}

TEST_F(PanelViewTest, APausedTrackHasNoChipAndAnUnknownArtistNoLine) {
  EXPECT_EQ(outline(nowPlayingCard(NowPlayingTrack{.title = "Song", .artist = "Artist"}, {})),
            R"(card now-playing ->
  artwork icon <symbol music.note>
  group texts
    title title "Song"
    detail detail "Artist"
)");
  EXPECT_THAT(texts(nowPlayingCard(NowPlayingTrack{.title = "Song", .isPlaying = true}, {})),
              ElementsAre("Song", "Playing"));
}

TEST_F(PanelViewTest, ATrackWithoutArtworkHasItsPlayersIcon) {
  machine().applications().install({spotify, "Spotify"});
  const NowPlayingTrack track{.title = "Song", .artist = "Artist"};
  const View native = nowPlayingCard(track, app("spotify"));
  EXPECT_EQ(native.children.front().identity, "icon");
  EXPECT_EQ(native.children.front().role, ViewRole::artwork);
  EXPECT_EQ(native.children.front().image,
            machine().workspace().icon("file:///Applications/com.spotify.client.app/", 128));

  const View web = nowPlayingCard(track, app("youtube-web"));
  EXPECT_EQ(outline(web.children.front()), "artwork icon <asset YouTubeIcon>\n");
}

TEST_F(PanelViewTest, APlayerThatTellsNothingIsNamed) {
  machine().applications().install({spotify, "Spotify"});
  EXPECT_EQ(outline(nowPlayingCard(RunningNoInfo{"Spotify"}, app("spotify"))),
            R"(card now-playing ->
  artwork icon <picture>
  group texts
    title title "Spotify"
    detail detail "It doesn't say what's playing"
)");
}

TEST_F(PanelViewTest, AnIdleCardSaysHowToFillIt) {
  machine().applications().install({spotify, "Spotify"});
  for (const std::optional<TargetApp>& player : {std::optional<TargetApp>(), {app("spotify")}}) {
    EXPECT_EQ(outline(nowPlayingCard(NowPlayingIdle{}, player)), R"(card now-playing ->
  artwork icon <symbol music.note>
  group texts
    title title "Nothing playing"
    detail detail "Press play and it shows up here"
)");
  }
}

TEST_F(PanelViewTest, ARowShowsItsPlayerAndPinsIt) {
  machine().applications().install({spotify, "Spotify"});
  const PanelViewModel model;
  EXPECT_EQ(row(app("spotify"), model),
            R"(row spotify label="Spotify" hint="Pin media keys to Spotify" action
  icon icon <picture>
  group texts
    label name "Spotify"
)");
}

TEST_F(PanelViewTest, APinnedRowIsMarkedAndSaysHowToUnpin) {
  machine().applications().install({spotify, "Spotify"});
  PanelViewModel model;
  model.selectedTargetID.set("spotify");
  EXPECT_EQ(
      row(app("spotify"), model),
      R"(row spotify on label="Spotify" hint="Media keys are pinned to Spotify. Click to follow what's playing instead." action
  icon icon <picture>
  group texts
    label name "Spotify"
  mark mark <symbol pin.fill>
)");
  EXPECT_FALSE(playerRow(app("music"), model, {}, {}).isOn);
}

TEST_F(PanelViewTest, AHighlightedRowSaysSo) {
  PanelViewModel model;
  model.keyboardHighlightedRowID.set("music");
  EXPECT_TRUE(playerRow(app("music"), model, {}, {}).isHighlighted);
  EXPECT_FALSE(playerRow(app("spotify"), model, {}, {}).isHighlighted);
}

TEST_F(PanelViewTest, AWebRowNamesItsBrowserWhileATabIsKnown) {
  PanelViewModel model;
  addTab(model, "youtube-web", "com.apple.Safari", "Safari");
  EXPECT_EQ(row(app("youtube-web"), model),
            R"(row youtube-web label="YouTube" hint="Pin media keys to YouTube" action
  icon icon <asset YouTubeIcon>
  group texts
    label name "YouTube"
    detail browser "Playing in Safari"
)");
  EXPECT_EQ(row(app("soundcloud-web"), model),
            R"(row soundcloud-web label="SoundCloud" hint="Pin media keys to SoundCloud" action
  icon icon <asset SoundCloudIcon>
  group texts
    label name "SoundCloud"
)");
}

TEST_F(PanelViewTest, TheBarsMoveBesideAPlayerThatSounds) {
  const PanelViewModel model;
  const auto bars = [&](const std::set<std::string>& active) {
    const View row = playerRow(app("spotify"), model, active, {});
    const View* const found = part(row, {"equalizer"});
    return found == nullptr ? "" : outline(*found);
  };
  EXPECT_EQ(bars({}), "");
  EXPECT_EQ(bars({"com.apple.Music", "com.spotify", "com.spotify.clients"}), "");
  EXPECT_EQ(bars({spotify}), "equalizer equalizer on\n");
  EXPECT_EQ(bars({"com.spotify.client.helper"}), "equalizer equalizer on\n");
  EXPECT_EQ(outline(equalizer(false)), "equalizer equalizer\n");
}

TEST_F(PanelViewTest, AWebPlayerSoundsWithTheBrowserOfItsTab) {
  PanelViewModel model;
  const TargetApp youTube = app("youtube-web");
  const std::set<std::string> active{"com.apple.Safari", ""};
  EXPECT_EQ(part(playerRow(youTube, model, active, {}), {"equalizer"}), nullptr);
  addTab(model, "youtube-web", "com.google.Chrome", "Chrome");
  EXPECT_EQ(part(playerRow(youTube, model, active, {}), {"equalizer"}), nullptr);
  addTab(model, "youtube-web", "com.apple.Safari", "Safari");
  const View row = playerRow(youTube, model, active, {});
  EXPECT_EQ(row.children.back().kind, ViewKind::equalizer);
}

TEST_F(PanelViewTest, WhatSoundsAndIsPinnedShowsBoth) {
  PanelViewModel model;
  model.selectedTargetID.set("spotify");
  const View row = playerRow(app("spotify"), model, {spotify}, {});
  ASSERT_EQ(row.children.size(), 4U);
  EXPECT_EQ(row.children[2].role, ViewRole::equalizer);
  EXPECT_EQ(row.children[3].role, ViewRole::mark);
}

TEST_F(PanelViewTest, PressingARowTellsWhichOne) {
  const PanelViewModel model;
  std::vector<std::string> pressed;
  const View row = playerRow(app("music"), model, {},
                             [&pressed](const std::string& id) { pressed.push_back(id); });
  row.action();
  EXPECT_THAT(pressed, ElementsAre("music"));
}

TEST_F(PanelViewTest, TheSectionListsThePlayersInTheOrderOfTheKeys) {
  PanelViewModel model;
  model.detectedPlayers.set({app("vlc"), app("spotify")});
  model.selectedTargetID.set("soundcloud-web");
  addTab(model, "youtube-web", "com.apple.Safari", "Safari");
  const View section = playersSection(model, {}, {});
  EXPECT_THAT(texts(section), ElementsAre("PLAYERS", "VLC", "Spotify", "SoundCloud", "YouTube",
                                          "Playing in Safari"));
  std::vector<std::string> rows;
  for (const View& child : section.children) {
    if (child.role == ViewRole::row) rows.push_back(child.identity);
  }
  EXPECT_EQ(rows, model.navigableRowIDs());
  EXPECT_EQ(section.children.front().role, ViewRole::header);
}

TEST_F(PanelViewTest, AnEmptySectionSaysWhatFillsIt) {
  EXPECT_EQ(outline(playersSection(PanelViewModel(), {}, {})), R"(section players
  header header "PLAYERS"
  group empty ->
    symbol symbol <symbol app.dashed>
    detail text "Install one and Talmo finds it"
)");
}

TEST_F(PanelViewTest, TheOfferNamesItsBrowser) {
  int allowed = 0;
  int dismissed = 0;
  const View row = browserPrimerRow(
      {.bundleID = "com.apple.Safari", .name = "Safari"}, [&] { ++allowed; }, [&] { ++dismissed; });
  EXPECT_EQ(outline(row),
            R"(offer browser-primer
  label title "SoundCloud or YouTube in a browser?"
  body body "Your keys already control Safari while it is playing. Allow access and Talmo can also find those tabs when they are paused, name them here, and tell them apart when both are open. macOS asks once per browser."
  group buttons ->
    prominentButton allow action
      label text "Allow for Safari"
    plainButton dismiss action
      label text "No thanks"
)");
  part(row, {"buttons", "allow"})->action();
  EXPECT_EQ(allowed, 1);
  part(row, {"buttons", "dismiss"})->action();
  EXPECT_EQ(dismissed, 1);
  EXPECT_EQ(allowed, 1);
}

TEST_F(PanelViewTest, TheFooterSaysWhereTheKeysGo) {
  PanelViewModel model;
  EXPECT_EQ(outline(footerRow(model)), R"(footer footer ->
  group texts
    label summary "Your keys follow whatever you play"
    detail detail "Click a player to route them"
  iconButton options label="Options" menu
    symbol symbol <symbol gearshape>
)");
  model.selectedTargetID.set("youtube-web");
  EXPECT_THAT(texts(footerRow(model)),
              ElementsAre("Your keys go to YouTube", "Ready when you are"));
  model.selectedTargetID.set("gone");
  EXPECT_THAT(texts(footerRow(model)),
              ElementsAre("Your keys follow whatever you play", "Click a player to route them"));
  model.selectedTargetID.set(std::nullopt);
  model.isRoutingOff.set(true);
  EXPECT_THAT(texts(footerRow(model)),
              ElementsAre("Media keys: macOS default", "Click a player to route them"));
}

TEST_F(PanelViewTest, ThePanelStacksItsPartsAndLeavesOutWhatIsNotThere) {
  PanelViewModel model;
  const auto identities = [&] {
    std::vector<std::string> found;
    const View view = panelView(model, NowPlayingIdle{}, std::nullopt, {}, {});
    EXPECT_EQ(view.role, ViewRole::glass);
    EXPECT_EQ(view.kind, ViewKind::vertical);
    EXPECT_EQ(view.identity, "panel");
    for (const View& child : view.children) found.push_back(child.identity);
    return found;
  };
  EXPECT_THAT(identities(), ElementsAre("now-playing", "players", "footer"));
  model.permissionWarning.set(PermissionWarningKind::needsReopen);
  model.automationWarning.set(AutomationWarning{});
  model.browserPrimer.set(BrowserPrimer{});
  EXPECT_THAT(identities(), ElementsAre("permission-warning", "automation-warning", "now-playing",
                                        "players", "browser-primer", "footer"));
}

TEST_F(PanelViewTest, ThePanelCallsBackWithWhatWasChosen) {
  PanelViewModel model;
  model.detectedPlayers.set({app("spotify")});
  model.browserPrimer.set(BrowserPrimer{.bundleID = "com.apple.Safari", .name = "Safari"});
  std::vector<std::string> calls;
  const PanelActions actions{
      .pressRow = [&calls](const std::string& id) { calls.push_back("row " + id); },
      .allowBrowser = [&calls](const std::string& id) { calls.push_back("allow " + id); },
      .dismissBrowserPrimer = [&calls] { calls.emplace_back("dismiss"); }};
  const View view = panelView(model, NowPlayingIdle{}, std::nullopt, {}, actions);
  part(view, {"players", "spotify"})->action();
  part(view, {"browser-primer", "buttons", "allow"})->action();
  part(view, {"browser-primer", "buttons", "dismiss"})->action();
  EXPECT_THAT(calls, ElementsAre("row spotify", "allow com.apple.Safari", "dismiss"));
}

TEST_F(PanelViewTest, IdentitiesTellSiblingsApartAndSurviveATrackChange) {
  PanelViewModel model;
  model.permissionWarning.set(PermissionWarningKind::mayNeedReopen);
  model.automationWarning.set(AutomationWarning{});
  model.browserPrimer.set(BrowserPrimer{});
  model.selectedTargetID.set("spotify");
  addTab(model, "youtube-web", "com.apple.Safari", "Safari");
  std::vector<TargetApp> all = TargetAppRegistry::all();
  model.detectedPlayers.set(all);
  const View first =
      panelView(model, NowPlayingTrack{.title = "One", .artist = "A", .isPlaying = true},
                app("spotify"), {spotify, "com.apple.Safari"}, {});
  EXPECT_THAT(ambiguousParts(first), IsEmpty());
  for (const TargetApp& one : all) EXPECT_NE(part(first, {"players", one.id}), nullptr) << one.id;

  const View second =
      panelView(model, NowPlayingTrack{.title = "Two", .artist = "B", .isPlaying = true},
                app("spotify"), {spotify, "com.apple.Safari"}, {});
  std::string expected = outline(first);
  expected.replace(expected.find("\"One\""), 5, "\"Two\"");
  expected.replace(expected.find("\"A\""), 3, "\"B\"");
  EXPECT_EQ(outline(second), expected);
}

TEST_F(PanelViewTest, AnIconIsLookedUpOnceAndForAMissingApplicationEachTime) {
  EXPECT_EQ(outline(rowIcon(app("spotify"))), "icon icon <symbol music.note>\n");
  EXPECT_THAT(machine().workspace().iconsAskedFor(), IsEmpty());
  machine().applications().install({spotify, "Spotify"});
  machine().applications().install(
      {.bundleID = "org.videolan.vlc", .name = "VLC", .hasIcon = false});
  for (int time = 0; time < 3; ++time) {
    EXPECT_EQ(outline(rowIcon(app("spotify"))), "icon icon <picture>\n");
    EXPECT_EQ(outline(rowIcon(app("vlc"))), "icon icon <symbol music.note>\n");
    EXPECT_EQ(outline(rowIcon(app("soundcloud-web"))), "icon icon <asset SoundCloudIcon>\n");
  }
  EXPECT_THAT(machine().workspace().iconsAskedFor(),
              ElementsAre("file:///Applications/com.spotify.client.app/",
                          "file:///Applications/org.videolan.vlc.app/"));
}

}  // namespace
}  // namespace talmo::test
