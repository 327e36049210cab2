#include <string>

#include <gmock/gmock.h>

#include "tests/unit/osascript/ScriptTest.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const BrowserFailure gone{.kind = BrowserFailure::Kind::gone};
const BrowserFailure timedOut{.kind = BrowserFailure::Kind::timedOut};
const BrowserFailure refused{.kind = BrowserFailure::Kind::refused, .message = "Not allowed."};

/// Two windows: the first with two tabs, the second with one.
class BrowserScripts : public ScriptTest {
 protected:
  /// The value of an expression about the window `w` and its tab `t`: the first ones of all.
  std::string ofFirst(const std::string& lines) {
    return told("repeat with w in windows\nrepeat with t in tabs of w\n" + lines +
                "\nreturn \"done\"\nend repeat\nend repeat");
  }

  const std::string window1 = browser->openWindow();
  const std::string tab1 = browser->openTab(window1, "https://one.example/", "One");
  const std::string tab2 = browser->openTab(window1, "https://two.example/", "Two");
  const std::string window2 = browser->openWindow();
  const std::string tab3 = browser->openTab(window2, "https://three.example/", "Three");
};

TEST_F(BrowserScripts, WindowsAndTabsComeInTheirOrder) {
  const std::string all =
      "set out to \"\"\nrepeat with w in windows\nset out to out & \"[\"\n"
      "repeat with t in tabs of w\nset out to out & (title of t) & \" \"\nend repeat\n"
      "set out to out & \"]\"\nend repeat\nreturn out";
  EXPECT_EQ(told(all), "[One Two ][Three ]");
  browser->bringToFront(window2);
  EXPECT_EQ(told(all), "[Three ][One Two ]");
}

TEST_F(BrowserScripts, ATabHasAnAddressAndATitle) {
  EXPECT_EQ(ofFirst("return URL of t"), "https://one.example/");
  EXPECT_EQ(ofFirst("return name of t"), "One");
  EXPECT_EQ(ofFirst("return title of t"), "One");
}

TEST_F(BrowserScripts, ATabMayLackAnAddressAndHaveAnEmptyTitle) {
  const std::string bare = browser->openTab(browser->openWindow(), std::nullopt, std::nullopt);
  EXPECT_EQ(
      told("repeat with w in windows\nrepeat with t in tabs of w\nset last0 to t\nend repeat\n"
           "end repeat\nreturn \"\" & (URL of last0) & \", \" & (title of last0)"),
      "missing value, ");
}

TEST_F(BrowserScripts, OnlyTabsHaveAddressesAndOnlyWindowsHaveTabs) {
  EXPECT_EQ(ofFirst("return URL of w"),
            "execution -1728 at 4:8: Can\u2019t get URL of window id 1.");
  EXPECT_EQ(ofFirst("return name of \"x\""),
            "execution -1728 at 4:8: Can\u2019t get title of \"x\".");
  EXPECT_EQ(ofFirst("return title of missing value"),
            "execution -1728 at 4:8: Can\u2019t get title of missing value.");
  EXPECT_EQ(ofFirst("return tabs of t"),
            "execution -1700 at 4:16: Can\u2019t make tab id 2 into type window.");
}

TEST_F(BrowserScripts, TabsAndWindowsAreTheSameAsThemselves) {
  EXPECT_EQ(ofFirst("set s to t\nreturn s is t"), "true");
  EXPECT_EQ(ofFirst("repeat with v in tabs of w\nif v is not t then return title of v\nend repeat"),
            "Two");
  EXPECT_EQ(ofFirst("repeat with v in windows\nif v is w then return \"same\"\nend repeat"),
            "same");
  EXPECT_EQ(ofFirst("return t is w"), "false");
  EXPECT_EQ(ofFirst("return t is missing value"), "false");
  EXPECT_EQ(ofFirst("return w is not missing value"), "true");
}

TEST_F(BrowserScripts, TabsAndWindowsAreNoText) {
  EXPECT_EQ(ofFirst("return \"\" & t"),
            "execution -1700 at 4:13: Can\u2019t make tab id 2 into type Unicode text.");
  EXPECT_EQ(ofFirst("return \"\" & w"),
            "execution -1700 at 4:13: Can\u2019t make window id 1 into type Unicode text.");
  EXPECT_EQ(ofFirst("return \"\" & windows"),
            "execution -1700 at 4:13: Can\u2019t make window id 1, window id 4 into type "
            "Unicode text.");
}

