#pragma once

#include <filesystem>
#include <memory>

#include "platform/linux/applications/LinuxAppleEvents.h"
#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/audio/LinuxAudioObjects.h"
#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/linux/images/LinuxImageDecoder.h"
#include "platform/linux/input/LinuxAccessibility.h"
#include "platform/linux/input/LinuxEventTap.h"
#include "platform/linux/input/LinuxKeyEvents.h"
#include "platform/linux/interface/LinuxOwnApplication.h"
#include "platform/linux/LinuxBundle.h"
#include "platform/linux/LinuxSoftwareUpdate.h"
#include "platform/linux/LinuxWording.h"
#include "platform/linux/log/LinuxLog.h"
#include "platform/linux/login/LinuxLoginItem.h"
#include "platform/linux/mediasession/LinuxMediaRemote.h"
#include "platform/linux/network/LinuxNetwork.h"
#include "platform/linux/processes/LinuxChildProcesses.h"
#include "platform/linux/settings/LinuxUserDefaults.h"
#include "platform/Platform.h"
#include "support/MainQueueNotifications.h"

namespace talmo {

struct LinuxInterface;

/// The services of a Linux desktop. The thread that makes it is the main thread; it destroys it
/// after every tap has been stopped, and while it is still the platform in use. It has an interface
/// when a `Toolkit` was made before, which lives longer.
class LinuxPlatform : public Platform {
 public:
  /// The bundle's folder is the running program's, or another absolute one.
  explicit LinuxPlatform(std::filesystem::path bundleFolder = LinuxBundle::folderOfTheProgram());
  /// Waits for what runs on the queues.
  ~LinuxPlatform() override;

  LinuxAccessibility& accessibility() override { return accessibility_; }
  LinuxAppleEvents& appleEvents() override { return appleEvents_; }
  LinuxOwnApplication& application() override { return application_; }
  LinuxAudioObjects& audioObjects() override { return audioObjects_; }
  LinuxBundle& bundle() override { return bundle_; }
  LinuxChildProcesses& childProcesses() override { return childProcesses_; }
  LinuxDispatch& dispatch() override { return dispatch_; }
  MainQueueNotifications& distributedNotifications() override { return distributedNotifications_; }
  EventMonitors& eventMonitors() override;
  LinuxEventTap& eventTap() override { return eventTap_; }
  LinuxImageDecoder& imageDecoder() override { return imageDecoder_; }
  LinuxKeyEvents& keyEvents() override { return keyEvents_; }
  LinuxLog& log() override { return log_; }
  LinuxLoginItem& loginItem() override { return loginItem_; }
  LinuxMediaRemote& mediaRemote() override { return mediaRemote_; }
  LinuxNetwork& network() override { return network_; }
  MainQueueNotifications& notifications() override { return notifications_; }
  Panels& panels() override;
  LinuxSoftwareUpdate& softwareUpdate() override { return softwareUpdate_; }
  StatusBar& statusBar() override;
  LinuxUserDefaults& userDefaults() override { return userDefaults_; }
  Windows& windows() override;
  LinuxWording& wording() override { return wording_; }
  LinuxWorkspace& workspace() override { return workspace_; }
  MainQueueNotifications& workspaceNotifications() override { return workspaceNotifications_; }

 private:
  LinuxBundle bundle_;
  LinuxLog log_;
  LinuxChildProcesses childProcesses_;
  LinuxDispatch dispatch_;
  LinuxOwnApplication application_;
  LinuxLoginItem loginItem_;
  LinuxSoftwareUpdate softwareUpdate_;
  LinuxUserDefaults userDefaults_;
  // This program is the only one that posts to it.
  MainQueueNotifications distributedNotifications_;
  LinuxEventTap eventTap_;
  LinuxImageDecoder imageDecoder_;
  LinuxKeyEvents keyEvents_;
  LinuxAccessibility accessibility_;
  LinuxAppleEvents appleEvents_;
  LinuxAudioObjects audioObjects_;
  LinuxWording wording_;
  LinuxWorkspace workspace_;
  MainQueueNotifications notifications_;
  MainQueueNotifications workspaceNotifications_;
  LinuxMediaRemote mediaRemote_;
  std::unique_ptr<LinuxInterface> interface_;
  // Goes first: its completions may ask for any other service.
  LinuxNetwork network_;
};

}  // namespace talmo
