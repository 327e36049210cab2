#include <gtest/gtest.h>

#include "app/UpdaterController.h"
#include "platform/linux/LinuxSoftwareUpdate.h"
#include "platform/simulated/SimulatedBundle.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {
namespace {

TEST(UpdatesOnLinux, AreNotAvailableEvenToABuildThatNamesItsFeed) {
  SimulatedBundle bundle;
  bundle.setInfo("SUFeedURL", "https://updates.example/appcast.xml");
  LinuxSoftwareUpdate framework;
  const TestPlatform platform({.bundle = &bundle, .softwareUpdate = &framework});
  UpdaterController& updater = UpdaterController::shared();
  EXPECT_FALSE(updater.isAvailable());
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  updater.setAutomaticallyChecksForUpdates(true);
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  updater.checkForUpdates();
}

}  // namespace
}  // namespace talmo::test
