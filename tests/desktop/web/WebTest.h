#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "nowplaying/AdapterNowPlaying.h"
#include "tests/desktop/PlatformOnDesktop.h"
#include "tests/desktop/web/WebStage.h"

namespace talmo::test {

/// Tests that share one browser, each of which begins with nothing in it; and the program's own
/// components in the test's process, made afresh for each.
class WebTest : public ::testing::Test {
 public:
  static WebStage& stage() { return *stage_; }

 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();

  WebTest();
  ~WebTest() override;

  static ImitationSite& site() { return stage().site(); }

  PlatformOnDesktop& platform() { return *platform_; }

  /// What the helper's stream says last.
  const std::optional<AdapterNowPlayingSnapshot>& session() const { return adapter_->snapshot(); }

  bool runUntil(const std::function<bool()>& condition) { return platform_->runUntil(condition); }

  void runOnQueue(const std::function<void()>& work) { ASSERT_TRUE(platform_->runOnQueue(work)); }

  /// Runs until the helper says that the browser plays, or has paused, what is called `title`.
  bool runUntilSession(const std::string& title, bool isPlaying);

  /// What the helper says, for a failure's message.
  std::string seen() const;

 private:
  static std::unique_ptr<WebStage> stage_;

  std::unique_ptr<PlatformOnDesktop> platform_;
  std::shared_ptr<AdapterNowPlaying> adapter_;
};

}  // namespace talmo::test
