#include "web/WebRouteScripts.h"

namespace talmo {
namespace {

// Safari's tabs are selected as such, Chromium's by their index, which its script counts.
std::string safariTab(const std::string& url, const std::string& condition) {
  return "  set tgt to missing value\n"
         "  set tgtWin to missing value\n"
         "  repeat with w in windows\n"
         "    repeat with t in tabs of w\n"
         "      try\n"
         "        if (URL of t) is \"" +
         url +
         "\" then\n"
         "          set tgt to t\n"
         "          set tgtWin to w\n"
         "          exit repeat\n"
         "        end if\n"
         "      end try\n"
         "    end repeat\n"
         "    if tgt is not missing value then exit repeat\n"
         "  end repeat\n"
         "  if tgt is missing value then\n"
         "    repeat with w in windows\n"
         "      repeat with t in tabs of w\n"
         "        try\n"
         "          set u to URL of t\n"
         "          if " +
         condition +
         " then\n"
         "            set tgt to t\n"
         "            set tgtWin to w\n"
         "            exit repeat\n"
         "          end if\n"
         "        end try\n"
         "      end repeat\n"
         "      if tgt is not missing value then exit repeat\n"
         "    end repeat\n"
         "  end if\n"
         "  if tgt is missing value then return \"notab\"";
}

std::string chromiumTab(const std::string& url, const std::string& condition) {
  return "  set tgt to missing value\n"
         "  set tgtWin to missing value\n"
         "  set tgtIndex to 0\n"
         "  repeat with w in windows\n"
         "    set k to 0\n"
         "    repeat with t in tabs of w\n"
         "      set k to k + 1\n"
         "      try\n"
         "        if (URL of t) is \"" +
         url +
         "\" then\n"
         "          set tgt to t\n"
         "          set tgtWin to w\n"
         "          set tgtIndex to k\n"
         "          exit repeat\n"
         "        end if\n"
         "      end try\n"
         "    end repeat\n"
         "    if tgtIndex > 0 then exit repeat\n"
         "  end repeat\n"
         "  if tgtIndex is 0 then\n"
         "    repeat with w in windows\n"
         "      set k to 0\n"
         "      repeat with t in tabs of w\n"
         "        set k to k + 1\n"
         "        try\n"
         "          set u to URL of t\n"
         "          if " +
         condition +
         " then\n"
         "            set tgt to t\n"
         "            set tgtWin to w\n"
         "            set tgtIndex to k\n"
         "            exit repeat\n"
         "          end if\n"
         "        end try\n"
         "      end repeat\n"
         "      if tgtIndex > 0 then exit repeat\n"
         "    end repeat\n"
         "  end if\n"
         "  if tgtIndex is 0 then return \"notab\"";
}

std::string locatedTab(BrowserDialect dialect, const WebTabMatch& match,
                       const WebPlayerTarget& target) {
  const std::string url = WebRouteScripts::escapeForAppleScript(match.url);
  const std::string condition = WebRouteScripts::filterCondition(target);
  return dialect == BrowserDialect::safari ? safariTab(url, condition)
                                           : chromiumTab(url, condition);
}

constexpr const char* ending =
    "\n  return \"ok\"\n"
    "end tell";

}  // namespace

std::string WebRouteScripts::javaScriptRoute(BrowserDialect dialect, const std::string& bundleID,
                                             const WebTabMatch& match,
                                             const WebPlayerTarget& target, std::string_view js) {
  const std::string script = escapeForAppleScript(js);
  const std::string action = dialect == BrowserDialect::safari
                                 ? "\n  do JavaScript \"" + script + "\" in tgt"
                                 : "\n  execute tgt javascript \"" + script + "\"";
  return "tell application id \"" + bundleID + "\"\n" + locatedTab(dialect, match, target) +
         action + ending;
}

std::string WebRouteScripts::focusRoute(BrowserDialect dialect, const std::string& bundleID,
                                        const WebTabMatch& match, const WebPlayerTarget& target) {
  const char* const selection = dialect == BrowserDialect::safari
                                    ? "\n  set current tab of tgtWin to tgt"
                                    : "\n  set active tab index of tgtWin to tgtIndex";
  return "tell application id \"" + bundleID + "\"\n  activate\n" +
         locatedTab(dialect, match, target) + selection + "\n  set index of tgtWin to 1" + ending;
}

std::string WebRouteScripts::filterCondition(const WebPlayerTarget& target) {
  std::string condition;
  for (const std::string& filter : target.urlFilters) {
    if (!condition.empty()) condition += " or ";
    condition += "(u contains \"" + escapeForAppleScript(filter) + "\")";
  }
  return condition;
}

std::string WebRouteScripts::escapeForAppleScript(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    if (character == '\\' || character == '"') escaped += '\\';
    escaped += character;
  }
  return escaped;
}

}  // namespace talmo
