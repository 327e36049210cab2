#pragma once

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "tests/contract/NotificationsWorld.h"

namespace talmo::test {

/// What every `Notifications` does. Instantiated once per backend, with what makes a fresh world.
class NotificationsContract
    : public testing::TestWithParam<std::function<std::unique_ptr<NotificationsWorld>()>> {
 protected:
  Notifications& notifications() { return world_->notifications(); }
  Dispatch& dispatch() { return world_->dispatch(); }

  bool runUntil(const std::function<bool()>& condition) {
    return world_->runUntil(condition, std::chrono::seconds(10));
  }

  /// Lets everything arrive that was posted so far.
  void settle();

 private:
  const std::unique_ptr<NotificationsWorld> world_ = GetParam()();
};

}  // namespace talmo::test
