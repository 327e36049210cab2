#pragma once

#include <memory>

#include <gtest/gtest.h>

#include "tests/component/World.h"

namespace talmo::test {

/// A test of one component that runs in virtual time and on real threads alike.
class ComponentTest : public testing::TestWithParam<WorldFactory> {
 protected:
  World& world() { return *world_; }
  SimulatedPlatform& machine() { return world_->machine(); }
  bool runUntil(const std::function<bool()>& condition) { return world_->runUntil(condition); }

 private:
  const std::unique_ptr<World> world_ = GetParam()();
};

}  // namespace talmo::test
