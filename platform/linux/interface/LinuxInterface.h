#pragma once

#include "platform/linux/interface/DesktopWatch.h"
#include "platform/linux/interface/LinuxEventMonitors.h"
#include "platform/linux/interface/LinuxOwnApplication.h"
#include "platform/linux/interface/LinuxOwnWindows.h"
#include "platform/linux/interface/LinuxPanels.h"
#include "platform/linux/interface/LinuxStatusBar.h"
#include "platform/linux/interface/view/Vectors.h"

namespace talmo {

/// The services that are made with the toolkit. Main thread.
struct LinuxInterface {
  /// All live longer.
  LinuxInterface(const Bundle& bundle, LinuxOwnApplication& application,
                 Notifications& notifications, Notifications& workspaceNotifications)
      : vectors(bundle),
        statusBar(vectors, application),
        panels(vectors),
        windows(vectors),
        eventMonitors(application),
        desktopWatch(workspaceNotifications, notifications) {}

  Vectors vectors;
  LinuxStatusBar statusBar;
  LinuxPanels panels;
  LinuxOwnWindows windows;
  LinuxEventMonitors eventMonitors;
  DesktopWatch desktopWatch;
};

}  // namespace talmo
