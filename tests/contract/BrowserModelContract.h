#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/BrowserModelWorld.h"

namespace talmo::test {

/// What every `BrowserModel` does.
class BrowserModelContract
    : public testing::TestWithParam<std::function<std::unique_ptr<BrowserModelWorld>()>> {
 protected:
  BrowserModelWorld& world() { return *world_; }
  BrowserModel& browser() { return world_->browser(); }

  /// Opens a window and returns its tabs when all of them are there, in the order of the titles.
  std::vector<std::string> open(const std::vector<std::string>& titles);
  void close(const std::string& tab);

  /// As the browser has them now; none when it does not say.
  std::vector<BrowserWindow> windows();
  std::optional<BrowserWindow> windowOf(const std::string& tab);

 private:
  std::optional<std::string> tabWithTitle(const std::string& title);

  const std::unique_ptr<BrowserModelWorld> world_ = GetParam()();
};

}  // namespace talmo::test
