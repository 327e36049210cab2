#include "tests/desktop/show/WebRound.h"

#include <string>
#include <vector>

#include "tests/support/ChromiumProcess.h"
#include "tests/support/ImitationPage.h"
#include "tests/support/ImitationSite.h"
#include "tests/support/MprisClient.h"

namespace talmo::test {
namespace {

const ImitationPage video{
    .name = "video", .tracks = {"First light", "Second wind"}, .artist = "Ada", .plays = true};

std::vector<std::string> arguments(const ImitationSite& site) {
  std::vector<std::string> all = site.browserArguments();
  all.push_back(video.youTube());
  return all;
}

}  // namespace

void runWebRound(ShowDesktop& show) {
  const ImitationSite site;
  show.report().chapter("A player in a browser's tab");
  show.report().tell("Chromium opens a page that imitates YouTube's. Talmo is pinned to YouTube.");
  const ChromiumProcess browser(show.desktop(), {.arguments = arguments(site)});
  MprisClient session(show.desktop().busAddress(),
                      "chromium.instance" + std::to_string(browser.pid()));
  const auto isAt = [&](const char* status, const std::string& title) {
    return session.playbackStatus() == status && session.metadata("xesam:title") == title;
  };
  const auto sight = [&] {
    return "the page " + std::string(session.playbackStatus() == "Playing" ? "plays" : "rests at") +
           " \"" + session.metadata("xesam:title") + '"';
  };
  show.check("The page plays \"First light\"",
             ShowDesktop::await([&] { return isAt("Playing", "First light"); }));

  show.startTalmo("youtube-web");
  show.focusWindow();
  const struct {
    ShowKey key;
    const char* status;
    const char* title;
  } presses[] = {
      {playPauseKey, "Paused", "First light"},
      {playPauseKey, "Playing", "First light"},
      {nextKey, "Playing", "Second wind"},
      {previousKey, "Playing", "First light"},
  };
  for (const auto& [key, status, title] : presses) {
    show.press(key, sight, [&] { return isAt(status, title); });
    show.helperSees([&](const auto& snapshot) {
      return snapshot && snapshot->bundleID == "com.google.Chrome" && snapshot->title == title &&
             snapshot->isPlaying == (std::string(status) == "Playing");
    });
  }
  show.check("The page was told so as its media session", site.waitFor("video", "action pause"));
  show.windowGotNoKeys();
  show.takePicture("browser.png");
  show.endTalmo();
}

}  // namespace talmo::test
