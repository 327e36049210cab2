#pragma once

#import <AppKit/AppKit.h>

/// A borderless panel that floats above the windows of all applications, also in full screen, and
/// gets the keys without making its own application the active one. Main thread only.
@interface TalmoPanel : NSPanel

/// Called by the cancel action, the Escape key.
@property(nonatomic, copy) void (^onCancel)(void);

- (instancetype)init;

@end
