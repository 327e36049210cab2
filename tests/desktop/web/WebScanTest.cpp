// The scan for web players' tabs, in a real browser.

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/desktop/web/TalmoCopy.h"
#include "tests/desktop/web/WebComponentTest.h"
#include "tests/support/WaitUntil.h"
#include "web/WebTabScanner.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

class WebScanTest : public WebComponentTest {
 protected:
  std::vector<WebTabMatch> scan() {
    std::vector<WebTabMatch> matches;
    runOnQueue([&] { matches = WebTabScanner::scan(); });
    return matches;
  }

  /// The titles that the scan finds, in its order.
  std::vector<std::string> titles() {
    std::vector<std::string> found;
    for (const WebTabMatch& match : scan()) found.push_back(match.title);
    return found;
  }
};

}  // namespace

TEST_F(WebScanTest, PagesThatPlayAreFoundAndTheSitesOtherPagesAreNot) {
  const ImitationPage video{.name = "video", .tracks = {"First light"}};
  const ImitationPage song{.name = "song", .tracks = {"Night bus"}, .artist = "Grace"};
  for (const char* address :
       {"https://www.youtube.com/", "https://www.youtube.com/results?search_query=light"}) {
    stage().tabs().open(address);
  }
  stage().open(video, video.youTube());
  stage().open(song, song.soundCloud());
  ASSERT_TRUE(site().waitFor("www.youtube.com/", "loads"));
  ASSERT_TRUE(site().waitFor("www.youtube.com/results", "loads"));

  const std::string browser = platform()
                                  .services()
                                  .workspace()
                                  .runningApplications("com.google.Chrome")
                                  .front()
                                  .localizedName;
  const auto match = [&](const char* target, const std::string& url, const char* title) {
    return WebTabMatch{.targetID = target,
                       .browserBundleID = "com.google.Chrome",
                       .browserName = browser,
                       .url = url,
                       .title = title};
  };
  EXPECT_THAT(scan(),
              UnorderedElementsAre(match("youtube-web", video.youTube(), "First light - YouTube"),
                                   match("soundcloud-web", song.soundCloud(),
                                         "Stream Night bus by Grace | SoundCloud")));
}

TEST_F(WebScanTest, TheWindowInFrontComesFirst) {
  const ImitationPage video{.name = "video", .tracks = {"First light"}};
  const ImitationPage other{.name = "other", .tracks = {"Second wind"}};
  stage().open(video, video.youTube());
  stage().browser().openWindow(other.youTube());
  ASSERT_TRUE(site().waitFor("other", "visible"));
  EXPECT_THAT(titles(), ElementsAre("Second wind - YouTube", "First light - YouTube"));
}

TEST_F(WebScanTest, OfSixtyTabsFiftyOneAreFound) {
  for (int i = 0; i < 60; ++i) {
    const ImitationPage page{.name = "page" + std::to_string(i), .tracks = {"Track"}};
    stage().tabs().open(page.youTube());
  }
  for (int i = 0; i < 60; ++i) {
    ASSERT_TRUE(site().waitFor("page" + std::to_string(i), "track 1")) << i;
  }
  EXPECT_THAT(scan(), SizeIs(51));
}

TEST_F(WebScanTest, AwkwardTitlesAndAddressesComeAsText) {
  // A page's title has its white space made single blanks by the browser.
  const ImitationPage page{.name = "awkward",
                           .tracks = {"a \"quoted\" \\ 'title'\ttab\nline </title><b> "
                                      R"(" & (do shell script "x") & ")"
                                      " \U0001F3B5"}};
  const std::string address = page.youTube() + R"(&x="'\%22;(do shell script "x")|<>{}`$x`)";
  stage().open(page, address);
  const std::vector<WebTabMatch> found = scan();
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found.front().title,
            "a \"quoted\" \\ 'title' tab line </title><b> "
            R"(" & (do shell script "x") & ")"
            " \U0001F3B5 - YouTube");
  EXPECT_EQ(found.front().url, stage().tabs().all().front().url);
}

TEST_F(WebScanTest, ABrowserThatIsKilledDuringTheScanContributesNothing) {
  const TalmoCopy copy(R"sh(mkdir "$folder/started"
while [ ! -e "$folder/go" ]; do sleep 0.01; done
exec "$osascript" "$@"
)sh");
  const ImitationPage video{.name = "video", .tracks = {"First light"}};
  stage().open(video, video.youTube());
  useBundle(copy.folder());
  std::vector<WebTabMatch> matches;
  bool isDone = false;
  platform().services().dispatch().globalQueue(QualityOfService::userInitiated).async([&] {
    matches = WebTabScanner::scan();
    platform().services().dispatch().mainQueue().async([&] { isDone = true; });
  });
  EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(copy.folder() / "started"); }));
  stage().browser().process().signal(SIGKILL);
  EXPECT_TRUE(stage().browser().process().waitForExit(10s));
  std::filesystem::create_directory(copy.folder() / "go");
  ASSERT_TRUE(runUntil([&] { return isDone; }));
  EXPECT_THAT(matches, IsEmpty());
}

}  // namespace talmo::test
