#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "nowplaying/AudioActivity.h"
#include "nowplaying/AudioActivityHold.h"
#include "tests/desktop/web/WebComponentTest.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

constexpr auto chrome = "com.google.Chrome";

const ImitationPage video{.name = "video",
                          .tracks = {"First light", "Second wind", "Third rail"},
                          .artist = "Ada",
                          .plays = true};

/// The names of the programs whose sound the desktop's sound server plays now.
std::vector<std::string> heardPrograms(const PrivateDesktop& desktop) {
  const auto list = desktop.start({"pactl", "--format=json", "list", "sink-inputs"});
  if (list->waitForExit(10s) != 0) throw std::runtime_error("no sink inputs: " + list->output());
  std::vector<std::string> names;
  for (const auto& input : nlohmann::json::parse(list->output())) {
    if (input.at("corked")) continue;
    names.push_back(input.at("properties").at("application.process.binary"));
  }
  return names;
}

}  // namespace

TEST_F(WebComponentTest, APageThatPlaysIsHeardUntilItCloses) {
  const auto heard = [] { return heardPrograms(stage().desktop()); };
  EXPECT_THAT(heard(), IsEmpty());
  stage().open(video, video.youTube());
  EXPECT_TRUE(
      waitUntil([&] { return heard() == std::vector<std::string>{"chromium"}; }, 30s, 50ms));
  stage().tabs().clear();
  EXPECT_TRUE(waitUntil([&] { return heard().empty(); }, 30s, 50ms));
}

TEST_F(WebComponentTest, APageThatPlaysIsTheBrowsersMediaSession) {
  stage().open(video, video.youTube());
  MprisClient& player = stage().session();
  ASSERT_TRUE(waitUntil([&] { return player.playbackStatus() == "Playing"; }, 30s));
  EXPECT_TRUE(waitUntil([&] { return player.metadata("xesam:title") == "First light"; }));
  EXPECT_EQ(player.metadata("xesam:artist"), "Ada");
}

TEST_F(WebComponentTest, TheHelperNamesTheBrowserAndWhatThePagePlays) {
  stage().open(video, video.youTube());
  ASSERT_TRUE(runUntilSession("First light", true)) << seen();
  EXPECT_EQ(session()->artist, "Ada");
}

TEST_F(WebComponentTest, CommandsReachTheHandlersOfThePagesMediaSession) {
  stage().open(video, video.youTube());
  ASSERT_TRUE(runUntilSession("First light", true)) << seen();
  send(2);
  EXPECT_TRUE(runUntilSession("First light", false)) << seen();
  EXPECT_THAT(site().reports("video"), Contains("action pause"));
  send(4);
  EXPECT_TRUE(runUntilSession("Second wind", true)) << seen();
  EXPECT_THAT(site().reports("video"), Contains("action nexttrack"));
  send(5);
  EXPECT_TRUE(runUntilSession("First light", true)) << seen();
  EXPECT_THAT(site().reports("video"), Contains("action previoustrack"));
}

TEST_F(WebComponentTest, TheSessionIsThePagesThatStartedLast) {
  const ImitationPage song{
      .name = "song", .tracks = {"Night bus", "Day trip"}, .artist = "Grace", .plays = true};
  stage().open(video, video.youTube());
  ASSERT_TRUE(runUntilSession("First light", true)) << seen();
  stage().open(song, song.soundCloud());
  ASSERT_TRUE(runUntilSession("Night bus", true)) << seen();
  send(4);
  EXPECT_TRUE(runUntilSession("Day trip", true)) << seen();
  EXPECT_THAT(site().reports("video"), Not(Contains("action nexttrack")));
}

TEST_F(WebComponentTest, TitlesReachTheHelperAsTheyAre) {
  // What means something to a shell, to AppleScript, to JSON or to HTML, and what is not ASCII.
  const ImitationPage awkward{
      .name = "awkward",
      .tracks = {R"(a "quoted" \ 'title' </script><b>)",
                 "tab\tor\n"
                 "\u0000 \x1b[31m",
                 R"(" & (do shell script "touch pwned") & ")", "🎵 naïve İı"},
      .artist = R"(A "B" \ C)",
      .plays = true};
  stage().open(awkward, awkward.youTube());
  for (const std::string& title : awkward.tracks) {
    ASSERT_TRUE(runUntilSession(title, true)) << title << ", but " << seen();
    EXPECT_EQ(session()->artist, awkward.artist);
    send(4);
  }
}

TEST_F(WebComponentTest, AudioActivityHasTheBrowserWhileAPageSoundsAndForTheLinger) {
  const auto activity = AudioActivity::make();
  activity->startPolling();
  const auto sounds = [&] { return activity->activeBundleIDs().get().contains(chrome); };
  stage().open(video, video.youTube());
  ASSERT_TRUE(runUntil(sounds));
  LinuxDispatch& dispatch = platform().services().dispatch();
  const Uptime closed = dispatch.uptime();
  // A page that pauses keeps its stream for some ten seconds; one that closes does not.
  stage().tabs().clear();
  ASSERT_TRUE(runUntil([&] { return !sounds(); }));
  // It was last observed at most one poll before it closed.
  EXPECT_GE(dispatch.uptime() - closed, AudioActivityHold::defaultLinger - 2500ms);
  activity->stopPolling();
}

}  // namespace talmo::test
