#include "platform/macos/interface/view/TLMButtonPart.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "platform/macos/interface/Menus.h"
#include "platform/macos/interface/view/Grounds.h"
#include "platform/macos/interface/view/Metrics.h"
#include "platform/macos/interface/view/Motion.h"
#include "platform/macos/interface/view/Palette.h"
#include "platform/macos/interface/view/PartList.h"
#include "platform/macos/interface/view/SpokenText.h"
#include "platform/macos/interface/view/StackLook.h"
#include "platform/macos/interface/view/TextLook.h"
#include "platform/macos/Text.h"

using talmo::Ground;
using talmo::ViewRole;

namespace {

constexpr CGFloat pressedAlpha = 0.6;
constexpr CGFloat ringWidth = 1.5;
constexpr CGFloat underlineHeight = 1;
// From the text's lowest line to where the inset begins.
constexpr CGFloat underlineGap = 2;

/// What it stands on; nothing for what has no ground.
std::optional<Ground> groundOf(ViewRole role, bool isHovered) {
  switch (role) {
    case ViewRole::primaryButton:
    case ViewRole::prominentButton:
      return isHovered ? Ground::prominentHover : Ground::prominent;
    case ViewRole::plainButton:
      return isHovered ? Ground::plainHover : Ground::plain;
    case ViewRole::linkButton:
    case ViewRole::ghostButton:
      return std::nullopt;
    default:
      return isHovered ? std::optional(Ground::hover) : std::nullopt;
  }
}

bool isUnderlined(ViewRole role) {
  return role == ViewRole::linkButton || role == ViewRole::ghostButton;
}

}  // namespace

@implementation TLMButtonPart {
  NSStackView* _stack;
  std::optional<talmo::PartList> _parts;
  std::function<void()> _action;
  std::function<talmo::Menu()> _menu;
  CALayer* _underline;
  NSTrackingArea* _area;
  BOOL _isEntered;
  BOOL _isPressed;
}

- (instancetype)initWithRole:(ViewRole)role maker:(talmo::MakePart)makePart {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  _role = role;
  self.wantsLayer = YES;
  // Without it what is visible reaches past the bounds from macOS 14 on, and with it the places
  // where the mouse counts.
  self.clipsToBounds = YES;
  if (isUnderlined(role)) {
    _underline = talmo::makeStillLayer();
    [self.layer addSublayer:_underline];
  }
  [self makeStack];
  _parts.emplace(_stack, role, role, makePart);
  self.accessibilityElement = YES;
  // What is in it is said with it.
  self.accessibilityChildren = @[];
  return self;
}

- (void)makeStack {
  const talmo::Insets insets = talmo::insetsOf(_role, _role);
  _stack = [[NSStackView alloc] initWithFrame:NSZeroRect];
  _stack.orientation = NSUserInterfaceLayoutOrientationHorizontal;
  _stack.alignment = NSLayoutAttributeCenterY;
  _stack.distribution = NSStackViewDistributionFill;
  _stack.spacing = talmo::spacingOf(_role);
  _stack.edgeInsets = NSEdgeInsetsMake(insets.top, insets.left, insets.bottom, insets.right);
  _stack.translatesAutoresizingMaskIntoConstraints = NO;
  [self addSubview:_stack];
  const CGFloat height = talmo::leastHeightOf(_role);
  [NSLayoutConstraint activateConstraints:@[
    [_stack.topAnchor constraintEqualToAnchor:self.topAnchor],
    [_stack.bottomAnchor constraintEqualToAnchor:self.bottomAnchor],
    [_stack.leadingAnchor constraintEqualToAnchor:self.leadingAnchor],
    [_stack.trailingAnchor constraintEqualToAnchor:self.trailingAnchor],
    [self.heightAnchor constraintGreaterThanOrEqualToConstant:height],
    [self.widthAnchor
        constraintGreaterThanOrEqualToConstant:_role == ViewRole::iconButton ? height : 0],
  ]];
}

- (void)show:(const talmo::View&)view {
  _action = view.action;
  _menu = view.menu;
  const bool wasHighlighted = std::exchange(_isHighlighted, view.isHighlighted);
  const bool isMenu = static_cast<bool>(_menu);
  self.accessibilityRole = isMenu ? NSAccessibilityMenuButtonRole : NSAccessibilityButtonRole;
  self.accessibilityLabel = talmo::toNSString(talmo::spokenText(view));
  self.accessibilityHelp = talmo::toNSString(view.accessibilityHint);
  if (_role == ViewRole::row) {
    self.accessibilitySubrole = NSAccessibilityToggleSubrole;
    self.accessibilityValue = @(view.isOn);
  }
  _parts->set(view.children);
  self.needsDisplay = YES;
  if (_isHighlighted && !wasHighlighted) {
    NSAccessibilityPostNotification(self, NSAccessibilityFocusedUIElementChangedNotification);
  }
}

