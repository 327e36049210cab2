// AppKit. Its classes belong to the main thread unless their documentation says otherwise.
// Sections by class, alphabetically; a class comes after the one that it is made from.
#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <Foundation/Foundation.h>
#include <QuartzCore/QuartzCore.h>

#define APPKIT_EXTERN extern "C"

@class NSApplication;
@class NSCell;
@class NSClipView;
@class NSColor;
@class NSCursor;
@class NSEvent;
@class NSFont;
@class NSGraphicsContext;
@class NSImage;
@class NSImageSymbolConfiguration;
@class NSLayoutDimension;
@class NSLayoutXAxisAnchor;
@class NSLayoutYAxisAnchor;
@class NSMenu;
@class NSMenuItem;
@class NSScreen;
@class NSStatusBarButton;
@class NSTrackingArea;
@class NSView;
@class NSWindow;
@protocol NSMenuDelegate;
@protocol NSWindowDelegate;

NS_ASSUME_NONNULL_BEGIN

// --- Constants --------------------------------------------------------------------------------

typedef NSInteger NSControlStateValue NS_TYPED_EXTENSIBLE_ENUM;
static const NSControlStateValue NSControlStateValueOff = 0;
static const NSControlStateValue NSControlStateValueOn = 1;

// A float, not a CGFloat ("NSLayoutConstraint.Priority").
typedef float NSLayoutPriority NS_TYPED_EXTENSIBLE_ENUM;
static const NSLayoutPriority NSLayoutPriorityRequired = 1000;
static const NSLayoutPriority NSLayoutPriorityDragThatCannotResizeWindow = 490;
static const NSLayoutPriority NSLayoutPriorityDefaultLow = 250;

typedef NS_ENUM(NSInteger, NSLayoutConstraintOrientation) {
  NSLayoutConstraintOrientationHorizontal = 0,
  NSLayoutConstraintOrientationVertical = 1,
};
// Another type than the one above, with the same numbers.
typedef NS_ENUM(NSInteger, NSUserInterfaceLayoutOrientation) {
  NSUserInterfaceLayoutOrientationHorizontal = 0,
  NSUserInterfaceLayoutOrientationVertical = 1,
};
typedef NS_ENUM(NSInteger, NSUserInterfaceLayoutDirection) {
  NSUserInterfaceLayoutDirectionRightToLeft = 1,
};

// --- NSAccessibility --------------------------------------------------------------------------

typedef NSString* NSAccessibilityNotificationName NS_TYPED_ENUM;
typedef NSString* NSAccessibilityRole NS_TYPED_ENUM;
typedef NSString* NSAccessibilitySubrole NS_TYPED_ENUM;

APPKIT_EXTERN NSAccessibilityNotificationName const
    NSAccessibilityFocusedUIElementChangedNotification;
APPKIT_EXTERN NSAccessibilityRole const NSAccessibilityButtonRole;
APPKIT_EXTERN NSAccessibilityRole const NSAccessibilityGroupRole;
APPKIT_EXTERN NSAccessibilityRole const NSAccessibilityImageRole;
APPKIT_EXTERN NSAccessibilityRole const NSAccessibilityMenuButtonRole;
APPKIT_EXTERN NSAccessibilitySubrole const NSAccessibilityToggleSubrole API_AVAILABLE(macos(10.9));

APPKIT_EXTERN void NSAccessibilityPostNotification(id element,
                                                   NSAccessibilityNotificationName notification);

// Each is asked by assistive technology and may be overridden, or be set.
@protocol NSAccessibility <NSObject>

