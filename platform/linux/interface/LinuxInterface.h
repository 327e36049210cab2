#pragma once

#include "platform/linux/interface/DesktopWatch.h"
#include "platform/linux/interface/LinuxEventMonitors.h"
#include "platform/linux/interface/LinuxPanels.h"
#include "platform/linux/interface/LinuxProgram.h"
#include "platform/linux/interface/LinuxStatusBar.h"

namespace talmo {

/// The services that are made with the toolkit. Main thread.
struct LinuxInterface {
  /// All live longer.
  LinuxInterface(LinuxDispatch& dispatch, const Bundle& bundle, Notifications& notifications,
                 Notifications& workspaceNotifications)
      : program(dispatch, bundle),
        statusBar(bundle, program),
        eventMonitors(program),
        desktopWatch(workspaceNotifications, notifications) {}

  LinuxProgram program;
  LinuxStatusBar statusBar;
  LinuxPanels panels;
  LinuxEventMonitors eventMonitors;
  DesktopWatch desktopWatch;
};

}  // namespace talmo
