#include "platform/macos/interface/TalmoPanel.h"

#include "platform/macos/interface/view/Metrics.h"

namespace {

constexpr NSTimeInterval resizeSeconds = 0.12;

}  // namespace

@implementation TalmoPanel

- (instancetype)init {
  // At once, as a window that waits for its first showing has no number.
  self =
      [super initWithContentRect:NSMakeRect(0, 0, talmo::Metrics::width, talmo::Metrics::width)
                       styleMask:NSWindowStyleMaskBorderless | NSWindowStyleMaskNonactivatingPanel
                         backing:NSBackingStoreBuffered
                           defer:NO];
  if (self == nil) return nil;
  // ARC owns it.
  self.releasedWhenClosed = NO;
  self.title = @"Talmo";
  self.floatingPanel = YES;
  self.collectionBehavior =
      NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorTransient |
      NSWindowCollectionBehaviorIgnoresCycle | NSWindowCollectionBehaviorFullScreenAuxiliary;
  // Its application is hardly ever the active one.
  self.hidesOnDeactivate = NO;
  self.opaque = NO;
  self.backgroundColor = [NSColor clearColor];
  self.hasShadow = YES;
  return self;
}

// A borderless window says no.
- (BOOL)canBecomeKeyWindow {
  return YES;
}

- (BOOL)canBecomeMainWindow {
  return NO;
}

- (void)cancelOperation:(id)sender {
  void (^const onCancel)(void) = self.onCancel;
  if (onCancel != nil) onCancel();
}

- (NSTimeInterval)animationResizeTime:(NSRect)newFrame {
  return resizeSeconds;
}

@end
