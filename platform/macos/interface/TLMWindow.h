#pragma once

#import <AppKit/AppKit.h>

/// A window whose content has a button that the Return key presses. Main thread only.
@interface TLMWindow : NSWindow
@end
