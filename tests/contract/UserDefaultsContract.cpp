#include "tests/contract/UserDefaultsContract.h"

#include <optional>
#include <string>

namespace talmo::test {

TEST_P(UserDefaultsContract, AbsentKeysReadAsNothingAndFalse) {
  EXPECT_EQ(defaults().string("selectedTargetAppID"), std::nullopt);
  EXPECT_FALSE(defaults().boolean("hasCompletedOnboarding"));
  reopen();
  EXPECT_EQ(defaults().string("selectedTargetAppID"), std::nullopt);
  EXPECT_FALSE(defaults().boolean("hasCompletedOnboarding"));
}

TEST_P(UserDefaultsContract, StringsReadBackAndSurviveAReopen) {
  defaults().setString("selectedTargetAppID", "vlc");
  defaults().setString("lastResolvedTargetID", "spotify");
  EXPECT_EQ(defaults().string("selectedTargetAppID"), "vlc");
  EXPECT_EQ(defaults().string("lastResolvedTargetID"), "spotify");
  reopen();
  EXPECT_EQ(defaults().string("selectedTargetAppID"), "vlc");
  EXPECT_EQ(defaults().string("lastResolvedTargetID"), "spotify");
}

TEST_P(UserDefaultsContract, BooleansReadBackAndSurviveAReopen) {
  defaults().setBoolean("hasCompletedOnboarding", true);
  defaults().setBoolean("browserAccessDismissed", false);
  EXPECT_TRUE(defaults().boolean("hasCompletedOnboarding"));
  EXPECT_FALSE(defaults().boolean("browserAccessDismissed"));
  reopen();
  EXPECT_TRUE(defaults().boolean("hasCompletedOnboarding"));
  EXPECT_FALSE(defaults().boolean("browserAccessDismissed"));
}

TEST_P(UserDefaultsContract, LaterValuesReplaceEarlierOnes) {
  defaults().setString("selectedTargetAppID", "vlc");
  defaults().setString("selectedTargetAppID", "auto");
  defaults().setBoolean("browserAccessDismissed", true);
  defaults().setBoolean("browserAccessDismissed", false);
  EXPECT_EQ(defaults().string("selectedTargetAppID"), "auto");
  EXPECT_FALSE(defaults().boolean("browserAccessDismissed"));
  reopen();
  EXPECT_EQ(defaults().string("selectedTargetAppID"), "auto");
  EXPECT_FALSE(defaults().boolean("browserAccessDismissed"));
  defaults().setString("selectedTargetAppID", "vlc");
  reopen();
  EXPECT_EQ(defaults().string("selectedTargetAppID"), "vlc");
}

TEST_P(UserDefaultsContract, SettingNothingRemovesTheKeyAndNoOther) {
  defaults().setString("selectedTargetAppID", "vlc");
  defaults().setString("lastResolvedTargetID", "spotify");
  defaults().setString("selectedTargetAppID", std::nullopt);
  EXPECT_EQ(defaults().string("selectedTargetAppID"), std::nullopt);
  EXPECT_EQ(defaults().string("lastResolvedTargetID"), "spotify");
  reopen();
  EXPECT_EQ(defaults().string("selectedTargetAppID"), std::nullopt);
  EXPECT_EQ(defaults().string("lastResolvedTargetID"), "spotify");
}

TEST_P(UserDefaultsContract, RemovingAnAbsentKeyChangesNothing) {
  defaults().setString("selectedTargetAppID", std::nullopt);
  EXPECT_EQ(defaults().string("selectedTargetAppID"), std::nullopt);
  defaults().setString("selectedTargetAppID", "vlc");
  EXPECT_EQ(defaults().string("selectedTargetAppID"), "vlc");
}

TEST_P(UserDefaultsContract, SettingNothingAlsoRemovesABoolean) {
  defaults().setBoolean("flag", true);
  defaults().setString("flag", std::nullopt);
  EXPECT_FALSE(defaults().boolean("flag"));
  reopen();
  EXPECT_FALSE(defaults().boolean("flag"));
}

TEST_P(UserDefaultsContract, ValueOfTheOtherKindIsNotRead) {
  defaults().setBoolean("flag", true);
  defaults().setString("text", "true");
  EXPECT_EQ(defaults().string("flag"), std::nullopt);
  EXPECT_FALSE(defaults().boolean("text"));
  reopen();
  EXPECT_EQ(defaults().string("flag"), std::nullopt);
  EXPECT_FALSE(defaults().boolean("text"));
  EXPECT_TRUE(defaults().boolean("flag"));
  EXPECT_EQ(defaults().string("text"), "true");
}

TEST_P(UserDefaultsContract, KeyMayChangeItsKind) {
  defaults().setBoolean("key", true);
  defaults().setString("key", "text");
  EXPECT_EQ(defaults().string("key"), "text");
  EXPECT_FALSE(defaults().boolean("key"));
  defaults().setBoolean("key", true);
  EXPECT_EQ(defaults().string("key"), std::nullopt);
  EXPECT_TRUE(defaults().boolean("key"));
  reopen();
  EXPECT_EQ(defaults().string("key"), std::nullopt);
  EXPECT_TRUE(defaults().boolean("key"));
}

TEST_P(UserDefaultsContract, EmptyStringIsAValue) {
  defaults().setString("key", "");
  EXPECT_EQ(defaults().string("key"), "");
  reopen();
  EXPECT_EQ(defaults().string("key"), "");
}

TEST_P(UserDefaultsContract, KeysAreToldApartByEveryLetter) {
  defaults().setString("key", "lower");
  defaults().setString("Key", "upper");
  defaults().setString("key ", "space");
  reopen();
  EXPECT_EQ(defaults().string("key"), "lower");
  EXPECT_EQ(defaults().string("Key"), "upper");
  EXPECT_EQ(defaults().string("key "), "space");
}

TEST_P(UserDefaultsContract, OddKeysAndValuesSurvive) {
  const std::string texts[] = {
      "a.b/c\\d",
      "\"quoted\"",
      "line\nbreak\r\n\ttab",
      "{\"json\": [1, null]}",
      "\u65e5\u672c\u8a9e",
      "\u00e9 e\u0301",
      "\U0001F3B5",
      "  spaces  ",
      "%{public}s %d",
      "\x01\x1b[0m\x7f",
      "null",
  };
  for (const std::string& text : texts) defaults().setString(text, text);
  reopen();
  for (const std::string& text : texts) EXPECT_EQ(defaults().string(text), text);
}

TEST_P(UserDefaultsContract, LongValuesSurvive) {
  const std::string text(100'000, 'x');
  defaults().setString("long", text);
  reopen();
  EXPECT_EQ(defaults().string("long"), text);
}

}  // namespace talmo::test
