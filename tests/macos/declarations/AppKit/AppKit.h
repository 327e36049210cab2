// AppKit. Its classes belong to the main thread unless their documentation says otherwise.
// Sections by class, alphabetically; a class comes after the one that it is made from.
#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <Foundation/Foundation.h>

#define APPKIT_EXTERN extern "C"

@class NSApplication;
@class NSEvent;

NS_ASSUME_NONNULL_BEGIN

// --- NSApplication ----------------------------------------------------------------------------

APPKIT_EXTERN NSApplication* _Null_unspecified NSApp;

// Sets up the application and runs it; does not return: the end of the application is exit(0).
APPKIT_EXTERN int NSApplicationMain(int argc, const char* _Nonnull argv[_Nonnull]);

@protocol NSApplicationDelegate <NSObject>
@optional
- (void)applicationDidFinishLaunching:(NSNotification*)notification;
@end

@interface NSApplication : NSObject

// Makes the application on first use, and sets NSApp.
@property(class, readonly, strong) __kindof NSApplication* sharedApplication;
@property(nullable, weak) id<NSApplicationDelegate> delegate;
- (void)activate API_AVAILABLE(macos(14.0));
// Does not return, unless the delegate says no.
- (void)terminate:(nullable id)sender;
- (void)orderFrontStandardAboutPanel:(nullable id)sender;
// The last that was taken from the queue; nil before the first.
@property(nullable, readonly, strong) NSEvent* currentEvent;

@end

// --- NSHapticFeedback -------------------------------------------------------------------------

typedef NS_ENUM(NSInteger, NSHapticFeedbackPattern) {
  NSHapticFeedbackPatternGeneric = 0,
  NSHapticFeedbackPatternAlignment = 1,
  NSHapticFeedbackPatternLevelChange = 2,
} API_AVAILABLE(macos(10.11));

typedef NS_ENUM(NSUInteger, NSHapticFeedbackPerformanceTime) {
  NSHapticFeedbackPerformanceTimeDefault = 0,
  NSHapticFeedbackPerformanceTimeNow = 1,
  NSHapticFeedbackPerformanceTimeDrawCompleted = 2,
} API_AVAILABLE(macos(10.11));

API_AVAILABLE(macos(10.11)) @protocol NSHapticFeedbackPerformer<NSObject>
- (void)performFeedbackPattern:(NSHapticFeedbackPattern)pattern
               performanceTime:(NSHapticFeedbackPerformanceTime)performanceTime;
@end

API_AVAILABLE(macos(10.11)) @interface NSHapticFeedbackManager : NSObject

@property(class, readonly, strong) id<NSHapticFeedbackPerformer> defaultPerformer;

@end

// --- NSRunningApplication ---------------------------------------------------------------------

// Safe on any thread; its properties change only with the main run loop ("NSRunningApplication").
API_AVAILABLE(macos(10.6)) @interface NSRunningApplication : NSObject

+ (nullable instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid;
@property(readonly, copy, nullable) NSString* bundleIdentifier;

@end

NS_ASSUME_NONNULL_END
