// The scripts that the program writes, whole, against browsers as people keep them.

#include <algorithm>
#include <string>

#include <gmock/gmock.h>

#include "tests/unit/osascript/ScriptTest.h"
#include "web/WebCommand.h"
#include "web/WebPlayerRegistry.h"
#include "web/WebRouteScripts.h"
#include "web/WebTabScanner.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const BrowserFailure gone{.kind = BrowserFailure::Kind::gone};
const BrowserFailure refused{.kind = BrowserFailure::Kind::refused, .message = "Not allowed."};

class ProgramScripts : public ScriptTest, public testing::WithParamInterface<BrowserDialect> {
 protected:
  /// Lists the tabs of all web players.
  std::string scan() {
    return answer(WebTabScanner::scanScript({.bundleID = bundleID, .dialect = GetParam()}));
  }
  /// Runs JavaScript in the tab at `url`, or else in the first one of YouTube.
  std::string run(const std::string& url, const std::string& source) {
    return answer(WebRouteScripts::javaScriptRoute(GetParam(), bundleID, WebTabMatch{.url = url},
                                                   WebPlayerRegistry::youTube(), source));
  }
  /// Brings forward the tab at `url`, or else the first one of YouTube.
  std::string focus(const std::string& url) {
    return answer(WebRouteScripts::focusRoute(GetParam(), bundleID, WebTabMatch{.url = url},
                                              WebPlayerRegistry::youTube()));
  }

  std::string lastEffect() const {
    return browser->effects().empty() ? "none" : browser->effects().back();
  }

  std::string open(const std::string& url, const std::string& title = "Title") {
    return browser->openTab(window, url, title);
  }

  const std::string bundleID = "test.browser";
  const std::string window = browser->openWindow();
};

INSTANTIATE_TEST_SUITE_P(InBothDialects, ProgramScripts,
                         testing::Values(BrowserDialect::safari, BrowserDialect::chromium),
                         [](const auto& dialect) {
                           return dialect.param == BrowserDialect::safari ? "Safari" : "Chromium";
                         });

TEST_P(ProgramScripts, TheScanListsWhatMatches) {
  open("https://example.com/", "No");
  open("https://www.youtube.com/watch?v=1", "First\tvideo");
  open("https://youtu.be/2", "");
  browser->openTab(browser->openWindow(), "https://SoundCloud.com/a/b", "\xC3\x89t\xC3\xA9");
  open("https://example.com/?q=youtube.com", "Says so");
  EXPECT_EQ(scan(),
            "https://www.youtube.com/watch?v=1\tFirst\tvideo\n"
            "https://youtu.be/2\t\n"
            "https://example.com/?q=youtube.com\tSays so\n"
            "https://SoundCloud.com/a/b\t\xC3\x89t\xC3\xA9\n");
}

TEST_P(ProgramScripts, TheScanOfNothingIsEmpty) {
  EXPECT_EQ(scan(), "");
  open("https://example.com/");
  EXPECT_EQ(scan(), "");
}

TEST_P(ProgramScripts, TheScanStopsAfterTheFiftyFirstMatch) {
  for (int number = 1; number <= 60; ++number) {
    open("https://youtu.be/" + std::to_string(number));
    open("https://example.com/");
  }
  const std::string lines = scan();
  EXPECT_EQ(std::ranges::count(lines, '\n'), 51);
  EXPECT_TRUE(lines.ends_with("https://youtu.be/51\tTitle\n"));
}

TEST_P(ProgramScripts, TheScanSkipsWhatCannotBeRead) {
  browser->openTab(window, std::nullopt, "No address");
  browser->failUrl(open("https://youtu.be/1"), gone);
  browser->failTitle(open("https://youtu.be/2"), refused);
  const std::string closing = open("https://youtu.be/3");
  open("https://youtu.be/4", "Four");
  browser->onRequest([&](const std::string& request) {
    if (request == "title " + closing) browser->closeTab(closing);
  });
  EXPECT_EQ(scan(), "https://youtu.be/4\tFour\n");
}

TEST_P(ProgramScripts, TheScanOnlyAsks) {
  open("https://youtu.be/1");
  scan();
  EXPECT_THAT(browser->effects(), IsEmpty());
}

TEST_P(ProgramScripts, TheScanFailsWithItsBrowser) {
  browser->fail(gone);
  EXPECT_EQ(scan(),
            "execution -1728 at 6:20: test.browser got an error: Can\u2019t get every window.");
}

TEST_P(ProgramScripts, JavaScriptRunsInTheTabWithTheAddress) {
  open("https://youtu.be/first");
  const std::string tab = browser->openTab(browser->openWindow(), "https://youtu.be/known", "T");
  EXPECT_EQ(run("https://youtu.be/known", "a()"), "ok");
  EXPECT_THAT(browser->effects(), ElementsAre("run in tab " + tab + ": a()"));
}

TEST_P(ProgramScripts, JavaScriptRunsInTheFirstTabOfThePlayerWhenTheAddressHasGone) {
  open("https://example.com/");
  const std::string tab = open("https://music.youtube.com/");
  open("https://youtu.be/second");
  EXPECT_EQ(run("https://youtu.be/known", "a()"), "ok");
  EXPECT_THAT(browser->effects(), ElementsAre("run in tab " + tab + ": a()"));
}

