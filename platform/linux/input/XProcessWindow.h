#pragma once

#include <xcb/xcb.h>

#include "platform/linux/x11/XConnection.h"
#include "platform/ProcessIdentifier.h"

namespace talmo {

/// The main window of a process, found by _NET_WM_PID: of its windows on the screen or minimised
/// the largest normal one, and the one used last among equals. `XCB_WINDOW_NONE` when it has none.
xcb_window_t mainWindowOfProcess(XConnection& connection, ProcessIdentifier process);

}  // namespace talmo
