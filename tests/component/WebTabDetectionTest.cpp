#include "tests/component/WebTabDetectionTest.h"

#include <gmock/gmock.h>

#include "nowplaying/AdapterNowPlaying.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;
using testing::Pair;

using Matches = WebTabDetection::Matches;

const std::string youTube = "youtube-web";
const std::string soundCloud = "soundcloud-web";

}  // namespace

TEST_P(WebTabDetectionTest, NothingIsKnownBeforeTheFirstScan) {
  EXPECT_THAT(WebTabDetection::cachedMatches(), IsEmpty());
  EXPECT_THAT(WebTabDetection::cachedMatches(1h), IsEmpty());
  EXPECT_EQ(WebTabDetection::cachedMatch(youTube), std::nullopt);
  EXPECT_THAT(WebTabDetection::cachedMatchesInBrowser(safari), IsEmpty());
  EXPECT_EQ(WebTabDetection::hostingRunningApplication(youTube), std::nullopt);
}

TEST_P(WebTabDetectionTest, ARefreshFillsTheCacheAndIsLogged) {
  const ProcessIdentifier process = browsers().launch(safari, "Safari");
  browsers().setTabs(
      safari,
      {{watchPage, "Song - YouTube"}, {otherWatchPage, "Other - YouTube"}, {soundCloudPage, ""}});
  const WebTabMatch song{youTube, safari, "Safari", watchPage, "Song - YouTube"};
  const WebTabMatch other{youTube, safari, "Safari", otherWatchPage, "Other - YouTube"};
  const WebTabMatch track{soundCloud, safari, "Safari", soundCloudPage, ""};

  EXPECT_THAT(refresh(), ElementsAre(Pair(soundCloud, track), Pair(youTube, song)));

  EXPECT_THAT(WebTabDetection::cachedMatches(),
              ElementsAre(Pair(soundCloud, track), Pair(youTube, song)));
  EXPECT_EQ(WebTabDetection::cachedMatches(1h), WebTabDetection::cachedMatches());
  EXPECT_EQ(WebTabDetection::cachedMatch(youTube), song);
  EXPECT_EQ(WebTabDetection::cachedMatch("spotify"), std::nullopt);
  EXPECT_THAT(WebTabDetection::cachedMatchesInBrowser(safari), ElementsAre(song, other, track));
  EXPECT_THAT(WebTabDetection::cachedMatchesInBrowser(chrome), IsEmpty());
  EXPECT_THAT(WebTabDetection::siblings(song), ElementsAre(other, track));
  EXPECT_THAT(WebTabDetection::siblings(track), ElementsAre(song, other));
  EXPECT_EQ(WebTabDetection::hostingRunningApplication(youTube)->processIdentifier, process);
  EXPECT_THAT(log(), ElementsAre("scan found 3 tab(s): youtube-web@Safari [Song - YouTube] | "
                                 "youtube-web@Safari [Other - YouTube] | "
                                 "soundcloud-web@Safari []"));
}

TEST_P(WebTabDetectionTest, TabsOfAnotherBrowserAndTheSamePageTwiceAreNoSiblings) {
  browsers().launch(safari, "Safari");
  browsers().launch(chrome, "Chrome");
  browsers().setTabs(safari, {{watchPage, "Song"}, {watchPage, "Song again"}});
  browsers().setTabs(chrome, {{otherWatchPage, "Other"}});
  refresh();
  EXPECT_THAT(WebTabDetection::siblings(*WebTabDetection::cachedMatch(youTube)), IsEmpty());
}

TEST_P(WebTabDetectionTest, AScanThatFindsNothingEmptiesTheCache) {
  browsers().launch(safari, "Safari");
  browsers().setTabs(safari, {{watchPage, "Song"}});
  refresh();
  browsers().setScript(safari, Kind::scan, Script().exit(1));
  EXPECT_THAT(refresh(), IsEmpty());
  EXPECT_THAT(WebTabDetection::cachedMatches(), IsEmpty());
  EXPECT_THAT(WebTabDetection::cachedMatchesInBrowser(safari), IsEmpty());
  EXPECT_EQ(log().back(), "scan found 0 tab(s): ");
}

TEST_P(WebTabDetectionTest, TheTabThatPlaysIsTheBest) {
  browsers().launch(safari, "Safari");
  browsers().launch(chrome, "Chrome");
  browsers().setTabs(safari, {{watchPage, "One"}, {otherWatchPage, "Another song - YouTube"}});
  browsers().setTabs(chrome, {{watchPage, "Three"}});
  EXPECT_EQ(refresh()[youTube].title, "One");
  // The browser's helper owns the session, with a title of none of its tabs.
  browsers().setSession("com.google.Chrome.helper", "Unheard of", chrome);
  run([] { AdapterNowPlaying::getSync(); });
  EXPECT_EQ(refresh()[youTube].title, "Three");
  browsers().setSession(safari, "Another Song");
  run([] { AdapterNowPlaying::getSync(); });
  EXPECT_EQ(refresh()[youTube].title, "Another song - YouTube");
}

