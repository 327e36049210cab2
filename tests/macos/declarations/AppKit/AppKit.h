// AppKit. Its classes belong to the main thread unless their documentation says otherwise.
// Sections by class, alphabetically; a class comes after the one that it is made from.
#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <Foundation/Foundation.h>

#define APPKIT_EXTERN extern "C"

@class NSApplication;
@class NSEvent;
@class NSGraphicsContext;

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

// --- NSEvent ----------------------------------------------------------------------------------

typedef NS_ENUM(NSUInteger, NSEventType) {
  NSEventTypeSystemDefined = 14,
};
// Documented in "NSEventSubtype": a short, as the property that gives it.
typedef NS_ENUM(short, NSEventSubtype) {
  NSEventSubtypeWindowExposed = 0,
};

@interface NSEvent : NSObject <NSCopying, NSCoding>

@property(readonly) NSEventType type;
// These two raise for an event that is none of the application's, AppKit's, the system's and the
// periodic ones.
@property(readonly) NSEventSubtype subtype;
@property(readonly) NSInteger data1;
// Retains the event; nil for what has no event of AppKit's.
+ (nullable NSEvent*)eventWithCGEvent:(CGEventRef)cgEvent API_AVAILABLE(macos(10.5));

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

// --- NSImage ----------------------------------------------------------------------------------

typedef NSString* NSImageHintKey NS_TYPED_ENUM;

@interface NSImage : NSObject <NSCopying, NSCoding, NSSecureCoding>

// Nil for what is no file of a picture.
- (nullable instancetype)initWithData:(NSData*)data;
// In points.
@property NSSize size;
// Not the caller's; lives as long as the autorelease pool. The frame is changed to what the picture
// was made for; null stands for the image's own size.
- (nullable CGImageRef)CGImageForProposedRect:(nullable NSRect*)proposedDestRect
                                      context:(nullable NSGraphicsContext*)referenceContext
                                        hints:(nullable NSDictionary<NSImageHintKey, id>*)hints
    CF_RETURNS_NOT_RETAINED API_AVAILABLE(macos(10.6));

@end

// --- NSRunningApplication ---------------------------------------------------------------------

// Safe on any thread; its properties change only with the main run loop ("NSRunningApplication").
API_AVAILABLE(macos(10.6)) @interface NSRunningApplication : NSObject

// In no order that is documented; empty for none.
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:
    (NSString*)bundleIdentifier;
+ (nullable instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid;
@property(readonly, copy, nullable) NSString* bundleIdentifier;
// Nil for what was not launched by Launch Services.
@property(readonly, copy, nullable) NSDate* launchDate;
@property(readonly, copy, nullable) NSString* localizedName;
// -1 once it has ended, for what has no process.
@property(readonly) pid_t processIdentifier;

@end

// --- NSWorkspace ------------------------------------------------------------------------------

API_AVAILABLE(macos(10.15)) @interface NSWorkspaceOpenConfiguration : NSObject<NSCopying>

+ (instancetype)configuration;
@property BOOL createsNewApplicationInstance;

@end

@interface NSWorkspace : NSObject

@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(nullable, readonly, strong)
    NSRunningApplication* frontmostApplication API_AVAILABLE(macos(10.7));
- (nullable NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier
    API_AVAILABLE(macos(10.6));
// NO when nothing opens it. Any thread.
- (BOOL)openURL:(NSURL*)url;
// The handler is called once, on a concurrent queue of the system's; its application is nil when
// the error is not.
- (void)openApplicationAtURL:(NSURL*)applicationURL
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(nullable void (^)(NSRunningApplication* _Nullable app,
                                                NSError* _Nullable error))completionHandler
    API_AVAILABLE(macos(10.15));
// Never nil: what is not there has the icon of a document. 32 points wide, with larger
// representations.
- (NSImage*)iconForFile:(NSString*)fullPath;

@end

NS_ASSUME_NONNULL_END
