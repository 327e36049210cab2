#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/EventMonitorsWorld.h"

namespace talmo::test {

/// What every `EventMonitors` does. Instantiated once per backend, with what makes a fresh world.
class EventMonitorsContract
    : public testing::TestWithParam<std::function<std::unique_ptr<EventMonitorsWorld>()>> {
 protected:
  using Events = std::vector<InterfaceEvent>;

  EventMonitorsWorld& world() { return *world_; }
  EventMonitors& monitors() { return world_->eventMonitors(); }

  bool runUntil(const std::function<bool()>& condition) {
    return world_->runUntil(condition, std::chrono::seconds(20));
  }

  /// Adds a monitor that writes down what it sees; a local one that answers `passes`.
  EventMonitors::Token watch(Events& seen, std::uint64_t mask, bool passes = true);
  EventMonitors::Token watchElsewhere(Events& seen, std::uint64_t mask);

 private:
  const std::unique_ptr<EventMonitorsWorld> world_ = GetParam()();
};

}  // namespace talmo::test
