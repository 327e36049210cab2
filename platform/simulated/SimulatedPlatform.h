#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/Platform.h"
#include "platform/simulated/SimulatedAccessibility.h"
#include "platform/simulated/SimulatedAppleEvents.h"
#include "platform/simulated/SimulatedApplication.h"
#include "platform/simulated/SimulatedApplications.h"
#include "platform/simulated/SimulatedAudioObjects.h"
#include "platform/simulated/SimulatedBundle.h"
#include "platform/simulated/SimulatedChildProcesses.h"
#include "platform/simulated/SimulatedEventMonitors.h"
#include "platform/simulated/SimulatedEventTap.h"
#include "platform/simulated/SimulatedImageDecoder.h"
#include "platform/simulated/SimulatedKeyEvents.h"
#include "platform/simulated/SimulatedLog.h"
#include "platform/simulated/SimulatedLoginItem.h"
#include "platform/simulated/SimulatedMediaRemote.h"
#include "platform/simulated/SimulatedNetwork.h"
#include "platform/simulated/SimulatedPanels.h"
#include "platform/simulated/SimulatedSoftwareUpdate.h"
#include "platform/simulated/SimulatedStatusBar.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "platform/simulated/SimulatedWindows.h"
#include "platform/simulated/SimulatedWording.h"
#include "platform/simulated/SimulatedWorkspace.h"
#include "support/MainQueueNotifications.h"

namespace talmo {

/// A whole machine in memory. It is the platform in use for as long as it lives.
///
/// It runs on the `Dispatch` that it is given: a `SimulatedDispatch` for virtual time, or a real
/// one to have the same world on real threads. Only the first makes a run repeatable.
class SimulatedPlatform : public Platform {
 public:
  /// `RunningDispatch` is a `Dispatch` whose `shutdown` ends all work for good.
  template <class RunningDispatch>
  explicit SimulatedPlatform(std::unique_ptr<RunningDispatch> dispatch,
                             std::shared_ptr<SimulatedUserDefaults::Store> settings =
                                 std::make_shared<SimulatedUserDefaults::Store>())
      : endWork_([&running = *dispatch] { running.shutdown(); }),
        dispatch_(std::move(dispatch)),
        userDefaults_(std::move(settings)) {
    setPlatform(this);
  }

  ~SimulatedPlatform() override {
    // Work that waits for a child goes on; then all work ends before the components' records go,
    // and these before what they hold.
    childProcesses_.killAll();
    endWork_();
    states().clear();
    setPlatform(nullptr);
  }

  SimulatedAccessibility& accessibility() override { return accessibility_; }
  SimulatedAppleEvents& appleEvents() override { return appleEvents_; }
  SimulatedApplication& application() override { return application_; }
  SimulatedAudioObjects& audioObjects() override { return audioObjects_; }
  SimulatedBundle& bundle() override { return bundle_; }
  SimulatedChildProcesses& childProcesses() override { return childProcesses_; }
  Dispatch& dispatch() override { return *dispatch_; }
  MainQueueNotifications& distributedNotifications() override { return distributedNotifications_; }
  SimulatedEventMonitors& eventMonitors() override { return eventMonitors_; }
  SimulatedEventTap& eventTap() override { return eventTap_; }
  SimulatedImageDecoder& imageDecoder() override { return imageDecoder_; }
  SimulatedKeyEvents& keyEvents() override { return keyEvents_; }
  SimulatedLog& log() override { return log_; }
  SimulatedLoginItem& loginItem() override { return loginItem_; }
  SimulatedMediaRemote& mediaRemote() override { return mediaRemote_; }
  SimulatedNetwork& network() override { return network_; }
  MainQueueNotifications& notifications() override { return notifications_; }
  SimulatedPanels& panels() override { return panels_; }
  SimulatedSoftwareUpdate& softwareUpdate() override { return softwareUpdate_; }
  SimulatedStatusBar& statusBar() override { return statusBar_; }
  SimulatedUserDefaults& userDefaults() override { return userDefaults_; }
  SimulatedWindows& windows() override { return windows_; }
  SimulatedWording& wording() override { return wording_; }
  SimulatedWorkspace& workspace() override { return workspace_; }
  MainQueueNotifications& workspaceNotifications() override { return workspaceNotifications_; }

  /// The applications of the machine.
  SimulatedApplications& applications() { return applications_; }

 private:
  const std::function<void()> endWork_;
  const std::unique_ptr<Dispatch> dispatch_;
  SimulatedLog log_;
  SimulatedUserDefaults userDefaults_;
  SimulatedApplications applications_;
  SimulatedAccessibility accessibility_{applications_};
  SimulatedAppleEvents appleEvents_{*dispatch_, applications_};
  SimulatedApplication application_{*dispatch_};
  SimulatedAudioObjects audioObjects_;
  SimulatedBundle bundle_;
  SimulatedChildProcesses childProcesses_{*dispatch_};
  SimulatedEventMonitors eventMonitors_{application_};
  SimulatedEventTap eventTap_{*dispatch_};
  SimulatedImageDecoder imageDecoder_;
  SimulatedKeyEvents keyEvents_{applications_};
  SimulatedLoginItem loginItem_;
  SimulatedNetwork network_{*dispatch_};
  SimulatedPanels panels_{application_, eventMonitors_};
  SimulatedSoftwareUpdate softwareUpdate_;
  SimulatedStatusBar statusBar_{application_, eventMonitors_};
  SimulatedWindows windows_{application_};
  SimulatedWording wording_;
  SimulatedWorkspace workspace_{applications_, *dispatch_};
  MainQueueNotifications notifications_{*dispatch_};
  MainQueueNotifications distributedNotifications_{*dispatch_};
  MainQueueNotifications workspaceNotifications_{*dispatch_};
  SimulatedMediaRemote mediaRemote_{notifications_};
};

}  // namespace talmo
