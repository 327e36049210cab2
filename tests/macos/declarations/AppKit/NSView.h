// AppKit: views, which belong to the main thread. Read by way of AppKit/AppKit.h only.
#pragma once

NS_ASSUME_NONNULL_BEGIN

// --- NSView -----------------------------------------------------------------------------------

typedef NS_OPTIONS(NSUInteger, NSAutoresizingMaskOptions) {
  NSViewWidthSizable = 2,
  NSViewHeightSizable = 16,
};

@interface NSView : NSResponder <NSAccessibility>

- (instancetype)initWithFrame:(NSRect)frameRect NS_DESIGNATED_INITIALIZER;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_DESIGNATED_INITIALIZER;

// The view tree. A view keeps its subviews, and neither its superview nor its window.
@property(nullable, readonly, assign) NSWindow* window;
@property(copy) NSArray<__kindof NSView*>* subviews;
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
- (void)viewDidMoveToWindow;

// Places.
@property NSRect frame;
@property NSRect bounds;
@property(readonly) NSRect visibleRect;
@property(getter=isFlipped, readonly) BOOL flipped;
@property NSAutoresizingMaskOptions autoresizingMask;
// Nil means the window's coordinates.
- (NSPoint)convertPoint:(NSPoint)point fromView:(nullable NSView*)view;
- (NSPoint)convertPoint:(NSPoint)point toView:(nullable NSView*)view;
- (BOOL)mouse:(NSPoint)point inRect:(NSRect)rect;
- (BOOL)scrollRectToVisible:(NSRect)rect;

// Layout.
@property BOOL translatesAutoresizingMaskIntoConstraints API_AVAILABLE(macos(10.7));
@property(readonly, strong) NSLayoutXAxisAnchor* leadingAnchor API_AVAILABLE(macos(10.11));
@property(readonly, strong) NSLayoutXAxisAnchor* trailingAnchor API_AVAILABLE(macos(10.11));
@property(readonly, strong) NSLayoutYAxisAnchor* topAnchor API_AVAILABLE(macos(10.11));
@property(readonly, strong) NSLayoutYAxisAnchor* bottomAnchor API_AVAILABLE(macos(10.11));
@property(readonly, strong) NSLayoutDimension* widthAnchor API_AVAILABLE(macos(10.11));
@property(readonly, strong) NSLayoutDimension* heightAnchor API_AVAILABLE(macos(10.11));
// The least size that its own and its subviews' constraints allow.
@property(readonly) NSSize fittingSize API_AVAILABLE(macos(10.7));
- (void)layoutSubtreeIfNeeded API_AVAILABLE(macos(10.7));
- (void)setContentHuggingPriority:(NSLayoutPriority)priority
                   forOrientation:(NSLayoutConstraintOrientation)orientation
    API_AVAILABLE(macos(10.7));
- (void)setContentCompressionResistancePriority:(NSLayoutPriority)priority
                                 forOrientation:(NSLayoutConstraintOrientation)orientation
    API_AVAILABLE(macos(10.7));
@property NSUserInterfaceLayoutDirection userInterfaceLayoutDirection API_AVAILABLE(macos(10.8));

// What the layout places, without what a view draws around it.
- (NSRect)alignmentRectForFrame:(NSRect)frame API_AVAILABLE(macos(10.7));

// Drawing. A view that updates its layer is told to with its appearance as the current one.
@property BOOL needsDisplay;
@property CGFloat alphaValue API_AVAILABLE(macos(10.5));
// No at first for what is linked with the SDK of macOS 14; visibleRect may then be larger than the
// bounds ("AppKit Release Notes for macOS 14").
@property BOOL clipsToBounds API_AVAILABLE(macos(10.9));
@property BOOL wantsLayer API_AVAILABLE(macos(10.5));
// There once the view wants one.
@property(nullable, strong) CALayer* layer API_AVAILABLE(macos(10.5));
@property(readonly) BOOL wantsUpdateLayer API_AVAILABLE(macos(10.8));
- (void)updateLayer API_AVAILABLE(macos(10.8));
- (void)viewDidChangeEffectiveAppearance API_AVAILABLE(macos(10.14));

// The mouse. The point is in the coordinates of the superview.
- (nullable NSView*)hitTest:(NSPoint)point;
- (BOOL)acceptsFirstMouse:(nullable NSEvent*)event;
// No for a view that is opaque, yes for any other.
@property(readonly) BOOL mouseDownCanMoveWindow;
- (void)addTrackingArea:(NSTrackingArea*)trackingArea API_AVAILABLE(macos(10.5));
- (void)updateTrackingAreas API_AVAILABLE(macos(10.5));
- (void)resetCursorRects;
- (void)addCursorRect:(NSRect)rect cursor:(NSCursor*)object;

@end

// --- NSClipView -------------------------------------------------------------------------------

// Flipped as its document is.
@interface NSClipView : NSView
@end

// --- NSControl --------------------------------------------------------------------------------

typedef NS_ENUM(NSUInteger, NSLineBreakMode) {
  NSLineBreakByWordWrapping = 0,
  NSLineBreakByTruncatingTail = 4,
};

@interface NSControl : NSView

