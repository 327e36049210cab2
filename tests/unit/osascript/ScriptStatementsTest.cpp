#include <gmock/gmock.h>

#include "tests/unit/osascript/ScriptTest.h"

namespace talmo::test {
namespace {

using testing::IsEmpty;

class ScriptStatements : public ScriptTest {
 protected:
  /// Three windows with a tab each.
  void openThree() {
    for (int count = 0; count < 3; ++count) browser->openTab(browser->openWindow(), "u", "t");
  }
};

TEST_F(ScriptStatements, VariablesHoldWhatTheyWereSetToLast) {
  EXPECT_EQ(answer("set a to 1\nset a to a + 1\nset b to a\nset a to 9\nreturn b"), "2");
  EXPECT_EQ(answer("set Name_1 to 3\nreturn nAME_1"), "3");
  EXPECT_EQ(answer("set a to missing value\nreturn a is missing value"), "true");
}

TEST_F(ScriptStatements, AVariableThatWasNeverSetIsAnError) {
  EXPECT_EQ(answer("set a to 1\nreturn a & b"),
            "execution -1700 at 2:8: Can\u2019t make 1 into type Unicode text.");
  EXPECT_EQ(answer("set a to 1\nreturn b"),
            "execution -2753 at 2:8: The variable b is not defined.");
  EXPECT_EQ(answer("if false then\nset a to 1\nend if\nreturn a"),
            "execution -2753 at 4:8: The variable a is not defined.");
}

TEST_F(ScriptStatements, BlocksHaveNoVariablesOfTheirOwn) {
  openThree();
  EXPECT_EQ(answer("if true then\nset a to 1\nend if\n"
                   "try\nset b to 2\nend try\n"
                   "tell application id \"test.browser\"\n"
                   "repeat with w in windows\nset c to 3\nend repeat\n"
                   "end tell\n"
                   "considering case\nset d to 4\nend considering\n"
                   "return \"\" & a & b & c & d"),
            "1234");
}

TEST_F(ScriptStatements, ALoopLeavesItsVariableBehind) {
  openThree();
  EXPECT_EQ(told("repeat with w in windows\nend repeat\nreturn w"), "window id 5");
}

TEST_F(ScriptStatements, ALoopOverNothingSetsNothing) {
  EXPECT_EQ(told("repeat with w in windows\nset a to 1\nend repeat\nreturn w"),
            "execution -2753 at 5:8: The variable w is not defined.");
}

TEST_F(ScriptStatements, ALoopNeedsAList) {
  EXPECT_EQ(answer("repeat with x in 3\nend repeat"),
            "execution -1700 at 1:18: Can\u2019t make 3 into type list.");
}

TEST_F(ScriptStatements, ALoopGoesOnWhateverItsVariableIsSetTo) {
  openThree();
  EXPECT_EQ(told("set n to 0\nrepeat with w in windows\nset w to missing value\nset n to n + 1\n"
                 "end repeat\nreturn n"),
            "3");
}

TEST_F(ScriptStatements, ExitLeavesTheInnermostLoop) {
  openThree();
  EXPECT_EQ(told("set n to 0\n"
                 "repeat with w in windows\n"
                 "  repeat with v in windows\n"
                 "    set n to n + 1\n"
                 "    try\n"
                 "      if n >= 2 then\n"
                 "        exit repeat\n"
                 "      end if\n"
                 "    end try\n"
                 "  end repeat\n"
                 "  set n to n + 10\n"
                 "end repeat\n"
                 "return n"),
            // 1, 2 and 12; 13 and 23; 24 and 34.
            "34");
}

TEST_F(ScriptStatements, ReturnLeavesEverything) {
  openThree();
  EXPECT_EQ(told("repeat with w in windows\nrepeat with v in windows\ntry\nif true then return 7\n"
                 "end try\nend repeat\nend repeat\nreturn 8"),
            "7");
  EXPECT_EQ(answer("return\nreturn 1"), "nothing");
}

TEST_F(ScriptStatements, AScriptWithoutReturnHasNoResult) {
  EXPECT_EQ(answer(""), "nothing");
  EXPECT_EQ(answer("set a to 1"), "nothing");
}

TEST_F(ScriptStatements, TheFirstBranchThatHoldsIsTaken) {
  for (const auto& [number, expected] :
       {std::pair("1", "one"), std::pair("2", "two"), std::pair("3", "more")}) {
    EXPECT_EQ(answer("set n to " + std::string(number) +
                     "\nif n is 1 then\nset r to \"one\"\nelse if n is 2 then\nset r to \"two\"\n"
                     "else\nset r to \"more\"\nend if\nreturn r"),
              expected);
  }
  EXPECT_EQ(answer("set r to 0\nif false then\nset r to 1\nelse if false then\nset r to 2\nend if\n"
                   "return r"),
            "0");
  EXPECT_EQ(answer("if true then\nelse\nreturn 1\nend if\nreturn 2"), "2");
}

TEST_F(ScriptStatements, OneLineIsEnoughForAnIf) {
  EXPECT_EQ(answer("set n to 51\nif n > 50 then return \"many\"\nreturn \"few\""), "many");
  EXPECT_EQ(answer("set n to 50\nif n > 50 then return \"many\"\nreturn \"few\""), "few");
  EXPECT_EQ(answer("if true then set a to 3\nreturn a"), "3");
}

TEST_F(ScriptStatements, AConditionIsTrueOrFalse) {
  EXPECT_EQ(answer("if 1 then\nend if"),
            "execution -1700 at 1:4: Can\u2019t make 1 into type boolean.");
  EXPECT_EQ(answer("if missing value then return 1"),
            "execution -1700 at 1:4: Can\u2019t make missing value into type boolean.");
}

TEST_F(ScriptStatements, TryEndsAtItsFirstErrorAndForgetsIt) {
  EXPECT_EQ(answer("set a to 1\ntry\nset a to 2\nset a to nowhere\nset a to 3\nend try\nreturn a"),
            "2");
  EXPECT_EQ(answer("try\ntry\nset a to nowhere\nend try\nset a to 5\nend try\nreturn a"), "5");
}

TEST_F(ScriptStatements, CaseCountsWhereItIsConsidered) {
  EXPECT_EQ(answer("considering case\nreturn \"a\" is \"A\"\nend considering"), "false");
  EXPECT_EQ(answer("considering case\nreturn \"ab\" contains \"A\"\nend considering"), "false");
  EXPECT_EQ(answer("considering case\nreturn \"B\" < \"a\"\nend considering"), "true");
  EXPECT_EQ(answer("considering case\nreturn \"\u00E9\" is \"e\u0301\"\nend considering"), "true");
  EXPECT_EQ(answer("considering case\nend considering\nreturn \"a\" is \"A\""), "true");
  EXPECT_EQ(answer("try\nconsidering case\nset a to nowhere\nend considering\nend try\n"
                   "return \"a\" is \"A\""),
            "true");
}

TEST_F(ScriptStatements, ABrowserThatIsNotThereIsAnError) {
  EXPECT_EQ(answer("tell application id \"no \\\"browser\\\"\"\nactivate\nend tell"),
            "execution -1728 at 1:1: Can\u2019t get application id \"no \\\"browser\\\"\".");
  EXPECT_EQ(answer("try\ntell application id \"none\"\nend tell\nend try\nreturn 1"), "1");
}

TEST_F(ScriptStatements, ABrowserIsLookedForOnceHoweverOftenItIsTold) {
  EXPECT_EQ(answer("tell application id \"test.browser\"\nactivate\nend tell\n"
                   "tell application id \"test.browser\"\nactivate\nend tell"),
            "nothing");
  EXPECT_EQ(resolved, 1);
  EXPECT_EQ(browser->effects().size(), 2U);
}

TEST_F(ScriptStatements, AScriptThatIsNotUnderstoodDoesNothing) {
  EXPECT_EQ(answer("tell application id \"test.browser\"\nactivate\nend tell\nbeep"),
            "syntax -2741 at 4:1: Expected a statement but found \u201Cbeep\u201D.");
  EXPECT_EQ(resolved, 0);
  EXPECT_THAT(browser->effects(), IsEmpty());
}

}  // namespace
}  // namespace talmo::test
