#include <string>

#include <gtest/gtest.h>

#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/mediasession/PlayerIdentity.h"

namespace talmo::test {
namespace {

const std::string prefix = "org.mpris.MediaPlayer2.";

TEST(PlayerIdentity, MirrorsOfOtherPlayersAreNoPlayers) {
  for (const char* name :
       {"playerctld", "kdeconnect", "kdeconnect.mpris_000001", "plasma-browser-integration"}) {
    EXPECT_FALSE(isPlayerName(prefix + name)) << name;
  }
  for (const char* name : {"vlc", "chromium.instance77", "playerctld2", "kdeconnectivity"}) {
    EXPECT_TRUE(isPlayerName(prefix + name)) << name;
  }
  EXPECT_FALSE(isPlayerName("org.mpris.MediaPlayer2"));
  EXPECT_FALSE(isPlayerName(prefix));
  EXPECT_FALSE(isPlayerName("org.freedesktop.DBus"));
}

TEST(PlayerIdentity, PlayersOfTheTableAreReportedByIt) {
  EXPECT_EQ(bundleIdentifierOf(prefix + "vlc", "", ""), "org.videolan.vlc");
  EXPECT_EQ(bundleIdentifierOf(prefix + "vlc.instance12", "cvlc", "anything"), "org.videolan.vlc");
  EXPECT_EQ(bundleIdentifierOf(prefix + "audacious", "", ""), "org.atheme.audacious");
  EXPECT_EQ(bundleIdentifierOf(prefix + "vlcplus", "", ""), "vlcplus");
}

TEST(PlayerIdentity, ABrowsersSessionNamesTheBrowser) {
  EXPECT_EQ(bundleIdentifierOf(prefix + "chromium.instance77", "chromium", "chromium"),
            "com.google.Chrome");
  EXPECT_EQ(bundleIdentifierOf(prefix + "chromium.instance77", "", ""), "com.google.Chrome");
  EXPECT_EQ(bundleIdentifierOf(prefix + "chromium.instance77", "chatter", "chatter"), "chatter");
  EXPECT_EQ(bundleIdentifierOf(prefix + "chrome.instance77", "chrome", ""), "com.google.Chrome");
  // A player with a browser inside.
  EXPECT_EQ(bundleIdentifierOf(prefix + "chromium.instance77", "tidal-hifi", ""),
            "com.tidal.desktop");
  for (const LinuxApplication& row : LinuxApplications::all()) {
    EXPECT_TRUE(row.playerNames.empty() || row.sessionNames.empty()) << row.bundleID;
  }
}

TEST(PlayerIdentity, OthersAreReportedByTheirDesktopEntryOrTheirName) {
  EXPECT_EQ(bundleIdentifierOf(prefix + "Celluloid.instance1", "celluloid",
                               "io.github.celluloid_player.Celluloid"),
            "io.github.celluloid_player.Celluloid");
  EXPECT_EQ(bundleIdentifierOf(prefix + "Lollypop", "python3", "org.gnome.Lollypop.desktop"),
            "org.gnome.Lollypop");
  for (const std::string& entry :
       {std::string(), std::string("/usr/share/a.desktop"), std::string("a b"), std::string("."),
        std::string(".hidden"), std::string("a\nb"), std::string("caf\xC3\xA9"),
        std::string(".desktop"), std::string(300, 'x')}) {
    EXPECT_EQ(bundleIdentifierOf(prefix + "Tuner.instance_1_5", "", entry), "Tuner") << entry;
  }
  EXPECT_EQ(bundleIdentifierOf(prefix + "Tuner.Second", "", ""), "Tuner.Second");
}

}  // namespace
}  // namespace talmo::test
