#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/AccessibilityWorld.h"

namespace talmo::test {

/// What every `Accessibility` does. Instantiated once per backend, with what makes a fresh world.
class AccessibilityContract
    : public testing::TestWithParam<std::function<std::unique_ptr<AccessibilityWorld>()>> {
 protected:
  AccessibilityWorld& world() { return *world_; }

  std::vector<std::string> titles(ProcessIdentifier process) {
    return world_->accessibility().windowTitles(process);
  }

 private:
  const std::unique_ptr<AccessibilityWorld> world_ = GetParam()();
};

}  // namespace talmo::test
