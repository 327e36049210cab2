#include <optional>
#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RoutingResolver.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo::test {
namespace {

using Text = std::optional<std::string>;
using Tabs = RoutingResolver::WebTabs;

constexpr const char* chrome = "com.google.Chrome";
constexpr const char* safari = "com.apple.Safari";

WebTabMatch tab(const std::string& targetID, const std::string& browser, const std::string& url,
                const std::string& title) {
  return {.targetID = targetID,
          .browserBundleID = browser,
          .browserName = browser,
          .url = url,
          .title = title};
}

Tabs youTubeIn(const std::string& browser, const std::string& title = "A Long Video - YouTube") {
  return {{"youtube-web", tab("youtube-web", browser, "https://www.youtube.com/watch?v=1", title)}};
}

Tabs soundCloudIn(const std::string& browser, const std::string& title = "Stream a Song") {
  return {{"soundcloud-web",
           tab("soundcloud-web", browser, "https://soundcloud.com/artist/song", title)}};
}

Tabs both(Tabs tabs, const Tabs& others) {
  tabs.insert(others.begin(), others.end());
  return tabs;
}

struct Row {
  const char* name;
  Text owner;
  std::string title;
  Tabs tabs;
  Text expected;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
  return out << row.name;
}

class RoutingResolverTest : public testing::Test {
 protected:
  SimulatedWorld world_;
};

TEST_F(RoutingResolverTest, ASessionBelongsToTheTargetOfItsOwner) {
  const Tabs oneTab = youTubeIn(chrome);
  const Tabs twoTabs = both(youTubeIn(chrome), soundCloudIn(chrome));
  const Tabs twoBrowsers = both(youTubeIn(chrome), soundCloudIn(safari));
  Tabs sameURL = twoTabs;
  sameURL.at("soundcloud-web").url = sameURL.at("youtube-web").url;
  Tabs nameless = youTubeIn("");

  const Row rows[] = {
      {"no owner", std::nullopt, "A Long Video", oneTab, std::nullopt},
      {"an empty owner", "", "A Long Video", oneTab, std::nullopt},
      {"a native player", "com.spotify.client", "Song", {}, "spotify"},
      {"a helper of a native player", "com.spotify.client.helper", "Song", {}, "spotify"},
      {"a longer name is another application", "com.spotify.clients", "Song", {}, std::nullopt},
      {"a shorter name is another application", "com.spotify", "Song", {}, std::nullopt},
      {"a name that begins in the same way", "com.spotify.client-beta", "", {}, std::nullopt},
      {"other letter case is another application", "com.Spotify.client", "", {}, std::nullopt},
      {"tabs of a browser do not matter to a native player", "com.spotify.client", "A Long Video",
       twoTabs, "spotify"},
      {"an unknown application", "org.example.Player", "Song", oneTab, std::nullopt},
      {"a browser without known tabs", chrome, "A Long Video", {}, std::nullopt},
      {"a browser without known tabs, others having some", safari, "A Long Video", oneTab,
       std::nullopt},
      {"the only tab, whatever the title", chrome, "Something else", oneTab, "youtube-web"},
      {"the only tab, without a title", chrome, "", oneTab, "youtube-web"},
      {"the only tab, by a helper of the browser", std::string(chrome) + ".helper", "", oneTab,
       "youtube-web"},
      {"the first of two tabs by title", chrome, "Stream a Song", twoTabs, "soundcloud-web"},
      {"the second of two tabs by title", chrome, "a long video", twoTabs, "youtube-web"},
      {"two tabs, neither with the title", chrome, "Something else", twoTabs, std::nullopt},
      {"two tabs and no title", chrome, "", twoTabs, std::nullopt},
      {"two tabs and a title too short to tell", chrome, "Son", twoTabs, std::nullopt},
      {"the tab in the owner, not that in another browser", chrome, "Something else", twoBrowsers,
       "youtube-web"},
      {"the other browser's tab", safari, "Something else", twoBrowsers, "soundcloud-web"},
      {"a tab with the same address is no rival", chrome, "Something else", sameURL,
       "soundcloud-web"},
      {"a tab of no browser belongs to nobody", chrome, "A Long Video", nameless, std::nullopt},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(RoutingResolver::followedFromSession(row.owner, row.title, row.tabs), row.expected)
        << row;
    if (row.owner) {
      EXPECT_EQ(RoutingResolver::targetID(*row.owner, row.title, row.tabs), row.expected) << row;
    }
  }
}

TEST_F(RoutingResolverTest, TheSessionComesBeforeTheLastTargetAndThatBeforeTheDefault) {
  const Tabs twoTabs = both(youTubeIn(chrome), soundCloudIn(chrome));
  const struct {
    const char* name;
    Text owner;
    std::string title;
    Tabs tabs;
    Text last;
    Text fallback;
    bool isAvailable;
    Text expected;
  } rows[] = {
      {"session", "com.spotify.client", "Song", {}, "vlc", "music", true, "spotify"},
      {"session, nothing else", "com.spotify.client", "Song", {}, {}, {}, false, "spotify"},
      {"no session", {}, "", {}, "vlc", "music", true, "vlc"},
      {"last target has quit", {}, "", {}, "vlc", "music", false, "music"},
      {"nothing chosen yet", {}, "", {}, {}, "music", true, "music"},
      {"last target has quit and nothing is installed", {}, "", {}, "vlc", {}, false, {}},
      {"nothing at all", {}, "", {}, {}, {}, true, {}},
      {"stranger owns the session", "org.example.Player", "", {}, "vlc", "music", true, "vlc"},
      {"tabs, none by title", chrome, "Else", twoTabs, "vlc", "music", true, "vlc"},
      {"tabs, none by title, last one gone", chrome, "Else", twoTabs, "vlc", "music", false,
       "music"},
      {"tab by title", chrome, "Stream a Song", twoTabs, "vlc", "music", true, "soundcloud-web"},
  };
  for (const auto& row : rows) {
    for (const bool isPlaying : {true, false}) {
      const auto isAvailable = [&](const std::string& id) {
        EXPECT_EQ(id, row.last) << row.name;
        return row.isAvailable;
      };
      EXPECT_EQ(RoutingResolver::resolve(row.owner, row.title, isPlaying, row.tabs, row.last,
                                         row.fallback, isAvailable),
                row.expected)
          << row.name;
    }
  }
}

TEST_F(RoutingResolverTest, OnlyABrowserWithoutKnownTabsNeedsARefresh) {
  EXPECT_FALSE(RoutingResolver::needsTabRefresh(std::nullopt, {}));
  EXPECT_FALSE(RoutingResolver::needsTabRefresh("", {}));
  EXPECT_FALSE(RoutingResolver::needsTabRefresh("com.spotify.client", {}));
  EXPECT_FALSE(RoutingResolver::needsTabRefresh(chrome, youTubeIn(chrome)));
  EXPECT_FALSE(RoutingResolver::needsTabRefresh("com.google.Chrome.beta", youTubeIn(chrome)));
  EXPECT_TRUE(RoutingResolver::needsTabRefresh(chrome, {}));
  EXPECT_TRUE(RoutingResolver::needsTabRefresh(chrome, youTubeIn(safari)));
  EXPECT_TRUE(RoutingResolver::needsTabRefresh(chrome, youTubeIn("com.google.Chrome.beta")));
}

TEST_F(RoutingResolverTest, ATargetIsAvailableWhileItRuns) {
  EXPECT_FALSE(RoutingResolver::isAvailable("spotify"));
  world_.machine().applications().install({"com.spotify.client", "Spotify"});
  EXPECT_FALSE(RoutingResolver::isAvailable("spotify"));
  const ProcessIdentifier process = world_.machine().applications().launch("com.spotify.client");
  EXPECT_TRUE(RoutingResolver::isAvailable("spotify"));
  world_.machine().applications().quit(process);
  EXPECT_FALSE(RoutingResolver::isAvailable("spotify"));
  EXPECT_FALSE(RoutingResolver::isAvailable("youtube-web"));
  EXPECT_FALSE(RoutingResolver::isAvailable("winamp"));
}

}  // namespace
}  // namespace talmo::test
