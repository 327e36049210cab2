#pragma once

#import <AppKit/AppKit.h>

namespace talmo {

/// Takes a window of ours off the screen for good. It may be in the middle of an event or of being
/// closed, so it stays until that is over. Main thread only.
void letGo(NSWindow* window);

}  // namespace talmo
