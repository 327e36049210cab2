#pragma once

#import <AppKit/AppKit.h>

/// A stack that begins at the top of what it scrolls in.
@interface TLMFlippedStackView : NSStackView
@end
