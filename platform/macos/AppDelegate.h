#pragma once

#import <AppKit/AppKit.h>

/// The application's delegate: owns the coordinator, and starts it when the launch has finished.
/// Made on the main thread once the platform is set; lives as long as the process.
@interface AppDelegate : NSObject <NSApplicationDelegate>
@end