TEST_F(BrowserScripts, JavaScriptRunsInTheTabInBothDialects) {
  browser->setJavaScriptResult(tab1, "7");
  EXPECT_EQ(ofFirst("do JavaScript \"a(\\\"b\\\")\" in t"), "done");
  EXPECT_EQ(ofFirst("execute t javascript \"c()\\\\n\""), "done");
  EXPECT_THAT(browser->effects(), ElementsAre("run in tab 2: a(\"b\")", "run in tab 2: c()\\n"));
}

TEST_F(BrowserScripts, JavaScriptHasAResult) {
  EXPECT_EQ(ofFirst("set r to do JavaScript \"a\" in t\nreturn r"), "missing value");
  browser->setJavaScriptResult(tab1, "seven");
  EXPECT_EQ(ofFirst("set r to do JavaScript \"a\" & 1 in t\nreturn r"), "seven");
  EXPECT_EQ(ofFirst("return execute t javascript \"a\" & 2"), "seven");
  EXPECT_EQ(ofFirst("return \"<\" & (execute t javascript \"a3\") & \">\""), "<seven>");
  EXPECT_THAT(browser->effects(), ElementsAre("run in tab 2: a", "run in tab 2: a1",
                                              "run in tab 2: a2", "run in tab 2: a3"));
}

TEST_F(BrowserScripts, JavaScriptNeedsATextAndATab) {
  EXPECT_EQ(ofFirst("do JavaScript 1 in t"),
            "execution -1700 at 4:15: Can\u2019t make 1 into type Unicode text.");
  EXPECT_EQ(ofFirst("do JavaScript \"a\" in missing value"),
            "execution -1700 at 4:22: Can\u2019t make missing value into type tab.");
  EXPECT_EQ(ofFirst("execute w javascript \"a\""),
            "execution -1700 at 4:9: Can\u2019t make window id 1 into type tab.");
  EXPECT_THAT(browser->effects(), IsEmpty());
}

TEST_F(BrowserScripts, ATabIsSelectedInItsWindow) {
  EXPECT_EQ(ofFirst("repeat with v in tabs of w\nset current tab of w to v\nend repeat"), "done");
  EXPECT_THAT(browser->effects(), ElementsAre("select tab 2", "select tab 3"));
  EXPECT_EQ(browser->shownTab(window1), tab2);
}

TEST_F(BrowserScripts, ATabOfAnotherWindowIsNotSelected) {
  EXPECT_EQ(ofFirst("repeat with v in windows\nif v is not w then set current tab of v to t\n"
                    "end repeat"),
            "execution -10006 at 5:20: test.browser got an error: Can\u2019t set current tab of "
            "window id 4 to tab id 2.");
  EXPECT_EQ(ofFirst("set current tab of w to w"),
            "execution -1700 at 4:25: Can\u2019t make window id 1 into type tab.");
  EXPECT_EQ(ofFirst("set current tab of t to t"),
            "execution -1700 at 4:20: Can\u2019t make tab id 2 into type window.");
  EXPECT_THAT(browser->effects(), IsEmpty());
}

TEST_F(BrowserScripts, ATabIsSelectedByItsNumber) {
  EXPECT_EQ(ofFirst("set k to 2\nset active tab index of w to k"), "done");
  EXPECT_EQ(ofFirst("set active tab index of w to 1"), "done");
  EXPECT_THAT(browser->effects(), ElementsAre("select tab 3", "select tab 2"));
  for (const char* index : {"0", "3", "9223372036854775807"}) {
    EXPECT_EQ(ofFirst("set active tab index of w to " + std::string(index)),
              "execution -1719 at 4:1: test.browser got an error: Can\u2019t set active tab index "
              "of window id 1 to " +
                  std::string(index) + ".");
  }
  EXPECT_EQ(ofFirst("set active tab index of w to t"),
            "execution -1700 at 4:30: Can\u2019t make tab id 2 into type integer.");
}

TEST_F(BrowserScripts, AWindowComesToTheFront) {
  EXPECT_EQ(told("repeat with w in windows\nset index of w to 1\nend repeat"), "nothing");
  EXPECT_THAT(browser->effects(), ElementsAre("front window 1", "front window 4"));
  EXPECT_EQ(ofFirst("return w"), "window id 4");
  EXPECT_EQ(ofFirst("set index of t to 1"),
            "execution -1700 at 4:14: Can\u2019t make tab id 5 into type window.");
}

TEST_F(BrowserScripts, TheBrowserIsActivated) {
  EXPECT_EQ(told("activate"), "nothing");
  EXPECT_TRUE(browser->isActive());
}

TEST_F(BrowserScripts, WhatIsGoneCannotBeGot) {
  browser->onRequest([this](const std::string& request) {
    if (request != "windows") browser->closeWindow(window1);
  });
  EXPECT_EQ(ofFirst("set u to URL of t"),
            "execution -1728 at 4:10: test.browser got an error: Can\u2019t get URL of tab id 2.");
}

