#include <utility>
#include <vector>

#include "tests/unit/osascript/ScriptTest.h"

namespace talmo::test {
namespace {

using Table = std::vector<std::pair<const char*, const char*>>;

class ScriptExpressions : public ScriptTest {
 protected:
  void expectValues(const Table& table) {
    for (const auto& [expression, expected] : table) {
      EXPECT_EQ(value(expression), expected) << expression;
    }
  }
};

TEST_F(ScriptExpressions, LiteralsAreTheirValues) {
  expectValues({
      {R"("")", ""},
      {R"("plain")", "plain"},
      {R"("a \"b\" \\ c")", "a \"b\" \\ c"},
      {R"("1\n2\r3\t4")", "1\n2\r3\t4"},
      {"\"two\nlines\"", "two\nlines"},
      {R"("\\n")", "\\n"},
      {R"("-- no comment (* either *) # nor this")", "-- no comment (* either *) # nor this"},
      {"\"\xC3\xA9 \xF0\x9F\x8E\xB5\"", "\xC3\xA9 \xF0\x9F\x8E\xB5"},
      {"0", "0"},
      {"007", "7"},
      {"9223372036854775807", "9223372036854775807"},
      {"true", "true"},
      {"FALSE", "false"},
      {"missing value", "missing value"},
  });
}

TEST_F(ScriptExpressions, CharactersHaveNumbers) {
  expectValues({
      {"character id 9", "\t"},
      {"character id 10", "\n"},
      {"character id 233", "\xC3\xA9"},
      {"character id 127925", "\xF0\x9F\x8E\xB5"},
      {"character id (60 + 5)", "A"},
      {"character id 1114112",
       "execution -1700 at 1:8: Can\u2019t make 1114112 into type character."},
      {"character id 55296", "execution -1700 at 1:8: Can\u2019t make 55296 into type character."},
      {"character id \"9\"", "execution -1700 at 1:21: Can\u2019t make \"9\" into type integer."},
  });
  EXPECT_EQ(value("character id 0"), std::string(1, '\0'));
}

TEST_F(ScriptExpressions, ConcatenationMakesText) {
  expectValues({
      {R"("a" & "b")", "ab"},
      {R"("a" & "b" & "c")", "abc"},
      {R"("a" & 1)", "a1"},
      {R"("a" & true)", "atrue"},
      {R"("a" & missing value)", "amissing value"},
      {R"(1 & "a")", "execution -1700 at 1:8: Can\u2019t make 1 into type Unicode text."},
      {R"(missing value & "a")",
       "execution -1700 at 1:8: Can\u2019t make missing value into type Unicode text."},
  });
}

TEST_F(ScriptExpressions, SumsAreWhole) {
  expectValues({
      {"1 + 2", "3"},
      {"1 + 2 + 3", "6"},
      {"9223372036854775806 + 1", "9223372036854775807"},
      {"9223372036854775807 + 1",
       "execution -2702 at 1:8: The result of a numeric operation was too large."},
      {R"(1 + "2")", "execution -1700 at 1:12: Can\u2019t make \"2\" into type number."},
      {"true + 1", "execution -1700 at 1:8: Can\u2019t make true into type number."},
  });
}

TEST_F(ScriptExpressions, EqualityIgnoresCaseAndNeverConverts) {
  expectValues({
      {R"("abc" is "abc")", "true"},
      {R"("abc" is "ABC")", "true"},
      {R"("abc" = "AbC")", "true"},
      {R"("abc" is "abcd")", "false"},
      {R"("abc" is " abc")", "false"},
      {R"("abc" is not "ABC")", "false"},
      {R"("abc" is not "abd")", "true"},
      {"\"abc\" \u2260 \"abd\"", "true"},
      {"\"\u00C9T\u00C9\" is \"e\u0301te\u0301\"", "true"},
      {"\"\u00E9\" is \"e\"", "false"},
      {"\"\u03A3\" is \"\u03C2\"", "true"},
      {"1 is 1", "true"},
      {"1 is 2", "false"},
      {"1 is not 2", "true"},
      {R"(1 is "1")", "false"},
      {R"("1" is not 1)", "true"},
      {"true is true", "true"},
      {R"("true" is true)", "false"},
      {"missing value is missing value", "true"},
      {"missing value is not missing value", "false"},
      {R"("missing value" is missing value)", "false"},
      {"0 is missing value", "false"},
      {R"("" is missing value)", "false"},
  });
}

TEST_F(ScriptExpressions, OrderIsThatOfNumbersOrOfTextsWithoutCase) {
  expectValues({
      {"1 < 2", "true"},
      {"2 < 2", "false"},
      {"2 <= 2", "true"},
      {"3 <= 2", "false"},
      {"3 > 2", "true"},
      {"2 > 2", "false"},
      {"2 >= 2", "true"},
      {"1 >= 2", "false"},
      {"2 \u2264 2", "true"},
      {"2 \u2265 3", "false"},
      {"51 > 9", "true"},
      {R"("a" < "B")", "true"},
      {R"("B" < "a")", "false"},
      {R"("a" >= "A")", "true"},
      {R"("51" > "9")", "false"},
      {R"(1 < "2")", "execution -1700 at 1:12: Can\u2019t make \"2\" into type number."},
      {R"("1" < 2)", "execution -1700 at 1:14: Can\u2019t make 2 into type Unicode text."},
      {"missing value < 2",
       "execution -1700 at 1:8: Can\u2019t make missing value into type number."},
  });
}

TEST_F(ScriptExpressions, ContainmentIgnoresCase) {
  expectValues({
      {R"("https://www.YouTube.com/" contains "youtube.com")", "true"},
      {R"("https://example.com/" contains "youtube.com")", "false"},
      {R"("a" contains "")", "true"},
      {R"("" contains "a")", "false"},
      {R"("ab" contains "abc")", "false"},
      {"\"\u039F\u0394\u039F\u03A3 \u0391\" contains \"\u03BF\u03B4\u03BF\u03C3\"", "true"},
      {R"(missing value contains "a")",
       "execution -1700 at 1:8: Can\u2019t make missing value into type Unicode text."},
      {R"("a1" contains 1)", "execution -1700 at 1:22: Can\u2019t make 1 into type Unicode text."},
  });
}

TEST_F(ScriptExpressions, LogicTakesTruthOnly) {
  expectValues({
      {"not true", "false"},
      {"not not true", "true"},
      {"true and true", "true"},
      {"true and false", "false"},
      {"false or true", "true"},
      {"false or false", "false"},
      {"not 1", "execution -1700 at 1:12: Can\u2019t make 1 into type boolean."},
      {R"("true" and true)", "execution -1700 at 1:8: Can\u2019t make \"true\" into type boolean."},
      {"false or 1", "execution -1700 at 1:17: Can\u2019t make 1 into type boolean."},
  });
}

TEST_F(ScriptExpressions, LogicLeavesOutWhatCannotMatter) {
  expectValues({
      {"false and nowhere", "false"},
      {"true or nowhere", "true"},
      {"true and nowhere", "execution -2753 at 1:17: The variable nowhere is not defined."},
  });
}

TEST_F(ScriptExpressions, TighterOperatorsComeFirst) {
  expectValues({
      {R"("a" & 1 + 2)", "a3"},
      {R"("a" & 1 is "A1")", "true"},
      {R"("a" & "b" contains "ab")", "true"},
      {R"("ab" contains "a" & "b")", "true"},
      {"1 + 1 > 1", "true"},
      {"1 < 2 is true", "true"},
      {"true is 2 > 1", "true"},
      {"not 1 is 2", "true"},
      {"not true is false", "true"},
      {"not true or true", "true"},
      {"not (true or true)", "false"},
      {"true or true and false", "true"},
      {"(true or true) and false", "false"},
      {"false and false or true", "true"},
      {"false and (false or true)", "false"},
      {"1 is 1 and 2 is 2", "true"},
      {R"((1 is 1) & "")", "execution -1700 at 1:9: Can\u2019t make true into type Unicode text."},
      {"((((1))))", "1"},
  });
}

TEST_F(ScriptExpressions, ComparisonsDoNotChain) {
  for (const char* expression : {"1 = 1 = 1", "1 is 1 is 1", "1 is not 2 = 3"}) {
    EXPECT_TRUE(value(expression).starts_with("syntax -2741")) << expression;
  }
  for (const char* expression : {"1 < 2 < 3", R"("a" contains "a" contains "a")", "1 < 2 >= 1"}) {
    EXPECT_TRUE(value(expression).starts_with("syntax -2741")) << expression;
  }
}

}  // namespace
}  // namespace talmo::test
