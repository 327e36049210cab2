#pragma once

#include <cstdint>
#include <memory>

#include "platform/simulated/SimulatedDispatch.h"
#include "tests/component/World.h"

namespace talmo::test {

/// A machine in virtual time.
class SimulatedWorld : public World {
 public:
  explicit SimulatedWorld(std::uint64_t seed = 0,
                          const std::shared_ptr<SimulatedUserDefaults::Store>& settings =
                              std::make_shared<SimulatedUserDefaults::Store>())
      : SimulatedWorld(std::make_unique<SimulatedDispatch>(seed), settings) {}

  SimulatedPlatform& machine() override { return machine_; }
  bool runUntil(const std::function<bool()>& condition) override {
    return time_.runUntil(condition, std::chrono::seconds(10));
  }

  /// The machine's clock and queues.
  SimulatedDispatch& time() { return time_; }

 private:
  SimulatedWorld(std::unique_ptr<SimulatedDispatch> dispatch,
                 const std::shared_ptr<SimulatedUserDefaults::Store>& settings)
      : time_(*dispatch), machine_(std::move(dispatch), settings) {}

  SimulatedDispatch& time_;
  SimulatedPlatform machine_;
};

}  // namespace talmo::test
