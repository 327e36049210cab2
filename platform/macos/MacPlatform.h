#pragma once

#import <AppKit/AppKit.h>

#include "platform/macos/applications/MacAppleEvents.h"
#include "platform/macos/applications/MacWorkspace.h"
#include "platform/macos/audio/MacAudioObjects.h"
#include "platform/macos/dispatch/MacDispatch.h"
#include "platform/macos/images/MacImageDecoder.h"
#include "platform/macos/input/MacAccessibility.h"
#include "platform/macos/input/MacEventTap.h"
#include "platform/macos/input/MacKeyEvents.h"
#include "platform/macos/interface/MacApplication.h"
#include "platform/macos/interface/MacEventMonitors.h"
#include "platform/macos/interface/MacPanels.h"
#include "platform/macos/interface/MacStatusBar.h"
#include "platform/macos/interface/MacWindows.h"
#include "platform/macos/log/MacLog.h"
#include "platform/macos/login/MacLoginItem.h"
#include "platform/macos/MacBundle.h"
#include "platform/macos/MacWording.h"
#include "platform/macos/mediasession/MacMediaRemote.h"
#include "platform/macos/network/MacNetwork.h"
#include "platform/macos/notifications/MacNotifications.h"
#include "platform/macos/processes/MacChildProcesses.h"
#include "platform/macos/settings/MacUserDefaults.h"
#include "platform/macos/updates/MacSoftwareUpdate.h"
#include "platform/Platform.h"

namespace talmo {

/// The services of macOS. Made on the main thread, after the shared application and before its
/// delegate; the program never destroys it.
class MacPlatform : public Platform {
 public:
  MacAccessibility& accessibility() override { return accessibility_; }
  MacAppleEvents& appleEvents() override { return appleEvents_; }
  MacApplication& application() override { return application_; }
  MacAudioObjects& audioObjects() override { return audioObjects_; }
  MacBundle& bundle() override { return bundle_; }
  MacChildProcesses& childProcesses() override { return childProcesses_; }
  MacDispatch& dispatch() override { return dispatch_; }
  MacNotifications& distributedNotifications() override { return distributedNotifications_; }
  MacEventMonitors& eventMonitors() override { return eventMonitors_; }
  MacEventTap& eventTap() override { return eventTap_; }
  MacImageDecoder& imageDecoder() override { return imageDecoder_; }
  MacKeyEvents& keyEvents() override { return keyEvents_; }
  MacLog& log() override { return log_; }
  MacLoginItem& loginItem() override { return loginItem_; }
  MacMediaRemote& mediaRemote() override { return mediaRemote_; }
  MacNetwork& network() override { return network_; }
  MacNotifications& notifications() override { return notifications_; }
  MacPanels& panels() override { return panels_; }
  MacSoftwareUpdate& softwareUpdate() override { return softwareUpdate_; }
  MacStatusBar& statusBar() override { return statusBar_; }
  MacUserDefaults& userDefaults() override { return userDefaults_; }
  MacWindows& windows() override { return windows_; }
  MacWording& wording() override { return wording_; }
  MacWorkspace& workspace() override { return workspace_; }
  MacNotifications& workspaceNotifications() override { return workspaceNotifications_; }

 private:
  MacLog log_;
  MacBundle bundle_;
  MacDispatch dispatch_;
  MacAccessibility accessibility_;
  MacAppleEvents appleEvents_;
  MacApplication application_;
  MacAudioObjects audioObjects_;
  MacChildProcesses childProcesses_;
  MacNotifications distributedNotifications_{NSDistributedNotificationCenter.defaultCenter};
  MacEventMonitors eventMonitors_;
  MacEventTap eventTap_;
  MacImageDecoder imageDecoder_;
  MacKeyEvents keyEvents_;
  MacLoginItem loginItem_;
  MacMediaRemote mediaRemote_;
  MacNetwork network_;
  MacNotifications notifications_{NSNotificationCenter.defaultCenter};
  MacPanels panels_;
  MacSoftwareUpdate softwareUpdate_;
  MacStatusBar statusBar_;
  MacUserDefaults userDefaults_;
  MacWindows windows_;
  MacWording wording_;
  MacWorkspace workspace_;
  MacNotifications workspaceNotifications_{NSWorkspace.sharedWorkspace.notificationCenter};
};

}  // namespace talmo