@required
@property(getter=isAccessibilityElement) BOOL accessibilityElement API_AVAILABLE(macos(10.10));
@property(getter=isAccessibilityFocused) BOOL accessibilityFocused API_AVAILABLE(macos(10.10));
@property(nullable, copy) NSArray* accessibilityChildren API_AVAILABLE(macos(10.10));
// The hint.
@property(nullable, copy) NSString* accessibilityHelp API_AVAILABLE(macos(10.10));
@property(nullable, copy) NSString* accessibilityLabel API_AVAILABLE(macos(10.10));
@property(nullable, copy) NSAccessibilityRole accessibilityRole API_AVAILABLE(macos(10.10));
@property(nullable, copy) NSAccessibilitySubrole accessibilitySubrole API_AVAILABLE(macos(10.10));
@property(nullable, strong) id accessibilityValue API_AVAILABLE(macos(10.10));
- (BOOL)accessibilityPerformPress API_AVAILABLE(macos(10.10));

@end

// --- NSBezierPath -----------------------------------------------------------------------------

@interface NSBezierPath : NSObject <NSCopying, NSSecureCoding>

+ (NSBezierPath*)bezierPathWithRoundedRect:(NSRect)rect
                                   xRadius:(CGFloat)xRadius
                                   yRadius:(CGFloat)yRadius API_AVAILABLE(macos(10.5));
- (void)fill;

@end

// --- NSCell -----------------------------------------------------------------------------------

@interface NSCell : NSObject <NSCopying, NSCoding>

@property BOOL wraps;

@end

// --- NSColor ----------------------------------------------------------------------------------

typedef NS_ENUM(NSInteger, NSColorSystemEffect) {
  NSColorSystemEffectRollover = 4,
};

// Most of these look at the appearance that is the current one, when they are used.
@interface NSColor : NSObject <NSCopying, NSSecureCoding>

@property(class, strong, readonly) NSColor* alternateSelectedControlTextColor;
@property(class, strong, readonly) NSColor* blackColor;
@property(class, strong, readonly) NSColor* clearColor;
@property(class, strong, readonly) NSColor* controlAccentColor API_AVAILABLE(macos(10.14));
@property(class, strong, readonly) NSColor* labelColor API_AVAILABLE(macos(10.10));
@property(class, strong, readonly) NSColor* linkColor API_AVAILABLE(macos(10.10));
@property(class, strong, readonly) NSColor* quaternarySystemFillColor API_AVAILABLE(macos(14.0));
@property(class, strong, readonly) NSColor* secondaryLabelColor API_AVAILABLE(macos(10.10));
@property(class, strong, readonly) NSColor* secondarySystemFillColor API_AVAILABLE(macos(14.0));
@property(class, strong, readonly) NSColor* separatorColor API_AVAILABLE(macos(10.14));
@property(class, strong, readonly) NSColor* systemFillColor API_AVAILABLE(macos(14.0));
@property(class, strong, readonly) NSColor* systemGreenColor API_AVAILABLE(macos(10.10));
@property(class, strong, readonly) NSColor* systemOrangeColor API_AVAILABLE(macos(10.10));
@property(class, strong, readonly) NSColor* tertiaryLabelColor API_AVAILABLE(macos(10.10));
@property(class, strong, readonly) NSColor* tertiarySystemFillColor API_AVAILABLE(macos(14.0));
@property(class, strong, readonly) NSColor* whiteColor;
// Of the appearance that is the current one now; lives as long as the colour or the pool.
@property(readonly) CGColorRef CGColor NS_RETURNS_INNER_POINTER API_AVAILABLE(macos(10.8));
- (NSColor*)colorWithAlphaComponent:(CGFloat)alpha;
- (NSColor*)colorWithSystemEffect:(NSColorSystemEffect)systemEffect API_AVAILABLE(macos(10.14));
- (void)set;

@end

// --- NSCursor ---------------------------------------------------------------------------------

@interface NSCursor : NSObject <NSSecureCoding>

@property(class, readonly, strong) NSCursor* pointingHandCursor;

@end

// --- NSEvent ----------------------------------------------------------------------------------

