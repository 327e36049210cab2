// The options menu, which is made anew each time that it drops down.

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Preferences.h"
#include "panel/GearMenuButton.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;

class GearMenuTest : public testing::Test {
 protected:
  SimulatedPlatform& machine() { return world_.machine(); }
  SimulatedDispatch& time() { return world_.time(); }

  /// Makes this a build with updates.
  void setFeed() { machine().bundle().setInfo("SUFeedURL", "https://updates.example/appcast.xml"); }

  /// The items that drop down now; a check mark stands behind a title.
  std::vector<std::string> items() {
    std::vector<std::string> found;
    for (const MenuItem& item : button.menu().items) {
      EXPECT_EQ(item.keyEquivalent, "");
      found.push_back(item.title + (item.isChecked ? " \u2713" : ""));
    }
    return found;
  }

  void choose(const std::string& title) {
    const Menu menu = button.menu();
    const auto item = std::ranges::find(menu.items, title, &MenuItem::title);
    ASSERT_NE(item, menu.items.end()) << title;
    item->action();
  }

 private:
  SimulatedWorld world_;

 protected:
  const View button = gearMenuButton();
};

TEST_F(GearMenuTest, HasWhatAlwaysApplies) {
  EXPECT_THAT(items(), ElementsAre("About Talmo", "Launch at Login"));
}

TEST_F(GearMenuTest, HasEverythingInItsOrder) {
  setFeed();
  Preferences::setBrowserAccessDismissed(true);
  EXPECT_THAT(items(), ElementsAre("About Talmo", "Check for Updates\u2026", "Update Automatically",
                                   "Look for Players in a Browser", "Launch at Login"));
}

TEST_F(GearMenuTest, AFeedWithoutTheFrameworkIsNoUpdater) {
  setFeed();
  machine().softwareUpdate().setInstalled(false);
  EXPECT_THAT(items(), ElementsAre("About Talmo", "Launch at Login"));
}

TEST_F(GearMenuTest, AboutComesToTheFront) {
  choose("About Talmo");
  EXPECT_EQ(machine().application().aboutPanels(), 1);
  EXPECT_EQ(machine().application().activations(), 1);
}

TEST_F(GearMenuTest, UpdatesAreCheckedForAndToggled) {
  setFeed();
  choose("Check for Updates\u2026");
  EXPECT_EQ(machine().softwareUpdate().checks(), 1);
  choose("Update Automatically");
  EXPECT_TRUE(machine().softwareUpdate().checksAutomatically());
  EXPECT_THAT(items(), testing::Contains("Update Automatically \u2713"));
  choose("Update Automatically");
  EXPECT_FALSE(machine().softwareUpdate().checksAutomatically());
  EXPECT_THAT(items(), testing::Contains("Update Automatically"));
  EXPECT_EQ(machine().softwareUpdate().checks(), 1);
}

TEST_F(GearMenuTest, TheLoginItemIsToggledAndReadAnew) {
  choose("Launch at Login");
  EXPECT_TRUE(machine().loginItem().isEnabled());
  EXPECT_THAT(items(), ElementsAre("About Talmo", "Launch at Login \u2713"));
  // As by the person, in the system's settings.
  machine().loginItem().setEnabled(false);
  EXPECT_THAT(items(), ElementsAre("About Talmo", "Launch at Login"));
  machine().loginItem().setEnabled(true);
  choose("Launch at Login");
  EXPECT_FALSE(machine().loginItem().isEnabled());
}

TEST_F(GearMenuTest, ADismissedOfferIsTakenBack) {
  Preferences::setBrowserAccessDismissed(true);
  int notices = 0;
  machine().notifications().addObserver("nl.brelm.Talmo.browserPrimerRestored",
                                        [&notices] { ++notices; });
  choose("Look for Players in a Browser");
  EXPECT_FALSE(Preferences::browserAccessDismissed());
  time().runUntilIdle();
  EXPECT_EQ(notices, 1);
  EXPECT_THAT(items(), ElementsAre("About Talmo", "Launch at Login"));
}

}  // namespace
}  // namespace talmo::test
