#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "nowplaying/AdapterNowPlaying.h"
#include "players/ControllerFactory.h"
#include "players/TargetAppRegistry.h"
#include "tests/component/SimulatedBrowsers.h"
#include "tests/component/SimulatedWorld.h"
#include "web/SupportedBrowsers.h"
#include "web/WebTabDetection.h"
#include "web/WebTabScanner.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// What web players do in the course of time: virtual time only, to the instant.
class WebTimesTest : public testing::Test {
 protected:
  using Kind = SimulatedBrowsers::Kind;
  using Script = SimulatedBrowsers::Script;

  static constexpr const char* safari = "com.apple.Safari";
  static constexpr const char* chrome = "com.google.Chrome";
  static constexpr const char* watchPage = "https://www.youtube.com/watch?v=1";

  /// Runs `work` on a queue, and the time until it ends; returns how long that took.
  Duration run(const std::function<void()>& work) {
    const Uptime before = world_.time().uptime();
    bool isDone = false;
    world_.time().globalQueue(QualityOfService::utility).async([&] {
      work();
      isDone = true;
    });
    EXPECT_TRUE(world_.runUntil([&] { return isDone; }));
    return world_.time().uptime() - before;
  }

  std::size_t scans() { return browsers_.scripts(Kind::scan).size(); }
  std::vector<std::string> log() { return world_.machine().log().messages("web-tab"); }

  SimulatedWorld world_;
  SimulatedBrowsers browsers_{world_.machine()};
};

TEST_F(WebTimesTest, NineteenBrowsersThatHangCostTwoSecondsInAll) {
  for (const SupportedBrowser& browser : SupportedBrowsers::all()) {
    browsers_.launch(browser.bundleID, browser.bundleID);
    browsers_.setScript(browser.bundleID, Kind::scan, Script().liveOn());
  }
  EXPECT_EQ(run([] { EXPECT_THAT(WebTabScanner::scan(), IsEmpty()); }), 2s);
  EXPECT_EQ(scans(), 19U);
}

TEST_F(WebTimesTest, ABrowserThatAnswersAfterTwoSecondsIsTooLate) {
  browsers_.launch(safari, "Safari");
  const std::string line = std::string(watchPage) + "\tSong\n";
  browsers_.setScript(safari, Kind::scan, Script().wait(1999ms).write(line));
  EXPECT_EQ(run([] { EXPECT_THAT(WebTabScanner::scan(), SizeIs(1)); }), 1999ms);
  browsers_.setScript(safari, Kind::scan, Script().wait(2001ms).write(line));
  EXPECT_EQ(run([] { EXPECT_THAT(WebTabScanner::scan(), IsEmpty()); }), 2s);
}

TEST_F(WebTimesTest, ConsentThatIsNotKnownAfterThreeSecondsIsNone) {
  browsers_.launch(safari, "Safari");
  world_.machine().appleEvents().setQueryDuration(1h);
  EXPECT_EQ(run([] { WebTabScanner::scan(); }), 3s);
  EXPECT_THAT(log(), ElementsAre("skipping scan of com.apple.Safari: Automation not granted"));
  EXPECT_EQ(scans(), 0U);
}

TEST_F(WebTimesTest, MatchesAreFreshForAsLongAsIsAsked) {
  browsers_.launch(safari, "Safari");
  browsers_.setTabs(safari, {{watchPage, "Song"}});
  run([] { WebTabDetection::refreshMatches(); });
  world_.time().run(20s);
  EXPECT_THAT(WebTabDetection::cachedMatches(20s), SizeIs(1));
  EXPECT_THAT(WebTabDetection::cachedMatches(19s), IsEmpty());
  world_.time().run(5s);
  EXPECT_THAT(WebTabDetection::cachedMatches(20s), IsEmpty());
  EXPECT_THAT(WebTabDetection::cachedMatches(), SizeIs(1));
  EXPECT_TRUE(WebTabDetection::cachedMatch("youtube-web").has_value());
}

