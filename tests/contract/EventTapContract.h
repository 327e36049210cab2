#pragma once

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "tests/contract/EventTapWorld.h"

namespace talmo::test {

/// What every `EventTap` does, and its run loops. Instantiated once per backend, with what makes a
/// fresh world.
class EventTapContract
    : public testing::TestWithParam<std::function<std::unique_ptr<EventTapWorld>()>> {
 protected:
  EventTapWorld& world() { return *world_; }

  /// Far longer than anything here takes; it only bounds a failure.
  static constexpr Duration patience = std::chrono::seconds(20);

  bool runUntil(const std::function<bool()>& condition) {
    return world_->runUntil(condition, patience);
  }

  /// Presses and releases a key and waits until the applications have seen both, which is after
  /// everything that was on its way.
  bool tapReachesOthers(std::int32_t code);

 private:
  const std::unique_ptr<EventTapWorld> world_ = GetParam()();
};

}  // namespace talmo::test
