#pragma once

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "tests/contract/LoginItemWorld.h"

namespace talmo::test {

/// What every `LoginItem` does. Instantiated once per backend, with what makes a fresh world.
class LoginItemContract
    : public testing::TestWithParam<std::function<std::unique_ptr<LoginItemWorld>()>> {
 protected:
  LoginItemWorld& world() { return *world_; }
  LoginItem& item() { return world_->item(); }

 private:
  const std::unique_ptr<LoginItemWorld> world_ = GetParam()();
};

}  // namespace talmo::test
