#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/AppCoordinator.h"
#include "app/Preferences.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo {
namespace {

class PreferencesTest : public testing::Test {
 protected:
  test::SimulatedWorld world_;
  SimulatedUserDefaults& defaults_ = world_.machine().userDefaults();
};

TEST_F(PreferencesTest, AFirstLaunchHasNoneOfTheKeys) {
  EXPECT_EQ(Preferences::selectedTargetAppID(), std::nullopt);
  EXPECT_EQ(Preferences::lastResolvedTargetID(), std::nullopt);
  EXPECT_FALSE(Preferences::hasCompletedOnboarding());
  EXPECT_FALSE(Preferences::browserAccessDismissed());
  EXPECT_FALSE(Preferences::hasBeenAccessibilityTrusted());

  const auto coordinator = AppCoordinator::make();
  coordinator->updateActiveController();
  EXPECT_EQ(coordinator->currentTargetID(), "auto");
}

TEST_F(PreferencesTest, SelectingAutoWritesTheWordRatherThanRemovingTheKey) {
  Preferences::setSelectedTargetAppID(std::string(Preferences::autoSentinel));
  EXPECT_EQ(defaults_.string("selectedTargetAppID"), "auto");
}

TEST_F(PreferencesTest, EachPropertyHasItsKey) {
  Preferences::setSelectedTargetAppID("vlc");
  Preferences::setLastResolvedTargetID("spotify");
  Preferences::setHasCompletedOnboarding(true);
  Preferences::setBrowserAccessDismissed(true);
  Preferences::setHasBeenAccessibilityTrusted(true);

  EXPECT_EQ(defaults_.string("selectedTargetAppID"), "vlc");
  EXPECT_EQ(defaults_.string("lastResolvedTargetID"), "spotify");
  EXPECT_TRUE(defaults_.boolean("hasCompletedOnboarding"));
  EXPECT_TRUE(defaults_.boolean("browserAccessDismissed"));
  EXPECT_TRUE(defaults_.boolean("hasBeenAccessibilityTrusted"));
  EXPECT_EQ(Preferences::selectedTargetAppID(), "vlc");
  EXPECT_EQ(Preferences::lastResolvedTargetID(), "spotify");
  EXPECT_TRUE(Preferences::hasCompletedOnboarding());
  EXPECT_TRUE(Preferences::browserAccessDismissed());
  EXPECT_TRUE(Preferences::hasBeenAccessibilityTrusted());
}

TEST_F(PreferencesTest, NothingRemovesAStringAndFalseIsKept) {
  Preferences::setLastResolvedTargetID("vlc");
  Preferences::setLastResolvedTargetID(std::nullopt);
  EXPECT_FALSE(defaults_.contains("lastResolvedTargetID"));

  Preferences::setBrowserAccessDismissed(false);
  EXPECT_TRUE(defaults_.contains("browserAccessDismissed"));
  EXPECT_FALSE(Preferences::browserAccessDismissed());
}

TEST_F(PreferencesTest, AValueOfAnotherTypeReadsAsAbsent) {
  defaults_.setBoolean("selectedTargetAppID", true);
  defaults_.setString("hasCompletedOnboarding", "true");
  EXPECT_EQ(Preferences::selectedTargetAppID(), std::nullopt);
  EXPECT_FALSE(Preferences::hasCompletedOnboarding());
}

TEST(PreferencesRestart, TheSelectionSurvivesARestart) {
  const auto settings = std::make_shared<SimulatedUserDefaults::Store>();
  {
    const test::SimulatedWorld first(0, settings);
    Preferences::setSelectedTargetAppID("vlc");
  }
  const test::SimulatedWorld second(0, settings);
  const auto coordinator = AppCoordinator::make();
  coordinator->updateActiveController();
  EXPECT_EQ(coordinator->currentTargetID(), "vlc");
}

}  // namespace
}  // namespace talmo
