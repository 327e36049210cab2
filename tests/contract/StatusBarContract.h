#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/StatusBarWorld.h"

namespace talmo::test {

/// What every `StatusBar` does. Instantiated once per backend, with what makes a fresh world.
class StatusBarContract
    : public testing::TestWithParam<std::function<std::unique_ptr<StatusBarWorld>()>> {
 protected:
  StatusBarContract();
  ~StatusBarContract() override;

  StatusBarWorld& world() { return *world_; }
  StatusItem& item() { return *item_; }

  bool runUntil(const std::function<bool()>& condition) {
    return world_->runUntil(condition, std::chrono::seconds(20));
  }

  /// The events that were the current one when the item's action was called, in order.
  const std::vector<std::optional<InterfaceEvent>>& events() const { return events_; }
  bool runUntilEvents(std::size_t count) {
    return runUntil([this, count] { return events_.size() >= count; });
  }

  /// Attaches a menu of two items that write down what becomes of it, and drops it down.
  void dropMenuDown();
  std::vector<std::string>& menuCalls() { return menuCalls_; }

 private:
  const std::unique_ptr<StatusBarWorld> world_ = GetParam()();
  const std::unique_ptr<StatusItem> item_;
  std::vector<std::optional<InterfaceEvent>> events_;
  std::vector<std::string> menuCalls_;
};

}  // namespace talmo::test
