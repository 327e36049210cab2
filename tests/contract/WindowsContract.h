#pragma once

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "tests/contract/WindowsWorld.h"

namespace talmo::test {

/// What all `Windows` do. Instantiated once per backend, with what makes a fresh world.
class WindowsContract
    : public testing::TestWithParam<std::function<std::unique_ptr<WindowsWorld>()>> {
 protected:
  WindowsWorld& world() { return *world_; }

  /// A window that counts how often it is told that it is about to be closed.
  std::unique_ptr<Window> make();

  /// A content with one button.
  static View content(const std::string& button, std::function<void()> action);

  int closings_ = 0;

 private:
  const std::unique_ptr<WindowsWorld> world_ = GetParam()();
};

}  // namespace talmo::test
