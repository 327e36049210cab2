#include <string>

#include "players/KeystrokeController.h"
#include "tests/desktop/web/WebComponentTest.h"
#include "web/WebPlayerRegistry.h"

namespace talmo::test {
namespace {

void post(const WebPlayerTarget& target) {
  KeystrokeController::postKeyStroke(target.fallbackKey, WebComponentTest::stage().browser().pid());
}

}  // namespace

TEST_F(WebComponentTest, TheFallbackKeyTogglesThePageInFront) {
  const ImitationPage video{.name = "video", .tracks = {"First light"}};
  stage().open(video, video.youTube());
  post(WebPlayerRegistry::youTube());
  EXPECT_TRUE(site().waitFor("video", "key KeyK"));
  EXPECT_TRUE(site().waitFor("video", "plays"));

  const ImitationPage song{.name = "song", .tracks = {"Second wind"}};
  stage().open(song, song.soundCloud());
  post(WebPlayerRegistry::soundCloud());
  EXPECT_TRUE(site().waitFor("song", "key Space"));
  EXPECT_TRUE(site().waitFor("song", "plays"));
  EXPECT_EQ(site().count("video", "key Space"), 0U);
}

}  // namespace talmo::test
