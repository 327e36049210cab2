#include "platform/macos/interface/view/TLMHostingView.h"

#include <cassert>
#include <cmath>
#include <utility>

#include "platform/macos/interface/view/Metrics.h"
#include "platform/macos/interface/view/PartFactory.h"
#include "platform/macos/interface/view/PartKey.h"
#include "platform/macos/interface/view/TLMButtonPart.h"
#include "platform/macos/interface/view/TLMTextPart.h"

using talmo::Metrics;
using talmo::ViewRole;

namespace {

// Less than what keeps a window its size (500): a content never resizes its window.
constexpr NSLayoutPriority inWindow = 499;

/// What an effect shows itself through: its middle is stretched, its corners are not.
NSImage* makeGlassMask() {
  constexpr CGFloat radius = Metrics::glassRadius;
  constexpr CGFloat side = 2 * radius + 1;
  NSImage* const mask = [NSImage imageWithSize:NSMakeSize(side, side) flipped:NO
                                drawingHandler:^BOOL(NSRect place) {
                                  [[NSColor blackColor] set];
                                  [[NSBezierPath bezierPathWithRoundedRect:place xRadius:radius
                                                                   yRadius:radius] fill];
                                  return YES;
                                }];
  mask.capInsets = NSEdgeInsetsMake(radius, radius, radius, radius);
  mask.resizingMode = NSImageResizingModeStretch;
  return mask;
}

}  // namespace

@implementation TLMHostingView {
  CGFloat _width;
  NSView<TLMPart>* _root;
  talmo::PartKey _rootKey;
  talmo::Size _idealSize;
}

- (instancetype)initWithWidth:(CGFloat)width {
  self = [super initWithFrame:NSMakeRect(0, 0, width, width)];
  if (self == nil) return nil;
  _width = width;
  self.blendingMode = NSVisualEffectBlendingModeBehindWindow;
  return self;
}

- (void)show:(const talmo::View&)content {
  assert(NSThread.isMainThread);
  talmo::PartKey key = talmo::PartKey::of(content);
  if (_root == nil || key != _rootKey) {
    _rootKey = std::move(key);
    [self useGroundOf:content.role];
    [self useRoot:talmo::makePart(content, content.role)];
  }
  [_root show:content];
  // A body is as high as its lines, and breaks them at a width that it has only now.
  [self layoutSubtreeIfNeeded];
  [self wrapTextsIn:_root];
  const talmo::Size ideal{.width = _width, .height = std::ceil(_root.fittingSize.height)};
  if (std::exchange(_idealSize, ideal) == ideal) return;
  // A copy, as the callback may let go of the window.
  const std::function<void(talmo::Size)> onSizeChange = self.onSizeChange;
  if (onSizeChange) onSizeChange(ideal);
}

- (BOOL)pressPrimaryButton {
  TLMButtonPart* const button = [self primaryButtonIn:_root];
  if (button == nil) return NO;
  [button press];
  return YES;
}

// Where nothing takes the press, also where the ground counts as opaque.
- (BOOL)mouseDownCanMoveWindow {
  return YES;
}

/// The ground that a content of that role stands on.
- (void)useGroundOf:(ViewRole)role {
  const BOOL isGlass = role == ViewRole::glass;
  self.material =
      isGlass ? NSVisualEffectMaterialPopover : NSVisualEffectMaterialUnderWindowBackground;
  // A panel's application is hardly ever the active one.
  self.state = isGlass ? NSVisualEffectStateActive : NSVisualEffectStateFollowsWindowActiveState;
  self.maskImage = isGlass ? makeGlassMask() : nil;
}

- (void)useRoot:(NSView<TLMPart>*)root {
  [_root removeFromSuperview];
  _root = root;
  root.translatesAutoresizingMaskIntoConstraints = NO;
  [self addSubview:root];
  // A panel's content hangs from the upper edge while the panel changes its size.
  NSLayoutConstraint* const bottom =
      _rootKey.role == ViewRole::glass
          ? [root.bottomAnchor constraintLessThanOrEqualToAnchor:self.bottomAnchor]
          : [root.bottomAnchor constraintEqualToAnchor:self.bottomAnchor];
  bottom.priority = inWindow;
  // A panel's, which nothing else keeps from the lower edge; a window's own edge is stronger.
  NSLayoutConstraint* const height = [root.heightAnchor constraintEqualToConstant:0];
  height.priority = NSLayoutPriorityDefaultLow;
  [NSLayoutConstraint activateConstraints:@[
    [root.topAnchor constraintEqualToAnchor:self.topAnchor],
    [root.leadingAnchor constraintEqualToAnchor:self.leadingAnchor],
    [root.widthAnchor constraintEqualToConstant:_width],
    bottom,
    height,
  ]];
}

- (void)wrapTextsIn:(NSView*)view {
  if ([view isKindOfClass:[TLMTextPart class]]) {
    [static_cast<TLMTextPart*>(view) wrapAtOwnWidth];
  }
  for (NSView* subview in view.subviews) [self wrapTextsIn:subview];
}

- (TLMButtonPart*)primaryButtonIn:(NSView*)view {
  if ([view isKindOfClass:[TLMButtonPart class]]) {
    TLMButtonPart* const button = static_cast<TLMButtonPart*>(view);
    if (button.role == ViewRole::primaryButton) return button;
  }
  for (NSView* subview in view.subviews) {
    TLMButtonPart* const button = [self primaryButtonIn:subview];
    if (button != nil) return button;
  }
  return nil;
}

@end
