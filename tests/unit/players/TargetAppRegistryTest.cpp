#include <chrono>
#include <variant>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "players/MediaKey.h"
#include "players/TargetAppRegistry.h"
#include "tests/component/SimulatedBrowsers.h"
#include "tests/component/SimulatedWorld.h"
#include "web/WebPlayerRegistry.h"
#include "web/WebTabDetection.h"

namespace talmo {
namespace {

using testing::ElementsAre;

class TargetAppRegistryTest : public testing::Test {
 protected:
  void install(const char* bundleID) {
    world_.machine().applications().install({bundleID, bundleID});
  }
  /// Scans a machine where a browser shows a page of that address.
  void scan(const char* browser, const char* url) {
    browsers_.setTabs(browser, {{url, "Title"}});
    world_.machine().dispatch().globalQueue(QualityOfService::utility).async([] {
      WebTabDetection::refreshMatches();
    });
    world_.time().run(std::chrono::seconds(1));
  }

  static constexpr const char* safari = "com.apple.Safari";

  test::SimulatedWorld world_;
  test::SimulatedBrowsers browsers_{world_.machine()};
};

KeyMap strokes(KeyStroke next, KeyStroke previous) {
  return {{49, 0}, next, previous};
}

TEST_F(TargetAppRegistryTest, HoldsTheFifteenRowsInOrder) {
  constexpr std::uint64_t command = 0x100000;
  constexpr std::uint64_t control = 0x40000;
  constexpr std::uint64_t shift = 0x20000;
  const std::vector<TargetApp> rows{
      {"spotify", "Spotify", "com.spotify.client", ScriptingBridge{}},
      {"music", "Apple Music", "com.apple.Music", ScriptingBridge{}},
      {"swinsian", "Swinsian", "com.swinsian.Swinsian", ScriptingBridge{}},
      {"tidal", "TIDAL", "com.tidal.desktop", strokes({124, command}, {123, command})},
      {"deezer", "Deezer", "com.deezer.deezer-desktop", strokes({124, control}, {123, control})},
      {"qobuz", "Qobuz", "com.qobuz.QobuzDesktop", strokes({124, control}, {123, control})},
      {"amazon-music", "Amazon Music", "com.amazon.music", strokes({124, 0}, {123, 0})},
      {"soundcloud", "SoundCloud", "com.soundcloud.desktop", strokes({124, shift}, {123, shift})},
      {"daftcloud", "DaftCloud", "com.obrhoff.daftcloud", strokes({124, command}, {123, command})},
      {"plexamp", "Plexamp", "tv.plex.plexamp", strokes({124, 0}, {123, 0})},
      {"pocket-casts", "Pocket Casts", "com.electron.pocket-casts", strokes({124, 0}, {123, 0})},
      {"vlc", "VLC", "org.videolan.vlc", strokes({124, command}, {123, command})},
      {"youtube-music", "YouTube Music", "com.github.th-ch.youtube-music",
       strokes({45, shift}, {35, shift})},
      {"vox", "Vox", "com.coppertino.Vox", strokes({124, command}, {123, command})},
      {"doppler", "Doppler", "co.brushedtype.doppler-macos",
       strokes({124, command}, {123, command})},
  };
  EXPECT_EQ(TargetAppRegistry::all(), rows);
}

TEST_F(TargetAppRegistryTest, AppendsThePlayersThatOnlyThisSystemHas) {
  world_.machine().workspace().setLocalPlayers(
      {{"rhythmbox", "Rhythmbox", "org.gnome.Rhythmbox3"}});

  ASSERT_EQ(TargetAppRegistry::all().size(), 16U);
  EXPECT_EQ(TargetAppRegistry::all().back(),
            (TargetApp{"rhythmbox", "Rhythmbox", "org.gnome.Rhythmbox3", ScriptingBridge{}}));
  EXPECT_TRUE(TargetAppRegistry::app("rhythmbox"));
}

TEST_F(TargetAppRegistryTest, OffersTheWebPlayersAsTargetsWithoutABundle) {
  EXPECT_THAT(
      TargetAppRegistry::webApps(),
      ElementsAre(TargetApp{"soundcloud-web", "SoundCloud", "", WebPlayerRegistry::soundCloud()},
                  TargetApp{"youtube-web", "YouTube", "", WebPlayerRegistry::youTube()}));
}

TEST_F(TargetAppRegistryTest, FindsATargetByItsExactId) {
  EXPECT_EQ(TargetAppRegistry::app("vlc")->displayName, "VLC");
  EXPECT_EQ(TargetAppRegistry::app("youtube-web")->displayName, "YouTube");
  EXPECT_EQ(TargetAppRegistry::app("soundcloud")->bundleID, "com.soundcloud.desktop");
}

TEST_F(TargetAppRegistryTest, AnEmptyOrUnknownIdYieldsNothing) {
  for (const char* id : {"", "winamp", "VLC", "vlc ", "auto", "none"}) {
    EXPECT_EQ(TargetAppRegistry::app(id), std::nullopt) << id;
  }
}

TEST_F(TargetAppRegistryTest, TheDefaultIsTheFirstInstalledNativePlayer) {
  install("org.videolan.vlc");
  EXPECT_EQ(TargetAppRegistry::defaultInstalledID(), "vlc");
  install("com.apple.Music");
  EXPECT_EQ(TargetAppRegistry::defaultInstalledID(), "music");
}

TEST_F(TargetAppRegistryTest, TheDefaultIsNeverAWebPlayerEvenWithAnOpenTab) {
  browsers_.launch(safari, "Safari");
  scan(safari, "https://www.youtube.com/watch?v=1");

  EXPECT_TRUE(TargetAppRegistry::app("youtube-web")->isInstalled());
  EXPECT_EQ(TargetAppRegistry::defaultInstalledID(), std::nullopt);
}

TEST_F(TargetAppRegistryTest, ThereIsNoDefaultOnAMachineWithoutPlayers) {
  EXPECT_EQ(TargetAppRegistry::defaultInstalledID(), std::nullopt);
}

TEST_F(TargetAppRegistryTest, AWebTargetIsInstalledOnlyWhileOneOfItsTabsIsKnown) {
  const TargetApp youTube = *TargetAppRegistry::app("youtube-web");
  EXPECT_TRUE(youTube.isWeb());
  EXPECT_FALSE(youTube.isInstalled());

  browsers_.launch(safari, "Safari");
  scan(safari, "https://www.youtube.com/watch?v=1");
  EXPECT_TRUE(youTube.isInstalled());
  EXPECT_FALSE(TargetAppRegistry::app("soundcloud-web")->isInstalled());
  EXPECT_EQ(youTube.applicationURL(), std::nullopt);
  EXPECT_EQ(youTube.bundleID, "");

  scan(safari, "https://www.youtube.com/");
  EXPECT_FALSE(youTube.isInstalled());
}

TEST_F(TargetAppRegistryTest, AWebTargetRunsInTheBrowserThatHostsItsTab) {
  const TargetApp youTube = *TargetAppRegistry::app("youtube-web");
  EXPECT_EQ(youTube.runningApplication(), std::nullopt);

  const ProcessIdentifier browser = browsers_.launch(safari, "Safari");
  scan(safari, "https://www.youtube.com/watch?v=1");
  ASSERT_TRUE(youTube.runningApplication());
  EXPECT_EQ(youTube.runningApplication()->processIdentifier, browser);

  world_.machine().applications().quit(browser);
  EXPECT_EQ(youTube.runningApplication(), std::nullopt);
}

TEST_F(TargetAppRegistryTest, InstallationAndRunningStateAreAskedAfresh) {
  const TargetApp vlc = *TargetAppRegistry::app("vlc");
  EXPECT_FALSE(vlc.isWeb());
  EXPECT_EQ(vlc.webTarget(), nullptr);
  EXPECT_FALSE(vlc.isInstalled());
  EXPECT_EQ(vlc.runningApplication(), std::nullopt);

  install("org.videolan.vlc");
  const ProcessIdentifier first = world_.machine().applications().launch("org.videolan.vlc");
  world_.machine().applications().launch("org.videolan.vlc");
  EXPECT_TRUE(vlc.isInstalled());
  EXPECT_EQ(vlc.applicationURL(), "file:///Applications/org.videolan.vlc.app/");
  EXPECT_EQ(vlc.runningApplication()->processIdentifier, first);

  world_.machine().applications().uninstall("org.videolan.vlc");
  world_.machine().applications().quit(first);
  EXPECT_FALSE(vlc.isInstalled());
  EXPECT_NE(vlc.runningApplication()->processIdentifier, first);
}

TEST(MediaKey, HasOnlyTheRawValues16To20) {
  EXPECT_EQ(mediaKey(15), std::nullopt);
  EXPECT_EQ(mediaKey(16), MediaKey::playPause);
  EXPECT_EQ(mediaKey(17), MediaKey::next);
  EXPECT_EQ(mediaKey(18), MediaKey::previous);
  EXPECT_EQ(mediaKey(19), MediaKey::fast);
  EXPECT_EQ(mediaKey(20), MediaKey::rewind);
  EXPECT_EQ(mediaKey(21), std::nullopt);
  EXPECT_EQ(mediaKey(-1), std::nullopt);
}

}  // namespace
}  // namespace talmo
