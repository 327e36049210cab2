#include "tests/unit/osascript/ProgramScripts.h"

namespace talmo::test {
namespace {

const std::string safariSearch = R"(  set tgt to missing value
  set tgtWin to missing value
  repeat with w in windows
    repeat with t in tabs of w
      try
        if (URL of t) is "@URL@" then
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
  if tgt is missing value then return "notab")";

const std::string chromiumSearch = R"(  set tgt to missing value
  set tgtWin to missing value
  set tgtIndex to 0
  repeat with w in windows
    set k to 0
    repeat with t in tabs of w
      set k to k + 1
      try
        if (URL of t) is "@URL@" then
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
  if tgtIndex is 0 then return "notab")";

std::string search(Dialect dialect, const std::string& url) {
  std::string text = dialect == Dialect::safari ? safariSearch : chromiumSearch;
  const std::string place = "@URL@";
  text.replace(text.find(place), place.size(), url);
  return text;
}

}  // namespace

std::string scanScript(Dialect dialect) {
  return R"(set sep to character id 9
set eol to character id 10
tell application id "test.browser"
  set out to ""
  set n to 0
  repeat with w in windows
    repeat with t in tabs of w
      try
        set u to URL of t
        if u is not missing value then
          if (u contains "soundcloud.com") or (u contains "youtube.com") or (u contains "youtu.be") then
            set out to out & u & sep & ()" +
         std::string(dialect == Dialect::safari ? "name of t" : "title of t") + R"() & eol
            set n to n + 1
            if n > 50 then return out
          end if
        end if
      end try
    end repeat
  end repeat
  return out
end tell)";
}

std::string javaScriptScript(Dialect dialect, const std::string& url, const std::string& source) {
  std::string script = "tell application id \"test.browser\"\n" + search(dialect, url);
  script += dialect == Dialect::safari ? "\n  do JavaScript \"" + source + "\" in tgt"
                                       : "\n  execute tgt javascript \"" + source + "\"";
  return script + "\n  return \"ok\"\nend tell";
}

std::string focusScript(Dialect dialect, const std::string& url) {
  std::string script = "tell application id \"test.browser\"\n  activate\n" + search(dialect, url);
  script += dialect == Dialect::safari ? "\n  set current tab of tgtWin to tgt"
                                       : "\n  set active tab index of tgtWin to tgtIndex";
  return script + "\n  set index of tgtWin to 1\n  return \"ok\"\nend tell";
}

}  // namespace talmo::test
