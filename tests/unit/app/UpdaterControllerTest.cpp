#include <memory>

#include <gtest/gtest.h>

#include "app/UpdaterController.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo {
namespace {

class UpdaterControllerTest : public testing::Test {
 protected:
  static constexpr const char* feed = "https://updates.example/appcast.xml";

  /// Makes this a build that says where its updates are.
  void setFeed() { world_.machine().bundle().setInfo("SUFeedURL", feed); }

  /// Uses every feature of an updater that is not available.
  void expectUnavailable() {
    UpdaterController& updater = UpdaterController::shared();
    EXPECT_FALSE(updater.isAvailable());
    EXPECT_FALSE(updater.automaticallyChecksForUpdates());
    updater.setAutomaticallyChecksForUpdates(true);
    EXPECT_FALSE(updater.automaticallyChecksForUpdates());
    updater.checkForUpdates();
    EXPECT_FALSE(framework_.checksAutomatically());
    EXPECT_EQ(framework_.started(), 0);
    EXPECT_EQ(framework_.checks(), 0);
  }

  test::SimulatedWorld world_;
  SimulatedSoftwareUpdate& framework_ = world_.machine().softwareUpdate();
};

TEST_F(UpdaterControllerTest, WithoutAFeedNoUpdaterIsEverMade) {
  framework_.setChecksAutomatically(false);
  expectUnavailable();
  // The build is what it was when the program started.
  setFeed();
  expectUnavailable();
  EXPECT_EQ(framework_.made(), 0);
}

TEST_F(UpdaterControllerTest, AnotherKeyIsNoFeed) {
  world_.machine().bundle().setInfo("SUFeedUrl", feed);
  world_.machine().bundle().setInfo("SUPublicEDKey", "key");
  expectUnavailable();
  EXPECT_EQ(framework_.made(), 0);
}

TEST_F(UpdaterControllerTest, WithoutTheFrameworkItIsUnavailable) {
  setFeed();
  framework_.setInstalled(false);
  expectUnavailable();
  EXPECT_EQ(framework_.made(), 1);
}

TEST_F(UpdaterControllerTest, NothingIsMadeBeforeTheFirstUseAndOneThingAfterwards) {
  setFeed();
  EXPECT_EQ(framework_.made(), 0);
  UpdaterController* const first = &UpdaterController::shared();
  EXPECT_EQ(&UpdaterController::shared(), first);
  EXPECT_TRUE(first->isAvailable());
  EXPECT_EQ(framework_.made(), 1);
  EXPECT_EQ(framework_.started(), 1);
  EXPECT_EQ(framework_.checks(), 0);
}

TEST_F(UpdaterControllerTest, TheSettingIsTheFrameworks) {
  setFeed();
  UpdaterController& updater = UpdaterController::shared();
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  updater.setAutomaticallyChecksForUpdates(true);
  EXPECT_TRUE(framework_.checksAutomatically());
  EXPECT_TRUE(updater.automaticallyChecksForUpdates());
  framework_.setChecksAutomatically(false);
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  framework_.setChecksAutomatically(true);
  updater.setAutomaticallyChecksForUpdates(false);
  EXPECT_FALSE(framework_.checksAutomatically());
}

TEST_F(UpdaterControllerTest, EachRequestIsOneCheck) {
  setFeed();
  UpdaterController::shared().checkForUpdates();
  EXPECT_EQ(framework_.checks(), 1);
  UpdaterController::shared().checkForUpdates();
  EXPECT_EQ(framework_.checks(), 2);
}

TEST_F(UpdaterControllerTest, ItIsTheDelegateOfItsUpdaterAndSupportsGentleReminders) {
  setFeed();
  UpdaterController& updater = UpdaterController::shared();
  ASSERT_EQ(framework_.delegate(), &updater);
  EXPECT_TRUE(framework_.delegate()->supportsGentleScheduledUpdateReminders());
}

TEST_F(UpdaterControllerTest, AnUpdateThatIsAboutToBeShownBringsTheProgramToTheFront) {
  setFeed();
  UpdaterController::shared().checkForUpdates();
  ASSERT_NE(framework_.delegate(), nullptr);
  EXPECT_EQ(world_.machine().application().activations(), 0);
  framework_.delegate()->standardUserDriverWillHandleShowingUpdate();
  EXPECT_EQ(world_.machine().application().activations(), 1);
}

TEST(UpdaterControllerRestart, EachPlatformHasItsOwn) {
  {
    test::SimulatedWorld first;
    first.machine().bundle().setInfo("SUFeedURL", "https://updates.example/appcast.xml");
    EXPECT_TRUE(UpdaterController::shared().isAvailable());
  }
  const test::SimulatedWorld second;
  EXPECT_FALSE(UpdaterController::shared().isAvailable());
}

}  // namespace
}  // namespace talmo
