#include "tests/desktop/show/WebRound.h"

#include <iostream>
#include <string>
#include <vector>

#include "tests/support/ChromiumProcess.h"
#include "tests/support/ImitationPage.h"
#include "tests/support/ImitationSite.h"
#include "tests/support/MprisClient.h"
#include "tests/support/WaitUntil.h"

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

bool runWebRound(ShowDesktop& show) {
  const ImitationSite site;
  std::cout << "\nChromium opens a page that imitates YouTube's" << std::endl;
  const ChromiumProcess browser(show.desktop(), {.arguments = arguments(site)});
  MprisClient session(show.desktop().busAddress(),
                      "chromium.instance" + std::to_string(browser.pid()));
  const auto sight = [&] {
    return session.playbackStatus() + ", " + session.metadata("xesam:title");
  };
  bool good = ShowDesktop::print(
      "The page plays",
      waitUntil([&] { return sight() == "Playing, First light"; }, ShowDesktop::patience));

  show.startTalmo("youtube-web", "Talmo, pinned to YouTube");
  show.focusWindow();
  const struct {
    ShowKey key;
    const char* expected;
    const char* title;
    bool isPlaying;
  } presses[] = {
      {playPauseKey, "Paused, First light", "First light", false},
      {playPauseKey, "Playing, First light", "First light", true},
      {nextKey, "Playing, Second wind", "Second wind", true},
      {previousKey, "Playing, First light", "First light", true},
  };
  for (const auto& press : presses) {
    good = show.press(press.key, "Page", sight, [&] { return sight() == press.expected; }) && good;
    good = show.helperSees([&](const auto& snapshot) {
      return snapshot && snapshot->bundleID == "com.google.Chrome" &&
             snapshot->title == press.title && snapshot->isPlaying == press.isPlaying;
    }) && good;
  }
  good = ShowDesktop::print("The page was told so as its media session",
                            site.waitFor("video", "action pause")) &&
         good;
  good = show.windowGotNoKeys() && good;
  show.takePicture("talmo-show-web.png");
  return show.endTalmo() && good;
}

}  // namespace talmo::test
