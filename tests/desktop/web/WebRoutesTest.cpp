// The built Talmo, real media keys and a real browser: which way a key takes to a page.

#include <filesystem>
#include <memory>
#include <string>

#include <gmock/gmock.h>

#include "tests/desktop/web/TalmoCopy.h"
#include "tests/desktop/web/WebStageTest.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/TalmoProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using testing::Contains;
using testing::Not;

constexpr auto playKey = "XF86AudioPlay";
constexpr auto nextKey = "XF86AudioNext";
constexpr auto previousKey = "XF86AudioPrev";

ImitationPage video(bool plays) {
  return {
      .name = "video", .tracks = {"First light", "Second wind"}, .artist = "Ada", .plays = plays};
}

ImitationPage song(bool plays) {
  return {.name = "song", .tracks = {"Night bus", "Day trip"}, .artist = "Grace", .plays = plays};
}

class WebRoutesTest : public WebStageTest {
 protected:
  /// Starts Talmo for the web player of that id.
  void start(const std::string& id, const std::filesystem::path& program = TALMO_PROGRAM) {
    TalmoProcess::select(stage().desktop(), id);
    talmo_ = std::make_unique<TalmoProcess>(stage().desktop(), program);
  }

  void press(const char* key) { keys_.tap(key); }

  /// Waits until Talmo logs it that often.
  void expectLine(const std::string& text, std::size_t count = 1) {
    EXPECT_TRUE(talmo_->waitForLines(text, count)) << text << " is not in\n" << talmo_->log();
  }

  void expectReport(const std::string& page, const std::string& report, std::size_t count = 1) {
    EXPECT_TRUE(site().waitFor(page, report, count))
        << page << " has no " << report << " but " << testing::PrintToString(site().reports(page))
        << '\n'
        << talmo_->log();
  }

 private:
  KeyPresser keys_{stage().desktop().displayName()};
  std::unique_ptr<TalmoProcess> talmo_;
};

}  // namespace

TEST_F(WebRoutesTest, TheFirstPressAsksWhoPlaysAndTheSecondKnows) {
  stage().open(video(true), video(true).youTube());
  start("youtube-web");
  press(playKey);
  expectLine("session check: verdict=mine playing=[First light] myTab=[First light - YouTube]");
  expectLine("route=adapter browser=");
  expectReport("video", "action pause");
  press(playKey);
  expectLine("route=adapter(fast) browser=");
  expectReport("video", "action play");
}

TEST_F(WebRoutesTest, APageIsDrivenByItsButtonsWhileAnotherOneHasTheSession) {
  stage().open(video(false), video(false).youTube());
  stage().open(song(true), song(true).soundCloud());
  start("youtube-web");
  press(nextKey);
  expectLine("is playing another tab, not YouTube");
  expectLine("route=js browser=");
  expectReport("video", "click .ytp-next-button");
  // Talmo has seen the other page's session by now, and does not take it for this one's.
  press(nextKey);
  expectLine("session check: verdict=", 2);
  EXPECT_THAT(site().reports("song"), Not(Contains("action nexttrack")));
}

TEST_F(WebRoutesTest, APageThatNeverPlayedStartsByItsButton) {
  stage().open(song(false), song(false).soundCloud());
  start("soundcloud-web");
  press(playKey);
  expectLine("route=js browser=");
  expectReport("song", "click .playControl");
  expectReport("song", "plays");
}

TEST_F(WebRoutesTest, TheButtonIsThatOfTheTabThatTheScanFound) {
  // An address with what means something to AppleScript or to a shell.
  const std::string address = video(false).youTube() + R"(&x="\"&(do shell script "x")$(x)`x`;')";
  stage().open(video(false), address);
  stage().open(song(true), song(true).soundCloud());
  start("youtube-web");
  press(nextKey);
  expectReport("video", "click .ytp-next-button");
  // A newer tab of the player, in a window before the other, is not the one that Talmo knows.
  const ImitationPage newer{.name = "newer", .tracks = {"Third rail", "Fourth wall"}};
  stage().browser().openWindow(newer.youTube());
  expectReport("newer", "visible");
  press(nextKey);
  expectLine("route=js browser=", 2);
  expectReport("video", "click .ytp-next-button", 2);
  EXPECT_THAT(site().reports("newer"), Not(Contains("click .ytp-next-button")));
}

TEST_F(WebRoutesTest, AKeyBringsTheTabForwardWhereTheBrowserRefusesScripts) {
  const TalmoCopy copy(R"sh(case "$2" in *"execute tgt javascript"*)
  echo 'execution error: Allow JavaScript from Apple Events is off (12)' >&2
  exit 1
esac
exec "$osascript" "$@"
)sh");
  stage().open(video(false), video(false).youTube());
  stage().tabs().open("about:blank");
  expectReport("video", "hidden");
  start("youtube-web", copy.program());
  press(playKey);
  expectLine("JavaScript from Apple Events unavailable in");
  expectLine("route=keystroke browser=");
  expectReport("video", "visible", 2);
  expectReport("video", "key KeyK");
  expectReport("video", "plays");
}

TEST_F(WebRoutesTest, AnOsascriptThatHangsIsEndedAndTheNextKeyStillWorks) {
  const TalmoCopy copy(R"sh(case "$2" in *"execute tgt javascript"*)
  if mkdir "$folder/hung"; then exec sleep 600; fi
esac
exec "$osascript" "$@"
)sh");
  stage().open(video(false), video(false).youTube());
  start("youtube-web", copy.program());
  press(nextKey);
  expectLine("osascript timed out");
  expectLine("all routes failed for command in");
  EXPECT_TRUE(waitUntil([] { return stage().desktop().processes("sleep").empty(); }));
  press(nextKey);
  expectLine("route=js browser=");
  expectReport("video", "click .ytp-next-button");
}

TEST_F(WebRoutesTest, WithoutATabThePlayersHomePageOpens) {
  stage().becomeDefaultBrowser();
  start("youtube-web");
  press(previousKey);
  expectLine("no YouTube tab; ignoring command");
  press(playKey);
  expectLine("no YouTube tab; opening https://www.youtube.com");
  expectReport("www.youtube.com/", "loads");
}

}  // namespace talmo::test
