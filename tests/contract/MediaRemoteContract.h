#pragma once

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tests/contract/MediaRemoteWorld.h"

namespace talmo::test {

/// What every `MediaRemote` does that lacks nothing. Instantiated once per backend, with what makes
/// a fresh world.
class MediaRemoteContract
    : public testing::TestWithParam<std::function<std::unique_ptr<MediaRemoteWorld>()>> {
 protected:
  /// What the three questions are answered with.
  struct Answers {
    std::optional<MediaRemoteInfo> info;
    ProcessIdentifier process = -1;
    bool isPlaying = false;

    std::string title() const;
    double rate() const;
  };

  /// How often each notification has come, in the order of the constants.
  using Counts = std::array<std::atomic<int>, 3>;

  /// As `SystemNowPlaying` does, asks for the functions first.
  void SetUp() override;

  MediaRemoteWorld& world() { return *world_; }
  MediaRemote& mediaRemote() { return world_->mediaRemote(); }

  bool runUntil(const std::function<bool()>& condition) {
    return world_->runUntil(condition, std::chrono::seconds(10));
  }

  /// Asks all three questions once.
  Answers ask();
  /// Asks until the answers are as expected; returns whether that came.
  bool waitFor(const std::function<bool(const Answers&)>& isExpected);

  /// Counts the notifications from now on.
  void observe(Counts& counts);

  const std::shared_ptr<Queue>& queue() const { return queue_; }

 private:
  const std::unique_ptr<MediaRemoteWorld> world_ = GetParam()();
  const std::shared_ptr<Queue> queue_ =
      world_->dispatch().makeSerialQueue("nl.brelm.test.media", QualityOfService::utility);
};

}  // namespace talmo::test