typedef NS_ENUM(NSUInteger, NSEventType) {
  NSEventTypeLeftMouseDown = 1,
  NSEventTypeLeftMouseUp = 2,
  NSEventTypeRightMouseDown = 3,
  NSEventTypeRightMouseUp = 4,
  NSEventTypeKeyDown = 10,
  NSEventTypeSystemDefined = 14,
};
// Documented in "NSEventSubtype": a short, as the property that gives it.
typedef NS_ENUM(short, NSEventSubtype) {
  NSEventSubtypeWindowExposed = 0,
};
// Always 64 bits wide, as it has a bit for each type.
typedef NS_OPTIONS(unsigned long long, NSEventMask) {
  NSEventMaskLeftMouseDown = 1ULL << NSEventTypeLeftMouseDown,
  NSEventMaskRightMouseDown = 1ULL << NSEventTypeRightMouseDown,
  NSEventMaskRightMouseUp = 1ULL << NSEventTypeRightMouseUp,
  NSEventMaskKeyDown = 1ULL << NSEventTypeKeyDown,
  // Every bit ("NSEventMaskAny", NSUIntegerMax).
  NSEventMaskAny = __LONG_MAX__ * 2UL + 1UL,
};
typedef NS_OPTIONS(NSUInteger, NSEventModifierFlags) {
  NSEventModifierFlagShift = 1 << 17,
  NSEventModifierFlagControl = 1 << 18,
  NSEventModifierFlagOption = 1 << 19,
  NSEventModifierFlagCommand = 1 << 20,
};

@interface NSEvent : NSObject <NSCopying, NSCoding>

@property(readonly) NSEventType type;
@property(readonly) NSEventModifierFlags modifierFlags;
// Nil for an event of another process.
@property(nullable, readonly, assign) NSWindow* window;
@property(readonly) NSInteger windowNumber;
// In the coordinates of its window, where it has one.
@property(readonly) NSPoint locationInWindow;
// Both raise for what is no key event.
@property(getter=isARepeat, readonly) BOOL ARepeat;
@property(readonly) unsigned short keyCode;
// These two raise for an event that is none of the application's, AppKit's, the system's and the
// periodic ones.
@property(readonly) NSEventSubtype subtype;
@property(readonly) NSInteger data1;
// Retains the event; nil for what has no event of AppKit's.
+ (nullable NSEvent*)eventWithCGEvent:(CGEventRef)cgEvent API_AVAILABLE(macos(10.5));
// Both raise for a type that is not of their kind.
+ (nullable NSEvent*)mouseEventWithType:(NSEventType)type
                               location:(NSPoint)location
                          modifierFlags:(NSEventModifierFlags)flags
                              timestamp:(NSTimeInterval)time
                           windowNumber:(NSInteger)wNum
                                context:(nullable NSGraphicsContext*)unusedPassNil
                            eventNumber:(NSInteger)eNum
                             clickCount:(NSInteger)cNum
                               pressure:(float)pressure;
+ (nullable NSEvent*)keyEventWithType:(NSEventType)type
                             location:(NSPoint)location
                        modifierFlags:(NSEventModifierFlags)flags
                            timestamp:(NSTimeInterval)time
                         windowNumber:(NSInteger)wNum
                              context:(nullable NSGraphicsContext*)unusedPassNil
                           characters:(NSString*)keys
          charactersIgnoringModifiers:(NSString*)ukeys
                            isARepeat:(BOOL)flag
                              keyCode:(unsigned short)code;
