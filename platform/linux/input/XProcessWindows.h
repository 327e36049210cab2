#pragma once

#include <vector>

#include <xcb/xcb.h>

#include "platform/linux/x11/XConnection.h"
#include "platform/ProcessIdentifier.h"

namespace talmo {

/// The top-level windows of a process, found by _NET_WM_PID, from the one used longest ago to the
/// one used last as far as a window manager keeps count.
std::vector<xcb_window_t> windowsOfProcess(XConnection& connection, ProcessIdentifier process);

}  // namespace talmo
