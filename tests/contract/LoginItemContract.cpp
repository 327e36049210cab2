#include "tests/contract/LoginItemContract.h"

#include <optional>
#include <string>

namespace talmo::test {

TEST_P(LoginItemContract, AProgramIsNoLoginItemAtFirst) {
  EXPECT_FALSE(item().isEnabled());
  EXPECT_FALSE(item().isEnabled());
}

TEST_P(LoginItemContract, ARegisteredProgramIsOneInTheNextRunToo) {
  EXPECT_EQ(item().registerMainApp(), std::nullopt);
  EXPECT_TRUE(item().isEnabled());
  world().reopen();
  EXPECT_TRUE(item().isEnabled());
}

TEST_P(LoginItemContract, AnUnregisteredProgramIsNoneInTheNextRunEither) {
  EXPECT_EQ(item().registerMainApp(), std::nullopt);
  EXPECT_EQ(item().unregisterMainApp(), std::nullopt);
  EXPECT_FALSE(item().isEnabled());
  world().reopen();
  EXPECT_FALSE(item().isEnabled());
}

TEST_P(LoginItemContract, RegisteringTwiceIsUndoneAtOnce) {
  EXPECT_EQ(item().registerMainApp(), std::nullopt);
  EXPECT_EQ(item().registerMainApp(), std::nullopt);
  EXPECT_TRUE(item().isEnabled());
  EXPECT_EQ(item().unregisterMainApp(), std::nullopt);
  EXPECT_FALSE(item().isEnabled());
}

TEST_P(LoginItemContract, UnregisteringWhatIsNotRegisteredDoesNothing) {
  EXPECT_EQ(item().unregisterMainApp(), std::nullopt);
  EXPECT_FALSE(item().isEnabled());
}

TEST_P(LoginItemContract, WhatThePersonSwitchedOffIsOffAndCanBeRegisteredAgain) {
  EXPECT_EQ(item().registerMainApp(), std::nullopt);
  world().switchOff();
  EXPECT_FALSE(item().isEnabled());
  EXPECT_EQ(item().registerMainApp(), std::nullopt);
  EXPECT_TRUE(item().isEnabled());
}

TEST_P(LoginItemContract, ARegistrationThatFailsIsDescribedAndChangesNothing) {
  world().setFails(true);
  EXPECT_NE(item().registerMainApp().value_or(""), "");
  EXPECT_FALSE(item().isEnabled());
  world().setFails(false);
  EXPECT_FALSE(item().isEnabled());
  EXPECT_EQ(item().registerMainApp(), std::nullopt);
  EXPECT_TRUE(item().isEnabled());
}

TEST_P(LoginItemContract, AnUnregistrationThatFailsIsDescribedAndChangesNothing) {
  EXPECT_EQ(item().registerMainApp(), std::nullopt);
  world().setFails(true);
  EXPECT_NE(item().unregisterMainApp().value_or(""), "");
  EXPECT_TRUE(item().isEnabled());
  world().setFails(false);
  EXPECT_TRUE(item().isEnabled());
  EXPECT_EQ(item().unregisterMainApp(), std::nullopt);
  EXPECT_FALSE(item().isEnabled());
}

}  // namespace talmo::test
