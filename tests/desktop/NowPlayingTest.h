#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "nowplaying/AdapterNowPlaying.h"
#include "tests/desktop/PlatformOnDesktop.h"
#include "tests/support/PrivateDesktop.h"

namespace talmo::test {

/// The program's own components in the test's process, on a private desktop with real players and
/// with the helper as it was built.
class NowPlayingTest : public ::testing::Test {
 protected:
  NowPlayingTest();
  ~NowPlayingTest() override;

  /// Serves the main queue until `condition` holds; false when it takes too long.
  bool runUntil(const std::function<bool()>& condition);

  /// Runs until the stream says that this application plays, or has paused, a track of that title.
  bool runUntilTrack(const std::string& bundleID, const std::string& title, bool isPlaying);

  /// Runs `work` on a queue and waits for it, as the class asks of those who wait.
  void runOnQueue(const std::function<void()>& work);

  /// The helpers that run now, by their process ids.
  std::vector<pid_t> helpers() const;

  /// What the stream says, for a failure's message.
  std::string seen() const;

  const std::filesystem::path bundleFolder_;
  PrivateDesktop desktop_;
  std::vector<std::filesystem::path> tunes_;
  std::unique_ptr<PlatformOnDesktop> platform_;
  std::shared_ptr<AdapterNowPlaying> adapter_;
};

}  // namespace talmo::test