// Nil when the monitor cannot be made. The handler is copied, and kept until its monitor is
// removed; it is called on the main thread. A global one sees keys only in a trusted process.
+ (nullable id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask
                                             handler:(void (^)(NSEvent* event))block
    API_AVAILABLE(macos(10.6));
// Nil from the handler stops the event.
+ (nullable id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                            handler:(NSEvent* _Nullable (^)(NSEvent* event))block
    API_AVAILABLE(macos(10.6));
// Once for each monitor.
+ (void)removeMonitor:(id)eventMonitor API_AVAILABLE(macos(10.6));

@end

// --- NSFont -----------------------------------------------------------------------------------

typedef CGFloat NSFontWeight NS_TYPED_EXTENSIBLE_ENUM;

APPKIT_EXTERN const NSFontWeight NSFontWeightRegular API_AVAILABLE(macos(10.11));
APPKIT_EXTERN const NSFontWeight NSFontWeightMedium API_AVAILABLE(macos(10.11));
APPKIT_EXTERN const NSFontWeight NSFontWeightSemibold API_AVAILABLE(macos(10.11));
APPKIT_EXTERN const NSFontWeight NSFontWeightBold API_AVAILABLE(macos(10.11));

@interface NSFont : NSObject <NSCopying, NSSecureCoding>

+ (NSFont*)systemFontOfSize:(CGFloat)fontSize
                     weight:(NSFontWeight)weight API_AVAILABLE(macos(10.11));

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
typedef NSString* NSImageName NS_TYPED_EXTENSIBLE_ENUM;
typedef NS_ENUM(NSInteger, NSImageResizingMode) {
  NSImageResizingModeStretch = 1,
};

@interface NSImage : NSObject <NSCopying, NSCoding, NSSecureCoding>

// Nil where there is none; shared by all who ask for the same name.
+ (nullable NSImage*)imageNamed:(NSImageName)name;
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)name
                          accessibilityDescription:(nullable NSString*)description
    API_AVAILABLE(macos(11.0));
// The handler may be called on any thread that draws the image, and more than once.
+ (NSImage*)imageWithSize:(NSSize)size
                  flipped:(BOOL)drawingHandlerShouldBeCalledWithFlippedContext
           drawingHandler:(BOOL (^)(NSRect dstRect))drawingHandler API_AVAILABLE(macos(10.8));
// Nil for what is no file of a picture.
- (nullable instancetype)initWithData:(NSData*)data;
// In points.
@property NSSize size;
// A property named `template`, which is a keyword here.
- (BOOL)isTemplate API_AVAILABLE(macos(10.5));
- (void)setTemplate:(BOOL)isTemplate API_AVAILABLE(macos(10.5));
@property(nullable, copy) NSString* accessibilityDescription API_AVAILABLE(macos(10.6));
@property NSEdgeInsets capInsets API_AVAILABLE(macos(10.10));
@property NSImageResizingMode resizingMode API_AVAILABLE(macos(10.10));
// Not the caller's; lives as long as the autorelease pool. The frame is changed to what the picture
// was made for; null stands for the image's own size.
- (nullable CGImageRef)CGImageForProposedRect:(nullable NSRect*)proposedDestRect
                                      context:(nullable NSGraphicsContext*)referenceContext
                                        hints:(nullable NSDictionary<NSImageHintKey, id>*)hints
    CF_RETURNS_NOT_RETAINED API_AVAILABLE(macos(10.6));

@end

// --- NSImageSymbolConfiguration ---------------------------------------------------------------

API_AVAILABLE(macos(11.0))
@interface NSImageSymbolConfiguration : NSObject <NSCopying, NSSecureCoding>

+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(NSFontWeight)weight;

@end

// --- NSLayoutAnchor ---------------------------------------------------------------------------

@class NSLayoutConstraint;

API_AVAILABLE(macos(10.11))
@interface NSLayoutAnchor<AnchorType> : NSObject <NSCopying, NSCoding>

// Not active yet.
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor<AnchorType>*)anchor;
- (NSLayoutConstraint*)constraintLessThanOrEqualToAnchor:(NSLayoutAnchor<AnchorType>*)anchor;
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor<AnchorType>*)anchor
                                      constant:(CGFloat)c;

@end

API_AVAILABLE(macos(10.11))
@interface NSLayoutDimension : NSLayoutAnchor <NSLayoutDimension*>

- (NSLayoutConstraint*)constraintEqualToConstant:(CGFloat)c;
- (NSLayoutConstraint*)constraintGreaterThanOrEqualToConstant:(CGFloat)c;
- (NSLayoutConstraint*)constraintLessThanOrEqualToConstant:(CGFloat)c;

