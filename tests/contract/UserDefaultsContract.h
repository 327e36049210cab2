#pragma once

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "tests/contract/UserDefaultsWorld.h"

namespace talmo::test {

/// What every `UserDefaults` does. Instantiated once per backend, with what makes a fresh world.
class UserDefaultsContract
    : public testing::TestWithParam<std::function<std::unique_ptr<UserDefaultsWorld>()>> {
 protected:
  UserDefaults& defaults() { return world_->defaults(); }
  void reopen() { world_->reopen(); }

 private:
  const std::unique_ptr<UserDefaultsWorld> world_ = GetParam()();
};

}  // namespace talmo::test
