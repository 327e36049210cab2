#pragma once

#include <memory>

#include "platform/Platform.h"
#include "platform/simulated/SimulatedAppleEvents.h"
#include "platform/simulated/SimulatedApplications.h"
#include "platform/simulated/SimulatedEventTap.h"
#include "platform/simulated/SimulatedKeyEvents.h"
#include "platform/simulated/SimulatedLog.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "platform/simulated/SimulatedWorkspace.h"

namespace talmo {

/// A whole machine in memory. It is the platform in use for as long as it lives.
///
/// It runs on the `Dispatch` that it is given: a `SimulatedDispatch` for virtual time, or a real
/// one to have the same world on real threads. Only the first makes a run repeatable.
class SimulatedPlatform : public Platform {
 public:
  explicit SimulatedPlatform(std::unique_ptr<Dispatch> dispatch,
                             std::shared_ptr<SimulatedUserDefaults::Store> settings =
                                 std::make_shared<SimulatedUserDefaults::Store>())
      : ownedDispatch_(std::move(dispatch)), userDefaults_(std::move(settings)) {
    setPlatform(this);
  }

  ~SimulatedPlatform() override {
    // All work ends before the components' records go, and these before what they may use.
    ownedDispatch_.reset();
    states().clear();
    setPlatform(nullptr);
  }

  SimulatedAppleEvents& appleEvents() override { return appleEvents_; }
  Dispatch& dispatch() override { return dispatch_; }
  SimulatedEventTap& eventTap() override { return eventTap_; }
  SimulatedKeyEvents& keyEvents() override { return keyEvents_; }
  SimulatedLog& log() override { return log_; }
  SimulatedUserDefaults& userDefaults() override { return userDefaults_; }
  SimulatedWorkspace& workspace() override { return workspace_; }

  /// The applications of the machine.
  SimulatedApplications& applications() { return applications_; }

 private:
  std::unique_ptr<Dispatch> ownedDispatch_;
  // Still there for what runs while the owner is being destroyed.
  Dispatch& dispatch_ = *ownedDispatch_;
  SimulatedLog log_;
  SimulatedUserDefaults userDefaults_;
  SimulatedApplications applications_;
  SimulatedAppleEvents appleEvents_{dispatch_, applications_};
  SimulatedEventTap eventTap_{dispatch_};
  SimulatedKeyEvents keyEvents_{applications_};
  SimulatedWorkspace workspace_{applications_};
};

}  // namespace talmo