@end

API_AVAILABLE(macos(10.11))
@interface NSLayoutXAxisAnchor : NSLayoutAnchor <NSLayoutXAxisAnchor*>
@end

API_AVAILABLE(macos(10.11))
@interface NSLayoutYAxisAnchor : NSLayoutAnchor <NSLayoutYAxisAnchor*>
@end

// --- NSLayoutConstraint -----------------------------------------------------------------------

typedef NS_ENUM(NSInteger, NSLayoutAttribute) {
  NSLayoutAttributeLeading = 5,
  NSLayoutAttributeCenterY = 10,
};

API_AVAILABLE(macos(10.7)) @interface NSLayoutConstraint : NSObject

// Cannot change from or to required once the constraint is active.
@property NSLayoutPriority priority;
@property(getter=isActive) BOOL active API_AVAILABLE(macos(10.10));
+ (void)activateConstraints:(NSArray<NSLayoutConstraint*>*)constraints API_AVAILABLE(macos(10.10));

@end

// --- NSMenu -----------------------------------------------------------------------------------

@interface NSMenu : NSObject <NSCopying, NSCoding>

- (instancetype)initWithTitle:(NSString*)title NS_DESIGNATED_INITIALIZER;
- (instancetype)initWithCoder:(NSCoder*)coder NS_DESIGNATED_INITIALIZER;
- (void)addItem:(NSMenuItem*)newItem;
@property(nullable, weak) id<NSMenuDelegate> delegate;
// Returns when the menu has closed; whether an item was chosen. The place is in the view's
// coordinates, and where the menu's upper left corner comes when no item is named.
- (BOOL)popUpMenuPositioningItem:(nullable NSMenuItem*)item
                      atLocation:(NSPoint)location
                          inView:(nullable NSView*)view API_AVAILABLE(macos(10.6));

@end

@protocol NSMenuDelegate <NSObject>

@optional
- (void)menuWillOpen:(NSMenu*)menu API_AVAILABLE(macos(10.5));
- (void)menuDidClose:(NSMenu*)menu API_AVAILABLE(macos(10.5));

@end

// --- NSMenuItem -------------------------------------------------------------------------------

@interface NSMenuItem : NSObject <NSCopying, NSCoding>

+ (NSMenuItem*)separatorItem;
// The modifier of the key equivalent is Command.
- (instancetype)initWithTitle:(NSString*)string
                       action:(nullable SEL)selector
                keyEquivalent:(NSString*)charCode NS_DESIGNATED_INITIALIZER;
- (instancetype)initWithCoder:(NSCoder*)coder NS_DESIGNATED_INITIALIZER;
@property NSControlStateValue state;
@property(nullable, weak) id target;
@property NSInteger tag;
@property(nullable, strong) id representedObject;

@end

// --- NSResponder ------------------------------------------------------------------------------

@protocol NSStandardKeyBindingResponding <NSObject>

@optional
// The Escape key's.
- (void)cancelOperation:(nullable id)sender;

@end

@interface NSResponder : NSObject <NSCoding>

- (instancetype)init NS_DESIGNATED_INITIALIZER;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_DESIGNATED_INITIALIZER;
- (void)mouseDown:(NSEvent*)event;
- (void)mouseUp:(NSEvent*)event;
- (void)mouseDragged:(NSEvent*)event;
- (void)mouseEntered:(NSEvent*)event;
- (void)mouseExited:(NSEvent*)event;
- (void)keyDown:(NSEvent*)event;

@end

@interface NSResponder (NSStandardKeyBindingMethods) <NSStandardKeyBindingResponding>
@end

// --- NSApplication ----------------------------------------------------------------------------

APPKIT_EXTERN __kindof NSApplication* _Null_unspecified NSApp;

// Sets up the application and runs it; does not return: the end of the application is exit(0).
APPKIT_EXTERN int NSApplicationMain(int argc, const char* _Nonnull argv[_Nonnull]);

