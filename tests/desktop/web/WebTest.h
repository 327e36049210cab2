#pragma once

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "tests/desktop/web/WebStage.h"

namespace talmo::test {

/// Tests that share one browser, each of which begins with nothing in it.
class WebTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();

  void SetUp() override { stage().clear(); }

  static WebStage& stage() { return *stage_; }
  static ImitationSite& site() { return stage().site(); }

  static bool runUntil(const std::function<bool()>& condition) {
    return stage().platform().runUntil(condition);
  }

  static void runOnQueue(const std::function<void()>& work) {
    ASSERT_TRUE(stage().platform().runOnQueue(work));
  }

  /// Runs until the helper says that the browser plays, or has paused, what is called `title`.
  static bool runUntilSession(const std::string& title, bool isPlaying);

  /// What the helper says, for a failure's message.
  static std::string seen();

 private:
  static std::unique_ptr<WebStage> stage_;
};

}  // namespace talmo::test
