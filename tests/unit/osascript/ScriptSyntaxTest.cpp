#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "tests/unit/osascript/ScriptTest.h"

namespace talmo::test {
namespace {

using testing::IsEmpty;
using testing::StartsWith;

class ScriptSyntax : public ScriptTest {};

TEST_F(ScriptSyntax, WordsMayBeWrittenInAnyCase) {
  EXPECT_EQ(answer("SET a TO \"x\"\nIF a IS NOT Missing VALUE THEN\nReturn a\nEND If"), "x");
  const std::string tab = browser->openTab(browser->openWindow(), "u", "n");
  EXPECT_EQ(answer("Tell Application Id \"test.browser\"\nRepeat With W In Windows\n"
                   "Repeat With T In Tabs Of w\nreturn (url OF t) & Name oF T\nEnd Repeat\n"
                   "end REPEAT\nEnd Tell"),
            "un");
}

TEST_F(ScriptSyntax, LinesEndInAnyWay) {
  for (const char* end : {"\n", "\r", "\r\n", "\n\n", " \t\n", "\r\n \r\n"}) {
    const std::string line(end);
    EXPECT_EQ(answer(line + "set a to 1" + line + "if a is 1 then" + line + "return 2" + line +
                     "end if" + line),
              "2");
  }
}

TEST_F(ScriptSyntax, EveryLineEndCountsOnce) {
  for (const char* end : {"\n", "\r", "\r\n"}) {
    const std::string line(end);
    EXPECT_THAT(answer("set a to 1" + line + line + "set b"), StartsWith("syntax -2741 at 3:6: "));
  }
}

TEST_F(ScriptSyntax, CommentsSayNothing) {
  EXPECT_EQ(
      answer("-- first\nset a to 1 -- second\n# third\nset b to 2 # fourth\n"
             "(* fifth (* inner *) -- *) set c to (* sixth\n*) 3\nreturn \"\" & a & b & c --"),
      "123");
}

TEST_F(ScriptSyntax, ALongLineMayGoOnBelow) {
  EXPECT_EQ(answer("set a to 1 + \u00AC\n  2 + \u00AC \t\r\n  3\nreturn a"), "6");
  EXPECT_THAT(answer("set a to 1 + \u00AC 2"), StartsWith("syntax -2740 at 1:14: "));
}

TEST_F(ScriptSyntax, BlanksDoNotMatterBetweenSymbols) {
  EXPECT_EQ(answer("set a to(\"x\"&\"y\")&(1+2)\n\tif(a)is\"XY3\"then\n return(1)\nend if"), "1");
}

TEST_F(ScriptSyntax, AnErrorNamesItsCharactersItsLineAndItsColumn) {
  const ScriptOutcome found = outcome("set a to \"\xC3\xA9\xE2\x82\xAC\"\nset b tu 1");
  const auto& error = std::get<ScriptError>(found);
  EXPECT_EQ(error.range, (ScriptRange{.begin = 20, .end = 22, .line = 2, .column = 7}));
  EXPECT_EQ(words(error), "syntax -2741 at 2:7: Expected \u201Cto\u201D but found \u201Ctu\u201D.");
}

TEST_F(ScriptSyntax, AnErrorSaysWhatWasExpected) {
  const std::vector<std::pair<const char*, const char*>> table{
      {"set a to", "at 1:9: Expected expression but found end of script."},
      {"set a to\nreturn a", "at 1:9: Expected expression but found end of line."},
      {"set to to 1", "at 1:5: Expected a variable but found \u201Cto\u201D."},
      {"set \"a\" to 1", "at 1:5: Expected a variable but found text."},
      {"set 1 to 1", "at 1:5: Expected a variable but found number."},
      {"set a 1", "at 1:7: Expected \u201Cto\u201D but found number."},
      {"set a to 1 set b to 2", "at 1:12: Expected end of line but found \u201Cset\u201D."},
      {"return 1 2", "at 1:10: Expected end of line but found number."},
      {"return (1", "at 1:10: Expected \u201C)\u201D but found end of script."},
      {"return 1)", "at 1:9: Expected end of line but found \u201C)\u201D."},
      {"return ()", "at 1:9: Expected expression but found \u201C)\u201D."},
      {"return not", "at 1:11: Expected expression but found end of script."},
      {"return 1 +", "at 1:11: Expected expression but found end of script."},
      {"return missing", "at 1:15: Expected \u201Cvalue\u201D but found end of script."},
      {"return character 9", "at 1:18: Expected \u201Cid\u201D but found number."},
      {"if true", "at 1:8: Expected \u201Cthen\u201D but found end of script."},
      {"if true then", "at 1:13: Expected a statement but found end of script."},
      {"if true then\n", "at 2:1: Expected \u201Cend\u201D but found end of script."},
      {"if true then\nend", "at 2:4: Expected \u201Cif\u201D but found end of script."},
      {"if true then\nend repeat", "at 2:5: Expected \u201Cif\u201D but found \u201Crepeat\u201D."},
      {"if true then return 1\nend if",
       "at 2:1: Expected end of script but found \u201Cend\u201D."},
      {"if true then\nelse\nelse\nend if",
       "at 3:1: Expected \u201Cend\u201D but found \u201Celse\u201D."},
      {"if true then\nelse if\nend if", "at 2:8: Expected expression but found end of line."},
      {"if true then\nelse return 1\nend if",
       "at 2:6: Expected end of line but found \u201Creturn\u201D."},
      {"if true then if true then return 1",
       "at 1:14: Expected a statement but found \u201Cif\u201D."},
      {"if true then try", "at 1:14: Expected a statement but found \u201Ctry\u201D."},
      {"else", "at 1:1: Expected end of script but found \u201Celse\u201D."},
      {"end tell", "at 1:1: Expected end of script but found \u201Cend\u201D."},
      {"try return 1\nend try", "at 1:5: Expected end of line but found \u201Creturn\u201D."},
      {"try\non error\nend try", "at 2:1: Expected a statement but found \u201Con\u201D."},
      {"repeat\nend repeat", "at 1:7: Expected \u201Cwith\u201D but found end of line."},
      {"repeat 3 times\nend repeat", "at 1:8: Expected \u201Cwith\u201D but found number."},
      {"repeat while true\nend repeat",
       "at 1:8: Expected \u201Cwith\u201D but found \u201Cwhile\u201D."},
      {"repeat with i from 1 to 3\nend repeat",
       "at 1:15: Expected \u201Cin\u201D but found \u201Cfrom\u201D."},
      {"repeat with tab in x\nend repeat",
       "at 1:13: Expected a variable but found \u201Ctab\u201D."},
      {"repeat with x in y\nexit\nend repeat",
       "at 2:5: Expected \u201Crepeat\u201D but found end of line."},
      {"considering hyphens\nend considering",
       "at 1:13: Expected \u201Ccase\u201D but found \u201Chyphens\u201D."},
      {"tell app \"Finder\"\nend tell",
       "at 1:6: Expected \u201Capplication\u201D but found \u201Capp\u201D."},
      {"tell application \"Finder\"\nend tell", "at 1:18: Expected \u201Cid\u201D but found text."},
      {"set x to \"a.b\"\ntell application id x\nend tell",
       "at 2:21: Expected text but found \u201Cx\u201D."},
      {"tell application id \"a.b\" to activate",
       "at 1:27: Expected end of line but found \u201Cto\u201D."},
  };
  for (const auto& [script, expected] : table) {
    EXPECT_EQ(answer(script), "syntax -2741 " + std::string(expected)) << script;
  }
}

TEST_F(ScriptSyntax, LiteralsAreComplete) {
  const std::vector<std::pair<const char*, const char*>> table{
      {"return \"open", "-2741 at 1:8: Expected \u201C\"\u201D but found end of script."},
      {"return \"open\\\"", "-2741 at 1:8: Expected \u201C\"\u201D but found end of script."},
      {"return \"a\\", "-2741 at 1:10: Expected \u201C\"\u201D but found unknown token."},
      {R"(return "a\d")", "-2741 at 1:10: Expected \u201C\"\u201D but found unknown token."},
      {"return (* 1", "-2741 at 1:8: Expected \u201C*)\u201D but found end of script."},
      {"return 9223372036854775808", "-2702 at 1:8: The number is too large."},
  };
  for (const auto& [script, expected] : table) {
    EXPECT_EQ(answer(script), "syntax " + std::string(expected)) << script;
  }
}

TEST_F(ScriptSyntax, WhatIsNoPartOfTheLanguageIsAnUnknownToken) {
  for (const char* token : {"1.5",
                            "1e5",
                            "1st",
                            "-1",
                            "$x",
                            "a.b",
                            "{1}",
                            "[",
                            "\u00ABclass ctab\u00BB",
                            "|a b|",
                            "\xC3\xA9",
                            "`id`",
                            "a;b",
                            "\u201Ctext\u201D",
                            "'text'",
                            "2 * 3",
                            "2 / 3",
                            "2 ^ 3",
                            "a, b",
                            "a's b",
                            "!",
                            "%",
                            "\x01",
                            "\u00A0"}) {
    EXPECT_THAT(value(token), StartsWith("syntax -2740 at 1:")) << token;
  }
  EXPECT_THAT(answer(std::string_view("return 1\0", 9)), StartsWith("syntax -2740 at 1:9"));
}

TEST_F(ScriptSyntax, AScriptIsUtf8) {
  for (const char* script : {"return \"\xE9\"", "return \"\xC3", "return \"\xED\xA0\x80\"",
                             "return \"\xC0\x80\"", "\xFF"}) {
    EXPECT_EQ(answer(script), "syntax -2740 at 1:1: The script is not UTF-8.");
  }
}

// Nothing but what the program writes: no other program, file, key or person is in reach.
TEST_F(ScriptSyntax, EverythingElseIsRefusedAsAWhole) {
  for (const char* statement :
       {R"(do shell script "id")",
        R"(set x to do shell script "id")",
        R"(return (do shell script "id"))",
        R"(display dialog "x")",
        R"(run script "beep")",
        R"(load script "x")",
        "beep",
        "delay 1",
        R"(say "x")",
        R"(open location "http://x")",
        R"(set x to read POSIX file "/etc/passwd")",
        R"(system attribute "HOME")",
        "quit",
        "launch",
        "get x",
        "get windows",
        "copy 1 to x",
        "count windows",
        "make new window",
        "close t",
        "delete t",
        "log 1",
        R"(error "x")",
        "continue quit",
        "on run\nend run",
        "script s\nend script",
        "property p : 1",
        "global g",
        "local l",
        "use scripting additions",
        "using terms from application id \"test.browser\"\nend using terms from",
        "with timeout of 1 second\nend timeout",
        "ignoring case\nend ignoring",
        "return {}",
        "return 1 as text",
        "return the name of t",
        "return t's name",
        "return window 1",
        "return tab 1 of window 1",
        "return first window",
        "return every tab of w",
        "return current tab of w",
        "return name of window 1",
        "return it",
        "return me",
        "return my x",
        "return source of t",
        "return id of t",
        "return index of w",
        "return count",
        R"("text")",
        "1",
        "x",
        "windows",
        "set URL of t to \"x\"",
        "set name of t to \"x\"",
        "set windows to 1",
        "set index of w to 2",
        "set index of w to x",
        "set current tab to t",
        "set active tab of w to t",
        "set active tab index to 1",
        "set tabs of w to x",
        R"(keystroke "x")",
        "tell w\nend tell",
        "tell me\nend tell",
        R"(tell application "System Events" to keystroke "x")",
        "return x is in y",
        "return x does not contain y",
        "return x isn't y",
        "return x equals y",
        "return x is equal to y",
        "return x starts with y",
        "return x is greater than y",
        "return not",
        "set {a, b} to c",
        "set x's y to 1",
        "execute t",
        "execute javascript \"x\"",
        R"(execute t javascript)",
        R"(execute "x" in t)",
        R"(do JavaScript "x")",
        R"(do "x" in t)",
        "do",
        "repeat\nexit repeat\nend repeat",
        R"(set x to "a" & (do shell script "id") & "b")"}) {
    EXPECT_THAT(told("activate\n" + std::string(statement)), StartsWith("syntax -274"))
        << statement;
  }
  EXPECT_EQ(resolved, 0);
  EXPECT_THAT(browser->effects(), IsEmpty());
}

TEST_F(ScriptSyntax, ExitMeansNothingWhereNothingIsRepeated) {
  const std::string message = ": \u201Cexit\u201D can\u2019t go outside of \u201Crepeat\u201D.";
  EXPECT_EQ(answer("exit repeat"), "syntax -2740 at 1:1" + message);
  EXPECT_EQ(answer("repeat with x in y\nend repeat\nexit repeat"), "syntax -2740 at 3:1" + message);
}

TEST_F(ScriptSyntax, BrowserWordsMeanNothingWhereNoBrowserIsTold) {
  EXPECT_EQ(answer("set x to name of y"),
            "syntax -2740 at 1:10: \u201Cname\u201D can\u2019t go outside of \u201Ctell\u201D.");
  for (const char* statement :
       {"activate", "set x to windows", "set x to tabs of w", "set x to URL of t",
        "set x to name of t", "set x to title of t", "set current tab of w to t",
        "set active tab index of w to 1", "set index of w to 1", R"(do JavaScript "x" in t)",
        R"(execute t javascript "x")", "repeat with w in windows\nend repeat"}) {
    EXPECT_THAT(answer(statement), StartsWith("syntax -2740 at 1:")) << statement;
    EXPECT_THAT(answer("tell application id \"test.browser\"\nend tell\n" + std::string(statement)),
                StartsWith("syntax -2740 at 3:"))
        << statement;
  }
}

TEST_F(ScriptSyntax, ReservedWordsNameNoVariable) {
  for (const std::string word :
       {"about",  "active",  "and",     "application", "character", "current", "do",
        "end",    "every",   "execute", "id",          "index",     "is",      "it",
        "me",     "missing", "my",      "name",        "of",        "or",      "return",
        "script", "tab",     "tabs",    "tell",        "then",      "title",   "true",
        "url",    "URL",     "window",  "windows",     "with",      "without"}) {
    EXPECT_THAT(answer("set " + word + " to 1"), StartsWith("syntax -274")) << word;
    EXPECT_EQ(answer("set " + word + "0 to 1\nreturn " + word + "0"), "1");
  }
}

}  // namespace
}  // namespace talmo::test
