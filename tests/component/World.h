#pragma once

#include <functional>
#include <memory>

#include "platform/simulated/SimulatedPlatform.h"

namespace talmo::test {

/// A machine in memory and a way to let it run: in virtual time, or on real threads. A test that
/// speaks to a world and nothing else runs on both.
class World {
 public:
  virtual ~World() = default;

  virtual SimulatedPlatform& machine() = 0;

  /// Runs the main queue, and lets time pass, until `condition` holds; at most ten seconds. Returns
  /// whether it held.
  virtual bool runUntil(const std::function<bool()>& condition) = 0;

  /// Runs until everything that was queued on the main queue before has run.
  bool runMainQueue() {
    auto done = std::make_shared<bool>(false);
    machine().dispatch().mainQueue().async([done] { *done = true; });
    return runUntil([done] { return *done; });
  }
};

/// Makes the world of one test.
using WorldFactory = std::unique_ptr<World> (*)();

}  // namespace talmo::test