TEST_P(WebTabDetectionTest, AScanIsPublishedOnTheMainThreadAndItsObserversAreToldBefore) {
  browsers().launch(safari, "Safari");
  browsers().setTabs(safari, {{watchPage, "Song"}});
  const auto detection = WebTabDetection::make();
  std::vector<std::string> order;
  detection->matches().observe([&](const Matches& next) {
    EXPECT_TRUE(machine().dispatch().isMainThread());
    EXPECT_THAT(next, ElementsAre(Key(youTube)));
    EXPECT_THAT(detection->matches().get(), IsEmpty());
    order.emplace_back("observer");
  });
  detection->setOnChange([&](const Matches& matches) {
    EXPECT_TRUE(machine().dispatch().isMainThread());
    EXPECT_EQ(matches, detection->matches().get());
    EXPECT_THAT(matches, ElementsAre(Key(youTube)));
    order.emplace_back("callback");
  });
  detection->scanSoon();
  ASSERT_TRUE(runUntil([&] { return order.size() == 2; }));
  EXPECT_THAT(order, ElementsAre("observer", "callback"));
}

TEST_P(WebTabDetectionTest, TwoRequestsInQuickSuccessionAreOneScan) {
  browsers().launch(safari, "Safari");
  browsers().setScript(safari, Kind::scan, Script().wait(5ms).write("\n"));
  const auto detection = WebTabDetection::make();
  int changes = 0;
  detection->setOnChange([&](const Matches&) { ++changes; });
  detection->scanSoon();
  detection->scanSoon();
  ASSERT_TRUE(runUntil([&] { return changes == 1; }));
  // A second scan would have begun before this one ends.
  refresh();
  EXPECT_EQ(scans(), 2U);
  detection->scanSoon();
  ASSERT_TRUE(runUntil([&] { return changes == 2; }));
  EXPECT_EQ(scans(), 3U);
}

TEST_P(WebTabDetectionTest, StartingScansAtOnce) {
  browsers().launch(safari, "Safari");
  browsers().setTabs(safari, {{watchPage, "Song"}});
  const auto detection = WebTabDetection::make();
  detection->start();
  ASSERT_TRUE(runUntil([&] { return !detection->matches().get().empty(); }));
  EXPECT_EQ(scans(), 1U);
}

TEST_P(WebTabDetectionTest, AnObjectThatHasGoneStillFillsTheCacheAndTellsNobody) {
  browsers().launch(safari, "Safari");
  browsers().setScript(safari, Kind::scan,
                       Script().wait(5ms).write(std::string(watchPage) + "\tSong\n"));
  bool isTold = false;
  auto detection = WebTabDetection::make();
  detection->setOnChange([&](const Matches&) { isTold = true; });
  detection->start();
  detection.reset();
  ASSERT_TRUE(runUntil([] { return !WebTabDetection::cachedMatches().empty(); }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_FALSE(isTold);
}

TEST_P(WebTabDetectionTest, AKnownTabWhoseBrowserRunsIsCurrent) {
  browsers().launch(safari, "Safari");
  browsers().setTabs(safari, {{watchPage, "Song"}});
  refresh();
  browsers().setTabs(safari, {});
  std::optional<WebTabMatch> match;
  run([&] { match = WebTabDetection::currentMatch(youTube); });
  EXPECT_EQ(match->url, watchPage);
  EXPECT_EQ(scans(), 1U);
}

TEST_P(WebTabDetectionTest, AKnownTabWhoseBrowserHasQuitIsLookedForAnew) {
  const ProcessIdentifier process = browsers().launch(safari, "Safari");
  browsers().launch(chrome, "Chrome");
  browsers().setTabs(safari, {{watchPage, "Song"}});
  refresh();
  machine().applications().quit(process);
  EXPECT_EQ(WebTabDetection::hostingRunningApplication(youTube), std::nullopt);
  browsers().setTabs(chrome, {{otherWatchPage, "Other"}});
  std::optional<WebTabMatch> match;
  run([&] { match = WebTabDetection::currentMatch(youTube); });
  EXPECT_EQ(match, (WebTabMatch{youTube, chrome, "Chrome", otherWatchPage, "Other"}));
  EXPECT_EQ(WebTabDetection::cachedMatch(youTube), match);
}

TEST_P(WebTabDetectionTest, ATabThatIsGoneIsNone) {
  const ProcessIdentifier process = browsers().launch(safari, "Safari");
  browsers().launch(chrome, "Chrome");
  browsers().setTabs(safari, {{watchPage, "Song"}});
  refresh();
  machine().applications().quit(process);
  std::optional<WebTabMatch> match;
  run([&] { match = WebTabDetection::currentMatch(youTube); });
  EXPECT_EQ(match, std::nullopt);
  EXPECT_THAT(WebTabDetection::cachedMatches(), IsEmpty());
}

}  // namespace talmo::test