@protocol NSApplicationDelegate <NSObject>
@optional
- (void)applicationDidFinishLaunching:(NSNotification*)notification;
@end

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
  NSApplicationActivationPolicyAccessory = 1,
} API_AVAILABLE(macos(10.6));

@interface NSApplication : NSResponder

// Makes the application on first use, and sets NSApp.
@property(class, readonly, strong) __kindof NSApplication* sharedApplication;
@property(nullable, weak) id<NSApplicationDelegate> delegate;
- (void)activate API_AVAILABLE(macos(14.0));
// Does not return, unless the delegate says no.
- (void)terminate:(nullable id)sender;
- (void)orderFrontStandardAboutPanel:(nullable id)sender;
// The last that was taken from the queue; nil before the first.
@property(nullable, readonly, strong) NSEvent* currentEvent;
// A process without a bundle is no application, at first. Declared as two methods: the one that
// sets it says whether it could.
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy
    API_AVAILABLE(macos(10.6));
- (void)finishLaunching;
@property(readonly, copy) NSArray<NSWindow*>* windows;
@property(nullable, readonly, weak) NSWindow* keyWindow;
// Nil for the date is a date that has passed.
- (nullable NSEvent*)nextEventMatchingMask:(NSEventMask)mask
                                 untilDate:(nullable NSDate*)expiration
                                    inMode:(NSRunLoopMode)mode
                                   dequeue:(BOOL)deqFlag;
- (void)sendEvent:(NSEvent*)event;

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

// --- NSScreen ---------------------------------------------------------------------------------

@interface NSScreen : NSObject

// The one with the window that has the keys; nil while there is no screen.
@property(class, nullable, readonly, strong) NSScreen* mainScreen;
@property(readonly) NSRect visibleFrame;

@end

// --- NSStatusBar ------------------------------------------------------------------------------

@class NSStatusItem;

@interface NSStatusBar : NSObject

@property(class, readonly, strong) NSStatusBar* systemStatusBar;
// The bar does not keep the item: it goes when nobody does.
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;

@end

// --- NSStatusItem -----------------------------------------------------------------------------

@interface NSStatusItem : NSObject

// With a menu the button opens it instead of sending its action.
@property(nullable, strong) NSMenu* menu;
@property(nullable, readonly, strong) NSStatusBarButton* button API_AVAILABLE(macos(10.10));

@end

// --- NSTrackingArea ---------------------------------------------------------------------------

typedef NS_OPTIONS(NSUInteger, NSTrackingAreaOptions) {
  NSTrackingMouseEnteredAndExited = 0x01,
  NSTrackingActiveAlways = 0x80,
  // The rectangle that it is made with does not count then.
  NSTrackingInVisibleRect = 0x200,
};

API_AVAILABLE(macos(10.5)) @interface NSTrackingArea : NSObject<NSCopying, NSCoding>

// The owner is not retained.
- (instancetype)initWithRect:(NSRect)rect
                     options:(NSTrackingAreaOptions)options
                       owner:(nullable id)owner
                    userInfo:(nullable NSDictionary*)userInfo;

@end

NS_ASSUME_NONNULL_END

#include <AppKit/NSView.h>
#include <AppKit/NSWindow.h>

NS_ASSUME_NONNULL_BEGIN

// --- NSWorkspace ------------------------------------------------------------------------------

// Posted to the workspace's own notification centre.
APPKIT_EXTERN NSNotificationName const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
    API_AVAILABLE(macos(10.10));

API_AVAILABLE(macos(10.15)) @interface NSWorkspaceOpenConfiguration : NSObject<NSCopying>

+ (instancetype)configuration;
@property BOOL createsNewApplicationInstance;

@end

@interface NSWorkspace : NSObject

@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(readonly, strong) NSNotificationCenter* notificationCenter;
@property(readonly) BOOL accessibilityDisplayShouldReduceMotion API_AVAILABLE(macos(10.12));
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
