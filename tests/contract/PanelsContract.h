#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/PanelsWorld.h"

namespace talmo::test {

/// What every `Panels` does. Instantiated once per backend, with what makes a fresh world.
class PanelsContract
    : public testing::TestWithParam<std::function<std::unique_ptr<PanelsWorld>()>> {
 protected:
  PanelsContract();
  ~PanelsContract() override;

  PanelsWorld& world() { return *world_; }
  Panel& panel() { return *panel_; }

  bool runUntil(const std::function<bool()>& condition) {
    return world_->runUntil(condition, std::chrono::seconds(20));
  }

  /// Gives the panel a content of so many lines, and a frame for it.
  void showLines(int count);

  int cancels() const { return cancels_; }
  int resignations() const { return resignations_; }
  const std::vector<Size>& sizes() const { return sizes_; }

 private:
  const std::unique_ptr<PanelsWorld> world_ = GetParam()();
  const std::unique_ptr<Panel> panel_;
  int cancels_ = 0;
  int resignations_ = 0;
  std::vector<Size> sizes_;
};

}  // namespace talmo::test
