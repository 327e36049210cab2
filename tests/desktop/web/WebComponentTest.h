#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "nowplaying/AdapterNowPlaying.h"
#include "tests/desktop/PlatformOnDesktop.h"
#include "tests/desktop/web/WebStageTest.h"

namespace talmo::test {

/// The program's own components in the test's process, made afresh for each test.
class WebComponentTest : public WebStageTest {
 protected:
  WebComponentTest();
  ~WebComponentTest() override;

  /// Makes them afresh, with another bundle than the one that was built.
  void useBundle(const std::filesystem::path& folder);

  PlatformOnDesktop& platform() { return *platform_; }

  /// What the helper's stream says last.
  const std::optional<AdapterNowPlayingSnapshot>& session() const { return adapter_->snapshot(); }

  bool runUntil(const std::function<bool()>& condition) { return platform_->runUntil(condition); }

  void runOnQueue(const std::function<void()>& work) { ASSERT_TRUE(platform_->runOnQueue(work)); }
  /// A command of the media session. Gives a busy machine more time to start the helper than the
  /// program does.
  void send(std::int32_t command);

  /// Runs until the helper says that the browser plays, or has paused, what is called `title`.
  bool runUntilSession(const std::string& title, bool isPlaying);

  /// What the helper says, for a failure's message.
  std::string seen() const;

 private:
  std::unique_ptr<PlatformOnDesktop> platform_;
  std::shared_ptr<AdapterNowPlaying> adapter_;
};

}  // namespace talmo::test