@property(nullable, weak) id target;
@property(nullable) SEL action;
@property(nullable, strong) NSFont* font;
@property NSLineBreakMode lineBreakMode API_AVAILABLE(macos(10.10));
@property BOOL usesSingleLineMode API_AVAILABLE(macos(10.10));
@property(copy) NSString* stringValue;
// Whether a text that is cut is shown whole while the mouse rests on it.
@property BOOL allowsExpansionToolTips API_AVAILABLE(macos(10.8));
@property(nullable, strong) __kindof NSCell* cell;
- (void)performClick:(nullable id)sender;
// Gives the mask that was before, as far as an NSInteger holds it.
- (NSInteger)sendActionOn:(NSEventMask)mask;

@end

// --- NSButton ---------------------------------------------------------------------------------

@interface NSButton : NSControl

@property(nullable, strong) NSImage* image;

@end

// --- NSImageView ------------------------------------------------------------------------------

typedef NS_ENUM(NSUInteger, NSImageScaling) {
  NSImageScaleNone = 2,
  NSImageScaleProportionallyUpOrDown = 3,
};

@interface NSImageView : NSControl

@property(nullable, strong) NSImage* image;
@property NSImageScaling imageScaling;
// Counts for templates, which symbols are.
@property(nullable, copy) NSColor* contentTintColor API_AVAILABLE(macos(10.14));
@property(nullable, strong, readwrite)
    NSImageSymbolConfiguration* symbolConfiguration API_AVAILABLE(macos(11.0));

@end

// --- NSScrollView -----------------------------------------------------------------------------

typedef NS_ENUM(NSInteger, NSScrollerStyle) {
  NSScrollerStyleOverlay = 1,
};

@interface NSScrollView : NSView

@property(nullable, strong) __kindof NSView* documentView;
@property(strong) NSClipView* contentView;
@property BOOL drawsBackground;
@property BOOL hasVerticalScroller;
@property BOOL autohidesScrollers;
@property NSScrollerStyle scrollerStyle API_AVAILABLE(macos(10.7));

@end

// --- NSStackView ------------------------------------------------------------------------------

typedef NS_ENUM(NSInteger, NSStackViewDistribution) {
  NSStackViewDistributionFill = 0,
} API_AVAILABLE(macos(10.11));

static const CGFloat NSStackViewSpacingUseDefault API_AVAILABLE(macos(10.9)) = __FLT_MAX__;

API_AVAILABLE(macos(10.9)) @interface NSStackView : NSView

@property NSUserInterfaceLayoutOrientation orientation;
@property NSLayoutAttribute alignment;
@property NSEdgeInsets edgeInsets;
// Gravity areas at first.
@property NSStackViewDistribution distribution API_AVAILABLE(macos(10.11));
@property CGFloat spacing;
- (void)setCustomSpacing:(CGFloat)spacing afterView:(NSView*)view;
@property(readonly, copy) NSArray<__kindof NSView*>* arrangedSubviews API_AVAILABLE(macos(10.11));
- (void)addArrangedSubview:(NSView*)view API_AVAILABLE(macos(10.11));
// The view stays a subview.
- (void)removeArrangedSubview:(NSView*)view API_AVAILABLE(macos(10.11));
- (void)setHuggingPriority:(NSLayoutPriority)priority
            forOrientation:(NSLayoutConstraintOrientation)orientation;

@end

// --- NSStatusBarButton ------------------------------------------------------------------------

API_AVAILABLE(macos(10.10)) @interface NSStatusBarButton : NSButton
@end

// --- NSTextField ------------------------------------------------------------------------------

@interface NSTextField : NSControl

@property(nullable, copy) NSColor* textColor;
@property BOOL drawsBackground;
@property(getter=isBordered) BOOL bordered;
@property(getter=isBezeled) BOOL bezeled;
@property(getter=isEditable) BOOL editable;
@property(getter=isSelectable) BOOL selectable;
@property CGFloat preferredMaxLayoutWidth API_AVAILABLE(macos(10.8));
// 0 for as many as it needs.
@property NSInteger maximumNumberOfLines API_AVAILABLE(macos(10.11));

@end

// --- NSVisualEffectView -----------------------------------------------------------------------

typedef NS_ENUM(NSInteger, NSVisualEffectMaterial) {
  NSVisualEffectMaterialPopover API_AVAILABLE(macos(10.11)) = 6,
  NSVisualEffectMaterialUnderWindowBackground API_AVAILABLE(macos(10.14)) = 21,
} API_AVAILABLE(macos(10.10));
typedef NS_ENUM(NSInteger, NSVisualEffectBlendingMode) {
  NSVisualEffectBlendingModeBehindWindow = 0,
} API_AVAILABLE(macos(10.10));
typedef NS_ENUM(NSInteger, NSVisualEffectState) {
  NSVisualEffectStateFollowsWindowActiveState = 0,
  NSVisualEffectStateActive = 1,
} API_AVAILABLE(macos(10.10));

API_AVAILABLE(macos(10.10)) @interface NSVisualEffectView : NSView

@property NSVisualEffectMaterial material;
@property NSVisualEffectBlendingMode blendingMode;
@property NSVisualEffectState state;
// As the view that fills a window, also the shape of the window and its shadow.
@property(nullable, retain) NSImage* maskImage;

@end

NS_ASSUME_NONNULL_END
