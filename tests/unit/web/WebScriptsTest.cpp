#include <string>

#include <gtest/gtest.h>

#include "web/WebPlayerRegistry.h"
#include "web/WebRouteScripts.h"
#include "web/WebTabScanner.h"

// The texts stand here in full, so that what a browser is sent can be read in one piece.

namespace talmo {
namespace {

using enum BrowserDialect;

const WebPlayerTarget& youTube = WebPlayerRegistry::youTube();
const WebTabMatch watchTab{"youtube-web", "com.google.Chrome", "Chrome",
                           "https://www.youtube.com/watch?v=1", "Song - YouTube"};
// What a page might do to leave its string.
constexpr const char* hostile = R"(" & (do shell script "touch /tmp/x") & "\)";

WebTabMatch withURL(const std::string& url) {
  WebTabMatch match = watchTab;
  match.url = url;
  return match;
}

TEST(ScanScript, OfSafariAsksForTheNameOfATab) {
  EXPECT_EQ(WebTabScanner::scanScript({"com.apple.Safari", safari}),
            R"script(set sep to character id 9
set eol to character id 10
tell application id "com.apple.Safari"
  set out to ""
  set n to 0
  repeat with w in windows
    repeat with t in tabs of w
      try
        set u to URL of t
        if u is not missing value then
          if (u contains "soundcloud.com") or (u contains "youtube.com") or (u contains "youtu.be") then
            set out to out & u & sep & (name of t) & eol
            set n to n + 1
            if n > 50 then return out
          end if
        end if
      end try
    end repeat
  end repeat
  return out
end tell)script");
}

TEST(ScanScript, OfChromiumAsksForTheTitleOfATab) {
  EXPECT_EQ(WebTabScanner::scanScript({"com.google.Chrome", chromium}),
            R"script(set sep to character id 9
set eol to character id 10
tell application id "com.google.Chrome"
  set out to ""
  set n to 0
  repeat with w in windows
    repeat with t in tabs of w
      try
        set u to URL of t
        if u is not missing value then
          if (u contains "soundcloud.com") or (u contains "youtube.com") or (u contains "youtu.be") then
            set out to out & u & sep & (title of t) & eol
            set n to n + 1
            if n > 50 then return out
          end if
        end if
      end try
    end repeat
  end repeat
  return out
end tell)script");
}

TEST(ScanScript, FiltersForEveryPlayer) {
  EXPECT_EQ(WebTabScanner::urlFilterCondition(),
            R"((u contains "soundcloud.com") or (u contains "youtube.com") or )"
            R"((u contains "youtu.be"))");
}

TEST(JavaScriptRoute, OfSafariFindsTheTabAndRunsTheScriptInIt) {
  EXPECT_EQ(WebRouteScripts::javaScriptRoute(safari, "com.apple.Safari", watchTab, youTube,
                                             R"(var e="a\\b"; 'ok')"),
            R"script(tell application id "com.apple.Safari"
  set tgt to missing value
  set tgtWin to missing value
  repeat with w in windows
    repeat with t in tabs of w
      try
        if (URL of t) is "https://www.youtube.com/watch?v=1" then
          set tgt to t
          set tgtWin to w
          exit repeat
        end if
      end try
    end repeat
    if tgt is not missing value then exit repeat
  end repeat
  if tgt is missing value then
    repeat with w in windows
      repeat with t in tabs of w
        try
          set u to URL of t
          if (u contains "youtube.com") or (u contains "youtu.be") then
            set tgt to t
            set tgtWin to w
            exit repeat
          end if
        end try
      end repeat
      if tgt is not missing value then exit repeat
    end repeat
  end if
  if tgt is missing value then return "notab"
  do JavaScript "var e=\"a\\\\b\"; 'ok'" in tgt
  return "ok"
end tell)script");
}

TEST(JavaScriptRoute, OfChromiumFindsTheTabAndRunsTheScriptInIt) {
  EXPECT_EQ(WebRouteScripts::javaScriptRoute(chromium, "com.google.Chrome", watchTab, youTube,
                                             R"(var e="a\\b"; 'ok')"),
            R"script(tell application id "com.google.Chrome"
  set tgt to missing value
  set tgtWin to missing value
  set tgtIndex to 0
  repeat with w in windows
    set k to 0
    repeat with t in tabs of w
      set k to k + 1
      try
        if (URL of t) is "https://www.youtube.com/watch?v=1" then
          set tgt to t
          set tgtWin to w
          set tgtIndex to k
          exit repeat
        end if
      end try
    end repeat
    if tgtIndex > 0 then exit repeat
  end repeat
  if tgtIndex is 0 then
    repeat with w in windows
      set k to 0
      repeat with t in tabs of w
        set k to k + 1
        try
          set u to URL of t
          if (u contains "youtube.com") or (u contains "youtu.be") then
            set tgt to t
            set tgtWin to w
            set tgtIndex to k
            exit repeat
          end if
        end try
      end repeat
      if tgtIndex > 0 then exit repeat
    end repeat
  end if
  if tgtIndex is 0 then return "notab"
  execute tgt javascript "var e=\"a\\\\b\"; 'ok'"
  return "ok"
end tell)script");
}

TEST(FocusRoute, OfSafariSelectsTheTab) {
  EXPECT_EQ(WebRouteScripts::focusRoute(safari, "com.apple.Safari", watchTab, youTube),
            R"script(tell application id "com.apple.Safari"
  activate
  set tgt to missing value
  set tgtWin to missing value
  repeat with w in windows
    repeat with t in tabs of w
      try
        if (URL of t) is "https://www.youtube.com/watch?v=1" then
          set tgt to t
          set tgtWin to w
          exit repeat
        end if
      end try
    end repeat
    if tgt is not missing value then exit repeat
  end repeat
  if tgt is missing value then
    repeat with w in windows
      repeat with t in tabs of w
        try
          set u to URL of t
          if (u contains "youtube.com") or (u contains "youtu.be") then
            set tgt to t
            set tgtWin to w
            exit repeat
          end if
        end try
      end repeat
      if tgt is not missing value then exit repeat
    end repeat
  end if
  if tgt is missing value then return "notab"
  set current tab of tgtWin to tgt
  set index of tgtWin to 1
  return "ok"
end tell)script");
}

TEST(FocusRoute, OfChromiumSelectsTheIndexOfTheTab) {
  EXPECT_EQ(WebRouteScripts::focusRoute(chromium, "com.google.Chrome", watchTab, youTube),
            R"script(tell application id "com.google.Chrome"
  activate
  set tgt to missing value
  set tgtWin to missing value
  set tgtIndex to 0
  repeat with w in windows
    set k to 0
    repeat with t in tabs of w
      set k to k + 1
      try
        if (URL of t) is "https://www.youtube.com/watch?v=1" then
          set tgt to t
          set tgtWin to w
          set tgtIndex to k
          exit repeat
        end if
      end try
    end repeat
    if tgtIndex > 0 then exit repeat
  end repeat
  if tgtIndex is 0 then
    repeat with w in windows
      set k to 0
      repeat with t in tabs of w
        set k to k + 1
        try
          set u to URL of t
          if (u contains "youtube.com") or (u contains "youtu.be") then
            set tgt to t
            set tgtWin to w
            set tgtIndex to k
            exit repeat
          end if
        end try
      end repeat
      if tgtIndex > 0 then exit repeat
    end repeat
  end if
  if tgtIndex is 0 then return "notab"
  set active tab index of tgtWin to tgtIndex
  set index of tgtWin to 1
  return "ok"
end tell)script");
}

TEST(RouteScripts, FilterForTheirPlayerOnly) {
  EXPECT_EQ(WebRouteScripts::filterCondition(youTube),
            R"((u contains "youtube.com") or (u contains "youtu.be"))");
  EXPECT_EQ(WebRouteScripts::filterCondition(WebPlayerRegistry::soundCloud()),
            R"((u contains "soundcloud.com"))");
  WebPlayerTarget odd = youTube;
  odd.urlFilters = {R"(a"b\c)"};
  EXPECT_EQ(WebRouteScripts::filterCondition(odd), R"((u contains "a\"b\\c"))");
}

TEST(RouteScripts, EscapeBackslashesAndThenQuotes) {
  EXPECT_EQ(WebRouteScripts::escapeForAppleScript(""), "");
  EXPECT_EQ(WebRouteScripts::escapeForAppleScript("plain 'text'"), "plain 'text'");
  EXPECT_EQ(WebRouteScripts::escapeForAppleScript(R"(")"), R"(\")");
  EXPECT_EQ(WebRouteScripts::escapeForAppleScript(R"(\)"), R"(\\)");
  EXPECT_EQ(WebRouteScripts::escapeForAppleScript(R"(\")"), R"(\\\")");
  EXPECT_EQ(WebRouteScripts::escapeForAppleScript("東\"京"), "東\\\"京");
  EXPECT_EQ(WebRouteScripts::escapeForAppleScript("a\nb"), "a\nb");
}

/// The text with its AppleScript strings taken out: each must be closed by the end.
std::string withoutStrings(const std::string& script) {
  std::string rest;
  bool isInString = false;
  for (std::size_t index = 0; index < script.size(); ++index) {
    if (isInString && script[index] == '\\') {
      ++index;
    } else if (script[index] == '"') {
      isInString = !isInString;
    } else if (!isInString) {
      rest += script[index];
    }
  }
  EXPECT_FALSE(isInString);
  return rest;
}

TEST(RouteScripts, NoAddressLeavesItsString) {
  const std::string plain =
      withoutStrings(WebRouteScripts::focusRoute(chromium, "com.google.Chrome", watchTab, youTube));
  for (const std::string& url :
       {watchTab.url + hostile, std::string(R"(\)"), std::string(R"(")"), std::string(R"(\\")"),
        std::string("\"\nquit\n\""), std::string("\" then\nquit\nif \"")}) {
    EXPECT_EQ(withoutStrings(WebRouteScripts::focusRoute(chromium, "com.google.Chrome",
                                                         withURL(url), youTube)),
              plain)
        << url;
    EXPECT_EQ(withoutStrings(WebRouteScripts::javaScriptRoute(safari, "com.apple.Safari",
                                                              withURL(url), youTube, "'ok'")),
              withoutStrings(WebRouteScripts::javaScriptRoute(safari, "com.apple.Safari", watchTab,
                                                              youTube, url)))
        << url;
  }
}

TEST(RouteScripts, ATitleIsNoPartOfThem) {
  WebTabMatch titled = watchTab;
  titled.title = hostile;
  EXPECT_EQ(
      WebRouteScripts::javaScriptRoute(chromium, "com.google.Chrome", titled, youTube, "x"),
      WebRouteScripts::javaScriptRoute(chromium, "com.google.Chrome", watchTab, youTube, "x"));
  EXPECT_EQ(WebRouteScripts::focusRoute(safari, "com.apple.Safari", titled, youTube),
            WebRouteScripts::focusRoute(safari, "com.apple.Safari", watchTab, youTube));
}

}  // namespace
}  // namespace talmo
