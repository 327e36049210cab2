#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/ChromiumProcess.h"
#include "tests/support/ImitationSite.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/MprisClient.h"
#include "tests/support/PrivateDesktop.h"
#include "tests/support/TalmoProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {

TEST(BrowserWithoutSocketTest, IsNotScannedAndItsMediaSessionTakesTheKeysUnconfirmed) {
  const PrivateDesktop desktop;
  const ImitationSite site;
  const ImitationPage video{.name = "video", .tracks = {"First light"}, .plays = true};
  std::vector<std::string> arguments = site.browserArguments();
  arguments.push_back(video.youTube());
  const ChromiumProcess browser(desktop, {.arguments = arguments, .hasSocket = false});
  ASSERT_TRUE(site.waitFor("video", "plays"));
  MprisClient session(desktop.busAddress(), "chromium.instance" + std::to_string(browser.pid()));
  ASSERT_TRUE(waitUntil([&] { return session.metadata("xesam:title") == "First light"; }));

  TalmoProcess::select(desktop, "youtube-web");
  const TalmoProcess talmo(desktop, TALMO_PROGRAM);
  KeyPresser(desktop.displayName()).tap("XF86AudioPlay");
  EXPECT_TRUE(talmo.waitForLines("skipping scan of com.google.Chrome: Automation not granted"))
      << talmo.log();
  EXPECT_TRUE(talmo.waitForLines("route=adapter(unconfirmed) browser=")) << talmo.log();
  EXPECT_TRUE(site.waitFor("video", "action pause")) << talmo.log();
}

}  // namespace talmo::test
