// The built Talmo, real media keys and a real browser: which way a key takes to a page.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "tests/desktop/web/WebStageTest.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/TalmoProcess.h"

namespace talmo::test {
namespace {

constexpr auto playKey = "XF86AudioPlay";
constexpr auto previousKey = "XF86AudioPrev";

class WebRoutesTest : public WebStageTest {
 protected:
  /// Starts Talmo for the web player of that id.
  void start(const std::string& id) {
    TalmoProcess::select(stage().desktop(), id);
    talmo_ = std::make_unique<TalmoProcess>(stage().desktop(), TALMO_PROGRAM);
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