TEST_F(WebTimesTest, AnOwnerOfMoreThanFifteenSecondsAgoIsForgotten) {
  browsers_.launch(safari, "Safari");
  browsers_.launch(chrome, "Chrome");
  browsers_.setTabs(safari, {{watchPage, "First"}});
  browsers_.setTabs(chrome, {{watchPage, "Second"}});
  browsers_.setSession(chrome, "Unrelated");
  run([] { AdapterNowPlaying::getSync(); });
  const auto best = [&] {
    std::string title;
    run([&] { title = WebTabDetection::refreshMatches()["youtube-web"].title; });
    return title;
  };
  world_.time().run(15s);
  EXPECT_EQ(best(), "Second");
  world_.time().run(1ms);
  EXPECT_EQ(best(), "First");
}

TEST_F(WebTimesTest, AnOwnerOfMoreThanFifteenSecondsAgoIsAskedForAgain) {
  browsers_.launch(chrome, "Chrome");
  browsers_.setTabs(chrome, {{watchPage, "Song"}});
  browsers_.setSession(chrome, "Unrelated");
  run([] { AdapterNowPlaying::getSync(); });
  run([] { WebTabDetection::refreshMatches(); });
  const auto controller = ControllerFactory::controller(*TargetAppRegistry::app("youtube-web"));
  world_.time().run(16s);
  run([&] { controller->nextTrack(); });
  EXPECT_EQ(log().back(), "route=adapter browser=Chrome target=YouTube");
  run([&] { controller->nextTrack(); });
  EXPECT_EQ(log().back(), "route=adapter(fast) browser=Chrome target=YouTube");
}

TEST_F(WebTimesTest, EachRouteScriptIsGivenUpAfterThirteenTenthsOfASecond) {
  browsers_.launch(chrome, "Chrome");
  browsers_.setTabs(chrome, {{watchPage, "Song"}});
  run([] { WebTabDetection::refreshMatches(); });
  browsers_.setScript(chrome, Kind::javaScript, Script().liveOn());
  browsers_.setScript(chrome, Kind::focus, Script().liveOn());
  const auto controller = ControllerFactory::controller(*TargetAppRegistry::app("youtube-web"));
  EXPECT_EQ(run([&] { controller->nextTrack(); }), 1300ms);
  EXPECT_EQ(run([&] { controller->playPause(); }), 2600ms);
}

TEST_F(WebTimesTest, AStartedObjectScansEveryFourSecondsUntilItIsStopped) {
  browsers_.launch(safari, "Safari");
  const auto detection = WebTabDetection::make();
  world_.time().run(10s);
  EXPECT_EQ(scans(), 0U);
  detection->start();
  world_.time().runUntilIdle();
  EXPECT_EQ(scans(), 1U);
  world_.time().run(4s - 1ns);
  EXPECT_EQ(scans(), 1U);
  world_.time().run(1s + 1ns);
  EXPECT_EQ(scans(), 2U);
  world_.time().run(40s);
  EXPECT_EQ(scans(), 12U);
  detection->stop();
  world_.time().run(1min);
  EXPECT_EQ(scans(), 12U);
}

TEST_F(WebTimesTest, StartingAgainBeginsTheFourSecondsAnew) {
  browsers_.launch(safari, "Safari");
  const auto detection = WebTabDetection::make();
  detection->start();
  world_.time().run(3s);
  detection->start();
  world_.time().run(4s - 1ns);
  EXPECT_EQ(scans(), 2U);
  world_.time().run(1s + 1ns);
  EXPECT_EQ(scans(), 3U);
}

TEST_F(WebTimesTest, AScanThatTakesLongerThanItsPeriodIsNotDoubled) {
  browsers_.launch(safari, "Safari");
  world_.machine().appleEvents().setQueryDuration(1h);
  const auto detection = WebTabDetection::make();
  int changes = 0;
  detection->setOnChange([&](const WebTabDetection::Matches&) { ++changes; });
  detection->start();
  for (int request = 0; request < 20; ++request) {
    world_.time().run(100ms);
    detection->scanSoon();
  }
  EXPECT_EQ(changes, 0);
  world_.time().run(1s);
  EXPECT_EQ(changes, 1);
  // The next one is the timer's, and takes until seven seconds after the start.
  world_.time().run(3900ms);
  EXPECT_EQ(changes, 1);
}

TEST_F(WebTimesTest, AnObjectThatHasGoneScansNoMore) {
  browsers_.launch(safari, "Safari");
  auto detection = WebTabDetection::make();
  detection->start();
  world_.time().run(10s);
  const std::size_t before = scans();
  detection.reset();
  world_.time().run(1min);
  EXPECT_EQ(scans(), before);
}

}  // namespace
}  // namespace talmo::test
