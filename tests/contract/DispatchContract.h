#pragma once

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "tests/contract/DispatchWorld.h"

namespace talmo::test {

/// What every `Dispatch` does. Instantiated once per backend, with what makes a fresh world.
///
/// The main thread waits in the world's `runUntil` and in semaphores only, so that the suite also
/// holds where all threads are one.
class DispatchContract
    : public testing::TestWithParam<std::function<std::unique_ptr<DispatchWorld>()>> {
 protected:
  Dispatch& dispatch() { return world_->dispatch(); }

  /// Far longer than anything here takes; it only bounds a failure.
  static constexpr Duration patience = std::chrono::seconds(20);

  bool runUntil(const std::function<bool()>& condition, Duration limit = patience) {
    return world_->runUntil(condition, limit);
  }

  /// A serial queue with a label of no meaning.
  std::shared_ptr<Queue> makeQueue();

  /// Lets at least `duration` pass, while the main queue is served.
  void pass(Duration duration);

 private:
  const std::unique_ptr<DispatchWorld> world_ = GetParam()();
};

}  // namespace talmo::test
