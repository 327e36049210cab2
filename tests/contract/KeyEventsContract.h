#pragma once

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "tests/contract/KeyEventsWorld.h"

namespace talmo::test {

/// What every `KeyEvents` does. Instantiated once per backend, with what makes a fresh world.
class KeyEventsContract
    : public testing::TestWithParam<std::function<std::unique_ptr<KeyEventsWorld>()>> {
 protected:
  KeyEventsWorld& world() { return *world_; }

  /// Far longer than anything here takes; it only bounds a failure.
  static constexpr Duration patience = std::chrono::seconds(20);

  bool runUntil(const std::function<bool()>& condition) {
    return world_->runUntil(condition, patience);
  }

  /// Posts a press and a release.
  void postStroke(std::uint16_t keyCode, std::uint64_t flags, ProcessIdentifier process);

 private:
  const std::unique_ptr<KeyEventsWorld> world_ = GetParam()();
};

}  // namespace talmo::test
