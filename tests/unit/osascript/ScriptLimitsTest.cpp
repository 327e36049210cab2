#include <string>

#include <gmock/gmock.h>

#include "platform/linux/osascript/ScriptLexer.h"
#include "tests/unit/osascript/ScriptTest.h"

namespace talmo::test {
namespace {

using testing::StartsWith;

std::string repeated(const std::string& text, std::size_t count) {
  std::string result;
  for (std::size_t index = 0; index < count; ++index) result += text;
  return result;
}

class ScriptLimitsTest : public ScriptTest {
 protected:
  std::string answerWithin(const ScriptLimits& limits, std::string_view script) {
    const ScriptOutcome found = outcome(script, limits);
    if (const auto* error = std::get_if<ScriptError>(&found)) return words(*error);
    return std::get<std::optional<std::string>>(found).value_or("nothing");
  }
};

TEST_F(ScriptLimitsTest, AScriptHasALongestLength) {
  const std::string start = "return 1 --";
  EXPECT_EQ(answer(start + std::string(longestScript - start.size(), '-')), "1");
  EXPECT_EQ(answer(start + std::string(longestScript + 1 - start.size(), '-')),
            "syntax -2700 at 1:1: The script is too long.");
}

TEST_F(ScriptLimitsTest, NestingHasALimitHoweverItIsMade) {
  constexpr std::size_t fine = 90;
  constexpr std::size_t many = 5'000;
  const auto parentheses = [](std::size_t count) {
    return "return " + repeated("(", count) + "1" + repeated(")", count);
  };
  const auto negations = [](std::size_t count) {
    return "return " + repeated("not ", count) + "true";
  };
  const auto branches = [](std::size_t count) {
    return repeated("if true then\n", count) + "set a to 1" + repeated("\nend if", count) +
           "\nreturn a";
  };
  const auto attempts = [](std::size_t count) {
    return repeated("try\n", count) + "set a to 1" + repeated("\nend try", count) + "\nreturn a";
  };
  EXPECT_EQ(answer(parentheses(fine)), "1");
  EXPECT_EQ(answer(negations(fine)), "true");
  EXPECT_EQ(answer(branches(fine)), "1");
  EXPECT_EQ(answer(attempts(fine)), "1");
  for (const std::string& script :
       {parentheses(many), negations(many), branches(many / 2), attempts(many / 2),
        "return " + repeated("character id ", many) + "9", "return " + repeated("(", many),
        "tell application id \"test.browser\"\nreturn " + repeated("URL of ", many) + "t\nend tell",
        repeated("tell application id \"a\"\n", many),
        "tell application id \"test.browser\"\nreturn " + repeated("do JavaScript ", many)}) {
    EXPECT_THAT(answer(script), testing::EndsWith(": The script is nested too deeply."));
  }
}

TEST_F(ScriptLimitsTest, LengthIsNoDepth) {
  constexpr std::size_t many = 6'000;
  EXPECT_EQ(answer("return 1" + repeated(" + 1", many)), "6001");
  EXPECT_EQ(answer("return \"\"" + repeated(" & 1", many)), std::string(many, '1'));
  EXPECT_EQ(answer("return true" + repeated(" and true", many)), "true");
  EXPECT_EQ(answer("return false" + repeated(" or false", many)), "false");
  EXPECT_EQ(answer("if false then\n" + repeated("else if false then\n", many) + "end if\nreturn 1"),
            "1");
  EXPECT_EQ(answer(repeated("set a to 1\n", many) + "return a"), "1");
  EXPECT_EQ(answer("return 1" + repeated("(* *)", many)), "1");
}

TEST_F(ScriptLimitsTest, ARunHasItsSteps) {
  for (int count = 0; count < 60; ++count) browser->openTab(browser->openWindow(), "u", "t");
  const std::string script =
      "tell application id \"test.browser\"\nset n to 0\n"
      "repeat with a in windows\nrepeat with b in windows\nrepeat with c in windows\n"
      "repeat with d in windows\nset n to n + 1\n"
      "end repeat\nend repeat\nend repeat\nend repeat\nreturn n\nend tell";
  const std::string stopped = answerWithin({.steps = 100'000}, script);
  EXPECT_THAT(stopped, StartsWith("execution -2700 at "));
  EXPECT_THAT(stopped, testing::EndsWith(": The script does too much."));
  EXPECT_EQ(answerWithin({.steps = 6}, "set a to 1\nset b to 2\nreturn 3"), "3");
  EXPECT_EQ(answerWithin({.steps = 5}, "set a to 1\nset b to 2\nreturn 3"),
            "execution -2700 at 3:8: The script does too much.");
}

TEST_F(ScriptLimitsTest, LongTextsTakeMoreSteps) {
  const std::string text(256UL * 100, 'x');
  const std::string script = "set a to \"" + text + "\"\nset b to a\nset c to a";
  EXPECT_EQ(answerWithin({.steps = 310}, script), "nothing");
  EXPECT_EQ(answerWithin({.steps = 300}, script),
            "execution -2700 at 3:10: The script does too much.");
}

TEST_F(ScriptLimitsTest, ATextHasALongestLength) {
  const ScriptLimits limits{.textSize = 10};
  EXPECT_EQ(answerWithin(limits, R"(return "12345" & "67890")"), "1234567890");
  EXPECT_EQ(answerWithin(limits, R"(return "12345" & "678901")"),
            "execution -2700 at 1:8: The text is too long.");
  EXPECT_EQ(answerWithin(limits, R"(return "12345678901" & "")"),
            "execution -2700 at 1:8: The text is too long.");
}

TEST_F(ScriptLimitsTest, ATextThatDoublesIsStopped) {
  EXPECT_EQ(answer("set a to \"0123456789\"\n" + repeated("set a to a & a\n", 64)),
            "execution -2700 at 22:10: The text is too long.");
}

TEST_F(ScriptLimitsTest, ATabWithTooLongATextIsSkipped) {
  const std::string window = browser->openWindow();
  browser->openTab(window, "12345678901", "t");
  browser->openTab(window, "1234567890", "12345678901");
  browser->openTab(window, "third", "t");
  EXPECT_EQ(answerWithin({.textSize = 10},
                         "tell application id \"test.browser\"\nrepeat with w in windows\n"
                         "repeat with t in tabs of w\ntry\nset u to URL of t\n"
                         "set n to name of t\nreturn u & n\nend try\nend repeat\nend repeat\n"
                         "end tell"),
            "thirdt");
}

TEST_F(ScriptLimitsTest, TryDoesNotCatchTheEndOfTheSteps) {
  EXPECT_EQ(answerWithin({.steps = 8}, "try\nset a to 1 + 1 + 1 + 1 + 1 + 1\nend try\nreturn 1"),
            "execution -2700 at 2:10: The script does too much.");
}

}  // namespace
}  // namespace talmo::test
