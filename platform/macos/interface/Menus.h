#pragma once

#import <AppKit/AppKit.h>

#include "platform/Menu.h"

namespace talmo {

/// The menu as one of the system's, which keeps all that it needs. Each time that it has been open
/// its `didClose` is called once, before what was chosen is done. Main thread only.
NSMenu* makeMenu(const Menu& menu);

}  // namespace talmo