TEST_P(ProgramScripts, TheFirstOfTwoTabsWithTheAddressIsMeant) {
  const std::string first = open("https://youtu.be/known");
  open("https://youtu.be/known");
  browser->openTab(browser->openWindow(), "https://youtu.be/known", "T");
  EXPECT_EQ(run("https://youtu.be/known", "a()"), "ok");
  EXPECT_THAT(browser->effects(), ElementsAre("run in tab " + first + ": a()"));
}

TEST_P(ProgramScripts, WithoutATabNothingRuns) {
  open("https://soundcloud.com/");
  EXPECT_EQ(run("https://youtu.be/known", "a()"), "notab");
  EXPECT_THAT(browser->effects(), IsEmpty());
}

TEST_P(ProgramScripts, ATabThatCannotBeReadIsPassedOver) {
  browser->failUrl(open("https://youtu.be/known"), gone);
  const std::string tab = open("https://youtu.be/other");
  EXPECT_EQ(run("https://youtu.be/known", "a()"), "ok");
  EXPECT_THAT(browser->effects(), ElementsAre("run in tab " + tab + ": a()"));
}

TEST_P(ProgramScripts, AddressesAndSourcesArriveAsTheyWere) {
  for (const std::string text :
       {R"(?q="x\y")", R"(\)", R"(\")", R"(" & (do shell script "id") & ")", R"(\" & x & \")",
        "\"\nend tell\ndo shell script \"id\"\n--", "-- (* # \u00AC\n", "\r\n\t",
        "\u201C\u201D\u00E9", "', $(id), `id`"}) {
    const std::string tab = open("https://youtu.be/" + text);
    EXPECT_EQ(run("https://youtu.be/" + text, "a('" + text + "')"), "ok") << text;
    EXPECT_EQ(lastEffect(), "run in tab " + tab + ": a('" + text + "')");
    EXPECT_EQ(focus("https://youtu.be/" + text), "ok") << text;
    EXPECT_EQ(browser->shownTab(window), tab);
  }
}

TEST_P(ProgramScripts, TheScriptsOfEveryPlayerRun) {
  for (const WebPlayerTarget& target : WebPlayerRegistry::all()) {
    const std::string url = "https://" + target.hosts.front() + "/watch";
    const std::string tab = open(url);
    for (const WebCommand command : {WebCommand::toggle, WebCommand::next, WebCommand::previous}) {
      const std::string source = target.js(command);
      EXPECT_EQ(answer(WebRouteScripts::javaScriptRoute(GetParam(), bundleID,
                                                        WebTabMatch{.url = url}, target, source)),
                "ok");
      EXPECT_EQ(lastEffect(), "run in tab " + tab + ": " + source);
    }
  }
}

TEST_P(ProgramScripts, JavaScriptThatIsNotAllowedFailsTheScript) {
  browser->failJavaScript(refused);
  open("https://youtu.be/known");
  const std::string failed = run("https://youtu.be/known", "a()");
  EXPECT_TRUE(failed.starts_with("execution -10004 at ")) << failed;
  EXPECT_TRUE(failed.ends_with(": test.browser got an error: Not allowed.")) << failed;
}

TEST_P(ProgramScripts, ATabThatClosesBeforeItsTurnFailsTheScript) {
  const std::string tab = open("https://youtu.be/known");
  browser->onRequest([&](const std::string& request) {
    if (request.starts_with("run in tab")) browser->closeTab(tab);
  });
  const std::string failed = run("https://youtu.be/known", "a()");
  EXPECT_TRUE(failed.starts_with("execution -1728 at ")) << failed;
}

TEST_P(ProgramScripts, FocusActivatesThenSelectsThenBringsToTheFront) {
  open("https://example.com/");
  const std::string other = browser->openWindow();
  browser->openTab(other, "https://example.com/", "T");
  browser->openTab(other, "https://example.com/2", "T");
  const std::string tab = browser->openTab(other, "https://youtu.be/known", "T");
  browser->openTab(other, "https://example.com/3", "T");
  EXPECT_EQ(focus("https://youtu.be/known"), "ok");
  EXPECT_THAT(browser->effects(),
              ElementsAre("activate", "select tab " + tab, "front window " + other));
  EXPECT_TRUE(browser->isActive());
  EXPECT_EQ(browser->shownTab(other), tab);
  EXPECT_EQ(std::get<std::vector<BrowserWindow>>(browser->windows()).front().id, other);
}

TEST_P(ProgramScripts, FocusFindsTheTabByItsPlayerToo) {
  open("https://example.com/");
  const std::string tab = open("https://www.youtube.com/watch?v=9");
  EXPECT_EQ(focus("https://youtu.be/known"), "ok");
  EXPECT_THAT(browser->effects(),
              ElementsAre("activate", "select tab " + tab, "front window " + window));
}

TEST_P(ProgramScripts, FocusWithoutATabOnlyActivates) {
  open("https://example.com/");
  EXPECT_EQ(focus("https://youtu.be/known"), "notab");
  EXPECT_THAT(browser->effects(), ElementsAre("activate"));
}

TEST_P(ProgramScripts, FocusWithoutWindowsOnlyActivates) {
  browser->closeWindow(window);
  EXPECT_EQ(focus("https://youtu.be/known"), "notab");
  EXPECT_THAT(browser->effects(), ElementsAre("activate"));
}

TEST_P(ProgramScripts, FocusOnTheFirstTabCountsFromOne) {
  const std::string tab = open("https://youtu.be/known");
  EXPECT_EQ(focus("https://youtu.be/known"), "ok");
  EXPECT_THAT(browser->effects(),
              ElementsAre("activate", "select tab " + tab, "front window " + window));
}

}  // namespace
}  // namespace talmo::test