- (void)press {
  TLMButtonPart* const kept NS_VALID_UNTIL_END_OF_SCOPE = self;
  if (_menu) {
    // Below it, from its leading edge on; its y is upwards.
    [talmo::makeMenu(_menu()) popUpMenuPositioningItem:nil atLocation:NSMakePoint(0, 0)
                                                inView:kept];
    return;
  }
  // A copy, as what it does may show a next view, which replaces it.
  const std::function<void()> action = _action;
  if (action) action();
}

// --- The mouse --------------------------------------------------------------------------------

/// Whatever is in it, it is the button that is clicked.
- (NSView*)hitTest:(NSPoint)point {
  return [super hitTest:point] != nil ? self : nil;
}

/// As the view says that the window hosts.
- (BOOL)acceptsFirstMouse:(NSEvent*)event {
  return [self.window.contentView acceptsFirstMouse:event];
}

- (BOOL)mouseDownCanMoveWindow {
  return NO;
}

- (void)mouseDown:(NSEvent*)event {
  [self showPressed:YES];
}

- (void)mouseDragged:(NSEvent*)event {
  [self showPressed:[self isUnder:event.locationInWindow]];
}

- (void)mouseUp:(NSEvent*)event {
  const BOOL wasPressed = _isPressed;
  [self showPressed:NO];
  if (wasPressed && [self isUnder:event.locationInWindow]) [self press];
}

- (void)mouseEntered:(NSEvent*)event {
  _isEntered = YES;
  self.needsDisplay = YES;
}

- (void)mouseExited:(NSEvent*)event {
  _isEntered = NO;
  self.needsDisplay = YES;
}

- (void)updateTrackingAreas {
  [super updateTrackingAreas];
  if (_area != nil) return;
  // Follows the view's visible part by itself.
  _area = [[NSTrackingArea alloc] initWithRect:NSZeroRect
                                       options:NSTrackingMouseEnteredAndExited |
                                               NSTrackingActiveAlways | NSTrackingInVisibleRect
                                         owner:self
                                      userInfo:nil];
  [self addTrackingArea:_area];
}

- (void)resetCursorRects {
  [super resetCursorRects];
  if (_role == ViewRole::linkButton) {
    [self addCursorRect:self.bounds cursor:[NSCursor pointingHandCursor]];
  }
}

- (BOOL)isUnder:(NSPoint)placeInWindow {
  return [self mouse:[self convertPoint:placeInWindow fromView:nil] inRect:self.visibleRect];
}

/// Nothing leaves a window that is taken away; where the mouse is now has to be asked for as well.
- (BOOL)isHovered {
  return _isPressed || (_isEntered && [self isUnder:self.window.mouseLocationOutsideOfEventStream]);
}

- (void)showPressed:(BOOL)isPressed {
  if (isPressed == _isPressed) return;
  _isPressed = isPressed;
  self.alphaValue = isPressed ? pressedAlpha : 1;
  self.needsDisplay = YES;
}

// --- The look ---------------------------------------------------------------------------------

- (BOOL)wantsUpdateLayer {
  return YES;
}

- (void)updateLayer {
  CALayer* const layer = self.layer;
  const BOOL isHovered = [self isHovered];
  const std::optional<Ground> ground =
      _isHighlighted ? Ground::highlight : groundOf(_role, isHovered);
  // Without a ground the corners would only be cut off the text.
  layer.cornerRadius = isUnderlined(_role) ? 0 : talmo::Metrics::rowRadius;
  layer.backgroundColor = ground ? talmo::colourOf(*ground).CGColor : nullptr;
  layer.borderWidth = _isHighlighted ? ringWidth : 0;
  layer.borderColor = talmo::colourOf(Ground::highlightRing).CGColor;
  if (_underline == nil) return;
  _underline.hidden = !isHovered;
  _underline.backgroundColor =
      talmo::colourOf(talmo::TextLook::of(ViewRole::label, _role).ink).CGColor;
  const CGFloat y = std::max(0.0, talmo::insetsOf(_role, _role).bottom - underlineGap);
  _underline.frame = NSMakeRect(0, y, self.bounds.size.width, underlineHeight);
}

- (void)viewDidChangeEffectiveAppearance {
  [super viewDidChangeEffectiveAppearance];
  self.needsDisplay = YES;
}

// --- Assistive technology ---------------------------------------------------------------------

- (BOOL)accessibilityPerformPress {
  [self press];
  return YES;
}

- (BOOL)isAccessibilityFocused {
  return _isHighlighted;
}

@end