TEST_F(BrowserScripts, WhatIsGoneCannotBeChanged) {
  for (const auto& [statement, expected] :
       {std::pair("do JavaScript \"a\" in t", "get tab id 2."),
        std::pair("execute t javascript \"a\"", "get tab id 2."),
        std::pair("set current tab of w to t", "set current tab of window id 1 to tab id 2."),
        std::pair("set active tab index of w to 1", "set active tab index of window id 1 to 1."),
        std::pair("set index of w to 1", "set index of window id 1 to 1.")}) {
    const auto other = std::make_shared<MemoryBrowser>();
    other->openTab(other->openWindow(), "u", "t");
    other->onRequest([&other](const std::string& request) {
      if (request != "windows") other->closeWindow("1");
    });
    const ScriptOutcome found = runScript(
        "tell application id \"a.b\"\nrepeat with w in windows\n"
        "repeat with t in tabs of w\n" +
            std::string(statement) + "\nend repeat\nend repeat\nend tell",
        [&other](const std::string&) { return other; });
    EXPECT_EQ(words(std::get<ScriptError>(found)),
              "execution -1728 at 4:1: a.b got an error: Can\u2019t " + std::string(expected));
    EXPECT_THAT(other->effects(), IsEmpty());
  }
}

TEST_F(BrowserScripts, ALoopGoesOnAfterATabThatIsGone) {
  browser->onRequest([this](const std::string& request) {
    if (request == "url " + tab1) browser->closeTab(tab1);
  });
  EXPECT_EQ(
      told("set out to \"\"\nrepeat with w in windows\nrepeat with t in tabs of w\ntry\n"
           "set out to out & (URL of t) & \" \"\nend try\nend repeat\nend repeat\nreturn out"),
      "https://two.example/ https://three.example/ ");
}

TEST_F(BrowserScripts, ATabThatIsClosedMovesNoOther) {
  browser->onRequest([this](const std::string& request) {
    if (request == "select tab " + tab2) browser->closeTab(tab1);
  });
  EXPECT_EQ(ofFirst("set active tab index of w to 2"), "done");
  EXPECT_EQ(browser->shownTab(window1), tab2);
}

TEST_F(BrowserScripts, ARefusalIsInTheBrowsersWords) {
  browser->failJavaScript(refused);
  EXPECT_EQ(ofFirst("do JavaScript \"a\" in t"),
            "execution -10004 at 4:1: test.browser got an error: Not allowed.");
  EXPECT_EQ(ofFirst("try\nexecute t javascript \"a\"\nend try"), "done");
  browser->failJavaScript({.kind = BrowserFailure::Kind::refused});
  EXPECT_EQ(ofFirst("do JavaScript \"a\" in t"),
            "execution -10004 at 4:1: test.browser got an error: A privilege violation occurred.");
}

TEST_F(BrowserScripts, ABrowserThatDoesNotAnswerIsAnError) {
  browser->fail(timedOut);
  EXPECT_EQ(told("activate"),
            "execution -1712 at 2:1: test.browser got an error: AppleEvent timed out.");
  EXPECT_EQ(told("return windows"),
            "execution -1712 at 2:8: test.browser got an error: AppleEvent timed out.");
}

TEST_F(BrowserScripts, ABrowserThatHasQuitIsAnError) {
  browser->fail(gone);
  EXPECT_EQ(told("activate"),
            "execution -1728 at 2:1: test.browser got an error: Can\u2019t activate.");
  EXPECT_EQ(told("return windows"),
            "execution -1728 at 2:8: test.browser got an error: Can\u2019t get every window.");
}

TEST_F(BrowserScripts, TwoBrowsersKeepTheirTabsApart) {
  const auto second = std::make_shared<MemoryBrowser>();
  second->openTab(second->openWindow(), "https://second.example/", "Second");
  const ScriptOutcome found = runScript(
      "tell application id \"first\"\nrepeat with w in windows\nrepeat with x in tabs of w\n"
      "set t to x\nexit repeat\nend repeat\nexit repeat\nend repeat\nend tell\n"
      "tell application id \"second\"\nrepeat with w in windows\nrepeat with v in tabs of w\n"
      "return (title of t) & (title of v) & (v is t)\nend repeat\nend repeat\nend tell",
      [&](const std::string& bundleID) { return bundleID == "first" ? browser : second; });
  EXPECT_EQ(std::get<std::optional<std::string>>(found), "OneSecondfalse");
}

}  // namespace
}  // namespace talmo::test
