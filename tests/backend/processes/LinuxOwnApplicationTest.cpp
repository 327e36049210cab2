#include <stdlib.h>

#include <gtest/gtest.h>

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/linux/interface/LinuxOwnApplication.h"
#include "platform/linux/LinuxBundle.h"

namespace talmo::test {
namespace {

TEST(LinuxOwnApplication, EndsWithItsMainLoop) {
  LinuxDispatch dispatch;
  const LinuxBundle bundle;
  LinuxOwnApplication application(dispatch, bundle);
  EXPECT_FALSE(application.isTerminating());
  bool hasGoneOn = false;
  dispatch.mainQueue().async([&] {
    application.terminate();
    hasGoneOn = true;
  });
  dispatch.runMainLoop();
  EXPECT_TRUE(hasGoneOn);
  EXPECT_TRUE(application.isTerminating());
}

TEST(LinuxOwnApplication, KnowsTheEnvironmentOfItsProcess) {
  LinuxDispatch dispatch;
  const LinuxBundle bundle;
  const LinuxOwnApplication application(dispatch, bundle);
  ::setenv("TALMO_TEST_VARIABLE", "a value", 1);
  EXPECT_EQ(application.environmentVariable("TALMO_TEST_VARIABLE"), "a value");
  ::setenv("TALMO_TEST_VARIABLE", "", 1);
  EXPECT_EQ(application.environmentVariable("TALMO_TEST_VARIABLE"), "");
  ::unsetenv("TALMO_TEST_VARIABLE");
  EXPECT_EQ(application.environmentVariable("TALMO_TEST_VARIABLE"), std::nullopt);
}

}  // namespace
}  // namespace talmo::test
