#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/LaunchAtLogin.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Line = SimulatedLog::Line;

class LaunchAtLoginTest : public testing::Test {
 protected:
  Line failed(const char* description) {
    return {.level = LogLevel::error,
            .subsystem = "nl.brelm.Talmo",
            .category = "launch-at-login",
            .message = std::string("Launch at login toggle failed: ") + description};
  }

  test::SimulatedWorld world_;
  SimulatedLoginItem& item_ = world_.machine().loginItem();
  SimulatedLog& log_ = world_.machine().log();
};

TEST_F(LaunchAtLoginTest, IsWhatTheSystemSaysAtThatMoment) {
  EXPECT_FALSE(LaunchAtLogin::isEnabled());
  item_.setEnabled(true);
  EXPECT_TRUE(LaunchAtLogin::isEnabled());
  item_.setEnabled(false);
  EXPECT_FALSE(LaunchAtLogin::isEnabled());
}

TEST_F(LaunchAtLoginTest, TogglingRegistersAndUnregistersInTurn) {
  LaunchAtLogin::toggle();
  EXPECT_TRUE(LaunchAtLogin::isEnabled());
  LaunchAtLogin::toggle();
  EXPECT_FALSE(LaunchAtLogin::isEnabled());
  LaunchAtLogin::toggle();
  EXPECT_TRUE(LaunchAtLogin::isEnabled());
  EXPECT_EQ(item_.registrations(), 2);
  EXPECT_EQ(item_.unregistrations(), 1);
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(LaunchAtLoginTest, TogglingFollowsWhatThePersonDidInTheSystemsSettings) {
  LaunchAtLogin::toggle();
  item_.setEnabled(false);
  LaunchAtLogin::toggle();
  EXPECT_TRUE(LaunchAtLogin::isEnabled());
  EXPECT_EQ(item_.unregistrations(), 0);
}

TEST_F(LaunchAtLoginTest, AFailingRegistrationLeavesTheStateAndLogsOneLine) {
  item_.setFailure("Operation not permitted");
  LaunchAtLogin::toggle();
  EXPECT_FALSE(LaunchAtLogin::isEnabled());
  EXPECT_EQ(item_.registrations(), 1);
  EXPECT_EQ(item_.unregistrations(), 0);
  EXPECT_THAT(log_.lines(), ElementsAre(failed("Operation not permitted")));
}

TEST_F(LaunchAtLoginTest, AFailingUnregistrationLeavesTheStateAndLogsOneLine) {
  item_.setEnabled(true);
  item_.setFailure("%s is no format");
  LaunchAtLogin::toggle();
  EXPECT_TRUE(LaunchAtLogin::isEnabled());
  EXPECT_EQ(item_.registrations(), 0);
  EXPECT_EQ(item_.unregistrations(), 1);
  EXPECT_THAT(log_.lines(), ElementsAre(failed("%s is no format")));
}

}  // namespace
}  // namespace talmo
