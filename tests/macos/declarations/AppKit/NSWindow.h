// AppKit: windows, which belong to the main thread. Read by way of AppKit/AppKit.h only.
#pragma once

NS_ASSUME_NONNULL_BEGIN

// --- NSWindow ---------------------------------------------------------------------------------

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
  NSWindowStyleMaskBorderless = 0,
  NSWindowStyleMaskTitled = 1 << 0,
  NSWindowStyleMaskClosable = 1 << 1,
  // Counts for a panel.
  NSWindowStyleMaskNonactivatingPanel = 1 << 7,
  NSWindowStyleMaskFullSizeContentView API_AVAILABLE(macos(10.10)) = 1 << 15,
};
typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior) {
  NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
  NSWindowCollectionBehaviorTransient API_AVAILABLE(macos(10.6)) = 1 << 3,
  NSWindowCollectionBehaviorIgnoresCycle API_AVAILABLE(macos(10.6)) = 1 << 6,
  NSWindowCollectionBehaviorFullScreenAuxiliary API_AVAILABLE(macos(10.7)) = 1 << 8,
} API_AVAILABLE(macos(10.5));
typedef NS_OPTIONS(NSUInteger, NSWindowOcclusionState) {
  NSWindowOcclusionStateVisible = 1UL << 1,
} API_AVAILABLE(macos(10.9));
typedef NS_ENUM(NSUInteger, NSBackingStoreType) {
  NSBackingStoreBuffered = 2,
};
typedef NS_ENUM(NSInteger, NSWindowTitleVisibility) {
  NSWindowTitleVisible = 0,
  NSWindowTitleHidden = 1,
} API_AVAILABLE(macos(10.10));

APPKIT_EXTERN NSNotificationName NSWindowDidChangeOcclusionStateNotification
    API_AVAILABLE(macos(10.9));

@interface NSWindow : NSResponder <NSAccessibility>

// A window that is not deferred has a window of the window server, and so a number, at once.
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backingStoreType
                              defer:(BOOL)flag NS_DESIGNATED_INITIALIZER;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_UNAVAILABLE;

// Not retained.
@property(nullable, weak) id<NSWindowDelegate> delegate;
@property(nullable, strong) __kindof NSView* contentView;
// 0 or less while the window server has no window for it.
@property(readonly) NSInteger windowNumber;
@property(copy) NSString* title;
@property NSWindowTitleVisibility titleVisibility API_AVAILABLE(macos(10.10));
@property BOOL titlebarAppearsTransparent API_AVAILABLE(macos(10.10));
@property(getter=isMovableByWindowBackground) BOOL movableByWindowBackground;
@property(getter=isOpaque) BOOL opaque;
@property(nullable, copy) NSColor* backgroundColor;
@property BOOL hasShadow;
- (void)invalidateShadow;
@property NSWindowCollectionBehavior collectionBehavior API_AVAILABLE(macos(10.5));
@property(readonly) NSWindowOcclusionState occlusionState API_AVAILABLE(macos(10.9));
// Yes at first, also with ARC, which then lets go of a window once too often.
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property BOOL hidesOnDeactivate;

@property(readonly) NSRect frame;
@property(nullable, readonly, strong) NSScreen* screen;
// Returns when the animation is over; the time that it takes is asked for below.
- (void)setFrame:(NSRect)frameRect display:(BOOL)displayFlag animate:(BOOL)animateFlag;
- (NSTimeInterval)animationResizeTime:(NSRect)newFrame;
- (void)center;

@property(getter=isVisible, readonly) BOOL visible;
- (void)makeKeyAndOrderFront:(nullable id)sender;
- (void)orderOut:(nullable id)sender;
// Tells the delegate that it will close, and asks nobody; does so for a hidden window, too.
- (void)close;
// As the close button does: asks the delegate, then closes.
- (void)performClose:(nullable id)sender;
- (void)sendEvent:(NSEvent*)event;
@property(readonly) BOOL canBecomeKeyWindow;
@property(readonly) BOOL canBecomeMainWindow;
@property(readonly) NSPoint mouseLocationOutsideOfEventStream;

@end

@protocol NSWindowDelegate <NSObject>

@optional
- (void)windowDidResignKey:(NSNotification*)notification;
- (void)windowWillClose:(NSNotification*)notification;

@end

// --- NSPanel ----------------------------------------------------------------------------------

@interface NSPanel : NSWindow

// Also sets the window's level.
@property(getter=isFloatingPanel) BOOL floatingPanel;

@end

NS_ASSUME_NONNULL_END
