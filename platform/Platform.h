#pragma once

#include "platform/Accessibility.h"
#include "platform/AppleEvents.h"
#include "platform/Application.h"
#include "platform/AudioObjects.h"
#include "platform/Bundle.h"
#include "platform/ChildProcesses.h"
#include "platform/ComponentStates.h"
#include "platform/Dispatch.h"
#include "platform/EventMonitors.h"
#include "platform/EventTap.h"
#include "platform/ImageDecoder.h"
#include "platform/KeyEvents.h"
#include "platform/Log.h"
#include "platform/LoginItem.h"
#include "platform/MediaRemote.h"
#include "platform/Network.h"
#include "platform/Notifications.h"
#include "platform/Panels.h"
#include "platform/SoftwareUpdate.h"
#include "platform/StatusBar.h"
#include "platform/UserDefaults.h"
#include "platform/Windows.h"
#include "platform/Wording.h"
#include "platform/Workspace.h"

namespace talmo {

/// All services of one system. Owned by `main` or by a test, and alive for longer than anything
/// that calls `platform()`. The accessors may be called on any thread and give the same object
/// each time.
class Platform {
 public:
  Platform() = default;
  virtual ~Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;

  virtual Accessibility& accessibility() = 0;
  virtual AppleEvents& appleEvents() = 0;
  virtual Application& application() = 0;
  virtual AudioObjects& audioObjects() = 0;
  virtual Bundle& bundle() = 0;
  virtual ChildProcesses& childProcesses() = 0;
  virtual Dispatch& dispatch() = 0;
  virtual Notifications& distributedNotifications() = 0;
  virtual EventMonitors& eventMonitors() = 0;
  virtual EventTap& eventTap() = 0;
  virtual ImageDecoder& imageDecoder() = 0;
  virtual KeyEvents& keyEvents() = 0;
  virtual Log& log() = 0;
  virtual LoginItem& loginItem() = 0;
  virtual MediaRemote& mediaRemote() = 0;
  virtual Network& network() = 0;
  virtual Notifications& notifications() = 0;
  virtual Panels& panels() = 0;
  virtual SoftwareUpdate& softwareUpdate() = 0;
  virtual StatusBar& statusBar() = 0;
  virtual UserDefaults& userDefaults() = 0;
  virtual Windows& windows() = 0;
  virtual Wording& wording() = 0;
  virtual Workspace& workspace() = 0;
  /// The notification centre that the workspace posts to.
  virtual Notifications& workspaceNotifications() = 0;

  ComponentStates& states() { return states_; }

 private:
  ComponentStates states_;
};

/// The platform in use. Ends the process when none is set.
Platform& platform();

/// Sets the platform, or takes it away with a null pointer. Called by `main` or a test while no
/// other thread uses it.
void setPlatform(Platform* platform);

}  // namespace talmo
