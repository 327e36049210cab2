#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/osascript/MemoryBrowser.h"
#include "platform/linux/osascript/Osascript.h"

namespace talmo::test {
namespace {

struct OsascriptTest : testing::Test {
  Osascript run(const std::vector<std::string>& arguments) {
    return Osascript::run(arguments, [this](const std::string&) { return browser; });
  }

  const std::shared_ptr<MemoryBrowser> browser = std::make_shared<MemoryBrowser>();
};

TEST_F(OsascriptTest, ListsAreWrittenItemByItem) {
  const std::string window = browser->openWindow();
  browser->openTab(window, "u", "t");
  browser->openTab(window, "u", "t");
  const auto lines = [this](const std::string& expression) {
    return run({"-e", "tell application id \"a\"", "-e", "repeat with w in windows", "-e",
                "return " + expression, "-e", "end repeat", "-e", "end tell"})
        .output;
  };
  EXPECT_EQ(lines("tabs of w"), "tab id 2, tab id 3\n");
  EXPECT_EQ(lines("windows"), "window id 1\n");
}

TEST_F(OsascriptTest, AnEmptyTextIsStillAResult) {
  EXPECT_EQ(run({"-e", "return \"\""}).output, "\n");
  EXPECT_EQ(run({"-e", "return"}).output, "");
}

TEST_F(OsascriptTest, TextsAreQuotedInMessagesOnly) {
  EXPECT_EQ(run({"-e", R"(return "a \"b\"")"}).output, "a \"b\"\n");
  EXPECT_EQ(run({"-e", R"(return not "a \"b\"")"}).errors,
            "11:20: execution error: Can\u2019t make \"a \\\"b\\\"\" into type boolean. (-1700)\n");
}

TEST_F(OsascriptTest, WhatABrowserSaidIsPassedOn) {
  browser->fail({.kind = BrowserFailure::Kind::refused, .message = "Remote debugging is off."});
  const Osascript ran = run({"-e", "tell application id \"a.b\"\nactivate\nend tell"});
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(ran.output, "");
  EXPECT_EQ(ran.errors,
            "26:34: execution error: a.b got an error: Remote debugging is off. (-10004)\n");
}

}  // namespace
}  // namespace talmo::test
