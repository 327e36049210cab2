#pragma once

#import <AppKit/AppKit.h>

#include "platform/macos/interface/view/Ground.h"
#include "platform/macos/interface/view/Ink.h"

namespace talmo {

// The system's colours for what the views are made of. A view takes them anew each time that it is
// drawn or updates its layer, with its appearance as the current one: then they follow light and
// dark, the accent colour and more contrast. Main thread only.

NSColor* colourOf(Ink ink);
NSColor* colourOf(Ground ground);

}  // namespace talmo
